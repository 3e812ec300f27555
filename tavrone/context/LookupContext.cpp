#include "tavrone/context/LookupContext.h"

#include "tavrone/context/UserClassManager.h"
#include "tavrone/core/Raise.h"
#include "tavrone/pipeline/IInputFormat.h"

namespace tavrone {

namespace {

// Drops the one reference that comes with an object which the directory refuses; an object that nobody counts yet goes.
void refuse(Object *object) {
  auto const *counted = dynamic_cast<ObjectRef *>(object);
  if (counted != nullptr && counted->getRefCount() == 0) object->addRef();
  ObjectRef::releaseRef(object);
}

}  // namespace

LookupContextImpl::LookupContextImpl(LookupContextImpl const &) : Object(), ObjectRef(), ILookupContext() {}
Object *LookupContextImpl::clone() const {
  return new LookupContextImpl(*this);
}

ObjectPtrMap<Object> &LookupContextImpl::getLookupContextList() {
  static ObjectPtrMap<Object> directory;
  return directory;
}

Object *LookupContextImpl::lookupComponent(tvstring const &name) {
  return lookup(name);
}

SmartPtr<IInputFormat> LookupContextImpl::lookupInputFormat(tvstring const &name) {
  return lookupService<IInputFormat>(name);
}

void LookupContextImpl::bind(tvstring const &name, Object *object) {
  auto const [entry, inserted] = getLookupContextList().try_emplace(name, object);
  if (inserted) {
    ObjectRef::addRef(object);
    return;
  }
  if (entry->second != object) refuse(object);
  raise<NamingException>(name + " already bound", "cpp/LookupContextImpl");
}

void LookupContextImpl::rebind(tvstring const &name, Object *object) {
  ObjectPtrMap<Object> &directory = getLookupContextList();
  auto const entry = directory.find(name);
  if (entry != directory.end() && entry->second == object) return;
  LookupContextImpl::unbind(name);
  ObjectRef::addRef(object);
  directory.emplace(name, object);
}

Object *LookupContextImpl::lookup(tvstring const &name) {
  ObjectPtrMap<Object> const &directory = getLookupContextList();
  auto const entry = directory.find(name);
  return entry == directory.end() ? nullptr : entry->second;
}

void LookupContextImpl::unbind(tvstring const &name) {
  ObjectPtrMap<Object> &directory = getLookupContextList();
  auto const entry = directory.find(name);
  if (entry == directory.end()) return;
  Object *const object = entry->second;
  directory.erase(entry);
  ObjectRef::releaseRef(object);
}

template <class T>
SmartPtr<T> LookupContextImpl::lookupService(tvstring const &name) {
  if (auto *factory = dynamic_cast<ObjectFactory *>(lookup(name))) {
    SmartPtr<Object> const component = factory->create();
    if (T *service = dynamic_cast<T *>(component.get())) return service;
  }
  raise<NamingException>("Unable to lookup '" + name + "'", "cpp/LookupContextImpl", 19);
}

LookupContextFactory *LookupContextFactory::getLookupContextFactory() {
  static LookupContextFactory factory;
  return &factory;
}

SmartPtr<ILookupContext> LookupContextFactory::getLookupContext() {
  return getLookupContextFactory()->createLookupContext();
}

SmartPtr<ILookupContext> LookupContextFactory::createLookupContext() {
  return new LookupContextImpl;
}

}  // namespace tavrone

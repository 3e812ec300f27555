#include "tavrone/context/LookupContext.h"

#include <map>
#include <memory>
#include <typeinfo>

#include "tavrone/context/UserClassManager.h"
#include "tavrone/core/Raise.h"
#include "tavrone/pipeline/IInputFormat.h"
#include "tavrone/pipeline/IMessage.h"
#include "tavrone/pipeline/IMessageMapping.h"
#include "tavrone/pipeline/IOutputFormat.h"
#include "tavrone/pipeline/OutputDevice.h"
#include "tavrone/routing/IMessageFlow.h"

namespace tavrone {

namespace {

// Drops the one reference that comes with an object which the directory refuses; an object that nobody counts yet goes.
void refuse(Object *object) {
  auto const *counted = dynamic_cast<ObjectRef *>(object);
  if (counted != nullptr && counted->getRefCount() == 0) object->addRef();
  ObjectRef::releaseRef(object);
}

// What is bound, and the output protocols among it once more as such: every message looks one up, and a cast from
// Object is dear. Objects go first at exit.
struct Directory {
  std::map<tvstring, IOutputProtocol *> protocols;
  ObjectPtrMap<Object> objects;
};
Directory &directory() {
  static Directory bound;
  return bound;
}

void noteBound(tvstring const &name, Object *object) {
  if (auto *const protocol = dynamic_cast<IOutputProtocol *>(object)) directory().protocols.emplace(name, protocol);
}

// Text of its own: what threads share has no count that they touch.
tvstring copyOf(tvstring const &name) {
  return tvstring(name.data(), name.length());
}

// Puts the object under a name that is free, with a reference of the directory's. Should that fail for want of memory,
// an object that nobody else counts goes.
void enter(tvstring const &name, Object *object) {
  struct ReleaseRef {
    void operator()(Object *taken) const { taken->releaseRef(); }
  };
  ObjectRef::addRef(object);
  std::unique_ptr<Object, ReleaseRef> reference(object);
  auto const entry = directory().objects.emplace(copyOf(name), object).first;
  try {
    noteBound(entry->first, object);
  } catch (...) {
    directory().objects.erase(entry);
    throw;
  }
  static_cast<void>(reference.release());
}

}  // namespace

LookupContextImpl::LookupContextImpl(LookupContextImpl const &) : Object(), ObjectRef(), ILookupContext() {}
Object *LookupContextImpl::clone() const {
  return new LookupContextImpl(*this);
}

ObjectPtrMap<Object> &LookupContextImpl::getLookupContextList() {
  return directory().objects;
}

Object *LookupContextImpl::lookupComponent(tvstring const &name) {
  return lookup(name);
}

// A new component, or null unless the object is a factory that makes a T. Held at once, so that one of another kind
// goes.
template <class T>
SmartPtr<T> LookupContextImpl::create(Object *object) {
  auto *const factory = dynamic_cast<ObjectFactory *>(object);
  if (factory == nullptr) return nullptr;
  SmartPtr<Object> const component = factory->create();
  return dynamic_cast<T *>(component.get());
}

template <class T>
SmartPtr<T> LookupContextImpl::lookupService(tvstring const &name) {
  SmartPtr<T> service = create<T>(lookup(name));
  if (service.isNull()) raise<NamingException>("Unable to lookup '" + name + "'", "cpp/LookupContextImpl", 19);
  return service;
}

template <class T>
TList<tvstring> LookupContextImpl::getNames() {
  TList<tvstring> names;
  for (auto const &[name, object] : getLookupContextList())
    if (!create<T>(object).isNull()) names.add(copyOf(name));
  return names;
}

SmartPtr<INormalizedObjectMappingFormat> LookupContextImpl::lookupNormalizedObjectMappingFormat(tvstring const &name) {
  SmartPtr<INormalizedObjectMappingFormat> format = create<INormalizedObjectMappingFormat>(lookup(name));
  if (format.isNull())
    raise<NamingException>("NormalizedObjectMappingFormat not available at " + name, "cpp/LookupContextImpl");
  return format;
}

IOutputProtocol *LookupContextImpl::lookupOutputProtocol(tvstring const &name) {
  if (typeid(*this) == typeid(LookupContextImpl)) {  // a subclass may look up elsewhere
    auto const known = directory().protocols.find(name);
    if (known != directory().protocols.end()) return known->second;
  }
  if (auto *const protocol = dynamic_cast<IOutputProtocol *>(lookup(name))) return protocol;
  raise<NamingException>("Device not available at " + name, "cpp/LookupContextImpl");
}

// clang-format off
SmartPtr<IMessage> LookupContextImpl::lookupMessage(tvstring const &name) { return lookupService<IMessage>(name); }
SmartPtr<IExternalMessage> LookupContextImpl::lookupExternalMessage(tvstring const &name) { return lookupService<IExternalMessage>(name); }
SmartPtr<IInternalMessage> LookupContextImpl::lookupBusinessTransaction(tvstring const &name) { return lookupService<IInternalMessage>(name); }
SmartPtr<IMessageMapping> LookupContextImpl::lookupMessageMapping(tvstring const &name) { return lookupService<IMessageMapping>(name); }
SmartPtr<IMessageFlow> LookupContextImpl::lookupMessageFlow(tvstring const &name) { return lookupService<IMessageFlow>(name); }
SmartPtr<IInternalMessage> LookupContextImpl::lookupInternalMessage(tvstring const &name) { return lookupService<IInternalMessage>(name); }
SmartPtr<IInputFormat> LookupContextImpl::lookupInputFormat(tvstring const &name) { return lookupService<IInputFormat>(name); }
SmartPtr<IOutputFormat> LookupContextImpl::lookupOutputFormat(tvstring const &name) { return lookupService<IOutputFormat>(name); }

TList<tvstring> LookupContextImpl::getMessages() { return getNames<IMessage>(); }
TList<tvstring> LookupContextImpl::getExternalMessages() { return getNames<IExternalMessage>(); }
TList<tvstring> LookupContextImpl::getInternalMessages() { return getNames<IInternalMessage>(); }
TList<tvstring> LookupContextImpl::getMessageMappings() { return getNames<IMessageMapping>(); }
TList<tvstring> LookupContextImpl::getMessageFlows() { return getNames<IMessageFlow>(); }
TList<tvstring> LookupContextImpl::getInputFormats() { return getNames<IInputFormat>(); }
TList<tvstring> LookupContextImpl::getOutputFormats() { return getNames<IOutputFormat>(); }
TList<tvstring> LookupContextImpl::getNormalizedObjectMappings() { return getNames<INormalizedObjectMappingFormat>(); }
// clang-format on

void LookupContextImpl::bind(tvstring const &name, Object *object) {
  auto const entry = getLookupContextList().find(name);
  if (entry == getLookupContextList().end()) return enter(name, object);
  if (entry->second != object) refuse(object);
  raise<NamingException>(name + " already bound", "cpp/LookupContextImpl");
}

void LookupContextImpl::rebind(tvstring const &name, Object *object) {
  ObjectPtrMap<Object> &objects = getLookupContextList();
  auto const entry = objects.find(name);
  if (entry != objects.end() && entry->second == object) return;
  LookupContextImpl::unbind(name);
  enter(name, object);
}

Object *LookupContextImpl::lookup(tvstring const &name) {
  ObjectPtrMap<Object> const &objects = getLookupContextList();
  auto const entry = objects.find(name);
  return entry == objects.end() ? nullptr : entry->second;
}

void LookupContextImpl::unbind(tvstring const &name) {
  ObjectPtrMap<Object> &objects = getLookupContextList();
  auto const entry = objects.find(name);
  if (entry == objects.end()) return;
  Object *const object = entry->second;
  directory().protocols.erase(name);
  objects.erase(entry);
  ObjectRef::releaseRef(object);
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

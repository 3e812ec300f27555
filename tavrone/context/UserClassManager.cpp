#include "tavrone/context/UserClassManager.h"

#include "tavrone/core/Raise.h"

namespace tavrone {

void UserClassManager::registerClass(tvstring const &name, ObjectFactory *factory) {
  ObjectPtrMap<ObjectFactory> &classes = getClassMap();
  auto const former = classes.find(name);
  if (former != classes.end()) {
    ObjectFactory *const old = former->second;
    if (old == factory) return;
    classes.erase(former);
    ObjectRef::releaseRef(old);
  }
  ObjectRef::addRef(factory);
  // Text of its own: the name may be a view on bytes that go.
  classes.emplace(tvstring(name.data(), name.length()), factory);
}

Object *UserClassManager::createInstance(tvstring const &name) {
  if (ObjectFactory *factory = find(name)) return factory->create();
  raise<TransformException>("Class not found " + name, "cpp/UserClassManager", 28);
}

// Made on first use: libraries register while they load, in an order that nobody promises.
ObjectPtrMap<ObjectFactory> &UserClassManager::getClassMap() {
  static ObjectPtrMap<ObjectFactory> classes;
  return classes;
}

ObjectFactory *UserClassManager::find(tvstring const &name) {
  ObjectPtrMap<ObjectFactory> const &classes = getClassMap();
  auto const entry = classes.find(name);
  return entry == classes.end() ? nullptr : entry->second;
}

UserClass::UserClass(tvstring const &name, ObjectFactory *factory) {
  UserClassManager::registerClass(name, factory);
}
Registrar::Registrar(void (*fn)()) {
  fn();
}

}  // namespace tavrone

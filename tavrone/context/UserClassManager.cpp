#include "tavrone/context/UserClassManager.h"

#include <utility>

#include "tavrone/core/Raise.h"

namespace tavrone {

void UserClassManager::registerClass(tvstring const &name, ObjectFactory *factory) {
  ObjectPtrMap<ObjectFactory> &classes = getClassMap();
  auto entry = classes.find(name);
  if (entry != classes.end() && entry->second == factory) return;
  ObjectRef::addRef(factory);
  try {
    // Text of its own: the name may be a view on bytes that go.
    if (entry == classes.end()) entry = classes.emplace(tvstring(name.data(), name.length()), nullptr).first;
  } catch (...) {
    ObjectRef::releaseRef(factory);
    throw;
  }
  ObjectRef::releaseRef(std::exchange(entry->second, factory));
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

#pragma once

#include "tavrone/context/ObjectPtrMap.h"

namespace tavrone {

// Makes the objects of one class that is known by name.
class TAVRONE_API ObjectFactory : public Object {
 public:
  // A new object, the caller's.
  virtual Object *create() = 0;
};

// The base of what users write and generated code calls by class name.
class TAVRONE_API ICustomClass : public virtual ObjectRef {};

// The process-wide table from class names to factories, without a lock: register while libraries load, create
// afterwards.
class TAVRONE_API UserClassManager {
 public:
  // Takes over the factory, which may be null. The last registration of a name wins, and the factory before it is
  // released; the very factory that is registered stays.
  static void registerClass(tvstring const &name, ObjectFactory *factory);
  // A new object, the caller's. Raises TransformException "Class not found <name>".
  static Object *createInstance(tvstring const &name);

 private:
  static ObjectPtrMap<ObjectFactory> &getClassMap();
  static ObjectFactory *find(tvstring const &name);
};

// Registers a class when constructed: made to be a static object of the library that holds the class.
class TAVRONE_API UserClass {
 public:
  // As UserClassManager::registerClass.
  UserClass(tvstring const &name, ObjectFactory *factory);
};

// Runs a function when constructed: made to be a static object whose function registers all classes of a library.
class TAVRONE_API Registrar {
 public:
  Registrar(void (*fn)());
};

}  // namespace tavrone

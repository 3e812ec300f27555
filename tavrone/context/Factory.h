#pragma once

#include "tavrone/context/LookupContext.h"
#include "tavrone/context/UserClassManager.h"

namespace tavrone {

// Makes objects of one class by its default constructor.
template <class T>
class FactoryOf : public ObjectFactory {
 public:
  Object *create() override { return new T; }
};

// Binds a factory in the directory: each look-up of a service under the name makes a new T. Raises NamingException
// "<name> already bound", which ends the program where nobody can catch it yet. Returns true, so that one line at
// namespace scope binds a component while its library loads:
//
//   static bool const bound = bindFactory<OrderFormat>("order.input");
template <class T>
bool bindFactory(tvstring const &name) {
  LookupContextFactory::getLookupContext()->bind(name, new FactoryOf<T>);
  return true;
}

// Registers a class by name, in the same way; the last registration of a name wins:
//
//   static bool const registered = registerClass<PriceRule>("PriceRule");
template <class T>
bool registerClass(tvstring const &name) {
  UserClassManager::registerClass(name, new FactoryOf<T>);
  return true;
}

}  // namespace tavrone

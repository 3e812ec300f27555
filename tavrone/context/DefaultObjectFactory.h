#pragma once

#include "tavrone/context/LookupContext.h"
#include "tavrone/context/UserClassManager.h"

namespace tavrone {

// Makes objects of one class by its default constructor. Its static operations make it known under a name and return
// true, so that one line at namespace scope does so while a library loads:
//
//   static bool const bound = DefaultObjectFactory<OrderFormat>::bind("order.input");
//   static bool const registered = DefaultObjectFactory<PriceRule>::registerClass("PriceRule");
template <class T>
class DefaultObjectFactory : public ObjectFactory {
 public:
  // In the directory: each look-up of a service under the name makes a new T. Raises NamingException "<name> already
  // bound", which ends the program where nobody can catch it yet.
  static bool bind(tvstring const &name) {
    LookupContextFactory::getLookupContext()->bind(name, new DefaultObjectFactory);
    return true;
  }
  // In the class table; the last registration of a name wins.
  static bool registerClass(tvstring const &name) {
    UserClassManager::registerClass(name, new DefaultObjectFactory);
    return true;
  }

  Object *create() override { return new T; }
};

}  // namespace tavrone

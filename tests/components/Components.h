#pragma once

#include "examples/messages/Order.h"

namespace tavrone {

// What a library may ask of the runtime while it loads: a record and its XML, a catalogued failure, and a context that
// nobody made yet.
inline tvstring runtimeAtWork() {
  examples::Order order;
  order.setField("OrderID", StringObject("A-1"));
  tvstring text = order.toXMLString() + TransformContextWrapper().getProperty("none");
  try {
    raiseCatalogued<TransformException>("SRT600", "Price", "test");
  } catch (TransformException const &failure) {
    text = text + failure.getErrorCode() + failure.getMessage();
  }
  return text;
}

}  // namespace tavrone

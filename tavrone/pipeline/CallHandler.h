#pragma once

#include <utility>

#include "tavrone/core/ExceptionHandler.h"
#include "tavrone/core/OwnedPointers.h"
#include "tavrone/core/Result.h"

namespace tavrone {

// One body for the three forms of an operation. The body takes a CallHandler and stores it in the parser, writer or
// rule that it reaches. The plain form passes the draconian handler, the form with a handler that one, and the `2` form
// runs under collecting().

struct CallHandler {
  ExceptionHandler *handler = ExceptionHandler::DRACONIAN_EXCEPTION_HANDLER;
  bool stays = true;  // in its parser, writer or rule after the call; a local handler must not
};

// Holds the handler of a call in its runner: a parser, a writer or a rule.
template <class Runner>
class StoredHandler {
 public:
  StoredHandler(Runner &runner, CallHandler const &call) : runner_(runner), stays_(call.stays) { store(call.handler); }
  StoredHandler(StoredHandler const &) = delete;
  StoredHandler &operator=(StoredHandler const &) = delete;
  ~StoredHandler() {
    if (!stays_) store(ExceptionHandler::DRACONIAN_EXCEPTION_HANDLER);
  }

 private:
  void store(ExceptionHandler *handler) {
    if constexpr (requires { runner_.setExceptionHandler(handler); })
      runner_.setExceptionHandler(handler);
    else
      runner_.exceptionHandler = handler;
  }

  Runner &runner_;
  bool stays_;
};

// Runs the body with a collecting handler. What the handler got goes into the result, or, when the body raises, goes.
template <class Body>
auto collecting(Body const &body) -> Result<decltype(body(CallHandler()))> {
  CascadingExceptionHandler handler;
  try {
    auto value = body(CallHandler{&handler, false});
    return {std::move(value), std::move(handler.getExceptions())};
  } catch (...) {
    deleteOwned(handler.getExceptions());
    throw;
  }
}

}  // namespace tavrone

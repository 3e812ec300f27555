#pragma once

#include <algorithm>

#include "tavrone/tavrone.h"

namespace examples {

using namespace tavrone;

[[noreturn]] inline void fail(tvstring const &message) {
  raise<TransformException>(message, "examples/ReportingParser");
}

// Digits and nothing else: Parsing::parseLong takes signs too, and lets numbers that are too long wrap around.
inline long long parseDigits(tvstring const &text) {
  auto const isDigit = [](char c) { return c >= '0' && c <= '9'; };
  if (text.length() > 18 || !std::all_of(text.data(), text.data() + text.length(), isDigit))
    fail("Cannot convert '" + text + "' to a number");
  return Parsing::parseLong(text);
}

// The base of parsers that go on behind a failure: it goes to the exception handler with its field, line and column and
// the error type "Parsing", and only the handler may stop the parser.
class ReportingParser : public UniversalInputParser {
 public:
  ~ReportingParser() noexcept(false) override = default;

 protected:
  // Passes what the call raises on to the exception handler, located in the record; whether it raised nothing.
  template <class Call>
  bool report(UniversalInputRecord *record, AbstractDataObject *object, Call const &call) {
    try {
      try {
        call();
        return true;
      } catch (TransformException &failure) {
        handleException(failure, record, object);
      }
    } catch (TransformException &located) {
      located.fillErrorType(ExceptionObject::ERROR_TYPE_PARSING);
      exceptionHandler->onException(&located);
    }
    return false;
  }
};

}  // namespace examples

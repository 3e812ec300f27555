#pragma once

#include "tavrone/core/Exceptions.h"

namespace tavrone {

// Throws an E with the text, stamped with where it was raised. `file` is the static path under which the class's source
// is known, such as "cpp/MessageRouter"; the line is the caller's own unless it gives one.
template <class E>
[[noreturn]] TAVRONE_COLD void raise(tvstring const &message, char const *file, int line = __builtin_LINE()) {
  E failure(message);
  failure.getTrace().setFileName(file);
  failure.getTrace().setLine(line);
  throw failure;
}

}  // namespace tavrone

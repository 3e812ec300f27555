#pragma once

#include "tavrone/core/Exceptions.h"

namespace tavrone {

class ObjectList;

// Throws an E with the text, stamped with where it was raised. `file` is the static path under which the class's source
// is known, such as "cpp/MessageRouter"; the line is the caller's own unless it gives one.
template <class E>
[[noreturn]] TAVRONE_COLD void raise(tvstring const &message, char const *file, int line = __builtin_LINE()) {
  E failure(message);
  failure.getTrace().setFileName(file);
  failure.getTrace().setLine(line);
  throw failure;
}

// The text of a catalogue row for these arguments: the row "<key>.message" through formatMessage. Empty for an unknown
// key.
TAVRONE_API tvstring catalogueMessage(char const *key, ObjectList const &arguments);
TAVRONE_API tvstring catalogueMessage(char const *key, tvstring const &argument);

// Throws an E with the text of a catalogue row, such as "SRT600".
template <class E>
[[noreturn]] TAVRONE_COLD void raiseCatalogued(char const *key, ObjectList const &arguments, char const *file,
                                               int line = __builtin_LINE()) {
  raise<E>(catalogueMessage(key, arguments), file, line);
}
// The same with one text as the only argument.
template <class E>
[[noreturn]] TAVRONE_COLD void raiseCatalogued(char const *key, tvstring const &argument, char const *file,
                                               int line = __builtin_LINE()) {
  raise<E>(catalogueMessage(key, argument), file, line);
}

}  // namespace tavrone

#pragma once

#include <type_traits>

#include "tavrone/core/Exceptions.h"

namespace tavrone {

class ObjectList;

// The text of a catalogue row for these arguments: the row "<key>.message" through formatMessage. Empty for an unknown
// key.
TAVRONE_API tvstring catalogueMessage(char const *key, ObjectList const &arguments);
TAVRONE_API tvstring catalogueMessage(char const *key, tvstring const &argument);
// The row "<key>.code"; empty for an unknown key.
TAVRONE_API tvstring catalogueCode(char const *key);

// An E with the text, stamped with where it was raised, and with the code of a catalogue row where both have one.
template <class E>
E failureAt(tvstring const &message, char const *file, int line, char const *key = nullptr) {
  E failure(message);
  failure.getTrace().setFileName(tvstringliteral(file));
  failure.getTrace().setLine(line);
  if constexpr (std::is_base_of_v<ExceptionDataObject, E>)
    if (key != nullptr) failure.setErrorCode(catalogueCode(key));
  return failure;
}

// Throws an E with the text, stamped with where it was raised. `file` is the static path under which the class's source
// is known, such as "cpp/MessageRouter"; the line is the caller's own unless it gives one.
template <class E>
[[noreturn]] TAVRONE_COLD void raise(tvstring const &message, char const *file, int line = __builtin_LINE()) {
  throw failureAt<E>(message, file, line);
}

// Throws an E with the text of a catalogue row, such as "SRT600", and its code as the ErrorCode if an E is a
// TransformException.
template <class E>
[[noreturn]] TAVRONE_COLD void raiseCatalogued(char const *key, ObjectList const &arguments, char const *file,
                                               int line = __builtin_LINE()) {
  throw failureAt<E>(catalogueMessage(key, arguments), file, line, key);
}
// The same with one text as the only argument.
template <class E>
[[noreturn]] TAVRONE_COLD void raiseCatalogued(char const *key, tvstring const &argument, char const *file,
                                               int line = __builtin_LINE()) {
  throw failureAt<E>(catalogueMessage(key, argument), file, line, key);
}

}  // namespace tavrone

#pragma once

#include <type_traits>
#include <typeinfo>

#include "tavrone/core/tvstring.h"

namespace tavrone {

// A run-time type record as a value.
class TAVRONE_API Class {
 public:
  Class(std::type_info const &type) : type_(&type) {}
  Class(std::type_info const *type) : type_(type) {}

  // The record's own name text, which is the platform's; static. Empty without a record or a name.
  tvstring getName() const;
  operator tvstring() const { return getName(); }

  bool operator==(Class const &other) const;

 private:
  std::type_info const *type_;
};

// Raise ClassCastException for checkedCast: "Cannot cast NULL to <target>" for a null source, otherwise "Cannot cast
// <source>* to <target>".
[[noreturn]] TAVRONE_API void throwClassCastException(std::type_info const *source, std::type_info const &target);

// What dynamic_cast gives. An object whose class is T itself, as nearly all are, is told by that alone.
template <class T, class S>
T *quickCast(S *source) {
  if constexpr (!std::is_abstract_v<T> && requires { static_cast<T *>(source); })
    if (source != nullptr && &typeid(*source) == &typeid(T)) return static_cast<T *>(source);
  return dynamic_cast<T *>(source);
}

// Narrows a pointer to a concrete class, or fails with ClassCastException; never returns null.
template <class T, class S>
T *checkedCast(S *source) {
  if (T *target = quickCast<T>(source)) return target;
  throwClassCastException(source == nullptr ? nullptr : &typeid(*source), typeid(T));
}

template <class T, class S>
T const *checkedCast(S const *source) {
  if (T const *target = quickCast<T const>(source)) return target;
  throwClassCastException(source == nullptr ? nullptr : &typeid(*source), typeid(T));
}

}  // namespace tavrone

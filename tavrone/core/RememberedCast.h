#pragma once

#include <cstddef>
#include <typeinfo>

namespace tavrone {

// A dynamic_cast that is asked again and again for objects of one class: the way from one part of an object to another
// is the same in all objects of a class, so it is looked for once. Not safe for use from two threads at once.
template <class Target, class Source>
class RememberedCast {
 public:
  // Null where dynamic_cast gives null; source may be null.
  Target *operator()(Source *source) {
    if (source == nullptr) return nullptr;
    char *const whole = static_cast<char *>(dynamic_cast<void *>(source));
    ptrdiff_t const from = reinterpret_cast<char *>(source) - whole;
    if (&typeid(*source) == class_ && from == from_) return reinterpret_cast<Target *>(whole + to_);
    Target *const target = dynamic_cast<Target *>(source);
    if (target != nullptr) {
      class_ = &typeid(*source);
      from_ = from;
      to_ = reinterpret_cast<char *>(target) - whole;
    }
    return target;
  }

 private:
  std::type_info const *class_ = nullptr;  // null before the first cast
  // Where the two parts begin in an object of that class: a class may have several parts of one kind.
  ptrdiff_t from_ = 0;
  ptrdiff_t to_ = 0;
};

}  // namespace tavrone

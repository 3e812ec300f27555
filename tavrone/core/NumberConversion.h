#pragma once

#include <limits>
#include <type_traits>

namespace tavrone {

// The language's plain conversion between number types, defined for every value: floating to integer truncates toward
// zero and gives the target's lowest value when out of range or not a number; a wider integer keeps its low bits.
template <class To, class From>
constexpr To convertNumber(From value) noexcept {
  if constexpr (std::is_floating_point_v<From> && std::is_integral_v<To>) {
    static_assert(std::is_signed_v<To>);
    constexpr To lowest = std::numeric_limits<To>::min();
    constexpr From limit = -static_cast<From>(lowest);  // a power of two, so exact
    if (!(value >= -limit && value < limit)) return lowest;
  }
  return static_cast<To>(value);
}

}  // namespace tavrone

#pragma once

#include <charconv>

#include "tavrone/core/BigDecimal.h"

// Internal: doubles as users see them.

namespace tavrone {

// The shortest decimal that reads as this double and no other: 0.1 for 0.1. BigDecimal(double) keeps 15 digits only.
// REQUIRES: the value is finite
inline BigDecimal shortestDecimal(double value) {
  char text[32];
  *std::to_chars(text, text + sizeof text - 1, value, std::chars_format::scientific).ptr = '\0';
  return BigDecimal(text);
}

}  // namespace tavrone

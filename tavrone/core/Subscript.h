#pragma once

#include <cstddef>
#include <stdexcept>

#include "tavrone/core/Export.h"

namespace tavrone {

[[noreturn]] TAVRONE_COLD inline void throwInvalidSubscript() {
  throw std::out_of_range("invalid vector<T> subscript");
}

// The index, if it is one of a list of `size` elements; otherwise, negative indexes included, raises std::out_of_range
// "invalid vector<T> subscript".
inline size_t checkedSubscript(int index, size_t size) {
  if (index < 0 || static_cast<size_t>(index) >= size) throwInvalidSubscript();
  return static_cast<size_t>(index);
}

}  // namespace tavrone

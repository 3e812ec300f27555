#pragma once

#include <string>

namespace tavrone {

// The bytes of a tvstring or a Binary in a form that GoogleTest can show.
template <class Value>
std::string str(Value const &value) {
  return std::string(value.data(), value.length());
}

}  // namespace tavrone

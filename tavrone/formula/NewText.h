#pragma once

#include <algorithm>
#include <climits>
#include <cstring>
#include <new>
#include <string_view>

#include "tavrone/core/tvstring.h"

// Internal: how functions make a text whose length they know.

namespace tavrone {

// A new text of this length, which `write` writes, in an array that it fills: its c_str copies nothing. Raises
// std::bad_array_new_length past an int.
template <class Write>
tvstring newText(size_t length, Write const &write) {
  if (length == 0) return tvstring();
  if (length > INT_MAX) throw std::bad_array_new_length();
  tvstring text;
  write(text.getBuffer(static_cast<int>(length)));
  text.setBufferLength(static_cast<int>(length));
  return text;
}

inline std::string_view viewOf(tvstring const &text) {
  return {text.data(), text.length()};
}

// Both return where what they wrote ends.
inline char *put(char *to, std::string_view part) {
  return std::copy_n(part.data(), part.size(), to);
}
inline char *put(char *to, size_t count, char c) {
  std::memset(to, c, count);
  return to + count;
}

}  // namespace tavrone

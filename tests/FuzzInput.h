#pragma once

#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <string>

#include "tavrone/core/tvstring.h"

namespace tavrone {

inline void require(bool holds) {
  if (!holds) std::abort();
}

// What a fuzz target was given, taken from the front; zeros behind its end.
struct FuzzInput {
  FuzzInput(uint8_t const *data, size_t size) : bytes(reinterpret_cast<char const *>(data), size) {}

  std::string takeText(size_t length) {
    std::string const text = bytes.substr(at, length);
    at += text.size();
    return text;
  }
  template <class T>
  T take() {
    T value{};
    std::string const text = takeText(sizeof value);
    std::memcpy(&value, text.data(), text.size());
    return value;
  }
  size_t below(size_t limit) { return limit == 0 ? 0 : take<uint8_t>() % limit; }

  std::string const bytes;
  size_t at = 0;
};

inline tvstring textOf(std::string const &text) {
  return tvstring(text.data(), text.size());
}

// A few places of the text get other bytes, fewer than `limit` each, until the input is used up; the end may be cut.
inline std::string mutated(std::string text, FuzzInput &input, size_t limit) {
  while (input.at < input.bytes.size() && !text.empty()) {
    size_t const at = input.take<uint16_t>() % text.size();
    size_t const length = input.below(limit);
    size_t const replaced = input.below(limit);
    if (length == limit - 1)
      text.resize(at);
    else
      text.replace(at, replaced, input.takeText(length));
  }
  return text;
}

}  // namespace tavrone

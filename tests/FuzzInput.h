#pragma once

#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <string>

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

}  // namespace tavrone

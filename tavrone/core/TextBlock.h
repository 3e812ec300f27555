#pragma once

#include <emmintrin.h>

#include <cstddef>
#include <cstdint>
#include <cstring>

// Internal: text in blocks of 16 bytes, as SSE2 takes them.

namespace tavrone {

constexpr size_t BLOCK = sizeof(__m128i);

inline __m128i loadBlock(char const *from) {
  return _mm_loadu_si128(reinterpret_cast<__m128i const *>(from));
}
inline void storeBlock(char *to, __m128i block) {
  _mm_storeu_si128(reinterpret_cast<__m128i *>(to), block);
}
// The highest bit of each byte.
inline unsigned highBits(__m128i block) {
  return static_cast<unsigned>(_mm_movemask_epi8(block));
}

// Fewer bytes than a block, with zeros behind them; reads no others. REQUIRES: n < BLOCK
inline __m128i loadShort(char const *from, size_t n) {
  auto const word = [](char const *at, auto value) {
    std::memcpy(&value, at, sizeof value);
    return uint64_t{value};
  };
  uint64_t low = 0;
  uint64_t high = 0;
  if (n >= 8) {
    low = word(from, uint64_t{});
    high = word(from + n - 8, uint64_t{}) >> 8 >> (8 * (15 - n));
  } else if (n >= 4) {
    low = word(from, uint32_t{}) | word(from + n - 4, uint32_t{}) << (8 * (n - 4));
  } else if (n != 0) {
    low = word(from, uint8_t{}) | word(from + n / 2, uint8_t{}) << (8 * (n / 2)) |
          word(from + n - 1, uint8_t{}) << (8 * (n - 1));
  }
  return _mm_set_epi64x(static_cast<long long>(high), static_cast<long long>(low));
}

}  // namespace tavrone

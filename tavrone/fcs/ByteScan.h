#pragma once

#include <emmintrin.h>

#include <cstdint>

#include "tavrone/core/DigitText.h"

// What the readers of lines and tokens share: bytes found as bits.
namespace tavrone {

// The bytes of a word that equal c, the first in the lowest bit.
class ByteFinder {
 public:
  explicit ByteFinder(char c) : wanted_(_mm_set1_epi8(c)) {}

  __m128i compare(__m128i bytes) const { return _mm_cmpeq_epi8(bytes, wanted_); }

  uint64_t in16(char const *from) const { return bits(_mm_loadu_si128(reinterpret_cast<__m128i const *>(from))); }
  uint64_t in64(char const *from) const {
    return in16(from) | in16(from + 16) << 16 | in16(from + 32) << 32 | in16(from + 48) << 48;
  }
  // The last n < 64 bytes of a text, from `from` on. Reads no byte outside of the text, which begins at `begin`: words
  // that would reach over its end are laid over bytes before instead.
  uint64_t inLast(char const *begin, char const *from, size_t n) const {
    uint64_t found = 0;
    size_t i = 0;
    for (; n - i >= 16; i += 16) found |= in16(from + i) << i;
    char const *const end = from + n;
    size_t const rest = n - i;
    if (rest == 0) return found;
    if (end - begin >= 16) return found | in16(end - 16) >> (16 - rest) << i;
    if (rest >= 8) return found | in8(from) | in8(end - 8) << (rest - 8);
    if (rest >= 4) return found | in4(from) | in4(end - 4) << (rest - 4);
    for (; i < n; ++i) found |= in1(from[i]) << i;
    return found;
  }

 private:
  uint64_t bits(__m128i bytes) const { return static_cast<uint64_t>(_mm_movemask_epi8(compare(bytes))); }
  uint64_t in8(char const *from) const { return bits(_mm_cvtsi64_si128(static_cast<long long>(load8(from)))) & 0xFF; }
  uint64_t in4(char const *from) const { return bits(_mm_cvtsi64_si128(static_cast<long long>(load4(from)))) & 0xF; }
  uint64_t in1(char c) const { return bits(_mm_cvtsi32_si128(c)) & 1; }

  __m128i wanted_;
};

}  // namespace tavrone

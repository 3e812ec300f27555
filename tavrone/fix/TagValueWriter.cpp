#include "tavrone/fix/TagValueWriter.h"

#include <emmintrin.h>

#include <array>

#include "tavrone/core/DigitText.h"

namespace tavrone {

namespace {

__m128i load(char const *from) {
  return _mm_loadu_si128(reinterpret_cast<__m128i const *>(from));
}

// The bytes of each half added up.
__m128i sumOf16(__m128i bytes) {
  return _mm_sad_epu8(bytes, _mm_setzero_si128());
}
__m128i sumOf64(__m128i a, __m128i b, __m128i c, __m128i d) {
  return _mm_add_epi64(_mm_add_epi64(sumOf16(a), sumOf16(b)), _mm_add_epi64(sumOf16(c), sumOf16(d)));
}

// Zeros, and as many bytes of ones behind them.
constexpr auto MASK = [] {
  std::array<unsigned char, 128> mask{};
  for (size_t i = 64; i < mask.size(); ++i) mask[i] = 0xFF;
  return mask;
}();

int total(__m128i sum) {
  return _mm_cvtsi128_si32(_mm_add_epi64(sum, _mm_unpackhi_epi64(sum, sum)));
}

// REQUIRES: length < 64
int sumOfFewBytes(char const *data, unsigned int length) {
  char const *const end = data + length;
  __m128i sum = _mm_setzero_si128();
  for (; end - data >= 16; data += 16) sum = _mm_add_epi64(sum, sumOf16(load(data)));
  int rest = 0;
  for (; data != end; ++data) rest += static_cast<unsigned char>(*data);
  return (total(sum) + rest) & 255;
}

}  // namespace

char *writeFieldNumber(int value, char *out) {
  return writeNumber(value, out);
}
char *writeFieldNumber(long long value, char *out) {
  return writeNumber(value, out);
}
char *writeFieldNumber(double value, char *out) {
  return writeNumber(value, out);
}

int sumOfBytes(char const *data, unsigned int length) {
  if (length < 64) return sumOfFewBytes(data, length);
  char const *const end = data + length;
  __m128i sum = _mm_setzero_si128();
  for (; end - data >= 64; data += 64)
    sum = _mm_add_epi64(sum, sumOf64(load(data), load(data + 16), load(data + 32), load(data + 48)));
  // The rest as the last 64 bytes once more, without those that were counted: no branch depends on its length.
  auto const *const mask = reinterpret_cast<char const *>(MASK.data()) + (end - data);
  auto masked = [last = end - 64, mask](int i) { return _mm_and_si128(load(last + i), load(mask + i)); };
  return total(_mm_add_epi64(sum, sumOf64(masked(0), masked(16), masked(32), masked(48)))) & 255;
}

}  // namespace tavrone

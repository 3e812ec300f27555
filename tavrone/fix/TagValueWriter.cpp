#include "tavrone/fix/TagValueWriter.h"

#include <emmintrin.h>

namespace tavrone {

namespace {

__m128i load(char const *from) {
  return _mm_loadu_si128(reinterpret_cast<__m128i const *>(from));
}

// The 16 bytes added up in two lanes.
__m128i sumOf16(char const *from) {
  return _mm_sad_epu8(load(from), _mm_setzero_si128());
}

}  // namespace

int sumOfBytes(char const *data, unsigned int length) {
  char const *const end = data + length;
  // Four sums side by side hide the latency of the addition.
  __m128i sums[4] = {};
  for (; end - data >= 64; data += 64)
    for (int i = 0; i < 4; ++i) sums[i] = _mm_add_epi64(sums[i], sumOf16(data + 16 * i));
  __m128i sum = _mm_add_epi64(_mm_add_epi64(sums[0], sums[1]), _mm_add_epi64(sums[2], sums[3]));
  for (; end - data >= 16; data += 16) sum = _mm_add_epi64(sum, sumOf16(data));
  unsigned int total = static_cast<unsigned int>(_mm_cvtsi128_si32(sum)) +
                       static_cast<unsigned int>(_mm_cvtsi128_si32(_mm_unpackhi_epi64(sum, sum)));
  for (; data != end; ++data) total += static_cast<unsigned char>(*data);
  return static_cast<int>(total & 255);
}

}  // namespace tavrone

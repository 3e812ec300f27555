#include "tavrone/core/BinaryText.h"

#include <immintrin.h>

#include <array>
#include <cstdint>
#include <cstring>

// Hexadecimal needs no choice of processor: the instructions that every x86-64 has do 16 characters in a few steps, and
// the lenient rule for wrong characters is arithmetic that runs on all of them alike.
//
// Base64 is decoded by two layers. The inner one takes whole groups of four characters for as long as all belong to the
// alphabet, 32 at a time where AVX2 is there. Where it stops, the outer one collects a single group character by
// character, past whatever is to be skipped, and hands back to the inner one.

namespace tavrone {
namespace {

unsigned char byteAt(char const *at, size_t i) {
  return static_cast<unsigned char>(at[i]);
}

// The two characters of every byte.
constexpr auto HEX_PAIRS = [] {
  constexpr char DIGITS[] = "0123456789ABCDEF";
  std::array<std::array<char, 2>, 256> pairs{};
  for (size_t i = 0; i < pairs.size(); ++i) pairs[i] = {DIGITS[i >> 4], DIGITS[i & 15]};
  return pairs;
}();

constexpr auto HEX_VALUES = [] {
  std::array<uint8_t, 256> values{};
  for (int c = 0; c < 256; ++c) {
    int const capital = c >= 'a' && c <= 'z' ? c - 'a' + 'A' : c;
    values[static_cast<size_t>(c)] = static_cast<uint8_t>(c >= '0' && c <= '9' ? c - '0' : capital - '7');
  }
  return values;
}();

constexpr char BASE64_ALPHABET[] = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";

constexpr uint8_t NOT_IN_ALPHABET = 255;

constexpr auto BASE64_VALUES = [] {
  std::array<uint8_t, 256> values{};
  values.fill(NOT_IN_ALPHABET);
  for (uint8_t i = 0; i < 64; ++i) values[static_cast<unsigned char>(BASE64_ALPHABET[i])] = i;
  return values;
}();

// The two characters of every 12 bits.
constexpr auto BASE64_PAIRS = [] {
  std::array<std::array<char, 2>, 4096> pairs{};
  for (size_t i = 0; i < pairs.size(); ++i) pairs[i] = {BASE64_ALPHABET[i >> 6], BASE64_ALPHABET[i & 63]};
  return pairs;
}();

// Each character's six bits, in place for the first to fourth of a group; bit 24 marks what isn't in the alphabet.
constexpr uint32_t OUTSIDE = 1U << 24;
constexpr auto BASE64_SHIFTED_VALUES = [] {
  std::array<std::array<uint32_t, 256>, 4> shifted{};
  for (size_t place = 0; place < 4; ++place)
    for (size_t c = 0; c < 256; ++c)
      shifted[place][c] =
          BASE64_VALUES[c] == NOT_IN_ALPHABET ? OUTSIDE : uint32_t{BASE64_VALUES[c]} << (18 - 6 * place);
  return shifted;
}();

__m128i load16(void const *at) {
  return _mm_loadu_si128(static_cast<__m128i const *>(at));
}
void store16(void *at, __m128i value) {
  _mm_storeu_si128(static_cast<__m128i *>(at), value);
}

// All ones in each byte from `low` to `high`, both of which are ASCII.
__m128i inRange(__m128i bytes, char low, char high) {
  return _mm_and_si128(_mm_cmpgt_epi8(bytes, _mm_set1_epi8(static_cast<char>(low - 1))),
                       _mm_cmplt_epi8(bytes, _mm_set1_epi8(static_cast<char>(high + 1))));
}

// HEX_VALUES of 16 characters.
__m128i hexValues(__m128i text) {
  __m128i const digits = _mm_and_si128(inRange(text, '0', '9'), _mm_set1_epi8('7' - '0'));
  __m128i const toCapitals = _mm_and_si128(inRange(text, 'a', 'z'), _mm_set1_epi8('a' - 'A'));
  return _mm_sub_epi8(_mm_add_epi8(_mm_sub_epi8(text, _mm_set1_epi8('7')), digits), toCapitals);
}

// The bytes of 8 pairs of hexadecimal characters, each in the low half of 16 bits.
__m128i hexBytes(__m128i text) {
  __m128i const values = hexValues(text);
  __m128i const bytes = _mm_add_epi8(_mm_slli_epi16(values, 4), _mm_srli_epi16(values, 8));
  return _mm_and_si128(bytes, _mm_set1_epi16(0xFF));
}

__m128i hexDigits(__m128i nibbles) {
  __m128i const letters = _mm_and_si128(_mm_cmpgt_epi8(nibbles, _mm_set1_epi8(9)), _mm_set1_epi8('A' - '0' - 10));
  return _mm_add_epi8(_mm_add_epi8(nibbles, _mm_set1_epi8('0')), letters);
}

void encodeBase64Plain(char const *bytes, size_t n, char *text) {
  for (; n >= 3; n -= 3, bytes += 3, text += 4) {
    unsigned const group = unsigned{byteAt(bytes, 0)} << 16 | unsigned{byteAt(bytes, 1)} << 8 | byteAt(bytes, 2);
    std::memcpy(text, &BASE64_PAIRS[group >> 12], 2);
    std::memcpy(text + 2, &BASE64_PAIRS[group & 0xFFF], 2);
  }
  if (n == 0) return;
  unsigned const group = unsigned{byteAt(bytes, 0)} << 16 | (n == 2 ? unsigned{byteAt(bytes, 1)} << 8 : 0);
  std::memcpy(text, &BASE64_PAIRS[group >> 12], 2);
  text[2] = n == 2 ? BASE64_ALPHABET[group >> 6 & 63] : '=';
  text[3] = '=';
}

// What is left to decode, and where to.
struct Decoding {
  char const *text;
  char const *end;
  char *bytes;
};

void putGroup(char *bytes, uint32_t group) {
  bytes[0] = static_cast<char>(group >> 16);
  bytes[1] = static_cast<char>(group >> 8);
  bytes[2] = static_cast<char>(group);
}

void decodeCleanGroupsPlain(Decoding &decoding) {
  auto [text, end, bytes] = decoding;
  for (; end - text >= 4; text += 4, bytes += 3) {
    uint32_t const group = BASE64_SHIFTED_VALUES[0][byteAt(text, 0)] | BASE64_SHIFTED_VALUES[1][byteAt(text, 1)] |
                           BASE64_SHIFTED_VALUES[2][byteAt(text, 2)] | BASE64_SHIFTED_VALUES[3][byteAt(text, 3)];
    if ((group & OUTSIDE) != 0) break;
    putGroup(bytes, group);
  }
  decoding = {text, end, bytes};
}

template <void decodeCleanGroups(Decoding &)>
size_t decodeBase64(char const *text, size_t n, char *bytes) {
  Decoding decoding{text, text + n, bytes};
  for (;;) {
    decodeCleanGroups(decoding);
    uint32_t group = 0;
    unsigned collected = 0;
    while (collected < 4 && decoding.text != decoding.end) {
      uint8_t const value = BASE64_VALUES[byteAt(decoding.text++, 0)];
      if (value != NOT_IN_ALPHABET) group |= uint32_t{value} << (18 - 6 * collected++);
    }
    if (collected == 4) {
      putGroup(decoding.bytes, group);
      decoding.bytes += 3;
      continue;
    }
    if (collected >= 2) *decoding.bytes++ = static_cast<char>(group >> 16);
    if (collected == 3) *decoding.bytes++ = static_cast<char>(group >> 8);
    return static_cast<size_t>(decoding.bytes - bytes);
  }
}

#define TAVRONE_AVX2 __attribute__((target("avx2")))

// A table of 16 bytes in both halves, to be looked up by the low four bits of each byte.
TAVRONE_AVX2 inline __m256i lookUpTable(std::array<uint8_t, 16> const &table) {
  return _mm256_broadcastsi128_si256(load16(table.data()));
}

// The alphabet consists of five ranges, in each of which the characters are the values plus an offset. A value's range:
// 13 for capitals, 0 for small letters, 1 to 10 for the digits, 11 and 12 for the two signs.
constexpr std::array<uint8_t, 16> OFFSET_OF_RANGE = [] {
  std::array<uint8_t, 16> offsets{};
  offsets.fill(static_cast<uint8_t>('0' - 52));
  offsets[13] = 'A';
  offsets[0] = 'a' - 26;
  offsets[11] = static_cast<uint8_t>('+' - 62);
  offsets[12] = static_cast<uint8_t>('/' - 63);
  return offsets;
}();

// What to add to a character for its value, by its high four bits; '/' takes the place before that of '+'.
constexpr std::array<uint8_t, 16> OFFSET_OF_HIGH_BITS = [] {
  std::array<uint8_t, 16> offsets{};
  for (uint8_t c : std::array<uint8_t, 6>{'0', 'A', 'P', 'a', 'p', '+'})
    offsets[c >> 4] = static_cast<uint8_t>(BASE64_VALUES[c] - c);
  offsets[('/' >> 4) - 1] = static_cast<uint8_t>(63 - '/');
  return offsets;
}();

// A character is outside the alphabet if the set for its low four bits and the one for its high four bits meet. Each
// row of characters with the same high bits that belongs to the alphabet at least in part has a bit of its own; the
// rest share one that is in every set of low bits.
constexpr unsigned FIRST_ROW = 2, LAST_ROW = 7;
constexpr uint8_t NO_ROW = 0x80;
constexpr uint8_t rowBit(size_t row) {
  return row < FIRST_ROW || row > LAST_ROW ? NO_ROW : static_cast<uint8_t>(1U << (row - FIRST_ROW));
}
constexpr std::array<uint8_t, 16> ROW_OF_HIGH_BITS = [] {
  std::array<uint8_t, 16> rows{};
  for (size_t row = 0; row < 16; ++row) rows[row] = rowBit(row);
  return rows;
}();
constexpr std::array<uint8_t, 16> ROWS_WITHOUT_LOW_BITS = [] {
  std::array<uint8_t, 16> rows{};
  for (size_t c = 0; c < 256; ++c)
    if (BASE64_VALUES[c] == NOT_IN_ALPHABET) rows[c & 15] |= rowBit(c >> 4);
  return rows;
}();

TAVRONE_AVX2 void encodeBase64Avx2(char const *bytes, size_t n, char *text) {
  // Puts the three bytes of a group into 32 bits as 1 0 2 1, so that each character's bits stand whole in one half.
  __m256i const spread = _mm256_setr_epi8(1, 0, 2, 1, 4, 3, 5, 4, 7, 6, 8, 7, 10, 9, 11, 10,  //
                                          1, 0, 2, 1, 4, 3, 5, 4, 7, 6, 8, 7, 10, 9, 11, 10);
  __m256i const offsets = lookUpTable(OFFSET_OF_RANGE);
  // 24 bytes are taken at a time; the second of the two loads reads four more.
  for (; n >= 28; n -= 24, bytes += 24, text += 32) {
    __m256i const both = _mm256_inserti128_si256(_mm256_castsi128_si256(load16(bytes)), load16(bytes + 12), 1);
    __m256i const groups = _mm256_shuffle_epi8(both, spread);
    // The multiplications shift each 16 bits by a distance of their own: the first and third value down by 10 and 6,
    // the second and fourth up by 4 and 8.
    __m256i const odd =
        _mm256_mulhi_epu16(_mm256_and_si256(groups, _mm256_set1_epi32(0x0FC0FC00)), _mm256_set1_epi32(0x04000040));
    __m256i const even =
        _mm256_mullo_epi16(_mm256_and_si256(groups, _mm256_set1_epi32(0x003F03F0)), _mm256_set1_epi32(0x01000010));
    __m256i const values = _mm256_or_si256(odd, even);
    __m256i const capitals = _mm256_and_si256(_mm256_cmpgt_epi8(_mm256_set1_epi8(26), values), _mm256_set1_epi8(13));
    __m256i const ranges = _mm256_or_si256(_mm256_subs_epu8(values, _mm256_set1_epi8(51)), capitals);
    __m256i const characters = _mm256_add_epi8(values, _mm256_shuffle_epi8(offsets, ranges));
    _mm256_storeu_si256(reinterpret_cast<__m256i *>(text), characters);
  }
  _mm256_zeroupper();
  encodeBase64Plain(bytes, n, text);
}

// The bytes of 32 values, 24 of them, at the front.
TAVRONE_AVX2 inline __m256i joinBase64Values(__m256i values) {
  __m256i const pairs = _mm256_maddubs_epi16(values, _mm256_set1_epi32(0x01400140));  // 64 * first + second
  __m256i const groups = _mm256_madd_epi16(pairs, _mm256_set1_epi32(0x00011000));     // 4096 * first + second
  __m256i const order = _mm256_setr_epi8(2, 1, 0, 6, 5, 4, 10, 9, 8, 14, 13, 12, -1, -1, -1, -1,  //
                                         2, 1, 0, 6, 5, 4, 10, 9, 8, 14, 13, 12, -1, -1, -1, -1);
  return _mm256_permutevar8x32_epi32(_mm256_shuffle_epi8(groups, order), _mm256_setr_epi32(0, 1, 2, 4, 5, 6, 3, 7));
}

TAVRONE_AVX2 void decodeCleanGroupsAvx2(Decoding &decoding) {
  __m256i const lowMask = _mm256_set1_epi8(0x0F);
  __m256i const rowsWithout = lookUpTable(ROWS_WITHOUT_LOW_BITS);
  __m256i const rows = lookUpTable(ROW_OF_HIGH_BITS);
  __m256i const offsets = lookUpTable(OFFSET_OF_HIGH_BITS);
  auto [text, end, bytes] = decoding;
  char const *stop = end;
  for (; end - text >= 32; text += 32, bytes += 24) {
    __m256i const characters = _mm256_loadu_si256(reinterpret_cast<__m256i const *>(text));
    __m256i const high = _mm256_and_si256(_mm256_srli_epi16(characters, 4), lowMask);
    __m256i const low = _mm256_and_si256(characters, lowMask);
    if (_mm256_testz_si256(_mm256_shuffle_epi8(rowsWithout, low), _mm256_shuffle_epi8(rows, high)) == 0) {
      stop = text + 32;  // the groups before the stray character are still clean
      break;
    }
    __m256i const slashes = _mm256_cmpeq_epi8(characters, _mm256_set1_epi8('/'));
    __m256i const offset = _mm256_shuffle_epi8(offsets, _mm256_add_epi8(high, slashes));
    __m256i const joined = joinBase64Values(_mm256_add_epi8(characters, offset));
    store16(bytes, _mm256_castsi256_si128(joined));
    _mm_storel_epi64(reinterpret_cast<__m128i *>(bytes + 16), _mm256_extracti128_si256(joined, 1));
  }
  // Compilers leave it out before a call into this file, and then everything that follows is slowed down.
  _mm256_zeroupper();
  decoding = {text, stop, bytes};
  decodeCleanGroupsPlain(decoding);
  decoding.end = end;
}

}  // namespace

void encodeHex(char const *bytes, size_t n, char *text) {
  for (; n >= 16; n -= 16, bytes += 16, text += 32) {
    __m128i const whole = load16(bytes);
    __m128i const mask = _mm_set1_epi8(0x0F);
    __m128i const high = hexDigits(_mm_and_si128(_mm_srli_epi16(whole, 4), mask));
    __m128i const low = hexDigits(_mm_and_si128(whole, mask));
    store16(text, _mm_unpacklo_epi8(high, low));
    store16(text + 16, _mm_unpackhi_epi8(high, low));
  }
  for (; n != 0; --n, ++bytes, text += 2) std::memcpy(text, HEX_PAIRS[byteAt(bytes, 0)].data(), 2);
}

void decodeHex(char const *text, size_t n, char *bytes) {
  for (; n >= 32; n -= 32, text += 32, bytes += 16)
    store16(bytes, _mm_packus_epi16(hexBytes(load16(text)), hexBytes(load16(text + 16))));
  for (; n >= 2; n -= 2, text += 2, ++bytes)
    *bytes = static_cast<char>(HEX_VALUES[byteAt(text, 0)] * 16 + HEX_VALUES[byteAt(text, 1)]);
}

constinit Base64Codec const PLAIN_BASE64{encodeBase64Plain, decodeBase64<decodeCleanGroupsPlain>};
constinit Base64Codec const AVX2_BASE64{encodeBase64Avx2, decodeBase64<decodeCleanGroupsAvx2>};

bool hasAvx2() {
  __builtin_cpu_init();
  return __builtin_cpu_supports("avx2") != 0;
}

Base64Codec const &base64Codec() {
  static Base64Codec const &chosen = hasAvx2() ? AVX2_BASE64 : PLAIN_BASE64;
  return chosen;
}

}  // namespace tavrone

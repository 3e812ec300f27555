#pragma once

#include <cstdint>
#include <cstring>

#include "tavrone/core/Export.h"

namespace tavrone {

// Writes decimal digits of four bits each. A word holds sixteen of them, the last in its lowest bits.
class PackedDigits {
 public:
  // Bytes that write() touches at most.
  static constexpr int ROOM = 16;

  // The bytes that so many digits, their sign and the zero that fills them up take.
  static constexpr int bytesOf(int digits) { return digits / 2 + 1; }

  // The last `digits` digits of the number and its sign, then a zero if the digits are even. REQUIRES: 0 <= digits <=
  // 19
  static void write(uint64_t magnitude, bool negative, int digits, char *out) {
    if (magnitude >= TEN_TO_8 || digits > DIGITS_IN_WORD) return writeLong(magnitude, negative, digits, out);
    storeBigEndian(withSign(eight(static_cast<uint32_t>(magnitude)), negative, digits) << unusedBits(digits), out);
  }

 private:
  static constexpr uint64_t TEN_TO_8 = 100000000;
  static constexpr int DIGITS_IN_WORD = 15;  // and a sign

  static __attribute__((noinline)) void writeLong(uint64_t magnitude, bool negative, int digits, char *out) {
    uint64_t const upper = magnitude / TEN_TO_8;
    uint64_t const low =
        eight(static_cast<uint32_t>(magnitude % TEN_TO_8)) | eight(static_cast<uint32_t>(upper % TEN_TO_8)) << 32;
    uint64_t const last = withSign(low, negative, digits);
    if (digits <= DIGITS_IN_WORD) return storeBigEndian(last << unusedBits(digits), out);
    unsigned const shift = signBits(digits);
    uint64_t const first = eight(static_cast<uint32_t>(upper / TEN_TO_8)) << shift | low >> (64 - shift);
    storeBigEndian(first << unusedBits(digits - DIGITS_IN_WORD - 1), out);
    storeBigEndian(last, out + bytesOf(digits) - 8);
  }

  static unsigned signBits(int digits) { return digits % 2 == 0 ? 8 : 4; }
  static uint64_t withSign(uint64_t packed, bool negative, int digits) {
    unsigned const shift = signBits(digits);
    return packed << shift | (negative ? uint64_t{0xD} : uint64_t{0xC}) << (shift - 4);
  }
  // Of a word that holds the digits and what follows them.
  static unsigned unusedBits(int digits) { return 64 - 8 * static_cast<unsigned>(bytesOf(digits)); }

  static void storeBigEndian(uint64_t word, char *out) {
    word = __builtin_bswap64(word);
    std::memcpy(out, &word, sizeof word);
  }

  // Splits fours into twos into ones, each group in a lane that is wide enough for the multiplication that divides it.
  static uint64_t eight(uint32_t value) {
    uint64_t const fours = value + (value / 10000) * (0x100000000 - 10000);
    uint64_t const hundreds = (fours * 10486) >> 20 & 0x0000007F0000007F;
    uint64_t const twos = fours + hundreds * (0x10000 - 100);
    uint64_t const tens = (twos * 103) >> 10 & 0x000F000F000F000F;
    uint64_t const packed = twos + tens * (0x10 - 10);
    uint64_t const pairs = (packed | packed >> 8) & 0x0000FFFF0000FFFF;
    return (pairs | pairs >> 16) & 0x00000000FFFFFFFF;
  }
};

}  // namespace tavrone

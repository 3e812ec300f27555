#pragma once

#include <cstdint>
#include <cstring>

namespace tavrone {

// A number as decimal digits of four bits, for writing. A word holds sixteen of them, the last in its lowest bits.
class PackedDigits {
 public:
  // Bytes that write() touches at most.
  static constexpr int ROOM = 16;

  PackedDigits(uint64_t magnitude, bool negative) : sign_(negative ? 0xD : 0xC) {
    if (magnitude < TEN_TO_8) {
      low_ = eight(static_cast<uint32_t>(magnitude));
    } else {
      low_ = eight(static_cast<uint32_t>(magnitude % TEN_TO_8));
      magnitude /= TEN_TO_8;
      low_ |= eight(static_cast<uint32_t>(magnitude % TEN_TO_8)) << 32;
      high_ = eight(static_cast<uint32_t>(magnitude / TEN_TO_8));
    }
  }

  // The bytes that so many digits, their sign and the zero that fills them up take.
  static constexpr int bytesOf(int digits) { return digits / 2 + 1; }

  // The last `digits` digits and the sign, then a zero if the digits are even. REQUIRES: 0 <= digits <= 19
  void write(int digits, char *out) const {
    unsigned const shift = digits % 2 == 0 ? 8 : 4;
    unsigned const bytes = static_cast<unsigned>(bytesOf(digits));
    uint64_t const low = low_ << shift | sign_ << (shift - 4);
    if (bytes <= 8) {
      storeBigEndian(low << (64 - 8 * bytes), out);
    } else {
      uint64_t const high = high_ << shift | low_ >> (64 - shift);
      storeBigEndian(high << (128 - 8 * bytes), out);
      storeBigEndian(low, out + bytes - 8);
    }
  }

 private:
  static constexpr uint64_t TEN_TO_8 = 100000000;

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
  uint64_t low_;       // sixteen digits
  uint64_t high_ = 0;  // what stands before them
  uint64_t sign_;
};

}  // namespace tavrone

#pragma once

#include <array>
#include <cstdint>
#include <cstring>

namespace tavrone {

// Writes packed decimals: four bits for each digit, and behind them four for the sign.
class PackedDigits {
 public:
  // Bytes that write() touches at most.
  static constexpr int ROOM = 16;

  // Whole bytes for so many digits and their sign; of an even count half a byte is left.
  static constexpr unsigned bytesOf(unsigned digits) { return digits / 2 + 1; }

  // The last `digits` digits of the number and its sign, then zeros. REQUIRES: digits <= 19
  static void write(uint64_t magnitude, bool negative, unsigned digits, char *out) {
    uint64_t const sign = negative ? 0xD : 0xC;
    if (magnitude >= TEN_TO_9 || digits > DIGITS_IN_WORD) return writeLong(magnitude, sign, digits, out);
    storeBigEndian((nine(magnitude) << 4 | sign) << 4 * (DIGITS_IN_WORD - digits), out);
  }

 private:
  __extension__ using uint128 = unsigned __int128;

  static constexpr uint64_t TEN_TO_9 = 1000000000;
  static constexpr unsigned DIGITS_IN_WORD = 15;
  static constexpr unsigned DIGITS_IN_TWO = 31;

  static __attribute__((noinline)) void writeLong(uint64_t magnitude, uint64_t sign, unsigned digits, char *out) {
    uint64_t const upper = magnitude / TEN_TO_9;
    uint128 const packed =
        uint128{upper / TEN_TO_9} << 72 | uint128{nine(upper % TEN_TO_9)} << 36 | nine(magnitude % TEN_TO_9);
    uint128 const words = (packed << 4 | sign) << 4 * (DIGITS_IN_TWO - digits);
    storeBigEndian(static_cast<uint64_t>(words >> 64), out);
    storeBigEndian(static_cast<uint64_t>(words), out + sizeof(uint64_t));
  }

  static void storeBigEndian(uint64_t word, char *out) {
    word = __builtin_bswap64(word);
    std::memcpy(out, &word, sizeof word);
  }

  static constexpr auto THREES = [] {
    std::array<uint16_t, 1000> threes{};
    for (unsigned i = 0; i < threes.size(); ++i)
      threes[i] = static_cast<uint16_t>(i / 100 << 8 | i / 10 % 10 << 4 | i % 10);
    return threes;
  }();
  static uint64_t nine(uint64_t magnitude) {
    uint32_t const value = static_cast<uint32_t>(magnitude);
    uint32_t const thousands = value / 1000;
    return uint64_t{THREES[thousands / 1000]} << 24 | uint64_t{THREES[thousands % 1000]} << 12 | THREES[value % 1000];
  }
};

}  // namespace tavrone

#pragma once

#include <cstdint>
#include <cstring>

// What the readers and writers of number text share.
namespace tavrone {

// t_atoi for texts that may well be no number: false where it would raise a failure.
bool tryReadInt(char const *begin, char const *end, int &value);

// t_itoa, t_ltoa and doubleToString, with the room that those ask for; return where the text ends.
char *writeNumber(int value, char *out);
char *writeNumber(long long value, char *out);
char *writeNumber(double value, char *out);

constexpr uint64_t ASCII_ZEROS = 0x3030303030303030;

// Characters as a word, the first in the lowest byte.
inline uint64_t load8(char const *from) {
  uint64_t word;
  std::memcpy(&word, from, sizeof word);
  return word;
}
inline uint64_t load4(char const *from) {
  uint32_t word;
  std::memcpy(&word, from, sizeof word);
  return word;
}

// Whether all eight characters of a word are digits.
inline bool areDigits(uint64_t word) {
  constexpr uint64_t HIGH = 0xF0F0F0F0F0F0F0F0;
  return (word & HIGH) == ASCII_ZEROS && ((word + 0x0606060606060606) & HIGH) == ASCII_ZEROS;
}

// The number that a word spells whose eight bytes are 0 to 9 each.
inline uint64_t valueOfDigits8(uint64_t word) {
  constexpr uint64_t PAIRS = 0x000000FF000000FF;
  word = word * 10 + (word >> 8);
  return ((word & PAIRS) * (1000000ULL << 32 | 100) + (word >> 16 & PAIRS) * (10000ULL << 32 | 1)) >> 32;
}
// The number that a word of eight digits spells.
inline uint64_t valueOf8(uint64_t word) {
  return valueOfDigits8(word - ASCII_ZEROS);
}

}  // namespace tavrone

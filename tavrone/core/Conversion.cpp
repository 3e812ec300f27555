#include "tavrone/core/Conversion.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cmath>
#include <limits>
#include <type_traits>

#include "tavrone/core/DigitText.h"
#include "tavrone/core/Raise.h"

// Digits are read and written eight at a time: a 64-bit word holds eight of them, the first in the lowest byte, and
// three multiplications turn the word into a number or back. What is left over is shifted out of the word, so that the
// work hardly depends on the count of digits and branches stay predictable on fields of mixed lengths.
//
// A double is m * 2^e with a 53-bit m. Below 2^53 its whole part is m shifted, and the rest times 10^8 fits in 128 bits
// before it is shifted and rounded: the eight decimals are exact with no floating arithmetic at all. From 2^64 on the
// digits come from a shifted big number in limbs of nine digits.

using tavrone::areDigits;
using tavrone::ASCII_ZEROS;
using tavrone::load4;
using tavrone::load8;
using tavrone::tvstring;
using tavrone::valueOf8;

namespace {

__extension__ using uint128 = unsigned __int128;

constexpr char const *SOURCE = "cpp/Conversion";

template <class Word>
void store(char *to, uint64_t word) {
  Word const part = static_cast<Word>(word);
  std::memcpy(to, &part, sizeof part);
}

// The last n of the word's eight characters, with zeros before them. REQUIRES: 0 < n <= 8
inline uint64_t keepLast(uint64_t word, size_t n) {
  uint64_t const kept = ~uint64_t{0} << (64 - 8 * n);
  return (word & kept) | (ASCII_ZEROS & ~kept);
}

// The n characters from `from` on as the word's last ones, not a byte read beyond them. REQUIRES: 0 < n < 8
inline uint64_t loadLast(char const *from, size_t n) {
  uint64_t word;
  if (n >= 4) {
    uint32_t const front = static_cast<uint32_t>(load4(from) << (8 * (8 - n)));
    word = load4(from + n - 4) << 32 | front;
  } else {
    word = uint64_t{static_cast<unsigned char>(from[n - 1])} << 56 |
           uint64_t{static_cast<unsigned char>(from[n / 2])} << (n == 3 ? 48 : 56) |
           uint64_t{static_cast<unsigned char>(from[0])} << (64 - 8 * n);
  }
  return keepLast(word, n);
}

constexpr uint64_t POWERS_OF_10[] = {1, 10, 100, 1000, 10000, 100000, 1000000, 10000000};

// The value of 1 to 18 digits, or false for a character that is none.
[[gnu::always_inline]] inline bool readDigits(char const *from, size_t n, uint64_t &value) {
  if (n < 8) {
    uint64_t const word = loadLast(from, n);
    value = valueOf8(word);
    return areDigits(word);
  }
  char const *const end = from + n;
  bool good = true;
  value = 0;
  for (; end - from >= 8; from += 8) {
    uint64_t const word = load8(from);
    good &= areDigits(word);
    value = value * 100000000 + valueOf8(word);
  }
  if (from == end) return good;
  size_t const rest = static_cast<size_t>(end - from);
  uint64_t const word = keepLast(load8(end - 8), rest);
  value = value * POWERS_OF_10[rest] + valueOf8(word);
  return good && areDigits(word);
}

enum class Outcome { Number, NoNumber, Overflow };

template <class Signed>
struct Reading {
  Signed value;
  Outcome outcome;
};

// So many digits can't overflow the type; only those behind them need the test for it.
template <class Signed>
constexpr size_t SAFE_DIGITS = std::numeric_limits<Signed>::digits10;

// The value is kept negative, so that the lowest one is read exactly, in the unsigned type, which may wrap.
template <class Signed>
TAVRONE_COLD Reading<Signed> readLong(char const *digits, char const *end, bool negative) {
  using Unsigned = std::make_unsigned_t<Signed>;
  uint64_t magnitude;
  if (!readDigits(digits, SAFE_DIGITS<Signed>, magnitude)) return {0, Outcome::NoNumber};
  Unsigned value = 0 - static_cast<Unsigned>(magnitude);
  for (char const *at = digits + SAFE_DIGITS<Signed>; at != end; ++at) {
    unsigned const digit = static_cast<unsigned char>(*at) - static_cast<unsigned>('0');
    if (digit > 9) return {0, Outcome::NoNumber};
    // Looks at the sign alone: a longer text that wraps past zero is not noticed.
    if (static_cast<Signed>(value) > 0) return {0, Outcome::Overflow};
    value = value * 10 - digit;
  }
  if (negative) return {static_cast<Signed>(value), Outcome::Number};
  Signed const result = static_cast<Signed>(0 - value);
  return {result, result < 0 ? Outcome::Overflow : Outcome::Number};
}

template <class Signed>
inline Reading<Signed> readDecimal(char const *begin, char const *end) {
  if (begin == end) return {0, Outcome::NoNumber};
  bool const negative = *begin == '-';
  char const *digits = begin + (static_cast<int>(negative) | static_cast<int>(*begin == '+'));
  size_t const n = static_cast<size_t>(end - digits);
  if (n == 0) return {0, Outcome::Number};
  if (n > SAFE_DIGITS<Signed>) return readLong<Signed>(digits, end, negative);
  uint64_t magnitude;
  if (!readDigits(digits, n, magnitude)) return {0, Outcome::NoNumber};
  Signed const value = static_cast<Signed>(magnitude);
  return {negative ? -value : value, Outcome::Number};
}

template <class Signed>
[[noreturn]] TAVRONE_COLD void raiseNoNumber(char const *begin, char const *end, Outcome outcome) {
  constexpr bool IS_INT = std::is_same_v<Signed, int>;
  tvstring const prefix(outcome == Outcome::NoNumber ? "" : IS_INT ? "Integer overflow. " : "Long overflow. ");
  tavrone::raise<tavrone::TransformException>(prefix + "Cannot convert '" +
                                                  tvstring(begin, static_cast<size_t>(end - begin)) + "' to " +
                                                  (IS_INT ? "int" : "long"),
                                              SOURCE);
}

template <class Signed>
inline Signed readOrRaise(char const *begin, char const *end) {
  auto const [value, outcome] = readDecimal<Signed>(begin, end);
  if (outcome != Outcome::Number) raiseNoNumber<Signed>(begin, end, outcome);
  return value;
}

// The most frequent numbers, ready-made and terminated.
constexpr auto SMALL_NUMBERS = [] {
  std::array<std::array<char, 4>, 100> texts{};
  for (unsigned i = 0; i < texts.size(); ++i) {
    size_t n = 0;
    if (i >= 10) texts[i][n++] = static_cast<char>('0' + i / 10);
    texts[i][n] = static_cast<char>('0' + i % 10);
  }
  return texts;
}();

// The eight digits of a value below 10^8, as numbers 0 to 9 in the bytes of a word.
inline uint64_t digitsOf8(uint32_t value) {
  uint64_t const fours = value / 10000 | uint64_t{value % 10000} << 32;
  uint64_t const hundreds = (fours * 10486) >> 20 & 0x0000007F0000007F;
  uint64_t const twos = hundreds | (fours - 100 * hundreds) << 16;
  uint64_t const tens = (twos * 103) >> 10 & 0x000F000F000F000F;
  return tens | (twos - 10 * tens) << 8;
}

// The text of a value below 10^8 without leading zeros: n characters in the word's lowest bytes, zeros above.
struct ShortText {
  explicit ShortText(uint32_t value) {
    uint64_t const digits = digitsOf8(value);
    unsigned const leading = static_cast<unsigned>(std::countr_zero(digits | uint64_t{1} << 56)) / 8;
    n = 8 - leading;
    word = (digits | ASCII_ZEROS) >> (8 * leading);
  }
  uint64_t word;
  unsigned n;
};

// Writes a text of three to eight characters and its terminator, nothing more: two words that overlap but for eight
// characters, and there the one between them.
inline char *storeTerminated(ShortText text, char *out) {
  unsigned const second = text.n - 3;
  unsigned const middle = text.n / 2;
  store<uint32_t>(out, text.word);
  store<uint32_t>(out + second, text.word >> (8 * second));
  out[middle] = static_cast<char>(text.word >> (8 * middle));
  return out + text.n;
}

inline char *storeEight(uint32_t value, char *out) {
  store<uint64_t>(out, digitsOf8(value) | ASCII_ZEROS);
  return out + 8;
}

// Writes decimal text of 10^8 and more, with no byte behind it; returns its end.
inline char *writeLong(uint64_t value, char *out) {
  constexpr uint64_t EIGHT = 100000000;
  uint64_t const high = value / EIGHT;
  ShortText const head(static_cast<uint32_t>(high < EIGHT ? high : high / EIGHT));
  store<uint64_t>(out, head.word);  // what it stores too much, the next eight digits overwrite
  out += head.n;
  if (high >= EIGHT) out = storeEight(static_cast<uint32_t>(high % EIGHT), out);
  return storeEight(static_cast<uint32_t>(value % EIGHT), out);
}

// Writes text and terminator, nothing more; returns the terminator.
template <class Signed>
char *writeDecimal(Signed value, char *out) {
  using Unsigned = std::make_unsigned_t<Signed>;
  Unsigned const bits = static_cast<Unsigned>(value);
  Unsigned const magnitude = value < 0 ? 0 - bits : bits;
  *out = '-';
  out += value < 0;
  if (magnitude < SMALL_NUMBERS.size()) {
    auto const &text = SMALL_NUMBERS[magnitude];
    std::memcpy(out, text.data(), 2);
    out += magnitude < 10 ? 1 : 2;
  } else if (magnitude < 100000000) {
    return storeTerminated(ShortText(static_cast<uint32_t>(magnitude)), out);
  } else {
    out = writeLong(magnitude, out);
  }
  *out = '\0';
  return out;
}

// Writes mantissa * 2^exponent of 2^64 and more; returns the text's end. REQUIRES: exponent <= 971
TAVRONE_COLD char *writeHuge(uint64_t mantissa, unsigned exponent, char *out) {
  constexpr uint32_t LIMB = 1000000000;
  std::array<uint32_t, 35> limbs;  // 309 digits, the lowest first
  size_t count = 0;
  for (; mantissa != 0; mantissa /= LIMB) limbs[count++] = static_cast<uint32_t>(mantissa % LIMB);
  while (exponent != 0) {
    unsigned const step = std::min(exponent, 32U);
    uint64_t carry = 0;
    for (size_t i = 0; i < count; ++i) {
      carry += uint64_t{limbs[i]} << step;
      limbs[i] = static_cast<uint32_t>(carry % LIMB);
      carry /= LIMB;
    }
    for (; carry != 0; carry /= LIMB) limbs[count++] = static_cast<uint32_t>(carry % LIMB);
    exponent -= step;
  }
  out = writeDecimal(static_cast<long long>(limbs[--count]), out);
  while (count != 0) {
    uint32_t const limb = limbs[--count];
    *out++ = static_cast<char>('0' + limb / 100000000);
    out = storeEight(limb % 100000000, out);
  }
  return out;
}

constexpr int MANTISSA_BITS = 52;
constexpr int EXPONENT_BIAS = 1023 + MANTISSA_BITS;
constexpr unsigned LETTERS_EXPONENT = 0x7FF;

// Writes the text of doubleToString with its terminator, which it returns; up to eight bytes behind it are written too.
inline char *writeDouble(double value, char *out) {
  uint64_t const bits = std::bit_cast<uint64_t>(value);
  uint64_t mantissa = bits & ((uint64_t{1} << MANTISSA_BITS) - 1);
  unsigned const exponentBits = bits >> MANTISSA_BITS & LETTERS_EXPONENT;
  *out = '-';
  out += bits >> 63;
  if (exponentBits == LETTERS_EXPONENT) {
    std::memcpy(out, mantissa == 0 ? "inf" : "nan", 4);
    return out + 3;
  }
  if (exponentBits != 0) mantissa |= uint64_t{1} << MANTISSA_BITS;
  int const exponent = static_cast<int>(exponentBits != 0 ? exponentBits : 1) - EXPONENT_BIAS;

  uint64_t whole = 0;
  uint64_t decimals = 0;  // times 10^8
  if (exponent >= 0) {
    if (exponent > 11) {
      out = writeHuge(mantissa, static_cast<unsigned>(exponent), out);
      std::memcpy(out, ".0", 3);
      return out + 2;
    }
    whole = mantissa << exponent;
  } else if (exponent >= -80) {  // below, every value is less than half of the last decimal
    int const places = -exponent;
    whole = places < 64 ? mantissa >> places : 0;
    uint64_t const rest = places < 64 ? mantissa - (whole << places) : mantissa;
    uint128 const scaled = uint128{rest} * 100000000;
    uint128 const half = uint128{1} << (places - 1);
    unsigned const odd = static_cast<unsigned>(scaled >> places) & 1;
    decimals = static_cast<uint64_t>((scaled + half - 1 + odd) >> places);  // ties go to the even neighbour
    if (decimals == 100000000) {
      decimals = 0;
      ++whole;
    }
  }

  if (whole < 100000000) {
    ShortText const text(static_cast<uint32_t>(whole));
    store<uint64_t>(out, text.word);
    out += text.n;
  } else {
    out = writeLong(whole, out);
  }
  *out++ = '.';
  uint64_t const digits = digitsOf8(static_cast<uint32_t>(decimals));
  store<uint64_t>(out, digits | ASCII_ZEROS);
  out += 8 - static_cast<unsigned>(std::countl_zero(digits | 1)) / 8;  // one zero stays
  *out = '\0';
  return out;
}

}  // namespace

int t_atoi(char const *begin, char const *end) {
  return readOrRaise<int>(begin, end);
}
long long t_atol(char const *begin, char const *end) {
  return readOrRaise<long long>(begin, end);
}

void t_itoa(int value, char *out) {
  writeDecimal(value, out);
}
void t_ltoa(long long value, char *out) {
  writeDecimal(value, out);
}

char *intToString(int value, char *out) {
  t_itoa(value, out);
  return out;
}
char *doubleToString(double value, char *out) {
  writeDouble(value, out);
  return out;
}
char *floatToString(float value, char *out) {
  return doubleToString(static_cast<double>(value), out);
}
char *charToString(char value, char *out) {
  out[0] = value;
  out[1] = '\0';
  return out;
}
char *boolToString(bool value, char *out) {
  return std::strcpy(out, value ? "true" : "false");
}

tvstring &intToString(int value, tvstring &out) {
  return out.assign(value);
}
tvstring &dlongToString(long long value, tvstring &out) {
  return out.assign(value);
}
tvstring &doubleToString(double value, tvstring &out) {
  return out.assign(value);
}
tvstring &floatToString(float value, tvstring &out) {
  return out.assign(value);
}
tvstring &charToString(char value, tvstring &out) {
  return out.assign(value);
}
tvstring &boolToString(bool value, tvstring &out) {
  return out = boolToString(value);
}

namespace {

template <class T>
tvstring textOf(T value) {
  tvstring out;
  out.assign(value);
  return out;
}

}  // namespace

tvstring intToString(int value) {
  return textOf(value);
}
tvstring dlongToString(long long value) {
  return textOf(value);
}
tvstring doubleToString(double value) {
  return textOf(value);
}
tvstring floatToString(float value) {
  return textOf(value);
}
tvstring charToString(char value) {
  return tvstring(1, value);
}
tvstring boolToString(bool value) {
  return tavrone::tvstringliteral(value ? "true" : "false");
}

namespace tavrone {

bool tryReadInt(char const *begin, char const *end, int &value) {
  auto const reading = readDecimal<int>(begin, end);
  value = reading.value;
  return reading.outcome == Outcome::Number;
}

char *writeNumber(int value, char *out) {
  return writeDecimal(value, out);
}
char *writeNumber(long long value, char *out) {
  return writeDecimal(value, out);
}
char *writeNumber(double value, char *out) {
  return writeDouble(value, out);
}

namespace {

// What the numeric assign forms reserve.
constexpr size_t SHORT_TEXT = 25;
constexpr size_t LONG_TEXT = 100;
constexpr size_t LONGEST_TEXT = 352;

}  // namespace

tvstring &tvstring::assign(int value) {
  char *text = ensureCleanFree(SHORT_TEXT);
  length_ = static_cast<size_t>(writeDecimal(value, text) - text);
  return *this;
}

tvstring &tvstring::assign(long long value) {
  char *text = ensureCleanFree(LONG_TEXT);
  length_ = static_cast<size_t>(writeDecimal(value, text) - text);
  return *this;
}

tvstring &tvstring::assign(float value) {
  return assign(static_cast<double>(value));
}

tvstring &tvstring::assign(double value) {
  bool const isLong = std::isfinite(value) && std::fabs(value) >= 1e90;
  char *text = ensureCleanFree(isLong ? LONGEST_TEXT : LONG_TEXT);
  length_ = static_cast<size_t>(writeDouble(value, text) - text);
  return *this;
}

tvstring &tvstring::assign(char value) {
  char *text = ensureCleanFree(SHORT_TEXT);
  charToString(value, text);
  length_ = 1;
  return *this;
}

}  // namespace tavrone

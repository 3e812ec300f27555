#include <emmintrin.h>

#include <array>
#include <bit>
#include <charconv>
#include <cstdint>
#include <cstring>
#include <limits>

#include "tavrone/core/DigitText.h"
#include "tavrone/core/Parsing.h"

// Three ways to a value, tried in this order:
//  - a price: up to 8 digits, a point, up to 8 digits, no exponent. Both runs of digits are read by arithmetic on one
//    64-bit word each, with no loop over characters.
//  - any number of up to 19 digits in all.
//  - everything else, by std::from_chars.
// The first two yield an integer and a power of ten. While the integer fits into 53 bits and the power is at most
// 10^22, both are exact as doubles, so that one multiplication or division rounds correctly.
namespace tavrone {
namespace {

constexpr uint64_t BYTES = 0x0101010101010101;
constexpr uint64_t MAX_EXACT_INTEGER = uint64_t{1} << 53;
constexpr int MAX_EXACT_POWER = 22;

constexpr std::array<double, MAX_EXACT_POWER + 1> POWERS_OF_10 = {1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7,
                                                                  1e8,  1e9,  1e10, 1e11, 1e12, 1e13, 1e14, 1e15,
                                                                  1e16, 1e17, 1e18, 1e19, 1e20, 1e21, 1e22};

// Masks for the last n bytes of a word in memory.
constexpr std::array<uint64_t, 9> LAST_BYTES = {0,           ~0ull << 56, ~0ull << 48, ~0ull << 40, ~0ull << 32,
                                                ~0ull << 24, ~0ull << 16, ~0ull << 8,  ~0ull};

inline bool isDigit(char c) {
  return c >= '0' && c <= '9';
}
inline bool isExponentMark(char c) {
  return c == 'e' || c == 'E';
}
inline bool isSign(char c) {
  return c == '+' || c == '-';
}

// The first and the last eight characters of a text, the first of them in the lowest byte. A shorter text fills the low
// bytes of `first` and the high bytes of `last`, with zeros beside it. Two loads that overlap where the text is short
// make each word: prices come in all lengths, and a branch on the length would be guessed wrong again and again.
struct TextEnds {
  uint64_t first;
  uint64_t last;

  // REQUIRES: length > 0
  TextEnds(char const *text, size_t length) {
    if (length >= 4) {
      size_t const step = length >= 8 ? 4 : length - 4;
      char const *const tail = text + length - 4;
      first = load4(text) | load4(text + step) << (8 * step);
      last = load4(tail) << 32 | load4(tail - step) << (8 * (4 - step));
    } else {
      first =
          byte(text[0]) | byte(text[length / 2]) << (8 * (length / 2)) | byte(text[length - 1]) << (8 * (length - 1));
      last = first << (8 * (8 - length));
    }
  }

 private:
  static uint64_t byte(char c) { return static_cast<unsigned char>(c); }
};

// The values of two runs of eight digits, each with its first in the lowest byte; false unless all are digits.
inline bool joinTwoRuns(uint64_t first, uint64_t second, double &firstValue, double &secondValue) {
  __m128i const digits = _mm_set_epi64x(static_cast<long long>(second), static_cast<long long>(first));
  __m128i const isNone = _mm_subs_epu8(digits, _mm_set1_epi8(9));
  if (_mm_movemask_epi8(_mm_cmpeq_epi8(isNone, _mm_setzero_si128())) != 0xFFFF) return false;
  __m128i const tens = _mm_mullo_epi16(_mm_and_si128(digits, _mm_set1_epi16(0xFF)), _mm_set1_epi16(10));
  __m128i const pairs = _mm_add_epi16(tens, _mm_srli_epi16(digits, 8));
  __m128i const fours = _mm_madd_epi16(pairs, _mm_set1_epi32(100 | 1 << 16));
  __m128i const eights = _mm_madd_epi16(_mm_packs_epi32(fours, fours), _mm_set1_epi32(10000 | 1 << 16));
  __m128d const values = _mm_cvtepi32_pd(eights);
  firstValue = _mm_cvtsd_f64(values);
  secondValue = _mm_cvtsd_f64(_mm_unpackhi_pd(values, values));
  return true;
}

// A text without a sign. REQUIRES: length > 0
inline bool readPrice(char const *text, size_t length, double &value) {
  auto const [first, last] = TextEnds(text, length);
  uint64_t const notPoint = first ^ '.' * BYTES;
  uint64_t const points = (notPoint - BYTES) & ~notPoint & 0x80 * BYTES;
  if (points == 0) return false;
  size_t const whole = static_cast<size_t>(std::countr_zero(points)) / 8;  // 0 to 7 digits
  size_t const fraction = length - whole - 1;
  if (fraction > 8 || length == 1) return false;
  uint64_t const wholeDigits = (first ^ ASCII_ZEROS) << (8 * (7 - whole)) << 8;
  uint64_t const fractionDigits = (last ^ ASCII_ZEROS) & LAST_BYTES[fraction];
  double wholeValue, fractionValue;
  if (!joinTwoRuns(wholeDigits, fractionDigits, wholeValue, fractionValue)) return false;
  value = (wholeValue * POWERS_OF_10[fraction] + fractionValue) / POWERS_OF_10[fraction];  // 15 digits are exact
  return true;
}

// Appends the digits at `at` to the integer, wrapping around, and moves past them.
inline void readDigits(char const *&at, char const *end, uint64_t &integer) {
  for (; end - at >= 8; at += 8) {
    uint64_t const word = load8(at);
    if (!areDigits(word)) break;
    integer = integer * 100000000 + valueOf8(word);
  }
  for (; at != end && isDigit(*at); ++at) integer = integer * 10 + static_cast<uint64_t>(*at - '0');
}

// A text without a sign that is one number to its end.
bool readShortNumber(char const *at, char const *end, double &value) {
  constexpr ptrdiff_t MAX_DIGITS = 19;
  if (end - at > MAX_DIGITS + 6) return false;
  uint64_t integer = 0;
  char const *const begin = at;
  readDigits(at, end, integer);
  ptrdiff_t digits = at - begin;
  int power = 0;
  if (at != end && *at == '.') {
    char const *const point = at++;
    readDigits(at, end, integer);
    power = static_cast<int>(point + 1 - at);
    digits -= power;
  }
  if (digits == 0 || digits > MAX_DIGITS) return false;
  if (at != end) {
    if (!isExponentMark(*at++) || at == end) return false;
    bool const negative = *at == '-';
    if (isSign(*at)) ++at;
    uint64_t exponent = 0;
    char const *const exponentBegin = at;
    readDigits(at, end, exponent);
    if (at != end || at == exponentBegin || at - exponentBegin > 3) return false;
    power += negative ? -static_cast<int>(exponent) : static_cast<int>(exponent);
  }
  if (integer > MAX_EXACT_INTEGER || power < -MAX_EXACT_POWER || power > MAX_EXACT_POWER) return false;
  double const exact = static_cast<double>(integer);
  value =
      power < 0 ? exact / POWERS_OF_10[static_cast<size_t>(-power)] : exact * POWERS_OF_10[static_cast<size_t>(power)];
  return true;
}

bool hasOnlyNumberCharacters(char const *at, char const *end) {
  for (; at != end; ++at)
    if (!isDigit(*at) && !isSign(*at) && *at != '.' && !isExponentMark(*at)) return false;
  return true;
}

// A number of any length brought down to what decides its value: 0.DDD * 10^power with its leading significant digits,
// the last of which stands for all that were cut off. 770 digits tell any two neighbouring doubles apart.
class LongNumber {
 public:
  // [at, end) begins with a number, without a sign.
  LongNumber(char const *at, char const *end) {
    for (; at != end && isDigit(*at); ++at) addDigit(*at, 1);
    if (at != end && *at == '.')
      for (++at; at != end && isDigit(*at); ++at) addDigit(*at, 0);
    if (at == end || !isExponentMark(*at++)) return;
    bool const negative = at != end && *at == '-';
    if (at != end && isSign(*at)) ++at;
    long long exponent = 0;
    for (; at != end && isDigit(*at); ++at)
      if (exponent < MAX_EXPONENT) exponent = exponent * 10 + (*at - '0');
    power_ += negative ? -exponent : exponent;
  }

  double value() const {
    if (count_ == 0 || power_ < -400) return 0.0;
    if (power_ > 400) return std::numeric_limits<double>::infinity();
    std::array<char, MAX_DIGITS + 16> text;
    text[0] = '.';
    std::memcpy(text.data() + 1, digits_.data(), count_);
    char *end = text.data() + 1 + count_;
    *end++ = 'e';
    end = std::to_chars(end, text.data() + text.size(), power_).ptr;
    double result = 0.0;
    if (std::from_chars(text.data(), end, result).ec == std::errc::result_out_of_range)
      return power_ > 0 ? std::numeric_limits<double>::infinity() : 0.0;
    return result;
  }

 private:
  static constexpr size_t MAX_DIGITS = 800;
  static constexpr long long MAX_EXPONENT = 1LL << 56;  // beyond what any length of text can make up for

  void addDigit(char digit, int whole) {
    if (count_ == 0 && digit == '0') {
      power_ += whole - 1;
      return;
    }
    power_ += whole;
    if (count_ < MAX_DIGITS)
      digits_[count_++] = digit;
    else if (digit != '0' && digits_.back() == '0')
      digits_.back() = '1';
  }

  std::array<char, MAX_DIGITS> digits_;
  size_t count_ = 0;
  long long power_ = 0;
};

bool beginsWithNumber(char const *at, char const *end) {
  if (at != end && *at == '.') ++at;
  return at != end && isDigit(*at);
}

// The number that [at, end), without a sign, begins with. std::from_chars does not say which way a value is out of
// range, and gives up on exponents that only a text of many thousand digits can make up for.
double readPrefix(char const *at, char const *end) {
  constexpr ptrdiff_t MAX_LENGTH = 1000;
  double value = 0.0;
  if (end - at > MAX_LENGTH || std::from_chars(at, end, value).ec == std::errc::result_out_of_range)
    return LongNumber(at, end).value();
  return value;
}

}  // namespace

double Parsing::parseDouble(tvstring const &text) {
  char const *at = text.data();
  char const *const end = at + text.length();
  bool negative = false;
  if (at != end && isSign(*at)) negative = *at++ == '-';
  double value;
  if (at == end || !(readPrice(at, static_cast<size_t>(end - at), value) || readShortNumber(at, end, value))) {
    if (!hasOnlyNumberCharacters(at, end)) raiseCannotConvert(text, "double");
    if (!beginsWithNumber(at, end)) return 0.0;  // never -0.0: there is no number that a sign could belong to
    value = readPrefix(at, end);
  }
  return negative ? -value : value;
}

}  // namespace tavrone

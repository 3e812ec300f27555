#include "tavrone/core/MAPM.h"

#include <algorithm>
#include <array>
#include <bit>
#include <charconv>
#include <cmath>
#include <cstdlib>
#include <cstring>
#include <limits>
#include <memory>
#include <new>

#include "tavrone/core/Conversion.h"
#include "tavrone/core/DigitText.h"
#include "tavrone/core/Raise.h"
#include "tavrone/core/tvstring.h"

namespace tavrone {

// How it works. A number is a row of limbs in base 10^18, aligned at the decimal point: limb p holds the digits at the
// positions 18p to 18p + 17, where position 0 is the units digit. Text is cut into limbs and joined from them in one
// pass. Sums walk two rows side by side. Products are summed by columns in 128 bits, so that there is one division for
// each limb of the result; it is by the constant 10^18 and costs two multiplications. Quotients are cut, one digit more
// than asked for, and rounded then: half away from zero needs no more than that digit.

namespace {

__extension__ typedef unsigned __int128 Wide;

constexpr char const *SOURCE = "cpp/MAPM";
constexpr int LIMB_DIGITS = M_APM_::LIMB_DIGITS;
constexpr uint64_t BASE = 1'000'000'000'000'000'000;
constexpr int MAX_TEXT_EXPONENT = 99'999;
constexpr int64_t MAX_TEXT_LENGTH = 1'000'000'000;
constexpr int MAX_RESULT_EXPONENT = 9'999'999;
constexpr int MAX_QUOTIENT_DIGITS = 100'000;

constexpr std::array<uint64_t, LIMB_DIGITS + 1> POWERS_OF_10 = [] {
  std::array<uint64_t, LIMB_DIGITS + 1> powers{1};
  for (size_t i = 1; i < powers.size(); ++i) powers[i] = powers[i - 1] * 10;
  return powers;
}();

uint64_t powerOf10(int64_t n) {
  return POWERS_OF_10[static_cast<size_t>(n)];
}

[[noreturn]] TAVRONE_COLD void report(char const *words) {
  raise<TransformException>(tvstring(words), SOURCE);
}

[[noreturn]] TAVRONE_COLD void reportOutOfMemory(char const *operation) {
  report((tvstring("'") + operation + "', Out of memory").c_str());
}

[[noreturn]] TAVRONE_COLD void reportBadText() {
  report("'m_apm_set_string', Non-digit char found in parse");
}
[[noreturn]] TAVRONE_COLD void reportDivideByZero() {
  report("'m_apm_divide', Divide by 0");
}

struct Split {
  uint64_t quotient;
  uint64_t remainder;
};

// value / 10^18 and the rest, by a precomputed reciprocal (Moeller and Granlund, "Improved Division by Invariant
// Integers", algorithm 4). REQUIRES: value < 2^64 * 10^18
inline Split splitLimb(Wide value) {
  constexpr int SHIFT = std::countl_zero(BASE);
  constexpr uint64_t DIVISOR = BASE << SHIFT;
  constexpr uint64_t RECIPROCAL = static_cast<uint64_t>(~Wide(0) / DIVISOR - (Wide(1) << 64));
  value <<= SHIFT;
  Wide const estimate = Wide(RECIPROCAL) * static_cast<uint64_t>(value >> 64) + value;
  uint64_t quotient = static_cast<uint64_t>(estimate >> 64) + 1;
  uint64_t remainder = static_cast<uint64_t>(value) - quotient * DIVISOR;
  if (remainder > static_cast<uint64_t>(estimate)) {
    --quotient;
    remainder += DIVISOR;
  }
  if (remainder >= DIVISOR) [[unlikely]] {
    ++quotient;
    remainder -= DIVISOR;
  }
  return {quotient, remainder >> SHIFT};
}

// REQUIRES: value > 0
int digitCount(uint64_t value) {
  int const guess = static_cast<int>(std::bit_width(value)) * 1233 >> 12;
  return guess + (value >= powerOf10(guess) ? 1 : 0);
}

// REQUIRES: 0 < value < 10^18
int trailingZeros(uint64_t value) {
  int zeros = 0;
  auto const strip = [&](int count, uint64_t power) {
    if (value % power != 0) return;
    value /= power;
    zeros += count;
  };
  strip(9, 1'000'000'000);
  strip(4, 10'000);
  strip(2, 100);
  strip(2, 100);
  strip(1, 10);
  return zeros;
}

int64_t limbPlace(int64_t position) {
  return position >= 0 ? position / LIMB_DIGITS : -((LIMB_DIGITS - 1 - position) / LIMB_DIGITS);
}

// Working memory: on the stack for ordinary numbers.
template <class T, size_t N>
class Scratch {
 public:
  Scratch(size_t size, char const *operation) {
    if (size <= N) return;
    heap_.reset(new (std::nothrow) T[size]);
    if (heap_ == nullptr) reportOutOfMemory(operation);
  }
  T *get() { return heap_ != nullptr ? heap_.get() : stack_; }

 private:
  std::unique_ptr<T[]> heap_;
  T stack_[N];
};

// A row of limbs, not necessarily in a body.
struct Row {
  uint64_t const *limbs = nullptr;
  int64_t size = 0;
  int64_t place = 0;

  Row(uint64_t const *l, int64_t s, int64_t p) : limbs(l), size(s), place(p) {}
  Row(M_APM_ const *body) {
    if (body != nullptr) *this = Row(body->limbs, body->size, body->place);
  }

  int64_t top() const { return place + size; }  // the place above the highest limb
  uint64_t limbAt(int64_t at) const {
    uint64_t const i = static_cast<uint64_t>(at - place);
    return i < static_cast<uint64_t>(size) ? limbs[i] : 0;
  }
  // Positions of the first and the last digit. REQUIRES: normalised, not zero
  int64_t firstDigit() const { return (top() - 1) * LIMB_DIGITS + digitCount(limbs[size - 1]) - 1; }
  int64_t lastDigit() const { return place * LIMB_DIGITS + trailingZeros(limbs[0]); }

  // Without zero limbs at the ends.
  Row trimmed() const {
    Row row = *this;
    while (row.size > 0 && row.limbs[row.size - 1] == 0) --row.size;
    while (row.size > 0 && row.limbs[0] == 0) {
      ++row.limbs;
      ++row.place;
      --row.size;
    }
    return row;
  }
};

// A body with room for so many limbs, in use all of them, not yet written.
M_APM_ *allocate(int64_t size, int64_t place, int sign, char const *operation) {
  void *block = std::malloc(sizeof(M_APM_) + static_cast<size_t>(size) * sizeof(uint64_t));
  if (block == nullptr) reportOutOfMemory(operation);
  void *behind = static_cast<char *>(block) + sizeof(M_APM_);
  return new (block)
      M_APM_{0, sign, static_cast<int32_t>(size), static_cast<int32_t>(place), static_cast<uint64_t *>(behind)};
}

// Drops zero limbs at the ends; null for zero.
M_APM_ *trimmed(M_APM_ *body) {
  Row const row = Row(body).trimmed();
  if (row.size == 0) {
    std::free(body);
    return nullptr;
  }
  if (row.limbs != body->limbs) std::memmove(body->limbs, row.limbs, static_cast<size_t>(row.size) * sizeof(uint64_t));
  body->size = static_cast<int32_t>(row.size);
  body->place = static_cast<int32_t>(row.place);
  return body;
}

inline M_APM_ *normalise(M_APM_ *body) {
  // The analyser does not see that every limb was written.
  // NOLINTNEXTLINE(clang-analyzer-core.UndefinedBinaryOperatorResult)
  return body->limbs[body->size - 1] != 0 && body->limbs[0] != 0 ? body : trimmed(body);
}

M_APM_ *copyOf(Row const &row, int sign) {
  M_APM_ *body = allocate(row.size, row.place, sign, "m_apm_copy");
  std::copy_n(row.limbs, row.size, body->limbs);
  return body;
}

int compareMagnitudes(Row const &a, Row const &b) {
  if (a.top() != b.top()) return a.top() < b.top() ? -1 : 1;
  uint64_t const *atA = a.limbs + a.size;
  uint64_t const *atB = b.limbs + b.size;
  for (int64_t left = std::min(a.size, b.size); left > 0; --left)
    if (*--atA != *--atB) return *atA < *atB ? -1 : 1;
  return a.size == b.size ? 0 : a.size < b.size ? -1 : 1;
}

M_APM_ *addMagnitudes(Row const &a, Row const &b, int sign) {
  int64_t const place = std::min(a.place, b.place);
  int64_t const top = std::max(a.top(), b.top());
  M_APM_ *sum = allocate(top - place + 1, place, sign, "m_apm_add");
  uint64_t *out = sum->limbs;
  uint64_t carry = 0;
  for (int64_t at = place; at < top; ++at) {
    uint64_t const limb = a.limbAt(at) + b.limbAt(at) + carry;
    carry = limb >= BASE ? 1 : 0;
    *out++ = limb - (carry != 0 ? BASE : 0);
  }
  if (carry != 0)
    *out = carry;
  else
    --sum->size;
  return normalise(sum);
}

// REQUIRES: a > b
M_APM_ *subtractMagnitudes(Row const &a, Row const &b, int sign) {
  int64_t const place = std::min(a.place, b.place);
  M_APM_ *difference = allocate(a.top() - place, place, sign, "m_apm_subtract");
  uint64_t *out = difference->limbs;
  uint64_t borrow = 0;
  for (int64_t at = place; at < a.top(); ++at) {
    uint64_t const limb = a.limbAt(at);
    uint64_t const less = b.limbAt(at) + borrow;
    borrow = limb < less ? 1 : 0;
    *out++ = limb - less + (borrow != 0 ? BASE : 0);
  }
  return normalise(difference);
}

// a + b, where b counts with the sign given instead of its own.
M_APM_ *addSigned(M_APM_ const *a, M_APM_ const *b, int signOfB) {
  if (a->sign == signOfB) return addMagnitudes(a, b, signOfB);
  int const order = compareMagnitudes(a, b);
  if (order == 0) return nullptr;
  return order > 0 ? subtractMagnitudes(a, b, a->sign) : subtractMagnitudes(b, a, signOfB);
}

M_APM_ *multiplyMagnitudes(Row const &a, Row const &b, int sign) {
  // So many products and a carry stay below what splitLimb takes.
  constexpr int64_t PRODUCTS = 16;
  M_APM_ *product = allocate(a.size + b.size, a.place + b.place, sign, "m_apm_multiply");
  Wide column = 0;
  for (int64_t k = 0; k < a.size + b.size - 1; ++k) {
    int64_t i = std::max<int64_t>(0, k - b.size + 1);
    int64_t const end = std::min(k + 1, a.size);
    Wide carry = 0;
    for (;;) {
      for (int64_t const stop = std::min(end, i + PRODUCTS); i < stop; ++i) column += Wide(a.limbs[i]) * b.limbs[k - i];
      if (i == end) break;
      Split const part = splitLimb(column);
      carry += part.quotient;
      column = part.remainder;
    }
    Split const part = splitLimb(column);
    product->limbs[k] = part.remainder;
    column = carry + part.quotient;
  }
  product->limbs[product->size - 1] = static_cast<uint64_t>(column);
  return normalise(product);
}

// limbs[0, size) * factor + carry; returns what runs over.
uint64_t multiplyInPlace(uint64_t *limbs, int64_t size, uint64_t factor) {
  uint64_t carry = 0;
  for (int64_t i = 0; i < size; ++i) {
    Split const part = splitLimb(Wide(limbs[i]) * factor + carry);
    limbs[i] = part.remainder;
    carry = part.quotient;
  }
  return carry;
}

// limbs[0, size) / divisor into quotient, which may be limbs; returns the rest.
uint64_t divideByLimb(uint64_t const *limbs, int64_t size, uint64_t divisor, uint64_t *quotient) {
  uint64_t rest = 0;
  for (int64_t i = size; i-- > 0;) {
    Wide const value = Wide(rest) * BASE + limbs[i];
    quotient[i] = static_cast<uint64_t>(value / divisor);
    rest = static_cast<uint64_t>(value - Wide(quotient[i]) * divisor);
  }
  return rest;
}

// u[0, size] -= v[0, size) * factor; true if that went below zero and wrapped.
bool subtractProduct(uint64_t *u, uint64_t const *v, int64_t size, uint64_t factor) {
  uint64_t carry = 0;
  uint64_t borrow = 0;
  auto const take = [&borrow](uint64_t &limb, uint64_t amount) {
    uint64_t const less = amount + borrow;
    borrow = limb < less ? 1 : 0;
    limb = limb - less + (borrow != 0 ? BASE : 0);
  };
  for (int64_t i = 0; i < size; ++i) {
    Split const part = splitLimb(Wide(v[i]) * factor + carry);
    carry = part.quotient;
    take(u[i], part.remainder);
  }
  take(u[size], carry);
  return borrow != 0;
}

// u[0, size] += v[0, size), the last carry dropped.
void addBack(uint64_t *u, uint64_t const *v, int64_t size) {
  uint64_t carry = 0;
  for (int64_t i = 0; i <= size; ++i) {
    uint64_t const limb = u[i] + (i < size ? v[i] : 0) + carry;
    carry = limb >= BASE ? 1 : 0;
    u[i] = limb - (carry != 0 ? BASE : 0);
  }
}

// The limbs of a / b from a place on, and what they leave. Schoolbook (Knuth, "The Art of Computer Programming" 4.3.1,
// algorithm D).
class Division {
 public:
  // REQUIRES: b is not zero, and a row from place + b.place on is as long as b's
  Division(Row const &a, Row const &b, int64_t place)
      : size_(a.top() - b.place - place),
        divisorSize_(b.size),
        place_(place),
        scratch_(static_cast<size_t>(2 * size_ + 2), "m_apm_divide"),
        rest_(scratch_.get()),
        divisor_(rest_ + size_ + 1),
        quotient_(divisor_ + divisorSize_) {
    for (int64_t i = 0; i < size_; ++i) rest_[i] = a.limbAt(place + b.place + i);
    rest_[size_] = 0;
    if (divisorSize_ == 1)
      rest_[0] = divideByLimb(rest_, size_, b.limbs[0], quotient_);
    else
      divideByRow(b);
  }

  Row quotient() const { return Row(quotient_, size_ - divisorSize_ + 1, place_).trimmed(); }
  // As many limbs as the divisor has.
  uint64_t const *rest() const { return rest_; }

 private:
  void divideByRow(Row const &b) {
    // The estimate of a limb needs a divisor whose first limb is at least half of the base.
    uint64_t const scale = BASE / (b.limbs[b.size - 1] + 1);
    std::copy_n(b.limbs, b.size, divisor_);
    multiplyInPlace(divisor_, b.size, scale);
    rest_[size_] = multiplyInPlace(rest_, size_, scale);
    for (int64_t j = size_ - b.size; j >= 0; --j) {
      uint64_t limb = estimate(rest_ + j);
      if (subtractProduct(rest_ + j, divisor_, b.size, limb)) {
        --limb;
        addBack(rest_ + j, divisor_, b.size);
      }
      quotient_[j] = limb;
    }
    if (scale != 1) divideByLimb(rest_, b.size, scale, rest_);
  }

  // The next limb of the quotient, at most one too large.
  uint64_t estimate(uint64_t const *rest) const {
    uint64_t const first = divisor_[divisorSize_ - 1];
    uint64_t const second = divisor_[divisorSize_ - 2];
    Wide const head = Wide(rest[divisorSize_]) * BASE + rest[divisorSize_ - 1];
    uint64_t limb = rest[divisorSize_] >= first ? BASE - 1 : static_cast<uint64_t>(head / first);
    uint64_t left = static_cast<uint64_t>(head - Wide(limb) * first);
    while (left < BASE && Wide(limb) * second > Wide(left) * BASE + rest[divisorSize_ - 2]) {
      --limb;
      left += first;
    }
    return limb;
  }

  int64_t size_;
  int64_t divisorSize_;
  int64_t place_;
  Scratch<uint64_t, 64> scratch_;
  uint64_t *rest_;
  uint64_t *divisor_;
  uint64_t *quotient_;
};

// The row's digits from a position up, the rest dropped; rounded half away from zero if told so.
M_APM_ *cutAt(Row const &row, int64_t position, bool rounded, int sign) {
  int64_t const place = limbPlace(position);
  if (place < row.place) return copyOf(row, sign);
  uint64_t const unit = powerOf10(position - place * LIMB_DIGITS);
  uint64_t const dropped = row.limbAt(place) % unit;
  bool const up = rounded && (unit > 1 ? dropped >= unit / 2 : row.limbAt(place - 1) >= BASE / 2);
  int64_t const top = std::max(row.top(), place + 1);
  M_APM_ *cut = allocate(top - place + 1, place, sign, "m_apm_round");
  uint64_t *out = cut->limbs;
  uint64_t carry = up ? unit : 0;
  for (int64_t at = place; at < top; ++at) {
    uint64_t const limb = row.limbAt(at) - (at == place ? dropped : 0) + carry;
    carry = limb >= BASE ? 1 : 0;
    *out++ = limb - (carry != 0 ? BASE : 0);
  }
  *out = carry;
  return normalise(cut);
}

// Whether the number has no digit below the position.
bool endsAt(M_APM_ const *body, int64_t position) {
  if (body == nullptr || body->size == 0) return true;
  int64_t const place = limbPlace(position);
  if (place != body->place) return place < body->place;
  return body->limbs[0] % powerOf10(position - place * LIMB_DIGITS) == 0;
}

// Products and quotients double the exponent of their operands: without a limit a few of them, written out, would fill
// the memory.
MAPM checkExponent(MAPM result, char const *operation) {
  int const exponent = result.exponent();
  if (exponent > MAX_RESULT_EXPONENT || exponent < -MAX_RESULT_EXPONENT) reportOutOfMemory(operation);
  return result;
}

bool isDigit(char c) {
  return c >= '0' && c <= '9';
}

char const *skipDigits(char const *at, char const *end) {
  while (at != end && isDigit(*at)) ++at;
  return at;
}

// A number's text, taken apart. Digits are counted from 0, the point left out.
struct Decimal {
  bool negative = false;
  char const *digits = nullptr;
  int64_t beforePoint = 0;
  int64_t count = 0;
  int64_t exponent = 0;

  char const *digitAt(int64_t i) const { return digits + i + (i < beforePoint ? 0 : 1); }
  // The digits [from, to), at most 18.
  uint64_t value(int64_t from, int64_t to) const {
    if (from >= beforePoint || to <= beforePoint) return run(digitAt(from), to - from);
    return run(digitAt(from), beforePoint - from) * powerOf10(to - beforePoint) +
           run(digitAt(beforePoint), to - beforePoint);
  }

 private:
  static uint64_t run(char const *at, int64_t count) {
    uint64_t value = 0;
    for (; count >= 8; count -= 8, at += 8) value = value * 100'000'000 + valueOf8(load8(at));
    for (; count > 0; --count) value = value * 10 + static_cast<uint64_t>(*at++ - '0');
    return value;
  }
};

int64_t readExponent(char const *at, char const *end) {
  bool const negative = at != end && *at == '-';
  if (at != end && (*at == '-' || *at == '+')) ++at;
  if (at == end) reportBadText();
  int64_t value = 0;
  for (; at != end; ++at) {
    if (!isDigit(*at)) reportBadText();
    value = value * 10 + (*at - '0');
    if (value > MAX_TEXT_EXPONENT) reportBadText();
  }
  return negative ? -value : value;
}

Decimal readDecimal(char const *at, char const *end) {
  Decimal decimal;
  if (at != end && (*at == '-' || *at == '+')) decimal.negative = *at++ == '-';
  decimal.digits = at;
  at = skipDigits(at, end);
  decimal.count = decimal.beforePoint = at - decimal.digits;
  if (at != end && *at == '.') {
    char const *fraction = ++at;
    at = skipDigits(at, end);
    decimal.count += at - fraction;
  }
  if (decimal.count == 0) reportBadText();
  if (at != end) {
    if (*at != 'E' && *at != 'e') reportBadText();
    decimal.exponent = readExponent(at + 1, end);
  }
  return decimal;
}

// `own` where that is a body of nobody else's that is large enough, or else a new one; its limbs not yet written.
M_APM_ *bodyFor(M_APM_ *own, int64_t size, int64_t place, bool negative) {
  bool const reuses = own != nullptr && own->references == 1 && own->size >= size;
  M_APM_ *body = reuses ? own : allocate(size, 0, 0, "m_apm_set_string");
  body->sign = negative ? -1 : 1;
  body->size = static_cast<int32_t>(size);
  body->place = static_cast<int32_t>(place);
  return body;
}

// A number whose whole part and fraction are a limb each at most, as most are.
M_APM_ *readTwoLimbs(Decimal const &decimal, M_APM_ *own) {
  int64_t const decimals = decimal.count - decimal.beforePoint;
  uint64_t const whole = decimal.value(0, decimal.beforePoint);
  uint64_t const fraction = decimal.value(decimal.beforePoint, decimal.count) * powerOf10(LIMB_DIGITS - decimals);
  int const size = (whole != 0 ? 1 : 0) + (fraction != 0 ? 1 : 0);
  if (size == 0) return nullptr;
  M_APM_ *body = bodyFor(own, size, fraction != 0 ? -1 : 0, decimal.negative);
  body->limbs[0] = fraction != 0 ? fraction : whole;
  if (size == 2) body->limbs[1] = whole;
  return body;
}

// Writes into `own` where it can.
M_APM_ *readNumber(char const *text, size_t length, M_APM_ *own = nullptr) {
  if (static_cast<int64_t>(length) > MAX_TEXT_LENGTH) reportOutOfMemory("m_apm_set_string");
  Decimal const decimal = readDecimal(text, text + length);
  if (decimal.exponent == 0 && decimal.beforePoint <= LIMB_DIGITS && decimal.count - decimal.beforePoint <= LIMB_DIGITS)
    return readTwoLimbs(decimal, own);
  int64_t first = 0;
  while (first < decimal.count && *decimal.digitAt(first) == '0') ++first;
  if (first == decimal.count) return nullptr;
  int64_t end = decimal.count;
  while (*decimal.digitAt(end - 1) == '0') --end;

  // The digit i stands at the position units - i.
  int64_t const units = decimal.beforePoint - 1 + decimal.exponent;
  int64_t const place = limbPlace(units - (end - 1));
  int64_t const size = limbPlace(units - first) - place + 1;
  M_APM_ *body = bodyFor(own, size, place, decimal.negative);
  for (int64_t i = 0, position = place * LIMB_DIGITS; i < size; ++i, position += LIMB_DIGITS) {
    int64_t const to = units - position + 1;
    int64_t const from = to - LIMB_DIGITS;
    uint64_t const limb = decimal.value(std::max(from, first), std::min(to, end));
    body->limbs[i] = to > end ? limb * powerOf10(to - end) : limb;
  }
  return body;
}

void writeEightDigits(uint64_t value, char *out) {
  static constexpr auto PAIRS = [] {
    std::array<char, 200> pairs{};
    for (size_t i = 0; i < 100; ++i) {
      pairs[2 * i] = static_cast<char>('0' + i / 10);
      pairs[2 * i + 1] = static_cast<char>('0' + i % 10);
    }
    return pairs;
  }();
  uint32_t const high = static_cast<uint32_t>(value) / 10000;
  uint32_t const low = static_cast<uint32_t>(value) % 10000;
  std::memcpy(out, &PAIRS[high / 100 * 2UL], 2);
  std::memcpy(out + 2, &PAIRS[high % 100 * 2UL], 2);
  std::memcpy(out + 4, &PAIRS[low / 100 * 2UL], 2);
  std::memcpy(out + 6, &PAIRS[low % 100 * 2UL], 2);
}

// All 18 digits.
void writeLimb(uint64_t limb, char *out) {
  constexpr uint64_t EIGHT = 100'000'000;
  uint64_t const upper = limb / EIGHT;
  uint64_t const top = upper / EIGHT;
  out[0] = static_cast<char>('0' + top / 10);
  out[1] = static_cast<char>('0' + top % 10);
  writeEightDigits(upper % EIGHT, out + 2);
  writeEightDigits(limb % EIGHT, out + 10);
}

// Exactly the digits at the positions from `first` down to `last`, zeros where the number has none; returns the end.
char *writeDigits(Row const &row, int64_t first, int64_t last, char *out) {
  while (first >= last) {
    int64_t const place = limbPlace(first);
    int64_t const bottom = place * LIMB_DIGITS;
    int64_t const to = std::max(bottom, last);
    int64_t const count = first - to + 1;
    uint64_t const limb = row.limbAt(place);
    if (count == LIMB_DIGITS) {
      writeLimb(limb, out);
    } else {
      char digits[LIMB_DIGITS];
      writeLimb(limb, digits);
      std::memcpy(out, digits + (bottom + LIMB_DIGITS - 1 - first), static_cast<size_t>(count));
    }
    out += count;
    first = to - 1;
  }
  return out;
}

// A number about to be written in fixed-point, rounded to what is shown of it.
struct FixedPoint {
  Row row;
  bool negative;
  int64_t wholeDigits;  // at least 1
  int64_t decimals;

  FixedPoint(M_APM_ const *body, int shown) : row(body), negative(body != nullptr && body->sign < 0) {
    wholeDigits = row.size == 0 ? 1 : std::max<int64_t>(1, row.firstDigit() + 1);
    decimals = shown >= 0 ? shown : row.size == 0 ? 0 : std::max<int64_t>(0, -row.lastDigit());
  }

  int64_t length() const { return (negative ? 1 : 0) + wholeDigits + (decimals > 0 ? 1 + decimals : 0); }
  int64_t separators(int count) const { return (wholeDigits - 1) / count; }

  char *write(char *out, char radix) const {
    if (negative) *out++ = '-';
    out = writeDigits(row, wholeDigits - 1, 0, out);
    if (decimals == 0) return out;
    *out++ = radix;
    return writeDigits(row, -1, -decimals, out);
  }

  char *writeGrouped(char *out, char radix, char separator, int count) const {
    char *from = write(out, radix);
    char *to = from + separators(count);
    char *const end = to;
    char *const wholeEnd = out + (negative ? 1 : 0) + wholeDigits;
    while (from > wholeEnd) *--to = *--from;
    for (int64_t digit = 0; from < to; ++digit) {
      if (digit > 0 && digit % count == 0) *--to = separator;
      if (from < to) *--to = *--from;
    }
    return end;
  }
};

// The nearest Float to the number, from a text of all its digits.
template <class Float>
Float nearest(M_APM_ const *body) {
  Row const row(body);
  if (row.size == 0) return 0;
  int64_t const last = row.lastDigit();
  Scratch<char, 128> text(static_cast<size_t>(row.firstDigit() - last + 1 + 16), "m_apm_to_string");
  char *at = writeDigits(row, row.firstDigit(), last, text.get());
  *at++ = 'e';
  at = std::to_chars(at, at + 12, last).ptr;
  Float value = 0;
  auto const result = std::from_chars(text.get(), at, value);
  if (result.ec == std::errc::result_out_of_range)
    value = row.firstDigit() > 0 ? std::numeric_limits<Float>::infinity() : Float(0);
  return body->sign < 0 ? -value : value;
}

// A limb without zeros in front. REQUIRES: there is room for a whole limb
char *writeWhole(uint64_t limb, char *out) {
  if (limb >= 100'000'000) return std::to_chars(out, out + LIMB_DIGITS, limb).ptr;
  char digits[8];
  writeEightDigits(limb, digits);
  int const count = limb == 0 ? 1 : digitCount(limb);
  uint64_t const word = load8(digits) >> (8 * (8 - count));
  std::memcpy(out, &word, sizeof word);
  return out + count;
}

// The point and the digits of a limb behind it, of which there mostly are few.
char *writeFraction(uint64_t limb, char *out) {
  constexpr uint64_t TEN_DIGITS = 10'000'000'000;
  *out++ = '.';
  size_t n = LIMB_DIGITS;
  if (limb % TEN_DIGITS == 0) {
    n -= 10;
    writeEightDigits(limb / TEN_DIGITS, out);
  } else {
    writeLimb(limb, out);
  }
  while (out[n - 1] == '0') --n;
  return out + n;
}

}  // namespace

int M_APM_::significantDigits() const {
  return size == 0 ? 1 : static_cast<int>(Row(this).firstDigit() - Row(this).lastDigit() + 1);
}
int M_APM_::exponent() const {
  return size == 0 ? 0 : static_cast<int>(Row(this).firstDigit());
}

MAPM::MAPM(char const *text) : MAPM(text, text == nullptr ? 0 : std::strlen(text)) {}

MAPM::MAPM(char const *text, size_t length) : MAPM(readNumber(text, length)) {}

void MAPM::assign(char const *text, size_t length) {
  M_APM_ *body = readNumber(text, length, val_);
  if (body != val_) copyFrom(body);
}

MAPM::MAPM(double value) : MAPM() {
  if (!std::isfinite(value)) report("'m_apm_set_double', Invalid double input (likely a NAN or +/- INF)");
  char text[32];
  char const *end = std::to_chars(text, text + sizeof text, value, std::chars_format::scientific, 14).ptr;
  copyFrom(readNumber(text, static_cast<size_t>(end - text)));
}

MAPM::MAPM(int value) : MAPM(static_cast<long long>(value)) {}

MAPM::MAPM(long long value) : MAPM() {
  if (value == 0) return;
  uint64_t const magnitude = value < 0 ? 0 - static_cast<uint64_t>(value) : static_cast<uint64_t>(value);
  uint64_t const limbs[] = {magnitude % BASE, magnitude / BASE};
  copyFrom(copyOf(Row(limbs, 2, 0).trimmed(), value < 0 ? -1 : 1));
}

int MAPM::compare(MAPM const &other) const {
  if (val_ == other.val_) return 0;
  int const ownSign = sign();
  int const otherSign = other.sign();
  if (ownSign != otherSign) return ownSign < otherSign ? -1 : 1;
  return ownSign == 0 ? 0 : ownSign * compareMagnitudes(val_, other.val_);
}

MAPM MAPM::operator-() const {
  return sign() == 0 ? *this : MAPM(copyOf(val_, -val_->sign));
}

MAPM MAPM::operator+(MAPM const &other) const {
  if (sign() == 0) return other;
  if (other.sign() == 0) return *this;
  return MAPM(addSigned(val_, other.val_, other.val_->sign));
}

MAPM MAPM::operator-(MAPM const &other) const {
  if (sign() == 0) return -other;
  if (other.sign() == 0) return *this;
  return MAPM(addSigned(val_, other.val_, -other.val_->sign));
}

MAPM MAPM::operator*(MAPM const &other) const {
  if (sign() == 0 || other.sign() == 0) return MAPM();
  return checkExponent(MAPM(multiplyMagnitudes(val_, other.val_, val_->sign * other.val_->sign)), "m_apm_multiply");
}

MAPM &MAPM::operator++() {
  return *this = *this + MAPM(1);
}

MAPM MAPM::operator++(int) {
  MAPM before(*this);
  ++*this;
  return before;
}

MAPM MAPM::abs() const {
  return sign() < 0 ? -*this : *this;
}

MAPM MAPM::divide(MAPM const &divisor, int digits) const {
  if (divisor.sign() == 0) reportDivideByZero();
  if (sign() == 0) return MAPM();
  if (digits > MAX_QUOTIENT_DIGITS) digits = std::min(digits, std::max(MAX_QUOTIENT_DIGITS, this->digits(divisor)));
  digits = std::max(digits, 1);
  Row const a(val_);
  Row const b(divisor.val_);
  // The quotient's first digit stands here or one lower, and rounding looks at the digit behind the last.
  int64_t const first = a.firstDigit() - b.firstDigit();
  Division const division(a, b, limbPlace(first - 1 - digits));
  Row const quotient = division.quotient();
  int const resultSign = val_->sign * divisor.val_->sign;
  return checkExponent(MAPM(cutAt(quotient, quotient.firstDigit() - digits + 1, true, resultSign)), "m_apm_divide");
}

MAPM MAPM::integer_divide(MAPM const &divisor) const {
  MAPM quotient;
  MAPM remainder;
  integer_div_rem(divisor, quotient, remainder);
  return quotient;
}

MAPM MAPM::rem(MAPM const &divisor) const {
  MAPM quotient;
  MAPM remainder;
  integer_div_rem(divisor, quotient, remainder);
  return remainder;
}

void MAPM::integer_div_rem(MAPM const &divisor, MAPM &quotient, MAPM &remainder) const {
  if (divisor.sign() == 0) reportDivideByZero();
  MAPM whole;
  MAPM rest(*this);
  if (sign() != 0 && compareMagnitudes(val_, divisor.val_) >= 0) {
    Row const a(val_);
    Row const b(divisor.val_);
    Division const division(a, b, 0);
    whole = checkExponent(MAPM(copyOf(division.quotient(), val_->sign * divisor.val_->sign)), "m_apm_divide");
    // What the dividend has below the divisor's last limb never took part and belongs to the rest.
    int64_t const below = std::max<int64_t>(0, b.place - a.place);
    M_APM_ *body = allocate(below + b.size, b.place - below, val_->sign, "m_apm_divide");
    for (int64_t i = 0; i < below; ++i) body->limbs[i] = a.limbAt(a.place + i);
    std::copy_n(division.rest(), b.size, body->limbs + below);
    rest = MAPM(normalise(body));
  }
  quotient = std::move(whole);
  remainder = std::move(rest);
}

MAPM MAPM::round(int digits) const {
  int64_t const position = int64_t(exponent()) - std::max(digits, 1) + 1;
  return endsAt(val_, position) ? *this : MAPM(cutAt(val_, position, true, val_->sign));
}

MAPM MAPM::roundDecimals(int decimals) const {
  int64_t const position = -int64_t(decimals);
  return endsAt(val_, position) ? *this : MAPM(cutAt(val_, position, true, val_->sign));
}

MAPM MAPM::truncateDecimals(int decimals) const {
  int64_t const position = -int64_t(decimals);
  return endsAt(val_, position) ? *this : MAPM(cutAt(val_, position, false, val_->sign));
}

bool MAPM::is_even() const {
  if (!is_integer()) report("'m_apm_is_even', Non-integer input");
  return Row(val_).limbAt(0) % 2 == 0;
}

// A whole part below 10^18 stands in one limb and reads as it is; the rest goes through the text.
long long MAPM::toLong() const {
  Row const row(val_);
  if (row.top() <= 1) return sign() * static_cast<long long>(row.limbAt(0));
  FixedPoint const whole(val_, 0);
  Scratch<char, 64> text(static_cast<size_t>(whole.length()), "m_apm_to_integer_string");
  return t_atol(text.get(), whole.write(text.get(), '.'));
}

int MAPM::toInt() const {
  Row const row(val_);
  if (row.top() <= 1 && row.limbAt(0) < 1'000'000'000) return sign() * static_cast<int>(row.limbAt(0));
  FixedPoint const whole(val_, 0);
  Scratch<char, 64> text(static_cast<size_t>(whole.length()), "m_apm_to_integer_string");
  return t_atoi(text.get(), whole.write(text.get(), '.'));
}

double MAPM::toDouble() const {
  return nearest<double>(val_);
}
float MAPM::toFloat() const {
  return nearest<float>(val_);
}

void MAPM::toString(char *out, int decimals) const {
  if (sign() == 0) {
    std::strcpy(out, "0.0E+0");
    return;
  }
  int64_t const shown = decimals >= 0 ? decimals : std::max(1, significant_digits() - 1);
  MAPM const rounded = decimals >= 0 ? round(decimals < INT32_MAX ? decimals + 1 : decimals) : *this;
  Row const row(rounded.val_);
  int64_t const first = row.firstDigit();
  if (sign() < 0) *out++ = '-';
  out = writeDigits(row, first, first, out);
  if (shown > 0) *out++ = '.';
  out = writeDigits(row, first - 1, first - shown, out);
  *out++ = 'E';
  if (first >= 0) *out++ = '+';
  *std::to_chars(out, out + 12, first).ptr = '\0';
}

void MAPM::toFixPtStringEx(char *out, int decimals, char radix, char separator, int count) const {
  MAPM const shown = decimals >= 0 ? roundDecimals(decimals) : *this;
  FixedPoint const text(shown.val_, decimals);
  if (radix == '\0') radix = '.';
  bool const grouped = separator != '\0' && count > 0;
  *(grouped ? text.writeGrouped(out, radix, separator, count) : text.write(out, radix)) = '\0';
}

char *MAPM::toFixPtStringExp(int decimals, char radix, char separator, int count) const {
  MAPM const shown = decimals >= 0 ? roundDecimals(decimals) : *this;
  FixedPoint const text(shown.val_, decimals);
  int64_t const separators = separator != '\0' && count > 0 ? text.separators(count) : 0;
  auto out = std::make_unique<char[]>(static_cast<size_t>(text.length() + separators + 1));
  shown.toFixPtStringEx(out.get(), decimals, radix, separator, count);
  return out.release();
}

void MAPM::toIntegerString(char *out) const {
  truncateDecimals(0).toFixPtString(out, 0);
}

char *MAPM::writeFixed(char *out, char const *end) const {
  Row const row(val_);
  if (row.size != 0 && row.place >= -1 && row.top() <= 1 && end - out >= 2 * LIMB_DIGITS + 2) {
    if (val_->sign < 0) *out++ = '-';
    out = writeWhole(row.limbAt(0), out);
    uint64_t const fraction = row.limbAt(-1);
    return fraction == 0 ? out : writeFraction(fraction, out);
  }
  FixedPoint const text(val_, -1);
  return text.length() <= end - out ? text.write(out, '.') : nullptr;
}

tvstring MAPM::toFixedText(int decimals) const {
  MAPM const shown = decimals >= 0 ? roundDecimals(decimals) : *this;
  FixedPoint const number(shown.val_, decimals);
  tvstring text;
  number.write(text.getBuffer(static_cast<int>(number.length())), '.');
  text.setBufferLength(static_cast<int>(number.length()));
  return text;
}

int MAPM::myDigits() const {
  return std::max(significant_digits(), DEFAULT_PRECISION);
}
int MAPM::digits(MAPM const &other) const {
  return std::max(myDigits(), other.significant_digits());
}

M_APM_ *MAPM::makeNew() {
  return allocate(0, 0, 0, "m_apm_init");
}

M_APM_ *MAPM::val() {
  if (val_ == nullptr) create();
  if (val_->references > 1) copyFrom(copyOf(val_, val_->sign));
  return val_;
}

void MAPM::create() {
  copyFrom(makeNew());
}

void MAPM::destroy(M_APM_ *value) noexcept {
  std::free(value);
}

}  // namespace tavrone

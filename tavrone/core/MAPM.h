#pragma once

#include <cstddef>
#include <cstdint>
#include <utility>

#include "tavrone/core/Export.h"

namespace tavrone {

class tvstring;

// The counted body of a decimal number: sign and digits, 18 of them to a limb, in one block of memory. A limb at place
// p counts units of 10^(18 * p), so that numbers line up with the point whatever their exponents: sums shift nothing.
// Normalised: neither the lowest nor the highest limb is zero; zero has no limbs.
struct TAVRONE_API M_APM_ {
  static constexpr int LIMB_DIGITS = 18;

  int32_t references;
  int32_t sign;     // -1, 0 or 1
  int32_t size;     // limbs in use
  int32_t place;    // of the lowest limb
  uint64_t *limbs;  // directly behind this header, the lowest first

  // Digits from the first to the last that isn't zero; 1 for zero.
  int significantDigits() const;
  // The power of ten of the first digit; 0 for zero.
  int exponent() const;
};

// An exact decimal number of any length: one pointer to a counted body, so that a copy costs one increment. Every
// operation makes a new number. Zero needs no body. Belongs to one thread at a time; default-constructed values share
// nothing.
//
// Sums, differences and products are exact; quotients are rounded, half away from zero. What the number code has to
// report is raised as a TransformException with its words:
//   "'m_apm_set_string', Non-digit char found in parse"   text that is no number
//   "'m_apm_set_double', Invalid double input (likely a NAN or +/- INF)"
//   "'m_apm_divide', Divide by 0"
//   "'m_apm_is_even', Non-integer input"
//   "'m_apm_multiply', Out of memory" and its like        a product or quotient whose exponent leaves +-9,999,999, too
// A destination that a failed operation would have written keeps its value.
class TAVRONE_API MAPM {
 public:
  // The least precision of inexact operations, in significant digits.
  static constexpr int DEFAULT_PRECISION = 30;

  MAPM() noexcept : val_(nullptr) {}
  // Shares the body, which may be null for zero.
  MAPM(M_APM_ *value) noexcept : val_(value) { ref(value); }
  // Text: a sign, digits with a point anywhere, and an exponent from -99,999 to 99,999, "E+2", "e2"; at least one
  // digit.
  MAPM(char const *text);
  // Through the text of "%.14E": 15 significant digits are kept.
  MAPM(double value);
  MAPM(int value);
  MAPM(MAPM const &other) noexcept : val_(other.val_) { ref(val_); }
  // Leaves zero behind.
  MAPM(MAPM &&other) noexcept : val_(std::exchange(other.val_, nullptr)) {}
  ~MAPM() { unref(val_); }

  MAPM &operator=(MAPM const &other) noexcept {
    copyFrom(other.val_);
    return *this;
  }
  MAPM &operator=(MAPM &&other) noexcept {
    if (this != &other) unref(std::exchange(val_, std::exchange(other.val_, nullptr)));
    return *this;
  }
  MAPM &operator=(char const *text) { return *this = MAPM(text); }
  MAPM &operator=(double value) { return *this = MAPM(value); }
  MAPM &operator=(int value) { return *this = MAPM(value); }

  // Negative, zero or positive.
  int compare(MAPM const &other) const;
  // 1 or 0.
  int operator==(MAPM const &other) const { return compare(other) == 0; }
  int operator!=(MAPM const &other) const { return compare(other) != 0; }
  int operator<(MAPM const &other) const { return compare(other) < 0; }
  int operator<=(MAPM const &other) const { return compare(other) <= 0; }
  int operator>(MAPM const &other) const { return compare(other) > 0; }
  int operator>=(MAPM const &other) const { return compare(other) >= 0; }

  MAPM operator-() const;
  MAPM operator+(MAPM const &other) const;
  MAPM operator-(MAPM const &other) const;
  MAPM operator*(MAPM const &other) const;
  MAPM operator/(MAPM const &other) const { return divide(other); }
  MAPM &operator++();
  MAPM operator++(int);
  MAPM abs() const;
  MAPM neg() const { return -*this; }

  // Rounded to digits(divisor) significant digits.
  MAPM divide(MAPM const &divisor) const { return divide(divisor, digits(divisor)); }
  // Rounded to `digits` significant digits. A count below 1 is taken as 1, one above 100,000 as 100,000 or, if that is
  // more, as the longer operand's.
  MAPM divide(MAPM const &divisor, int digits) const;
  // The whole part of the quotient, cut towards zero; div is another name.
  MAPM integer_divide(MAPM const &divisor) const;
  MAPM div(MAPM const &divisor) const { return integer_divide(divisor); }
  // What integer_divide leaves, with this number's sign.
  MAPM rem(MAPM const &divisor) const;
  // Both at once; the destinations may be the operands.
  void integer_div_rem(MAPM const &divisor, MAPM &quotient, MAPM &remainder) const;

  // Half away from zero to significant digits; a count below 1 is taken as 1.
  MAPM round(int digits) const;
  // Half away from zero, and cut towards zero, to digits behind the point; negative counts go left of it.
  MAPM roundDecimals(int decimals) const;
  MAPM truncateDecimals(int decimals) const;

  int sign() const { return val_ == nullptr ? 0 : val_->sign; }
  // The scientific exponent: 2 for 123.45.
  int exponent() const { return val_ == nullptr ? 0 : val_->exponent(); }
  int significant_digits() const { return val_ == nullptr ? 1 : val_->significantDigits(); }
  bool is_integer() const { return val_ == nullptr || val_->place >= 0; }
  // Of a number that isn't whole both raise the report of is_even.
  bool is_even() const;
  bool is_odd() const { return !is_even(); }

  // The whole part's text as t_atoi and t_atol read it, their failures and their wrapping included.
  int toInt() const;
  long long toLong() const;
  // The nearest value; infinity or zero outside the type's range.
  double toDouble() const;
  float toFloat() const;

  // The char * forms write the text and a terminator. A negative `decimals` means all digits.
  //
  // Scientific, "1.2345E+2", with at least one digit behind the point unless `decimals` is 0; zero is always "0.0E+0".
  void toString(char *out, int decimals) const;
  // Fixed-point with so many digits behind the point, none of them and no point for a whole number that asks for all.
  void toFixPtString(char *out, int decimals) const { toFixPtStringEx(out, decimals, '.', '\0', 0); }
  // `radix` is the point ('.' if zero); the separator stands between groups of `count` digits left of it, unless one of
  // the two is zero.
  void toFixPtStringEx(char *out, int decimals, char radix, char separator, int count) const;
  // The same text in an array that the caller frees with delete[].
  char *toFixPtStringExp(int decimals, char radix, char separator, int count) const;
  // The whole part.
  void toIntegerString(char *out) const;
  // The fixed-point text with all digits, no terminator, if it fits before `end`; returns where it ends, or null.
  char *writeFixed(char *out, char const *end) const;

 protected:
  // From exactly text[0, length).
  MAPM(char const *text, size_t length);
  explicit MAPM(long long value);

  // The larger of the number's significant digits and the default precision; the same over two numbers.
  int myDigits() const;
  int digits(MAPM const &other) const;

  // Bodies start at a count of 0: a zero body to be written, with no room for limbs.
  static M_APM_ *makeNew();
  static void ref(M_APM_ *value) noexcept {
    if (value != nullptr) ++value->references;
  }
  static void unref(M_APM_ *value) noexcept {
    if (value != nullptr && --value->references == 0) destroy(value);
  }
  // This number's own body, for writing: copied first if it is shared. What is written must be normalised.
  M_APM_ *val();
  // A body of its own, zero, in place of the one held.
  void create();
  // Shares the body in place of the one held.
  void copyFrom(M_APM_ *value) noexcept {
    ref(value);
    unref(std::exchange(val_, value));
  }

  // The number that stands in text[0, length), in this number's own body where that is unshared and large enough.
  void assign(char const *text, size_t length);

  // The text of toFixPtString.
  tvstring toFixedText(int decimals) const;

 private:
  static void destroy(M_APM_ *value) noexcept;

  M_APM_ *val_;
};

}  // namespace tavrone

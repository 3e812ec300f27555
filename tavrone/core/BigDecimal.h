#pragma once

#include <compare>
#include <concepts>
#include <type_traits>

#include "tavrone/core/MAPM.h"
#include "tavrone/core/tvstring.h"

namespace tavrone {

class BigInteger;

// What may stand beside a T: a T, a whole number beside a decimal, a text, a built-in number.
template <class X, class T>
concept OperandOf = std::convertible_to<X const &, T>;
template <class X, class T>
concept LeftOperandOf = OperandOf<X, T> && !std::same_as<X, T>;

// The operations of MAPM whose results are of the number's own class T.
template <class T>
class TypedMAPM : public MAPM {
 public:
  T operator-() const { return T(MAPM::operator-()); }
  T operator+(T const &other) const { return T(MAPM::operator+(other)); }
  T operator-(T const &other) const { return T(MAPM::operator-(other)); }
  T operator*(T const &other) const { return T(MAPM::operator*(other)); }
  T &operator++() {
    MAPM::operator++();
    return static_cast<T &>(*this);
  }
  T operator++(int) { return T(MAPM::operator++(0)); }
  T abs() const { return T(MAPM::abs()); }
  T neg() const { return T(MAPM::neg()); }
  T integer_divide(T const &divisor) const { return T(MAPM::integer_divide(divisor)); }
  T div(T const &divisor) const { return integer_divide(divisor); }
  T rem(T const &divisor) const { return T(MAPM::rem(divisor)); }
  T round(int digits) const { return T(MAPM::round(digits)); }
  T roundDecimals(int decimals) const { return T(MAPM::roundDecimals(decimals)); }
  T truncateDecimals(int decimals) const { return T(MAPM::truncateDecimals(decimals)); }

  // On either side of a T. Exact for both operands: so they win over the operators of MAPM, which give an int.
  template <OperandOf<T> X>
  friend bool operator==(T const &a, X const &b) {
    return order(a, b) == 0;
  }
  template <OperandOf<T> X>
  friend std::strong_ordering operator<=>(T const &a, X const &b) {
    return order(a, b) <=> 0;
  }

  // The operations above with the T on the right.
  template <LeftOperandOf<T> X>
  friend T operator+(X const &a, T const &b) {
    return T(a) + b;
  }
  template <LeftOperandOf<T> X>
  friend T operator-(X const &a, T const &b) {
    return T(a) - b;
  }
  template <LeftOperandOf<T> X>
  friend T operator*(X const &a, T const &b) {
    return T(a) * b;
  }
  template <LeftOperandOf<T> X>
  friend T operator/(X const &a, T const &b) {
    return T(a) / b;
  }

 protected:
  using MAPM::MAPM;
  TypedMAPM() = default;
  TypedMAPM(MAPM &&value) noexcept : MAPM(std::move(value)) {}

 private:
  static int order(T const &a, T const &b) { return a.compare(b); }
};

// A decimal value that loses no digit. See MAPM for text, ownership and failures.
class TAVRONE_API BigDecimal : public TypedMAPM<BigDecimal> {
 public:
  BigDecimal() = default;
  BigDecimal(int value) : TypedMAPM(value) {}
  BigDecimal(long value) : TypedMAPM(static_cast<long long>(value)) {}
  BigDecimal(long long value) : TypedMAPM(value) {}
  // Floating-point values keep 15 significant digits. NaN and infinity raise MAPM's report.
  BigDecimal(float value) : TypedMAPM(static_cast<double>(value)) {}
  BigDecimal(double value) : TypedMAPM(value) {}
  // Text as MAPM reads it; what is no number raises its report.
  BigDecimal(char const *text) : TypedMAPM(text) {}
  BigDecimal(tvstring const &text) : TypedMAPM(text.data(), text.length()) {}
  BigDecimal(BigInteger const &value);
  using MAPM::assign;

  // As MAPM divides: to at least 30 significant digits, or to as many as asked for. Zero divisors raise its report.
  BigDecimal operator/(BigDecimal const &divisor) const { return divide(divisor); }
  BigDecimal divide(BigDecimal const &divisor) const { return BigDecimal(MAPM::divide(divisor)); }
  BigDecimal divide(BigDecimal const &divisor, int digits) const { return BigDecimal(MAPM::divide(divisor, digits)); }

  // Fixed-point with every significant digit, never an exponent: "123.45", "1500", "0".
  tvstring toString() const;
  // The same and a terminator: needs room for a sign, a point, all digits and the zeros that the exponent asks for.
  void toString(char *out) const { toFixPtString(out, -1); }
  using MAPM::toString;

 private:
  friend class TypedMAPM<BigDecimal>;
  explicit BigDecimal(MAPM &&value) noexcept : TypedMAPM(std::move(value)) {}
};

// A whole number of any length: what its constructors are given is cut towards zero.
class TAVRONE_API BigInteger : public TypedMAPM<BigInteger> {
 public:
  BigInteger() = default;
  // Any integer that a long long holds.
  template <std::integral T>
  requires(std::is_signed_v<T> || sizeof(T) < sizeof(long long)) BigInteger(T value)
      : TypedMAPM(static_cast<long long>(value)) {}
  explicit BigInteger(double value) : BigInteger(MAPM(value).truncateDecimals(0)) {}
  BigInteger(char const *text) : BigInteger(MAPM(text).truncateDecimals(0)) {}
  BigInteger(tvstring const &text) : BigInteger(BigDecimal(text)) {}
  explicit BigInteger(BigDecimal const &value) : BigInteger(value.MAPM::truncateDecimals(0)) {}

  // The whole part of the quotient. divide() is MAPM's and gives the fraction, too.
  BigInteger operator/(BigInteger const &divisor) const { return integer_divide(divisor); }

  tvstring toString() const;
  void toString(char *out) const { toFixPtString(out, 0); }
  using MAPM::toString;

 private:
  friend class TypedMAPM<BigInteger>;
  explicit BigInteger(MAPM &&value) noexcept : TypedMAPM(std::move(value)) {}
};

inline BigDecimal::BigDecimal(BigInteger const &value) : TypedMAPM(MAPM(value)) {}

}  // namespace tavrone

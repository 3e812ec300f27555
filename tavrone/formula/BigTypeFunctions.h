#pragma once

#include <concepts>

#include "tavrone/core/BigDecimal.h"

namespace tavrone {

// Big numbers for formulas. The operations on two numbers take both classes: a BigInteger beside a BigInteger, or
// beside what becomes one, gives a BigInteger; all else gives a BigDecimal. Nothing loses a digit but what says so.
//
// Texts that are no number and results whose exponent leaves +-9,999,999 fail as MAPM tells.
class TAVRONE_API BigTypeFunctions {
  template <class X>
  static constexpr bool isBigInteger = std::same_as<X, BigInteger>;
  template <class A, class B>
  static constexpr bool areWhole =
      (isBigInteger<A> ||
       isBigInteger<B>)&&std::convertible_to<A const &, BigInteger> &&std::convertible_to<B const &, BigInteger>;
  template <class A, class B>
  using Result = std::conditional_t<areWhole<A, B>, BigInteger, BigDecimal>;

 public:
  // The most significant digits that power() keeps.
  static constexpr int MAX_POWER_DIGITS = 10000;

  template <class A, class B>
  static Result<A, B> add(A const &a, B const &b) {
    return Result<A, B>(a) + Result<A, B>(b);
  }
  template <class A, class B>
  static Result<A, B> subtract(A const &a, B const &b) {
    return Result<A, B>(a) - Result<A, B>(b);
  }
  template <class A, class B>
  static Result<A, B> multiply(A const &a, B const &b) {
    return Result<A, B>(a) * Result<A, B>(b);
  }
  // What the whole quotient leaves, with the sign of the first. A zero divisor raises TransformRuntimeException
  // "Divide by 0", here and in divide.
  template <class A, class B>
  static Result<A, B> remainder(A const &a, B const &b) {
    return Result<A, B>(a).rem(divisor(Result<A, B>(b)));
  }
  // The first of two equal ones.
  template <class A, class B>
  static Result<A, B> min(A const &a, B const &b) {
    return compare(b, a) < 0 ? Result<A, B>(b) : Result<A, B>(a);
  }
  template <class A, class B>
  static Result<A, B> max(A const &a, B const &b) {
    return compare(b, a) > 0 ? Result<A, B>(b) : Result<A, B>(a);
  }

  // Rounded half away from zero to digits behind the point; a negative count goes left of it. Counts are cut at
  // +-99,999.
  static BigDecimal divide(BigDecimal const &a, BigDecimal const &b, int decimals);
  // Cut towards zero.
  static BigInteger divide(BigInteger const &a, BigInteger const &b) { return a.integer_divide(divisor(b)); }

  static BigDecimal abs(BigDecimal const &value) { return value.abs(); }
  static BigDecimal negate(BigDecimal const &value) { return value.neg(); }
  // The nearest whole number that is not below, or not above.
  static BigDecimal ceiling(BigDecimal const &value);
  static BigDecimal floor(BigDecimal const &value);
  // To digits behind the point, half away from zero or cut towards zero; a negative count goes left of it.
  static BigDecimal round(BigDecimal const &value, int decimals) { return value.roundDecimals(decimals); }
  static BigDecimal truncate(BigDecimal const &value, int decimals) { return value.truncateDecimals(decimals); }
  // Exact up to 10,000 significant digits; a longer intermediate result is rounded to them. A negative exponent gives
  // the reciprocal with as many digits as the power has, at least 30; of zero it raises "Divide by 0". 1 for exponent
  // 0.
  static BigDecimal power(BigDecimal const &base, int exponent);

  // -1, 0 or 1.
  static int sign(BigDecimal const &value) { return value.sign(); }
  // The digits behind the point, and all digits from the first that isn't zero to the last before or behind the point:
  // 123.45 has 2 and 5, 1500 has 0 and 4, 0.05 has 2 and 1, and 0 has 0 and 1.
  static int scale(BigDecimal const &value);
  static int precision(BigDecimal const &value) { return value.exponent() + 1 + scale(value); }

  // -1, 0 or 1.
  template <class A, class B>
  static int compare(A const &a, B const &b) {
    return Result<A, B>(a).compare(Result<A, B>(b));
  }
  template <class A, class B>
  static bool equal(A const &a, B const &b) {
    return compare(a, b) == 0;
  }
  template <class A, class B>
  static bool notEqual(A const &a, B const &b) {
    return compare(a, b) != 0;
  }
  template <class A, class B>
  static bool less(A const &a, B const &b) {
    return compare(a, b) < 0;
  }
  template <class A, class B>
  static bool lessEqual(A const &a, B const &b) {
    return compare(a, b) <= 0;
  }
  template <class A, class B>
  static bool greater(A const &a, B const &b) {
    return compare(a, b) > 0;
  }
  template <class A, class B>
  static bool greaterEqual(A const &a, B const &b) {
    return compare(a, b) >= 0;
  }

  // From an int, a long long, a double (15 digits), a text or the other class; a BigInteger is cut towards zero.
  template <class Value>
  static BigDecimal toBigDecimal(Value const &value) {
    return BigDecimal(value);
  }
  template <class Value>
  static BigInteger toBigInteger(Value const &value) {
    return BigInteger(value);
  }
  // The whole part, as t_atoi and t_atol read its text; the nearest double.
  static int toInt(BigDecimal const &value) { return value.toInt(); }
  static long long toLong(BigDecimal const &value) { return value.toLong(); }
  static double toDouble(BigDecimal const &value) { return value.toDouble(); }
  // Fixed-point with every digit, or rounded to so many behind the point, 100,000 at most; a negative count is every
  // digit.
  static tvstring toText(BigDecimal const &value) { return value.toString(); }
  static tvstring toText(BigDecimal const &value, int decimals);

 private:
  template <class T>
  static T const &divisor(T const &value) {
    if (value.sign() == 0) raiseDivideByZero();
    return value;
  }
  [[noreturn]] static void raiseDivideByZero();
};

}  // namespace tavrone

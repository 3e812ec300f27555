#include "tavrone/formula/BigTypeFunctions.h"

#include <algorithm>

#include "tavrone/core/Conversion.h"
#include "tavrone/core/Raise.h"
#include "tavrone/formula/FormatFunctions.h"

namespace tavrone {
namespace {

constexpr char const *SOURCE = "cpp/formula/BigTypeFunctions";
constexpr int MAX_DECIMALS = 100000;

// REQUIRES: an exponent that a number's text may have
BigDecimal powerOfTen(int exponent) {
  return BigDecimal("1E" + intToString(exponent));
}

}  // namespace

// Both as whole numbers at that digit: the whole quotient, and one more where the rest is half the divisor.
BigDecimal BigTypeFunctions::divide(BigDecimal const &a, BigDecimal const &b, int decimals) {
  constexpr int limit = 99999;
  int const places = std::clamp(decimals, -limit, limit);
  BigDecimal const dividend = a * powerOfTen(places);
  BigDecimal quotient = dividend.integer_divide(divisor(b));
  BigDecimal const rest = (dividend - quotient * b).abs();
  if (rest + rest >= b.abs()) quotient = quotient + a.sign() * b.sign();
  return quotient * powerOfTen(-places);
}

BigDecimal BigTypeFunctions::ceiling(BigDecimal const &value) {
  BigDecimal const whole = value.truncateDecimals(0);
  return whole < value ? whole + 1 : whole;
}
BigDecimal BigTypeFunctions::floor(BigDecimal const &value) {
  BigDecimal const whole = value.truncateDecimals(0);
  return whole > value ? whole - 1 : whole;
}

BigDecimal BigTypeFunctions::power(BigDecimal const &base, int exponent) {
  auto const bounded = [](BigDecimal const &value) {
    return value.significant_digits() > MAX_POWER_DIGITS ? value.round(MAX_POWER_DIGITS) : value;
  };
  BigDecimal result(1);
  BigDecimal square = base;
  for (unsigned left = exponent < 0 ? 0U - static_cast<unsigned>(exponent) : static_cast<unsigned>(exponent); left != 0;
       left /= 2) {
    if (left % 2 != 0) result = bounded(result * square);
    if (left > 1) square = bounded(square * square);
  }
  return exponent < 0 ? BigDecimal(1).divide(divisor(result)) : result;
}

int BigTypeFunctions::scale(BigDecimal const &value) {
  return std::max(0, value.significant_digits() - 1 - value.exponent());
}

tvstring BigTypeFunctions::toText(BigDecimal const &value, int decimals) {
  return FormatFunctions::formatFixed(value, std::min(decimals, MAX_DECIMALS));
}

void BigTypeFunctions::raiseDivideByZero() {
  raise<TransformRuntimeException>("Divide by 0", SOURCE);
}

}  // namespace tavrone

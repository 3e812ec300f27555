#include "tavrone/formula/UtilFunctions.h"

#include <cmath>

#include "tavrone/core/ObjectList.h"
#include "tavrone/core/Raise.h"
#include "tavrone/formula/ShortestDecimal.h"

namespace tavrone {
namespace {

[[noreturn]] TAVRONE_COLD void fail(char const *key, int line = __builtin_LINE()) {
  raiseCatalogued<TransformRuntimeException>(key, ObjectList(), "cpp/formula/UtilFunctions", line);
}

// A whole number of significances, at most as many as the number has, or with `up` at least.
double multiple(double number, double significance, bool up) {
  if (significance == 0) fail("SRT568");
  if ((number < 0 && significance > 0) || (number > 0 && significance < 0)) fail("SRT567");
  if (!std::isfinite(number) || !std::isfinite(significance)) {
    double const count = number / significance;
    return (up ? std::ceil(count) : std::floor(count)) * significance;
  }
  BigDecimal const unit = shortestDecimal(significance);
  BigDecimal count, rest;
  shortestDecimal(number).integer_div_rem(unit, count, rest);
  if (up && rest.sign() != 0) ++count;
  return (count * unit).toDouble();
}

}  // namespace

double UtilFunctions::round(double value, int decimals) {
  return std::isfinite(value) ? shortestDecimal(value).roundDecimals(decimals).toDouble() : value;
}
double UtilFunctions::ceiling(double number, double significance) {
  return multiple(number, significance, true);
}
double UtilFunctions::floor(double number, double significance) {
  return multiple(number, significance, false);
}

double UtilFunctions::sqrt(double value) {
  if (value < 0) fail("SRT571");
  return std::sqrt(value);
}
double UtilFunctions::log(double value) {
  if (value <= 0) fail("SRT570");
  return std::log(value);
}
double UtilFunctions::log(double value, double base) {
  if (value <= 0 || base <= 0) fail("SRT569");
  if (base == 2) return std::log2(value);
  if (base == 10) return std::log10(value);
  return std::log(value) / std::log(base);
}
double UtilFunctions::power(double base, double exponent) {
  return std::pow(base, exponent);
}

}  // namespace tavrone

// The date, format, validation and utility functions with arguments of any kind: extremes must do no harm, and where
// there is another way to the result, both are compared.

#include <algorithm>
#include <climits>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <memory>

#include "tavrone/tavrone.h"
#include "tests/FuzzInput.h"
#include "tests/Text.h"
#include "tests/core/DecimalReference.h"

using namespace tavrone;

namespace {

using Dates = DateFunctions;
using Formats = FormatFunctions;
using Tests = ValidationFunctions;
using Utils = UtilFunctions;

// A date of an ordinary year, or any numbers.
DateTime takeDate(FuzzInput &input) {
  DateTime const any(input.take<int>(), input.take<int>(), input.take<int>(), input.take<int>(), input.take<int>(),
                     input.take<int>(), input.take<int>());
  return input.take<uint8_t>() & 1 ? any : DateTime::fromTimestamp(input.take<uint64_t>() % 250000000000000);
}

void checkDates(FuzzInput &input) {
  DateTime const a = takeDate(input), b = takeDate(input);
  int const n = input.take<int>(), m = input.take<int>();
  for (auto const add : {Dates::addYears, Dates::addMonths, Dates::addDays, Dates::addHours, Dates::addMinutes,
                         Dates::addSeconds, Dates::addMilliseconds})
    Dates::dayOfYear(Dates::lastDayOfMonth(add(a, n)));
  Dates::yearsBetween(a, b), Dates::monthsBetween(a, b), Dates::daysBetween(a, b);
  require(Dates::millisecondsBetween(a, b) == -Dates::millisecondsBetween(b, a));
  require(Dates::millisecondsBetween(b, Dates::min(a, b)) == 0 || Dates::equal(Dates::min(a, b), a));
  Dates::toLocal(ISODateTime(Dates::convert(a, n, m), n));
  require(Dates::offset(Dates::toOffset(ISODateTime(a, n), m)) == m);
  if (!a.isValid() || a.getYear() < 1600) return;

  int const days = n % 100000, months = m % 2400;
  DateTime const later = Dates::addDays(a, days), moved = Dates::addMonths(a, months);
  require(Dates::daysBetween(a, later) == days && Dates::addDays(later, -days) == a);
  require(Dates::millisecondsBetween(a, Dates::addMilliseconds(a, n)) == n);
  require(Dates::secondsBetween(a, Dates::addMinutes(a, m)) == m * 60LL);
  require((Dates::dayOfWeek(a) - 1 + days % 7 + 7) % 7 == Dates::dayOfWeek(later) - 1);
  require(moved.getDate() == std::min(a.getDate(), Dates::daysInMonth(moved.getYear(), moved.getMonth())));
  require((moved.getYear() - a.getYear()) * 12 + moved.getMonth() - a.getMonth() == months);
  require(Dates::monthsBetween(a, moved) == months && Dates::yearsBetween(a, moved) == months / 12);
  require(Dates::toUTC(Dates::toOffset(ISODateTime(a, 0), n)) == a);
  require(Dates::datePart(a) + Dates::timePart(a).getTimePortion().getTimeSpan() == a);
}

void checkDateTexts(FuzzInput &input) {
  tvstring const pattern = textOf(input.takeText(input.below(24))), text = textOf(input.takeText(input.below(24)));
  bool parsed = true;
  try {
    require(Dates::parse(text, pattern).isValid());
  } catch (TransformRuntimeException const &) {
    parsed = false;
  }
  require(Dates::isDate(text, pattern) == parsed);
}

BigDecimal takeDecimal(FuzzInput &input) {
  std::string text = std::to_string(input.take<long long>()) + "E" + std::to_string(input.take<int8_t>() / 4);
  return BigDecimal(text.c_str());
}

// "0." with so many zeros, then so many places for the rest.
std::string fraction(size_t zeros, size_t others) {
  return zeros + others == 0 ? "" : "." + std::string(zeros, '0') + std::string(others, '#');
}

void checkFormats(FuzzInput &input) {
  BigDecimal const value = takeDecimal(input);
  int const decimals = static_cast<int>(input.below(40));
  require(str(Formats::formatFixed(value, decimals)) == fixed(value, decimals));

  size_t const zeros = input.below(static_cast<size_t>(decimals) + 1);
  std::string const pattern = "#,##0" + fraction(zeros, static_cast<size_t>(decimals) - zeros);
  std::unique_ptr<char[]> const grouped(value.toFixPtStringExp(decimals, '.', ',', 3));
  std::string expected = grouped.get();
  if (size_t const point = expected.find('.'); point != std::string::npos) {
    while (expected.size() > point + 1 + zeros && expected.back() == '0') expected.pop_back();
    if (expected.back() == '.') expected.pop_back();
  }
  require(str(Formats::formatNumber(value, pattern.c_str())) == expected);

  long long const number = input.take<long long>() >> input.below(64);
  int const width = static_cast<int>(input.below(64)) - 8;
  char padded[80];
  std::snprintf(padded, sizeof padded, "%0*lld", std::max(width, 1), number);
  require(str(Formats::zeroPad(number, width)) == padded);
  require(Formats::parseNumber(Formats::formatNumber(number, "#,##0"), '.', ',') == static_cast<double>(number));

  // Any pattern, any double.
  double const any = input.take<double>();
  tvstring const free = textOf(input.takeText(input.below(64)));
  Formats::formatNumber(any, free), Formats::formatNumber(value, free), Formats::formatFixed(any, decimals);
  if (std::isfinite(any)) require(Formats::toDouble(Formats::formatNumber(any, "0." + tvstring(350, '#'))) == any);
}

bool matchesPlainly(char const *text, char const *pattern) {
  if (*pattern == '\0') return *text == '\0';
  if (*pattern == '*') return matchesPlainly(text, pattern + 1) || (*text != '\0' && matchesPlainly(text + 1, pattern));
  return *text != '\0' && (*pattern == '?' || *pattern == *text) && matchesPlainly(text + 1, pattern + 1);
}

// Whether the C library reads all of the text, which holds nothing else than numbers do.
bool isReadWhole(std::string const &text) {
  if (text.empty() || text.find_first_not_of("0123456789+-.eE") != std::string::npos) return false;
  char *end;
  double const value = std::strtod(text.c_str(), &end);
  return *end == '\0' && end != text.c_str() && std::isfinite(value);
}
bool isWhole(std::string const &text, long long low, long long high) {
  if (text.find_first_of("0123456789") > 1 || text.find_first_not_of("0123456789", 1) != std::string::npos ||
      text.find_first_not_of("0123456789+-") != std::string::npos)
    return false;
  BigDecimal const value(text.c_str());
  return value >= low && value <= high;
}

void checkTests(FuzzInput &input) {
  static constexpr char LETTERS[] = "0123456789+-.eEab*?,=/Z";
  std::string s(input.below(24), '\0'), pattern(input.below(8), '\0');
  for (std::string *text : {&s, &pattern})
    for (char &c : *text) c = LETTERS[input.below(sizeof LETTERS - 1)];
  tvstring const text = textOf(s), wild = textOf(pattern);
  require(Tests::matches(text, wild) == matchesPlainly(s.c_str(), pattern.c_str()));
  require(Tests::isInt(text) == isWhole(s, INT_MIN, INT_MAX) &&
          Tests::isLong(text) == isWhole(s, LLONG_MIN, LLONG_MAX));
  require(Tests::isDouble(text) == isReadWhole(s));
  require(Tests::isHex(text) == (TextFunctions::upper(text) == Binary::fromHexString(text).toHexString()));
  if (Tests::isBase64(text)) require(Binary::fromBase64String(text).toBase64String().length() == text.length());
  TextFunctions::List const parts = TextFunctions::split(",", text);
  require(Tests::isOneOf(wild, text, ",") == parts.contains(wild));
  for (tvstring const &part : parts) require(Tests::isOneOf(part, text, ","));

  BigDecimal const value = takeDecimal(input), divisor = takeDecimal(input);
  std::string const digits = fixed(value.abs());
  size_t const point = std::min(digits.find('.'), digits.size());
  int const whole = digits[0] == '0' ? 0 : static_cast<int>(point);
  int const rest = point == digits.size() ? 0 : static_cast<int>(digits.size() - point - 1);
  require(Tests::fitsDigits(value, whole, rest) && !Tests::fitsDigits(value, whole - 1, rest) &&
          !Tests::fitsDigits(value, whole, rest - 1));
  require(Tests::isMultipleOf(value, divisor) ==
          (divisor.sign() != 0 && value.integer_divide(divisor) * divisor == value));
  require(Tests::inRange(value, divisor, divisor) == (value == divisor));
}

void checkUtils(FuzzInput &input) {
  // In hundredths, where whole numbers know the result.
  int const a = input.take<int>() >> input.below(32), b = input.take<int>() >> input.below(32);
  double const number = a / 100.0, unit = b / 100.0;
  bool const failing = b == 0 || (a < 0 && b > 0) || (a > 0 && b < 0);
  try {
    long long const below = b == 0 ? 0 : static_cast<long long>(a) / b * b;
    require(Utils::floor(number, unit) == static_cast<double>(below) / 100);
    require(Utils::ceiling(number, unit) == static_cast<double>(below + (below == a ? 0 : b)) / 100 && !failing);
  } catch (TransformRuntimeException const &) {
    require(failing);
  }
  long long const tens = (std::abs(static_cast<long long>(a)) + 5) / 10 * 10;
  require(Utils::round(number, 1) == static_cast<double>(a < 0 ? -tens : tens) / 100);
  require(Utils::mod(a, b) == (b == 0 ? 0 : static_cast<int>(static_cast<long long>(a) % b)));
  require(Utils::min(a, b) == std::min(a, b) && Utils::max(a, b) == std::max(a, b) && Utils::choose(a < b, a, b) <= b);
  require(Utils::abs(a) == static_cast<int>(std::abs(static_cast<long long>(a))));

  double const x = input.take<double>(), y = input.take<double>();
  int const decimals = input.take<int>() >> input.below(32);
  double const rounded = Utils::round(x, decimals);
  if (decimals > 400 && std::isfinite(x)) require(rounded == x);
  for (auto const work : {Utils::ceiling, Utils::floor, static_cast<double (*)(double, double)>(Utils::log)}) try {
      work(x, y);
    } catch (TransformRuntimeException const &) {
      require(x <= 0 || y <= 0);
    }
  require(!(x < 0) || std::isnan(Utils::abs(x)) || Utils::abs(x) == -x);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(uint8_t const *data, size_t size) {
  FuzzInput input(data, size);
  static constexpr void (*CHECKS[])(FuzzInput &) = {checkDates, checkDateTexts, checkFormats, checkTests, checkUtils};
  CHECKS[input.take<uint8_t>() % 5](input);
  return 0;
}

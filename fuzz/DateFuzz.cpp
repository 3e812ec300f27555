// Day counts against the floating-point formulas, spans at their limits, and the shortcuts of the common patterns
// against the machine for any pattern.
#include <algorithm>
#include <climits>
#include <cmath>
#include <cstdint>

#include "tavrone/core/DateTime.h"
#include "tests/FuzzInput.h"
#include "tests/core/DatePatternReference.h"

using namespace tavrone;

namespace {

// An int; mostly one near the range of dates.
int takeNumber(FuzzInput &input) {
  static constexpr int RANGES[] = {INT_MAX, 40, 40000, 40000};
  int const value = input.take<int>();
  return value % RANGES[input.take<uint8_t>() & 3];
}

int toInt(double value) {
  return value < INT_MIN || value > INT_MAX ? INT_MIN : static_cast<int>(value);
}

double packedDay(int y, int m, int d) {
  if (y == 1582 && m == 10 && d >= 5 && d <= 14) return 2299161;
  double const a = (y + 4800.0) * 12 + m - 3;
  double j = std::floor((a * 365 + ((a - std::floor(a / 12) * 12) * 2 + 7)) / 12) + d + std::floor(a / 48) - 32083;
  if (j > 2299160) j = j + std::floor(a / 4800) - std::floor(a / 1200) + 38;
  return j;
}

void unpackedDay(double n, int &y, int &m, int &d) {
  double t = n + 32082.5;
  if (n > 2299160) {
    double u = std::floor(t / 36525) + t - std::floor(t / 146100) - 38;
    if (n >= 1830691.5) u += 1;
    t = t + std::floor(u / 36525) - std::floor(u / 146100) - 38;
  }
  t = std::floor(t + 123);
  double const c = std::floor((t - 122.2) / 365.25);
  double const r = t - std::floor(c * 365.25);
  double const e = std::floor(r / 30.6001);
  m = toInt(e - 1 > 12 ? e - 13 : e - 1);
  d = toInt(r - std::floor(e * 30.6001));
  y = toInt(std::floor((e - 1.9999) / 12) + c - 4800);
}

void checkDays(FuzzInput &input) {
  int const y = takeNumber(input), m = takeNumber(input), d = takeNumber(input);
  long long const day = toInt(packedDay(y, m, d));
  require(Date::pack(y, m, d).days() == (day < 0 ? -day : day));
  Date const date(y, m, d);
  require(date.dayOfWeek() >= 1 && date.dayOfWeek() <= 7);
  if (date.isValid() && !(y == 1582 && m == 10 && d >= 5 && d <= 14)) require(Date(date.getTimeSpan()) == date);

  TimeSpan const span(input.take<long long>(), input.take<int>());
  Date const unpacked(span);
  int year, month, dayOfMonth;
  unpackedDay(static_cast<double>(span.days()), year, month, dayOfMonth);
  require(unpacked.getYear() == year);
  // Beyond the years that an int holds the floating-point formula has no exact days.
  if (year != INT_MIN) require(unpacked.getMonth() == month && unpacked.getDate() == dayOfMonth);
}

void checkSpans(FuzzInput &input) {
  TimeSpan const a(input.take<long long>(), input.take<int>()), b(input.take<long long>(), input.take<int>());
  long double const exact = std::fabs(static_cast<long double>(a.getTotalSeconds()) - b.getTotalSeconds());
  TimeSpan const difference = a - b;
  require(difference.getTotalSeconds() >= 0 && difference.getMilliseconds() >= 0);
  if (exact < 9.2e18L) require(static_cast<long double>(difference.getTotalSeconds()) >= exact);
  require((a + b).getMilliseconds() <= 999 && (a < b) + (a == b) + (a > b) == 1);

  int parts[7];
  for (int &part : parts) part = takeNumber(input);
  require(TimeSpan(parts[0], parts[1], parts[2], parts[3], parts[4]).getTotalSeconds() >= 0);
  DateTime const value(parts[0], parts[1], parts[2], parts[3], parts[4], parts[5], parts[6]);
  for (DateTime const &moved : {value + a, value - a, DateTime::fromTimestamp(input.take<long long>())})
    moved.toTimestamp();
  if (value.isValid() && value.getYear() >= 1970) require(DateTime::fromTimestamp(value.toTimestamp()) == value);
}

void checkTexts(FuzzInput &input) {
  size_t const choice = input.take<uint8_t>() % 20;
  std::string const pattern = choice < 8    ? COMMON_PATTERNS[choice]
                              : choice < 10 ? "MMM dd, yyyy"
                                            : input.takeText(input.below(48));
  std::string text;
  if (input.take<uint8_t>() & 1) {
    text = input.takeText(input.below(48));
  } else {
    // A true text with one byte changed.
    DateTime const value = DateTime::fromTimestamp(input.take<unsigned>() * 1009LL);
    text = str(value.toString(tvstring(pattern.data(), pattern.size())));
    size_t const at = input.take<uint8_t>();
    if (at < text.size()) text[at] = input.take<char>();
  }
  auto const small = [&](int mask) {
    return input.take<uint8_t>() & 7 ? input.take<uint16_t>() & mask : input.take<int>();
  };
  BrokenDownTime const time{small(1023), small(63), small(63), small(31), small(31), small(15), small(4095)};
  require(shortcutsChangeNothing(text, pattern, time, input.take<uint8_t>() % 64));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(uint8_t const *data, size_t size) {
  FuzzInput input(data, size);
  static constexpr void (*CHECKS[])(FuzzInput &) = {checkDays, checkSpans, checkTexts};
  CHECKS[input.take<uint8_t>() % 3](input);
  return 0;
}

// Day counts against the floating-point formulas, spans at their limits, and the shortcuts of the common patterns
// against the machine for any pattern.
#include <algorithm>
#include <climits>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <string>
#include <tuple>

#include "tavrone/core/DateStr.h"
#include "tavrone/core/DateTime.h"
#include "tavrone/core/Exceptions.h"

using namespace tavrone;

namespace {

void check(bool holds) {
  if (!holds) std::abort();
}

class Input {
 public:
  Input(uint8_t const *data, size_t size) : data_(data), size_(size) {}

  template <class T>
  T take() {
    T value{};
    size_t const n = std::min(sizeof value, size_);
    if (n != 0) std::memcpy(&value, data_, n);
    data_ += n;
    size_ -= n;
    return value;
  }
  std::string takeText() {
    size_t const n = std::min<size_t>(take<uint8_t>() % 48, size_);
    std::string const text(reinterpret_cast<char const *>(data_), n);
    data_ += n;
    size_ -= n;
    return text;
  }

 private:
  uint8_t const *data_;
  size_t size_;
};

// An int; mostly one near the range of dates.
int takeNumber(Input &input) {
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

void checkDays(Input &input) {
  int const y = takeNumber(input), m = takeNumber(input), d = takeNumber(input);
  long long const day = toInt(packedDay(y, m, d));
  check(Date::pack(y, m, d).days() == (day < 0 ? -day : day));
  Date const date(y, m, d);
  check(date.dayOfWeek() >= 1 && date.dayOfWeek() <= 7);
  if (date.isValid() && !(y == 1582 && m == 10 && d >= 5 && d <= 14)) check(Date(date.getTimeSpan()) == date);

  TimeSpan const span(input.take<long long>(), input.take<int>());
  Date const unpacked(span);
  int year, month, dayOfMonth;
  unpackedDay(static_cast<double>(span.days()), year, month, dayOfMonth);
  check(unpacked.getYear() == year);
  // Beyond the years that an int holds the floating-point formula has no exact days.
  if (year != INT_MIN) check(unpacked.getMonth() == month && unpacked.getDate() == dayOfMonth);
}

void checkSpans(Input &input) {
  TimeSpan const a(input.take<long long>(), input.take<int>());
  TimeSpan const b(input.take<long long>(), input.take<int>());
  long double const exact = std::fabs(static_cast<long double>(a.getTotalSeconds()) - b.getTotalSeconds());
  TimeSpan const difference = a - b;
  check(difference.getTotalSeconds() >= 0 && difference.getMilliseconds() >= 0);
  if (exact < 9.2e18L) check(static_cast<long double>(difference.getTotalSeconds()) >= exact);
  check((a + b).getMilliseconds() <= 999);
  check((a < b) + (a == b) + (a > b) == 1);

  DateTime const value(takeNumber(input), takeNumber(input), takeNumber(input), takeNumber(input), takeNumber(input),
                       takeNumber(input), takeNumber(input));
  DateTime const moved[] = {value + a, value - a, DateTime::fromTimestamp(input.take<long long>())};
  for (DateTime const &m : moved) {
    m.toTimestamp();
    m.toString("yyyyMMdd-HH:mm:ss.SSS");
  }
  TimeSpan const days(takeNumber(input), takeNumber(input), takeNumber(input), takeNumber(input), takeNumber(input));
  check(days.getTotalSeconds() >= 0);
  char buffer[80];
  a.asString(buffer, input.take<uint8_t>() % sizeof buffer);
  if (value.isValid() && value.getYear() >= 1970) check(DateTime::fromTimestamp(value.toTimestamp()) == value);
}

auto members(BrokenDownTime const &t) {
  return std::tie(t.millisecond, t.second, t.minute, t.hour, t.dayOfMonth, t.month, t.year);
}

void checkTexts(Input &input) {
  static char const *const COMMON[] = {
      "yyyyMMdd",   "yyyyMMdd-HH:mm:ss",   "yyyyMMdd-HH:mm:ss.SSS",   "HH:mm:ss",     "HH:mm:ss.SSS",
      "yyyy-MM-dd", "yyyy-MM-ddTHH:mm:ss", "yyyy-MM-ddTHH:mm:ss.SSS", "MMM dd, yyyy", "MMMM dd yy"};
  size_t const choice = input.take<uint8_t>() % 20;
  std::string const pattern = choice < 10 ? COMMON[choice] : input.takeText();
  std::string text;
  if (input.take<uint8_t>() & 1) {
    text = input.takeText();
  } else {
    // A true text with one byte changed.
    DateTime const value = DateTime::fromTimestamp(input.take<unsigned>() * 1009LL);
    tvstring const written = value.toString(tvstring(pattern.data(), pattern.size()));
    text.assign(written.data(), written.length());
    size_t const at = input.take<uint8_t>();
    if (at < text.size()) text[at] = input.take<char>();
  }

  // Exact copies on the heap, so that a byte read past the end is noticed.
  std::string const *const sources[] = {&text, &pattern};
  char *exact[2];
  for (size_t i = 0; i < 2; ++i) {
    exact[i] = new char[sources[i]->size()];
    if (!sources[i]->empty()) std::memcpy(exact[i], sources[i]->data(), sources[i]->size());
  }
  BrokenDownTime general, direct;
  auto const run = [&](auto parse, BrokenDownTime &time) {
    try {
      parse(exact[0], text.size(), exact[1], pattern.size(), time);
      return tvstring();
    } catch (TransformRuntimeException const &e) {
      return e.getMessage();
    }
  };
  check(run(DateStr::parseAnyPattern, general) == run(DateStr::parse, direct));
  check(members(general) == members(direct));

  BrokenDownTime time;
  auto const small = [&](int mask) {
    return input.take<uint8_t>() & 7 ? input.take<uint16_t>() & mask : input.take<int>();
  };
  time = {small(1023), small(63), small(63), small(31), small(31), small(15), small(4095)};
  size_t const size = input.take<uint8_t>() % 64;
  auto const write = [&](auto format) {
    char *out = new char[size];
    tvstring result;
    try {
      size_t const length = format(out, size, exact[1], pattern.size(), time);
      check(size == 0 ? length == 0 : length < size && out[length] == 0);
      result = tvstring(out, length);
    } catch (TransformRuntimeException const &e) {
      result = "!" + e.getMessage();
    }
    delete[] out;
    return result;
  };
  check(write(DateStr::formatAnyPattern) == write(DateStr::format));
  for (char *bytes : exact) delete[] bytes;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(uint8_t const *data, size_t size) {
  Input input(data, size);
  static constexpr void (*CHECKS[])(Input &) = {checkDays, checkSpans, checkTexts};
  CHECKS[input.take<uint8_t>() % 3](input);
  return 0;
}

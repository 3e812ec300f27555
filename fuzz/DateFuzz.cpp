// Day counts against the floating-point formulas, spans at their limits, and patterns against a slow reading of the
// rules.
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
    size_t const n = sizeof value < size_ ? sizeof value : size_;
    if (n != 0) std::memcpy(&value, data_, n);
    data_ += n;
    size_ -= n;
    return value;
  }
  std::string takeText() {
    size_t n = take<uint8_t>() % 48;
    if (n > size_) n = size_;
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
  int const value = input.take<int>();
  switch (input.take<uint8_t>() & 3) {
    case 0:
      return value;
    case 1:
      return value % 40;
    default:
      return value % 40000;
  }
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

std::string failureText(TransformException const &failure) {
  tvstring const message = failure.getMessage();
  return {message.data(), message.length()};
}

// A slow reading of the rules; returns the failure's text or nothing.
std::string slowParse(std::string const &text, std::string const &pattern, BrokenDownTime &time) {
  std::string const quoted = "'" + pattern + "'";
  std::string left = text;
  auto const skip = [&](size_t n) { left.erase(0, n); };
  auto const number = [&](size_t width) {
    int value = 0;
    for (size_t i = 0; i < width && i < left.size() && left[i] >= '0' && left[i] <= '9'; ++i) {
      value = value * 10 + (left[i] - '0');
    }
    skip(width);
    return value;
  };
  for (size_t i = 0; i < pattern.size();) {
    char const c = pattern[i];
    size_t const next = pattern.find_first_not_of(c, i);
    size_t const run = (next == std::string::npos ? pattern.size() : next) - i;
    auto const illegal = [&](char const *name, char const *only) {
      return std::string("Illegal ") + name + " pattern in " + quoted + ". Only pattern '" + only + "' is supported.";
    };
    switch (c) {
      case 'y':
        if (run == 1) return "Illegal year pattern in " + quoted + ". At least 2 y's expected.";
        if (run == 3) return "Illegal year pattern in " + quoted + ". Only patterns 'yy' and 'yyyy' are supported.";
        time.year = number(run == 2 ? 2 : 4);
        if (run == 2) time.year += time.year < 70 ? 2000 : 1900;
        break;
      case 'M':
        if (run == 1) return "Illegal month pattern in " + quoted + ". At least 2 M's expected.";
        if (run == 2) {
          time.month = number(2) - 1;
        } else {
          char const *const names[] = {"january", "february", "march",     "april",   "may",      "june",
                                       "july",    "august",   "september", "october", "november", "december"};
          std::string lower = left;
          for (char &l : lower) l = l >= 'A' && l <= 'Z' ? static_cast<char>(l + 32) : l;
          int month = 0;
          std::string name;
          for (; month < 12; ++month) {
            name = run == 3 ? std::string(names[month], 3) : names[month];
            if (lower.compare(0, name.size(), name) == 0) break;
          }
          if (month == 12) {
            return "Error parsing month part of date string, expected pattern " + quoted + " found '" + text + "'";
          }
          time.month = month;
          skip(name.size());
        }
        break;
      case 'd':
        if (run != 2) return illegal("date", "dd");
        time.dayOfMonth = number(2);
        break;
      case 'H':
        if (run != 2) return illegal("hour", "HH");
        time.hour = number(2);
        break;
      case 'm':
        if (run != 2) return illegal("minute", "mm");
        time.minute = number(2);
        break;
      case 's':
        if (run != 2) return illegal("seconds", "ss");
        time.second = number(2);
        break;
      case 'S':
        if (run > 3) return illegal("milli-seconds", "SSS");
        time.millisecond = number(3);
        break;
      default:
        for (size_t k = 0; k < run; ++k) {
          if (left.empty() || left[0] != c) {
            return "Error parsing date string, expected pattern " + quoted + " found '" + left + "'";
          }
          skip(1);
        }
    }
    i += run;
  }
  if (left.empty()) return "";
  return "Additional characters at the end of date string, expected pattern " + quoted + " found '" + left + "'";
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
  BrokenDownTime expected, general, direct;
  std::string const failure = slowParse(text, pattern, expected);
  auto const run = [&](auto parse, BrokenDownTime &time) {
    try {
      parse(exact[0], text.size(), exact[1], pattern.size(), time);
      return std::string();
    } catch (TransformRuntimeException const &e) {
      return failureText(e);
    }
  };
  check(run(DateStr::parseAnyPattern, general) == failure);
  check(run(DateStr::parse, direct) == failure);
  check(members(general) == members(expected) && members(direct) == members(expected));

  BrokenDownTime time;
  auto const small = [&](int mask) {
    return input.take<uint8_t>() & 7 ? input.take<uint16_t>() & mask : input.take<int>();
  };
  time = {small(1023), small(63), small(63), small(31), small(31), small(15), small(4095)};
  size_t const size = input.take<uint8_t>() % 64;
  auto const write = [&](auto format) {
    char *out = new char[size];
    std::string result;
    try {
      size_t const length = format(out, size, exact[1], pattern.size(), time);
      check(size == 0 ? length == 0 : length < size && out[length] == 0);
      result.assign(out, length);
    } catch (TransformRuntimeException const &e) {
      result = "!" + failureText(e);
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
  switch (input.take<uint8_t>() % 3) {
    case 0:
      checkDays(input);
      break;
    case 1:
      checkSpans(input);
      break;
    default:
      checkTexts(input);
  }
  return 0;
}

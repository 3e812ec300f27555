#include "tavrone/core/DateTime.h"

#include <atomic>
#include <climits>
#include <cstdio>
#include <ctime>

#include "tavrone/core/Raise.h"

namespace tavrone {

namespace {

constexpr char const *SOURCE = "cpp/date/DateTime";
constexpr long long LAST_JULIAN_DAY = 2299160;                         // 4 October 1582
constinit TimeSpan const EPOCH(2440588LL * TimeDefs::SECONDS_IN_DAY);  // 1970-01-01

constexpr long long floorDivide(long long a, long long b) {
  return a / b - (a % b < 0 ? 1 : 0);
}

constexpr long long absolute(int value) {
  return value < 0 ? -static_cast<long long>(value) : value;
}

// What converting a floating value gives: out of range is the lowest int.
constexpr int toInt(long long value) {
  return value < INT_MIN || value > INT_MAX ? INT_MIN : static_cast<int>(value);
}

long long addWithinLimits(long long a, long long b) {
  long long sum;
  if (!__builtin_add_overflow(a, b, &sum)) return sum;
  return a < 0 ? LLONG_MIN : LLONG_MAX;
}

int order(int a, int b) {
  return (a > b) - (a < b);
}

struct LocalClock {
  time_t seconds;
  tm local;
  int milliseconds;
};

LocalClock readLocalClock() {
  LocalClock clock{};
  timespec now{};
  clock_gettime(CLOCK_REALTIME, &now);
  clock.seconds = now.tv_sec;
  clock.milliseconds = static_cast<int>(now.tv_nsec / 1000000);
  localtime_r(&clock.seconds, &clock.local);
  return clock;
}

}  // namespace

TimeSpan::TimeSpan(int days, int hours, int minutes, int seconds, int milliseconds)
    : seconds_(absolute(days) * TimeDefs::SECONDS_IN_DAY + absolute(hours) * TimeDefs::SECONDS_IN_HOUR +
               absolute(minutes) * TimeDefs::SECONDS_IN_MINUTE + absolute(seconds)),
      milliseconds_(milliseconds) {
  assertRange();
}

void TimeSpan::assertRange() {
  if (seconds_ < 0) seconds_ = 0;
}

TimeSpan &TimeSpan::operator=(int seconds) {
  seconds_ = seconds;
  milliseconds_ = 0;
  return *this;
}

// Sets the milliseconds; what is past an int goes into the seconds.
void TimeSpan::setMilliseconds(long long milliseconds) {
  if (milliseconds < INT_MIN || milliseconds > INT_MAX) {
    seconds_ = addWithinLimits(seconds_, milliseconds / 1000);
    milliseconds %= 1000;
  }
  milliseconds_ = static_cast<int>(milliseconds);
}

TimeSpan &TimeSpan::operator+=(TimeSpan const &other) {
  long long milliseconds = static_cast<long long>(milliseconds_) + other.milliseconds_;
  seconds_ = addWithinLimits(seconds_, other.seconds_);
  if (milliseconds > 999) {
    seconds_ = addWithinLimits(seconds_, milliseconds / 1000);
    milliseconds %= 1000;
  }
  setMilliseconds(milliseconds);
  return *this;
}

TimeSpan &TimeSpan::operator-=(TimeSpan const &other) {
  long long milliseconds = static_cast<long long>(milliseconds_) - other.milliseconds_;
  long long difference;
  if (__builtin_sub_overflow(seconds_, other.seconds_, &difference) || difference == LLONG_MIN) difference = LLONG_MAX;
  seconds_ = difference < 0 ? -difference : difference;
  if (milliseconds < 0) {
    long long const borrowed = (999 - milliseconds) / 1000;
    milliseconds += borrowed * 1000;
    seconds_ = addWithinLimits(seconds_, borrowed);  // added, not taken away: callers depend on it
  }
  setMilliseconds(milliseconds);
  return *this;
}

TimeSpan TimeSpan::operator+(TimeSpan const &other) const {
  TimeSpan sum(*this);
  return sum += other;
}

TimeSpan TimeSpan::operator-(TimeSpan const &other) const {
  TimeSpan difference(*this);
  return difference -= other;
}

void TimeSpan::asString(char *buffer, size_t size) const {
  std::snprintf(buffer, size, "%lld day(s), %d hour(s), %d minute(s), %d second(s)", days(), hours(), minutes(),
                seconds());
}

Date::Date(TimeSpan const &span) {
  unpack(span, year_, month_, date_);
}

int Date::compare(Date const &other) const {
  if (year_ != other.year_) return order(year_, other.year_);
  if (month_ != other.month_) return order(month_, other.month_);
  return order(date_, other.date_);
}

int Date::dayOfWeek() const {
  return static_cast<int>((getTimeSpan().days() + 1) % 7) + 1;
}

TimeSpan Date::getTimeSpan() const {
  return pack(year_, month_, date_);
}

tvstring Date::toString() const {
  char text[48];
  int const length = std::snprintf(text, sizeof text, "%04d-%02d-%02d", year_, month_, date_);
  return tvstring(text, static_cast<size_t>(length));
}

Date Date::now() {
  return DateTime::now().getDatePortion();
}

int Date::daysInMonth(int year, int month) {
  static constexpr signed char DAYS[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
  if (!isValidMonth(month)) return 0;
  if (year == 1582 && month == 10) return 21;
  return DAYS[month - 1] + (month == 2 && isLeapYear(year) ? 1 : 0);
}

// The day count is a formula over real numbers, floors taken of quotients. Every term is a whole number, or a whole
// number and a half that is doubled here, far below 2^53, and no quotient comes near enough to a whole number for
// rounding to matter: whole numbers give the same result.
TimeSpan Date::pack(int year, int month, int date) {
  if (year == 1582 && month == 10 && date >= 5 && date <= 14) return TimeSpan(2299161, 0, 0, 0, 0);
  long long const months = (year + 4800LL) * 12 + month - 3;  // since March 4801 B.C.
  long long const monthOfYear = months - floorDivide(months, 12) * 12;
  long long day = floorDivide(months * 365 + monthOfYear * 2 + 7, 12) + date + floorDivide(months, 48) - 32083;
  if (day > LAST_JULIAN_DAY) day += floorDivide(months, 4800) - floorDivide(months, 1200) + 38;
  return TimeSpan(toInt(day), 0, 0, 0, 0);
}

void Date::unpack(TimeSpan const &span, int &year, int &month, int &date) {
  long long const day = span.days();
  long long twice = day * 2 + 64165;  // two times the days since March 4801 B.C., at noon
  if (day > LAST_JULIAN_DAY) {
    long long const julian = twice + (floorDivide(twice, 73050) - floorDivide(twice, 292200) - 37) * 2;
    twice += (floorDivide(julian, 73050) - floorDivide(julian, 292200) - 38) * 2;
  }
  long long const shifted = floorDivide(twice + 246, 2);
  long long const years = floorDivide(shifted * 20 - 2444, 7305);      // (shifted - 122.2) / 365.25
  long long const dayOfYear = shifted - floorDivide(years * 1461, 4);  // years * 365.25
  long long const months = floorDivide(dayOfYear * 10000, 306001);     // dayOfYear / 30.6001
  month = static_cast<int>(months > 13 ? months - 13 : months - 1);
  date = static_cast<int>(dayOfYear - floorDivide(months * 306001, 10000));  // months * 30.6001
  year = toInt(floorDivide(months * 10000 - 19999, 120000) + years - 4800);  // (months - 1.9999) / 12
}

Time::Time(TimeSpan const &span)
    : hours_(span.hours()), minutes_(span.minutes()), seconds_(span.seconds()), milliseconds_(span.getMilliseconds()) {}

int Time::compare(Time const &other) const {
  if (hours_ != other.hours_) return order(hours_, other.hours_);
  if (minutes_ != other.minutes_) return order(minutes_, other.minutes_);
  if (seconds_ != other.seconds_) return order(seconds_, other.seconds_);
  return order(milliseconds_, other.milliseconds_);
}

TimeSpan Time::getTimeSpan() const {
  return TimeSpan(0, hours_, minutes_, seconds_, milliseconds_);
}

tvstring Time::toString() const {
  char text[64];
  int const length = std::snprintf(text, sizeof text, "%02d:%02d:%02d.%03d", hours_, minutes_, seconds_, milliseconds_);
  return tvstring(text, static_cast<size_t>(length));
}

DateTime::DateTime(TimeSpan const &span) : date_(span), time_(span) {}

int DateTime::compare(DateTime const &other) const {
  int const byDate = date_.compare(other.date_);
  return byDate != 0 ? byDate : time_.compare(other.time_);
}

DateTime DateTime::operator+(TimeSpan const &span) const {
  return DateTime(getTimeSpan() + span);
}

DateTime DateTime::operator-(TimeSpan const &span) const {
  return DateTime(getTimeSpan() - span);
}

TimeSpan DateTime::operator-(DateTime const &other) const {
  return getTimeSpan() - other.getTimeSpan();
}

TimeSpan DateTime::getTimeSpan() const {
  return date_.getTimeSpan() + time_.getTimeSpan();
}

void DateTime::validate() const {
  if (!date_.isValid()) raise<TransformRuntimeException>(tvstring("Illegal date ") + date_.toString(), SOURCE);
  if (!time_.isValid()) raise<TransformRuntimeException>(tvstring("Illegal time ") + time_.toString(), SOURCE);
}

long long DateTime::toTimestamp() const {
  TimeSpan const span = getTimeSpan() - EPOCH;
  return span.getTotalSeconds() * 1000 + span.getMilliseconds();
}

DateTime DateTime::now() {
  LocalClock const clock = readLocalClock();
  tm const &local = clock.local;
  DateTime const value(local.tm_year + 1900, local.tm_mon + 1, local.tm_mday, local.tm_hour, local.tm_min, local.tm_sec,
                       clock.milliseconds);
  value.validate();
  return value;
}

DateTime DateTime::today() {
  return DateTime(Date::now(), Time());
}

DateTime DateTime::fromTimestamp(long long milliseconds) {
  unsigned long long const bits = static_cast<unsigned long long>(milliseconds);
  unsigned long long const magnitude = milliseconds < 0 ? 0 - bits : bits;
  TimeSpan const span(static_cast<long long>(magnitude / 1000), static_cast<int>(magnitude % 1000));
  return DateTime(milliseconds < 0 ? EPOCH - span : EPOCH + span);
}

int ISODateTime::getLocalTimeZoneOffset() {
  constexpr int UNSET = -1;
  static constinit std::atomic<int> cached{UNSET};  // every thread works out the same value
  int offset = cached.load(std::memory_order_relaxed);
  if (offset == UNSET) {
    LocalClock const clock = readLocalClock();
    tm const &local = clock.local;
    tm utc{};
    gmtime_r(&clock.seconds, &utc);
    offset = ((local.tm_mday - utc.tm_mday) * 24 - utc.tm_hour + local.tm_hour) * 60 - utc.tm_min + local.tm_min;
    cached.store(offset, std::memory_order_relaxed);
  }
  return offset;
}

}  // namespace tavrone

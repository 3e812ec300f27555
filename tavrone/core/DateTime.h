#pragma once

#include <cstddef>
#include <cstring>

#include "tavrone/core/tvstring.h"

namespace tavrone {

// Lengths of time in seconds.
struct TimeDefs {
  static constexpr int SECONDS_IN_MINUTE = 60;
  static constexpr int SECONDS_IN_HOUR = 3600;
  static constexpr int SECONDS_IN_DAY = 86400;
  static constexpr int SECONDS_IN_WEEK = 604800;
};

// A duration, or a date as whole days since the start of the Julian day count. A negative count comes only from a
// caller's own seconds: the form of five fields and the differences never give one. Sums past 64 bits stop at the
// limit.
class TAVRONE_API TimeSpan {
 public:
  constexpr TimeSpan() = default;
  constexpr TimeSpan(long long seconds) : TimeSpan(seconds, 0) {}
  constexpr TimeSpan(long long seconds, int milliseconds) : seconds_(seconds), milliseconds_(milliseconds) {}
  // Sums the absolute values of the first four; the milliseconds are kept as they are.
  TimeSpan(int days, int hours, int minutes, int seconds, int milliseconds);

  // Whole days of the span; then what remains of the larger unit.
  long long days() const { return seconds_ / TimeDefs::SECONDS_IN_DAY; }
  int hours() const { return static_cast<int>(seconds_ % TimeDefs::SECONDS_IN_DAY) / TimeDefs::SECONDS_IN_HOUR; }
  int minutes() const { return static_cast<int>(seconds_ % TimeDefs::SECONDS_IN_HOUR) / TimeDefs::SECONDS_IN_MINUTE; }
  int seconds() const { return static_cast<int>(seconds_ % TimeDefs::SECONDS_IN_MINUTE); }
  long long getTotalSeconds() const { return seconds_; }
  int getMilliseconds() const { return milliseconds_; }

  // The seconds first, then the milliseconds.
  bool operator==(TimeSpan const &other) const {
    return seconds_ == other.seconds_ && milliseconds_ == other.milliseconds_;
  }
  bool operator!=(TimeSpan const &other) const { return !(*this == other); }
  bool operator<(TimeSpan const &other) const {
    return seconds_ != other.seconds_ ? seconds_ < other.seconds_ : milliseconds_ < other.milliseconds_;
  }
  bool operator<=(TimeSpan const &other) const { return !(other < *this); }
  bool operator>(TimeSpan const &other) const { return other < *this; }
  bool operator>=(TimeSpan const &other) const { return !(*this < other); }

  TimeSpan(TimeSpan const &) = default;
  TimeSpan &operator=(TimeSpan const &) = default;
  // Sets the seconds and clears the milliseconds.
  TimeSpan &operator=(int seconds);
  // Milliseconds above 999 carry into the seconds.
  TimeSpan &operator+=(TimeSpan const &other);
  // The absolute difference of the seconds; milliseconds that fall below zero are raised by 1000 and add a second
  // instead of taking one. Callers depend on both.
  TimeSpan &operator-=(TimeSpan const &other);
  TimeSpan operator+(TimeSpan const &other) const;
  TimeSpan operator-(TimeSpan const &other) const;

  // "%d day(s), %d hour(s), %d minute(s), %d second(s)", cut at size - 1 bytes and terminated.
  void asString(char *buffer, size_t size) const;

 private:
  void assertRange();
  void setMilliseconds(long long milliseconds);

  long long seconds_ = 0;
  int milliseconds_ = 0;
};

// A calendar date: Julian up to 4 October 1582, Gregorian from then on; years -4712 to 32767. The constructors do not
// validate.
class TAVRONE_API Date {
 public:
  Date() = default;  // 1 January of the year 0
  Date(int year, int month, int date) : year_(year), month_(month), date_(date) {}
  // The day that the span counts to; see unpack.
  Date(TimeSpan const &span);

  int getYear() const { return year_; }
  int getMonth() const { return month_; }  // 1 to 12
  int getDate() const { return date_; }    // day of the month

  // Negative, zero or positive.
  int compare(Date const &other) const;
  bool operator==(Date const &other) const { return compare(other) == 0; }
  bool operator!=(Date const &other) const { return compare(other) != 0; }
  bool operator<(Date const &other) const { return compare(other) < 0; }
  bool operator<=(Date const &other) const { return compare(other) <= 0; }
  bool operator>(Date const &other) const { return compare(other) > 0; }
  bool operator>=(Date const &other) const { return compare(other) >= 0; }

  bool isValid() const { return isValidDate(year_, month_, date_); }
  int dayOfWeek() const;  // 1 is Sunday, 7 Saturday
  TimeSpan getTimeSpan() const;
  tvstring toString() const;  // "%04d-%02d-%02d"

  static Date now();
  // The Julian day count of a date, as a span; the ten days dropped in October 1582 all pack to day 2299161. Any int is
  // taken; a day count past an int is its lowest value, whose absolute value the span has.
  static TimeSpan pack(int year, int month, int date);
  // The reverse, for whole days of the span. A year past an int is its lowest value.
  static void unpack(TimeSpan const &span, int &year, int &month, int &date);
  // 21 for October 1582; 0 for a month outside 1 to 12.
  static int daysInMonth(int year, int month);
  // Days 1 to 27 are in every month, also in the short October of 1582: callers depend on it.
  static bool isDayInMonth(int year, int month, int date) {
    return date >= 1 && (date < 28 || date <= daysInMonth(year, month));
  }
  static bool isValidDate(int year, int month, int date) {
    return isValidYear(year) && isValidMonth(month) && isDayInMonth(year, month, date);
  }

 private:
  static bool isValidYear(int year) { return year >= -4712 && year <= 32767; }
  static bool isValidMonth(int month) { return month >= 1 && month <= 12; }
  // By the Julian rule before 1583, by the Gregorian from then on.
  static bool isLeapYear(int year) { return year % 4 == 0 && (year < 1583 || year % 100 != 0 || year % 400 == 0); }

  int year_ = 0;
  int month_ = 1;
  int date_ = 1;
};

// A time of day to the millisecond. The constructors do not validate.
class TAVRONE_API Time {
 public:
  Time() = default;
  Time(int hours, int minutes, int seconds, int milliseconds)
      : hours_(hours), minutes_(minutes), seconds_(seconds), milliseconds_(milliseconds) {}
  // What the span has beyond whole days.
  Time(TimeSpan const &span);

  int getHours() const { return hours_; }
  int getMinutes() const { return minutes_; }
  int getSeconds() const { return seconds_; }
  int getMilliseconds() const { return milliseconds_; }

  // Negative, zero or positive.
  int compare(Time const &other) const;
  bool operator==(Time const &other) const { return compare(other) == 0; }
  bool operator!=(Time const &other) const { return compare(other) != 0; }
  bool operator<(Time const &other) const { return compare(other) < 0; }
  bool operator<=(Time const &other) const { return compare(other) <= 0; }
  bool operator>(Time const &other) const { return compare(other) > 0; }
  bool operator>=(Time const &other) const { return compare(other) >= 0; }

  bool isValid() const { return isValidTime(hours_, minutes_, seconds_, milliseconds_); }
  // The fields by their absolute values, but for the milliseconds.
  TimeSpan getTimeSpan() const;
  tvstring toString() const;  // "%02d:%02d:%02d.%03d"

 private:
  static bool isValidHour(int hour) { return hour >= 0 && hour <= 23; }
  static bool isValidMinute(int minute) { return minute >= 0 && minute <= 59; }
  static bool isValidSecond(int second) { return second >= 0 && second <= 59; }
  static bool isValidMilliSecond(int millisecond) { return millisecond >= 0 && millisecond <= 999; }
  static bool isValidTime(int hours, int minutes, int seconds, int milliseconds) {
    return isValidHour(hours) && isValidMinute(minutes) && isValidSecond(seconds) && isValidMilliSecond(milliseconds);
  }

  int hours_ = 0;
  int minutes_ = 0;
  int seconds_ = 0;
  int milliseconds_ = 0;
};

// A date and a time of day, with no zone. The constructors do not validate.
class TAVRONE_API DateTime {
 public:
  DateTime() = default;
  // The span's whole days as the date, the rest as the time.
  DateTime(TimeSpan const &span);
  DateTime(Date const &date, Time const &time) : date_(date), time_(time) {}
  DateTime(int year, int month, int date, int hours, int minutes, int seconds, int milliseconds)
      : date_(year, month, date), time_(hours, minutes, seconds, milliseconds) {}

  int getYear() const { return date_.getYear(); }
  int getMonth() const { return date_.getMonth(); }
  int getDate() const { return date_.getDate(); }
  int getHours() const { return time_.getHours(); }
  int getMinutes() const { return time_.getMinutes(); }
  int getSeconds() const { return time_.getSeconds(); }
  int getMilliseconds() const { return time_.getMilliseconds(); }
  Date const &getDatePortion() const { return date_; }
  Time const &getTimePortion() const { return time_; }

  // The date first, then the time: negative, zero or positive. An ISODateTime's offset does not count.
  int compare(DateTime const &other) const;
  bool operator==(DateTime const &other) const { return compare(other) == 0; }
  bool operator!=(DateTime const &other) const { return compare(other) != 0; }
  bool operator<(DateTime const &other) const { return compare(other) < 0; }
  bool operator<=(DateTime const &other) const { return compare(other) <= 0; }
  bool operator>(DateTime const &other) const { return compare(other) > 0; }
  bool operator>=(DateTime const &other) const { return compare(other) >= 0; }

  // DateTime(getTimeSpan() +- span), with the peculiarities of TimeSpan.
  DateTime operator+(TimeSpan const &span) const;
  DateTime operator-(TimeSpan const &span) const;
  TimeSpan operator-(DateTime const &other) const;

  // The whole days of Date::pack, and the time of day.
  TimeSpan getTimeSpan() const;
  bool isValid() const { return date_.isValid() && time_.isValid(); }
  // Raises TransformRuntimeException "Illegal date <date>" or "Illegal time <time>"; the date is tested first.
  void validate() const;

  // Text by a pattern of DateStr, cut at 255 bytes; a negative year is written by its absolute value. Raises
  // TransformRuntimeException "Illegal date <date>" where the pattern asks for the name of a month that does not exist.
  tvstring toString(tvstring const &pattern) const;
  // The same into the caller's buffer, cut at size - 1 bytes and terminated. Returns the length; allocates nothing.
  size_t asString(char *buffer, size_t size, char const *pattern) const {
    return asString(buffer, size, pattern, std::strlen(pattern));
  }
  size_t asString(char *buffer, size_t size, tvstring const &pattern) const {
    return asString(buffer, size, pattern.data(), pattern.length());
  }
  size_t asString(char *buffer, size_t size, char const *pattern, size_t patternLength) const;
  // Milliseconds since 1970-01-01 00:00:00, no zone applied; before it, the absolute value, with the peculiarities of
  // TimeSpan's difference.
  long long toTimestamp() const;

  // The local clock, and local midnight.
  static DateTime now();
  static DateTime today();
  // What the pattern does not name is taken from 1970-01-01 00:00:00.000; the result is validated. Raises
  // TransformRuntimeException with the words of DateStr::parse or of validate.
  static DateTime fromString(char const *text, char const *pattern) {
    return fromString(text, std::strlen(text), pattern, std::strlen(pattern));
  }
  static DateTime fromString(tvstring const &text, tvstring const &pattern) {
    return fromString(text.data(), text.length(), pattern.data(), pattern.length());
  }
  static DateTime fromString(char const *text, size_t length, char const *pattern, size_t patternLength);
  // The reverse of toTimestamp; a negative argument's absolute value is subtracted from 1970, with the peculiarities of
  // TimeSpan's difference: -1 gives 00:00:01.999.
  static DateTime fromTimestamp(long long milliseconds);

 private:
  Date date_;
  Time time_;
};

// A DateTime with an offset from UTC in minutes, east positive; 0 unless given.
class TAVRONE_API ISODateTime : public DateTime {
 public:
  ISODateTime() = default;
  ISODateTime(TimeSpan const &span) : DateTime(span) {}
  ISODateTime(Date const &date, Time const &time) : DateTime(date, time) {}
  ISODateTime(int year, int month, int date, int hours, int minutes, int seconds, int milliseconds)
      : DateTime(year, month, date, hours, minutes, seconds, milliseconds) {}
  ISODateTime(DateTime const &value) : DateTime(value) {}
  ISODateTime(DateTime const &value, int timeZoneOffset) : DateTime(value), timeZoneOffset_(timeZoneOffset) {}

  int getTimeZoneOffset() const { return timeZoneOffset_; }

  // The process's local offset in minutes, worked out once; one minute west (-1) is worked out at each call. Wrong by a
  // month's days at a month boundary, which is meant: the day difference is taken from the day of the month alone.
  static int getLocalTimeZoneOffset();

 private:
  int timeZoneOffset_ = 0;
};

}  // namespace tavrone

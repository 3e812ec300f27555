#pragma once

#include <cstddef>

#include "tavrone/core/tvstring.h"

namespace tavrone {

struct TimeDefs {
  static constexpr int SECONDS_IN_MINUTE = 60;
  static constexpr int SECONDS_IN_HOUR = 3600;
  static constexpr int SECONDS_IN_DAY = 86400;
  static constexpr int SECONDS_IN_WEEK = 604800;
};

// A duration, or a date as whole days since the start of the Julian day count. Never negative: see operator-.
class TAVRONE_API TimeSpan {
 public:
  TimeSpan() = default;
  TimeSpan(long long seconds) : TimeSpan(seconds, 0) {}
  TimeSpan(long long seconds, int milliseconds) : seconds_(seconds), milliseconds_(milliseconds) {}
  // Sums the absolute values of the first four.
  TimeSpan(int days, int hours, int minutes, int seconds, int milliseconds);

  // Whole days of the span; then what remains of the larger unit.
  long long days() const;
  int hours() const;
  int minutes() const;
  int seconds() const;
  long long getTotalSeconds() const { return seconds_; }
  int getMilliseconds() const { return milliseconds_; }

  bool operator==(TimeSpan const &other) const;
  bool operator!=(TimeSpan const &other) const;
  bool operator<(TimeSpan const &other) const;
  bool operator<=(TimeSpan const &other) const;
  bool operator>(TimeSpan const &other) const;
  bool operator>=(TimeSpan const &other) const;

  TimeSpan(TimeSpan const &) = default;
  TimeSpan &operator=(TimeSpan const &) = default;
  // Sets the seconds and clears the milliseconds.
  TimeSpan &operator=(int seconds);
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

  long long seconds_ = 0;
  int milliseconds_ = 0;
};

// A calendar date: Julian up to 4 October 1582, Gregorian from then on; years -4712 to 32767. The constructors do not
// validate.
class TAVRONE_API Date {
 public:
  Date() = default;  // 1 January of the year 0
  Date(int year, int month, int date) : year_(year), month_(month), date_(date) {}
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

  bool isValid() const;
  int dayOfWeek() const;  // 1 is Sunday, 7 Saturday
  TimeSpan getTimeSpan() const;
  tvstring toString() const;  // "%04d-%02d-%02d"

  static Date now();
  // The Julian day count of a date, as a span; the ten days dropped in October 1582 all pack to day 2299161.
  static TimeSpan pack(int year, int month, int date);
  static void unpack(TimeSpan const &span, int &year, int &month, int &date);
  static int daysInMonth(int year, int month);  // 21 for October 1582
  static bool isDayInMonth(int year, int month, int date);
  static bool isValidDate(int year, int month, int date);

 private:
  static bool isValidYear(int year);
  static bool isValidMonth(int month);
  static bool isLeapYear(int year);

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
  Time(TimeSpan const &span);

  int getHours() const { return hours_; }
  int getMinutes() const { return minutes_; }
  int getSeconds() const { return seconds_; }
  int getMilliseconds() const { return milliseconds_; }

  int compare(Time const &other) const;
  bool operator==(Time const &other) const { return compare(other) == 0; }
  bool operator!=(Time const &other) const { return compare(other) != 0; }
  bool operator<(Time const &other) const { return compare(other) < 0; }
  bool operator<=(Time const &other) const { return compare(other) <= 0; }
  bool operator>(Time const &other) const { return compare(other) > 0; }
  bool operator>=(Time const &other) const { return compare(other) >= 0; }

  bool isValid() const;
  TimeSpan getTimeSpan() const;
  tvstring toString() const;  // "%02d:%02d:%02d.%03d"

 private:
  static bool isValidHour(int hour);
  static bool isValidMinute(int minute);
  static bool isValidSecond(int second);
  static bool isValidMilliSecond(int millisecond);
  static bool isValidTime(int hours, int minutes, int seconds, int milliseconds);

  int hours_ = 0;
  int minutes_ = 0;
  int seconds_ = 0;
  int milliseconds_ = 0;
};

// A date and a time of day, with no zone. The constructors do not validate.
class TAVRONE_API DateTime {
 public:
  DateTime() = default;
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

  TimeSpan getTimeSpan() const;
  bool isValid() const { return date_.isValid() && time_.isValid(); }
  // Raises TransformRuntimeException "Illegal date <date>" or "Illegal time <time>"; the date is tested first.
  void validate() const;

  // Text by a pattern of DateStr; a negative year is written by its absolute value.
  tvstring toString(tvstring const &pattern) const;
  // Cut at size - 1 bytes and terminated.
  void asString(char *buffer, size_t size, char const *pattern) const;
  // Milliseconds since 1970-01-01 00:00:00, no zone applied.
  long long toTimestamp() const;

  // The local clock, and local midnight.
  static DateTime now();
  static DateTime today();
  // What the pattern does not name is taken from 1970-01-01 00:00:00.000; the result is validated.
  static DateTime fromString(char const *text, char const *pattern);
  // The reverse of toTimestamp; a negative argument is taken by its absolute value from the epoch down.
  static DateTime fromTimestamp(long long milliseconds);

 private:
  Date date_;
  Time time_;
};

// A DateTime with an offset from UTC in minutes.
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

  // The process's local offset in minutes, worked out once. Wrong by a month's days at a month boundary, which is meant:
  // the day difference is taken from the day of the month alone.
  static int getLocalTimeZoneOffset();

 private:
  int timeZoneOffset_ = 0;
};

}  // namespace tavrone

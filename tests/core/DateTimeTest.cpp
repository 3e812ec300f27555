#include "tavrone/core/DateTime.h"

#include <gtest/gtest.h>

#include <climits>
#include <ctime>
#include <string>

#include "tavrone/core/Exceptions.h"

namespace tavrone {
namespace {

std::string text(tvstring const &value) {
  return {value.data(), value.length()};
}

std::string text(Date const &value) {
  return text(value.toString());
}

std::string text(DateTime const &value) {
  return text(value.toString("yyyy-MM-ddTHH:mm:ss.SSS"));
}

std::string failureOf(DateTime const &value) {
  try {
    value.validate();
  } catch (TransformRuntimeException const &failure) {
    EXPECT_EQ(text(failure.getTrace().getFileName()), "cpp/date/DateTime");
    return text(failure.getMessage());
  }
  return "";
}

TEST(Date, KnowsTheLimitsAndBothCalendars) {
  struct {
    Date date;
    bool valid;
  } const cases[] = {{{2000, 2, 29}, true},  {{1900, 2, 29}, false},  {{1500, 2, 29}, true},    {{1582, 2, 29}, false},
                     {{1600, 2, 29}, true},  {{-4712, 1, 1}, true},   {{-4713, 12, 31}, false}, {{32767, 12, 31}, true},
                     {{32768, 1, 1}, false}, {{2001, 0, 1}, false},   {{2001, 13, 1}, false},   {{2001, 4, 30}, true},
                     {{2001, 4, 31}, false}, {{2001, 1, 0}, false},   {{1582, 10, 4}, true},    {{1582, 10, 10}, true},
                     {{1582, 10, 27}, true}, {{1582, 10, 28}, false}, {{1582, 10, 31}, false},  {{-4, 2, 29}, true},
                     {{2001, 1, -1}, false}};
  for (auto const &c : cases) EXPECT_EQ(c.date.isValid(), c.valid) << text(c.date);
  EXPECT_EQ(Date::daysInMonth(1582, 10), 21);
  EXPECT_EQ(Date::daysInMonth(2000, 2), 29);
  EXPECT_EQ(Date::daysInMonth(2001, 13), 0);
  EXPECT_TRUE(Date::isDayInMonth(2001, 13, 27));
  EXPECT_EQ(text(Date()), "0000-01-01");
  EXPECT_EQ(text(Date(-5, 1, 1)), "-005-01-01");
}

TEST(Date, PacksToTheJulianDayCount) {
  struct {
    Date date;
    long long day;
    int dayOfWeek;
  } const cases[] = {{{-4712, 1, 1}, 0, 2},        {{2000, 1, 1}, 2451545, 7},   {{1970, 1, 1}, 2440588, 5},
                     {{1582, 10, 4}, 2299160, 5},  {{1582, 10, 5}, 2299161, 6},  {{1582, 10, 10}, 2299161, 6},
                     {{1582, 10, 14}, 2299161, 6}, {{1582, 10, 15}, 2299161, 6}, {{1582, 10, 16}, 2299162, 7},
                     {{1, 1, 1}, 1721424, 7},      {{2026, 11, 22}, 2461367, 1}};
  for (auto const &c : cases) {
    EXPECT_EQ(c.date.getTimeSpan().days(), c.day) << text(c.date);
    EXPECT_EQ(c.date.dayOfWeek(), c.dayOfWeek) << text(c.date);
  }
}

TEST(Date, RoundTripsEveryValidDateOutsideTheGap) {
  long long last = -1;
  for (int year = -4712; year <= 32767; ++year) {
    for (int month = 1; month <= 12; ++month) {
      bool const gap = year == 1582 && month == 10;
      for (int date = 1; Date::isDayInMonth(year, month, date); ++date) {
        if (gap && date >= 5 && date <= 14) continue;
        TimeSpan const span = Date::pack(year, month, date);
        Date const back(span);
        ASSERT_TRUE(back == Date(year, month, date)) << year << ' ' << month << ' ' << date << " gives " << text(back);
        ASSERT_EQ(span.days(), gap && date == 15 ? 2299161 : last + 1) << text(back);
        last = span.days();
      }
      if (gap) last += 4;  // 28 to 31 October 1582 are days, yet not valid
    }
  }
}

TEST(Date, TakesDamagedNumbers) {
  EXPECT_EQ(Date::pack(INT_MAX, INT_MAX, INT_MAX).days(), 2147483648LL);
  EXPECT_EQ(Date::pack(INT_MIN, INT_MIN, INT_MIN).days(), 2147483648LL);
  EXPECT_EQ(Date(TimeSpan(LLONG_MAX)).getYear(), INT_MIN);
  EXPECT_EQ(Date(TimeSpan(LLONG_MIN)).getYear(), INT_MIN);
  EXPECT_EQ(text(Date(TimeSpan(-1LL * TimeDefs::SECONDS_IN_DAY))), "-4713-12-31");
  EXPECT_EQ(text(Date(INT_MIN, INT_MIN, INT_MIN)), "-2147483648--2147483648--2147483648");
}

TEST(TimeSpan, KeepsItsPeculiarities) {
  TimeSpan const absolute(-1, -2, 3, -4, -5);
  EXPECT_EQ(absolute.getTotalSeconds(), 86400 + 7200 + 180 + 4);
  EXPECT_EQ(absolute.getMilliseconds(), -5);
  EXPECT_EQ(TimeSpan(INT_MIN, INT_MIN, INT_MIN, INT_MIN, INT_MIN).getTotalSeconds(), 2147483648LL * 90061);

  struct {
    TimeSpan result;
    long long seconds;
    int milliseconds;
  } const cases[] = {
      {TimeSpan(5) - TimeSpan(7), 2, 0},
      {TimeSpan(5, 100) - TimeSpan(7, 300), 3, 800},
      {TimeSpan(5, 0) - TimeSpan(5, 2500), 3, 500},
      {TimeSpan(5, 1500) - TimeSpan(5), 0, 1500},
      {TimeSpan(5, 600) + TimeSpan(7, 600), 13, 200},
      {TimeSpan(5, 999) + TimeSpan(0), 5, 999},
      {TimeSpan(5, -600) + TimeSpan(7, 100), 12, -500},
      {TimeSpan(LLONG_MAX, 999) + TimeSpan(1, 999), LLONG_MAX, 998},
      {TimeSpan(LLONG_MIN) + TimeSpan(LLONG_MIN), LLONG_MIN, 0},
      {TimeSpan(LLONG_MAX) - TimeSpan(LLONG_MIN), LLONG_MAX, 0},
      {TimeSpan(0) - TimeSpan(LLONG_MIN), LLONG_MAX, 0},
      {TimeSpan(0, INT_MIN) - TimeSpan(0, INT_MAX), 4294968, 705},
      {TimeSpan(0, INT_MAX) - TimeSpan(0, INT_MIN), 4294967, 295},
      {TimeSpan(0, INT_MIN) + TimeSpan(0, INT_MIN), -4294967, -296},
  };
  for (auto const &c : cases) {
    EXPECT_EQ(c.result.getTotalSeconds(), c.seconds);
    EXPECT_EQ(c.result.getMilliseconds(), c.milliseconds) << c.seconds;
  }
  TimeSpan span(1, 500);
  span = 7;
  EXPECT_TRUE(span == TimeSpan(7) && span != TimeSpan(7, 1) && span < TimeSpan(7, 1) && span >= TimeSpan(6, 999));
}

TEST(TimeSpan, WritesCutAndTerminatedText) {
  TimeSpan const span(2, 3, 4, 5, 0);
  char buffer[64];
  span.asString(buffer, sizeof buffer);
  EXPECT_STREQ(buffer, "2 day(s), 3 hour(s), 4 minute(s), 5 second(s)");
  buffer[6] = 'x';
  span.asString(buffer, 6);
  EXPECT_STREQ(buffer, "2 day");
  EXPECT_EQ(buffer[6], 'x');
  span.asString(buffer, 0);
  EXPECT_STREQ(buffer, "2 day");
}

TEST(DateTime, ValidatesTheDateFirst) {
  EXPECT_EQ(failureOf({2001, 13, 1, 0, 0, 0, 0}), "Illegal date 2001-13-01");
  EXPECT_EQ(failureOf({2001, 13, 1, 24, 0, 0, 0}), "Illegal date 2001-13-01");
  EXPECT_EQ(failureOf({2001, 12, 1, 24, 0, 0, 0}), "Illegal time 24:00:00.000");
  EXPECT_EQ(failureOf({2001, 12, 1, 23, 60, 59, 999}), "Illegal time 23:60:59.999");
  EXPECT_EQ(failureOf({2001, 12, 1, 23, 59, 60, 1}), "Illegal time 23:59:60.001");
  EXPECT_EQ(failureOf({2001, 12, 1, 23, 59, 59, 1000}), "Illegal time 23:59:59.1000");
  EXPECT_EQ(failureOf({2001, 12, 1, 23, 59, 59, 999}), "");
}

TEST(DateTime, AddsSubtractsAndCompares) {
  DateTime const value(2000, 2, 28, 23, 59, 59, 999);
  EXPECT_EQ(text(value + TimeSpan(0, 1)), "2000-02-29T00:00:00.000");
  EXPECT_EQ(text(value - TimeSpan(1, 0, 0, 0, 0)), "2000-02-27T23:59:59.999");
  EXPECT_EQ(text(DateTime(1582, 10, 4, 0, 0, 0, 0) + TimeSpan(TimeDefs::SECONDS_IN_DAY)), "1582-10-15T00:00:00.000");
  EXPECT_TRUE(DateTime(2000, 3, 1, 0, 0, 0, 0) - value == TimeSpan(86401 + 1, 1));
  EXPECT_TRUE(value < DateTime(2000, 2, 29, 0, 0, 0, 0) && value > DateTime(2000, 2, 28, 23, 59, 59, 998));
  EXPECT_TRUE(value <= value && value >= value && value != DateTime());
}

TEST(DateTime, CountsMillisecondsFromTheEpoch) {
  struct {
    long long timestamp;
    char const *date;
  } const cases[] = {{0, "1970-01-01T00:00:00.000"},
                     {951827696789, "2000-02-29T12:34:56.789"},
                     {-1, "1970-01-01T00:00:01.999"},
                     {-86400000, "1969-12-31T00:00:00.000"},
                     {-86399500, "1969-12-31T00:00:02.500"}};
  for (auto const &c : cases) EXPECT_EQ(text(DateTime::fromTimestamp(c.timestamp)), c.date);
  EXPECT_EQ(DateTime(2000, 2, 29, 12, 34, 56, 789).toTimestamp(), 951827696789);
  EXPECT_EQ(DateTime(1969, 12, 31, 0, 0, 0, 0).toTimestamp(), 86400000);
  EXPECT_EQ(DateTime::fromTimestamp(LLONG_MAX).getYear(), 292278994);
  EXPECT_EQ(DateTime::fromTimestamp(LLONG_MIN).getMilliseconds(), 192);
  DateTime(INT_MAX, INT_MAX, INT_MAX, INT_MIN, INT_MIN, INT_MIN, INT_MIN).toTimestamp();
}

TEST(DateTime, ReadsTheLocalClock) {
  time_t const before = std::time(nullptr);
  DateTime const now = DateTime::now();
  time_t const after = std::time(nullptr);
  tm local{};
  local.tm_year = now.getYear() - 1900;
  local.tm_mon = now.getMonth() - 1;
  local.tm_mday = now.getDate();
  local.tm_hour = now.getHours();
  local.tm_min = now.getMinutes();
  local.tm_sec = now.getSeconds();
  local.tm_isdst = -1;
  time_t const read = std::mktime(&local);
  EXPECT_LE(before, read);
  EXPECT_LE(read, after);
  EXPECT_TRUE(DateTime::today().getTimePortion() == Time());
  EXPECT_TRUE(DateTime::today() <= DateTime::now());
}

TEST(ISODateTime, CarriesAnOffset) {
  DateTime const value(2001, 2, 3, 4, 5, 6, 7);
  EXPECT_EQ(ISODateTime(value).getTimeZoneOffset(), 0);
  EXPECT_EQ(ISODateTime(value, -330).getTimeZoneOffset(), -330);
  EXPECT_TRUE(ISODateTime(value, -330) == value);
  int const offset = ISODateTime::getLocalTimeZoneOffset();
  EXPECT_EQ(offset, ISODateTime::getLocalTimeZoneOffset());
}

}  // namespace
}  // namespace tavrone

#include "tavrone/core/DateTime.h"

#include <gtest/gtest.h>

#include <climits>
#include <ctime>

#include "tests/Failure.h"

namespace tavrone {
namespace {

std::string text(Date const &value) {
  return str(value.toString());
}
std::string text(DateTime const &value) {
  return str(value.toString("yyyy-MM-ddTHH:mm:ss.SSS"));
}

TEST(Date, KnowsTheLimitsAndBothCalendars) {
  Date const valid[] = {{2000, 2, 29},   {1500, 2, 29}, {1600, 2, 29}, {-4, 2, 29},    {-4712, 1, 1},
                        {32767, 12, 31}, {2001, 4, 30}, {1582, 10, 4}, {1582, 10, 10}, {1582, 10, 27}};
  Date const invalid[] = {{1900, 2, 29}, {1582, 2, 29}, {-4713, 12, 31}, {32768, 1, 1},  {2001, 0, 1},  {2001, 13, 1},
                          {2001, 4, 31}, {2001, 1, 0},  {2001, 1, -1},   {1582, 10, 28}, {1582, 10, 31}};
  for (Date const &date : valid) EXPECT_TRUE(date.isValid()) << text(date);
  for (Date const &date : invalid) EXPECT_FALSE(date.isValid()) << text(date);
  EXPECT_TRUE(Date::daysInMonth(1582, 10) == 21 && Date::daysInMonth(2001, 13) == 0 &&
              Date::isDayInMonth(2001, 13, 27));
  EXPECT_EQ(text(Date()) + text(Date(-5, 1, 1)), "0000-01-01-005-01-01");
}

TEST(Date, PacksToTheJulianDayCount) {
  struct {
    Date date;
    long long day;
    int dayOfWeek;
  } const cases[] = {{{-4712, 1, 1}, 0, 2},        {{2000, 1, 1}, 2451545, 7},   {{1970, 1, 1}, 2440588, 5},
                     {{1582, 10, 4}, 2299160, 5},  {{1582, 10, 5}, 2299161, 6},  {{1582, 10, 14}, 2299161, 6},
                     {{1582, 10, 15}, 2299161, 6}, {{1582, 10, 16}, 2299162, 7}, {{2026, 11, 22}, 2461367, 1}};
  for (auto const &c : cases) {
    EXPECT_EQ(c.date.getTimeSpan().days(), c.day) << text(c.date);
    EXPECT_EQ(c.date.dayOfWeek(), c.dayOfWeek) << text(c.date);
  }
}

TEST(Date, CountsEveryValidDayAndFindsItAgain) {
  long long last = -1;
  for (int year = -4712; year <= 32767; ++year) {
    for (int month = 1; month <= 12; ++month) {
      bool const gap = year == 1582 && month == 10;
      for (int date = 1; Date::isDayInMonth(year, month, date); ++date) {
        if (gap && date >= 5 && date <= 14) continue;
        TimeSpan const span = Date::pack(year, month, date);
        ASSERT_TRUE(Date(span) == Date(year, month, date)) << text(Date(span));
        ASSERT_EQ(span.days(), ++last) << text(Date(span));
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
  TimeSpan assigned(1, 500);
  assigned = 7;
  struct {
    TimeSpan result;
    long long seconds;
    int milliseconds;
  } const cases[] = {
      {assigned, 7, 0},
      {TimeSpan(-1, -2, 3, -4, -5), 86400 + 7200 + 180 + 4, -5},
      {TimeSpan(INT_MIN, INT_MIN, INT_MIN, INT_MIN, INT_MIN), 2147483648LL * 90061, INT_MIN},
      {TimeSpan(5) - TimeSpan(7), 2, 0},
      {TimeSpan(5, 100) - TimeSpan(7, 300), 3, 800},
      {TimeSpan(5, 0) - TimeSpan(5, 2500), 3, 500},
      {TimeSpan(5, 1500) - TimeSpan(5), 0, 1500},
      {TimeSpan(5, 600) + TimeSpan(7, 600), 13, 200},
      {TimeSpan(5, -600) + TimeSpan(7, 100), 12, -500},
      {TimeSpan(LLONG_MAX, 999) + TimeSpan(1, 999), LLONG_MAX, 998},
      {TimeSpan(LLONG_MIN) + TimeSpan(LLONG_MIN), LLONG_MIN, 0},
      {TimeSpan(LLONG_MAX) - TimeSpan(LLONG_MIN), LLONG_MAX, 0},
      {TimeSpan(0) - TimeSpan(LLONG_MIN), LLONG_MAX, 0},
      {TimeSpan(0, INT_MIN) - TimeSpan(0, INT_MAX), 4294968, 705},
      {TimeSpan(0, INT_MAX) - TimeSpan(0, INT_MIN), 4294967, 295},
      {TimeSpan(0, INT_MIN) + TimeSpan(0, INT_MIN), -4294967, -296},
  };
  for (auto const &c : cases) EXPECT_TRUE(c.result == TimeSpan(c.seconds, c.milliseconds)) << &c - cases;
  EXPECT_TRUE(assigned != TimeSpan(7, 1) && assigned < TimeSpan(7, 1) && assigned >= TimeSpan(6, 999));
}

TEST(TimeSpan, WritesCutAndTerminatedText) {
  char buffer[64] = "";
  std::pair<size_t, char const *> const cases[] = {
      {0, ""}, {6, "2 day"}, {sizeof buffer, "2 day(s), 3 hour(s), 4 minute(s), 5 second(s)"}};
  for (auto const &[size, written] : cases) {
    TimeSpan(2, 3, 4, 5, 0).asString(buffer, size);
    EXPECT_STREQ(buffer, written);
  }
}

TEST(DateTime, ValidatesTheDateFirst) {
  std::pair<DateTime, std::string> const cases[] = {{{2001, 13, 1, 24, 0, 0, 0}, "Illegal date 2001-13-01"},
                                                    {{2001, 12, 1, 24, 0, 0, 0}, "Illegal time 24:00:00.000"},
                                                    {{2001, 12, 1, 23, 60, 59, 999}, "Illegal time 23:60:59.999"},
                                                    {{2001, 12, 1, 23, 59, 60, 1}, "Illegal time 23:59:60.001"},
                                                    {{2001, 12, 1, 23, 59, 59, 1000}, "Illegal time 23:59:59.1000"},
                                                    {{2001, 12, 1, 23, 59, 59, 999}, ""}};
  for (auto const &[value, text] : cases) {
    Failure const failure = failureOf<TransformRuntimeException>([&v = value] { v.validate(); });
    EXPECT_EQ(failure.source + failure.text, text.empty() ? "" : "cpp/date/DateTime" + text);
  }
}

TEST(DateTime, AddsSubtractsAndCompares) {
  DateTime const value(2000, 2, 28, 23, 59, 59, 999);
  EXPECT_EQ(text(value + TimeSpan(0, 1)), "2000-02-29T00:00:00.000");
  EXPECT_EQ(text(value - TimeSpan(1, 0, 0, 0, 0)), "2000-02-27T23:59:59.999");
  EXPECT_EQ(text(DateTime(1582, 10, 4, 0, 0, 0, 0) + TimeSpan(TimeDefs::SECONDS_IN_DAY)), "1582-10-15T00:00:00.000");
  EXPECT_TRUE(DateTime(2000, 3, 1, 0, 0, 0, 0) - value == TimeSpan(86401 + 1, 1));
  EXPECT_TRUE(value < DateTime(2000, 2, 29, 0, 0, 0, 0) && value > DateTime(2000, 2, 28, 23, 59, 59, 998));
  EXPECT_TRUE(value <= value && value >= value && value != DateTime());
  ISODateTime const west(value, -330);
  EXPECT_TRUE(west == value && west.getTimeZoneOffset() == -330 && ISODateTime(value).getTimeZoneOffset() == 0);
}

TEST(DateTime, CountsMillisecondsFromTheEpoch) {
  struct {
    long long timestamp;
    char const *date;
    long long back;
  } const cases[] = {{0, "1970-01-01T00:00:00.000", 0},
                     {951827696789, "2000-02-29T12:34:56.789", 951827696789},
                     {-1, "1970-01-01T00:00:01.999", 1999},
                     {-86400000, "1969-12-31T00:00:00.000", 86400000},
                     {-86399500, "1969-12-31T00:00:02.500", 86398500}};
  for (auto const &c : cases) {
    DateTime const value = DateTime::fromTimestamp(c.timestamp);
    EXPECT_EQ(text(value), c.date);
    EXPECT_EQ(value.toTimestamp(), c.back) << c.date;
  }
  EXPECT_EQ(DateTime::fromTimestamp(LLONG_MAX).getYear(), 292278994);
  EXPECT_EQ(DateTime::fromTimestamp(LLONG_MIN).getMilliseconds(), 192);
  DateTime(INT_MAX, INT_MAX, INT_MAX, INT_MIN, INT_MIN, INT_MIN, INT_MIN).toTimestamp();
}

TEST(DateTime, ReadsTheLocalClock) {
  auto const clock = [] {
    time_t const seconds = std::time(nullptr);
    tm local{};
    localtime_r(&seconds, &local);
    return DateTime(local.tm_year + 1900, local.tm_mon + 1, local.tm_mday, local.tm_hour, local.tm_min, local.tm_sec,
                    0);
  };
  DateTime const before = clock(), now = DateTime::now(), after = clock();
  EXPECT_TRUE(before <= now && now <= after + TimeSpan(1)) << text(now);
  EXPECT_TRUE(DateTime::today().getTimePortion() == Time() && DateTime::today() <= DateTime::now());
}

}  // namespace
}  // namespace tavrone

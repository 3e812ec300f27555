#include "tavrone/core/DateStr.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <climits>
#include <random>

#include "tavrone/core/DateTime.h"
#include "tests/Cases.h"
#include "tests/Failure.h"
#include "tests/core/DatePatternReference.h"

namespace tavrone {
namespace {

using Text = std::string;

// What `run` gives, or the failure's text; a failure that isn't the pattern language's own has its source before it.
template <class Run>
Text orFailure(Run run) {
  Text result;
  Failure const failure = failureOf<TransformRuntimeException>([&] { result = str(run()); });
  return result + (failure.source.empty() || failure.source == "cpp/date/DateStr" ? "" : failure.source + ": ") +
         failure.text;
}

TEST(DateStr, FormatsEveryRun) {
  DateTime const value(2009, 5, 7, 3, 59, 8, 6);
  struct {
    DateTime value;
    char const *pattern, *result;
  } const cases[] = {
      {value, "", ""},
      {value, "H HH HHH d dd ddd m mm mmm s ss sss", "03 03 03 07 07 07 59 59 59 08 08 08"},
      {value, "S SS SSS SSSS|M MM MMM MMMM MMMMM", "006 006 006 006|05 05 May May May"},
      {value, "y yy yyy yyyy yyyyy", "09 09 09 2009 09"},
      {value, "'quoted' D h E-- T", "'quote07' D h E-- T"},
      {{2002, 12, 25, 0, 0, 0, 0}, "MMM MMMM", "Dec December"},
      {{21, 1, 1, 0, 0, 0, 0}, "yyyy yy", "0021 21"},
      {{12345, 1, 1, 0, 0, 0, 0}, "yyyy yy", "12345 45"},
      {{-44, 3, 15, 0, 0, 0, 0}, "yyyy yy", "0044 44"},
      {{2099, 99, 60, 100, -1, 0, 1234}, "yy MM dd H m S", "99 99 60 100 -1 1234"},
      {{INT_MIN, INT_MIN, INT_MIN, 0, 0, 0, -1}, "yyyy MM dd S", "2147483648 -2147483648 -2147483648 -01"},
      {{2001, 13, 1, 0, 0, 0, 0}, "MMM", "Illegal date 2001-13-01"},
      {{-5, 0, 1, 0, 0, 0, 0}, "MMMM", "Illegal date -005-00-01"},
  };
  for (auto const &c : cases) EXPECT_EQ(orFailure([&] { return c.value.toString(c.pattern); }), c.result) << c.pattern;
}

TEST(DateStr, CutsAndTerminates) {
  DateTime const value(2001, 2, 3, 4, 5, 6, 7);
  for (char const *pattern : {"yyyy-MM-ddTHH:mm:ss", "yyyy-MM-dd..........", "yyyyMMMMdd"}) {
    Text const whole = str(value.toString(pattern));
    for (size_t size = 1; size <= whole.size() + 2; ++size) {
      Text buffer(whole.size() + 4, '#');
      size_t const length = value.asString(buffer.data(), size, pattern);
      EXPECT_EQ(length, std::min(size - 1, whole.size()));
      EXPECT_EQ(buffer, whole.substr(0, length) + '\0' + Text(buffer.size() - length - 1, '#'));
    }
  }
  char untouched = '#';
  EXPECT_EQ(value.asString(&untouched, 0, "yyyy") + static_cast<size_t>(untouched), size_t{'#'});
  EXPECT_EQ(value.toString(tvstring(300, '-')).length(), 255u);
  EXPECT_EQ(value.toString(tvstring("yyyy\0dd", 7)), tvstring("2001\00003", 7));
}

TEST(DateStr, ReadsByThePattern) {
  auto const read = [](auto &in) {
    Text value, pattern;
    std::getline(std::getline(in, value, '|'), pattern);
    return orFailure(
        [&] { return DateTime::fromString(value.c_str(), pattern.c_str()).toString("yyyy-MM-ddTHH:mm:ss.SSS"); });
  };
  expectEach(
      {"20010203-04:05:06.789|yyyyMMdd-HH:mm:ss.SSS -> 2001-02-03T04:05:06.789", "| -> 1970-01-01T00:00:00.000",
       "69|yy -> 2069-01-01T00:00:00.000", "70|yy -> 1970-01-01T00:00:00.000", "2001|yyyyy -> 2001-01-01T00:00:00.000",
       "jan 25, 2002|MMM dd, yyyy -> 2002-01-25T00:00:00.000", "sEPTEMBER 25|MMMM dd -> 1970-09-25T00:00:00.000",
       "Mayx|MMMMx -> 1970-05-01T00:00:00.000", "789|S -> 1970-01-01T00:00:00.789", "7:|SS -> 1970-01-01T00:00:00.007",
       "1x:5|HH:mm -> 1970-01-01T01:05:00.000", "01|ddHHmmss -> 1970-01-01T00:00:00.000"},
      read);
  expectEach({"1|y -> Illegal year pattern in 'y'. At least 2 y's expected.",
              "101|yyydd -> Illegal year pattern in 'yyydd'. Only patterns 'yy' and 'yyyy' are supported.",
              "1|M -> Illegal month pattern in 'M'. At least 2 M's expected.",
              "1|ddd -> Illegal date pattern in 'ddd'. Only pattern 'dd' is supported.",
              "1|H -> Illegal hour pattern in 'H'. Only pattern 'HH' is supported.",
              "1|m -> Illegal minute pattern in 'm'. Only pattern 'mm' is supported.",
              "1|sss -> Illegal seconds pattern in 'sss'. Only pattern 'ss' is supported.",
              "1|SSSS -> Illegal milli-seconds pattern in 'SSSS'. Only pattern 'SSS' is supported."},
             read);
  expectEach(
      {"1|dd yyy -> Error parsing date string, expected pattern 'dd yyy' found ''",
       "25-jam|dd-MMM -> Error parsing month part of date string, expected pattern 'dd-MMM' found '25-jam'",
       "Sept|MMMM -> Error parsing month part of date string, expected pattern 'MMMM' found 'Sept'",
       "x|ddMMM -> Error parsing month part of date string, expected pattern 'ddMMM' found 'x'",
       "2001/02|yyyy-MM -> Error parsing date string, expected pattern 'yyyy-MM' found '/02'",
       "1|HH:mm -> Error parsing date string, expected pattern 'HH:mm' found ''",
       "20010203x|yyyyMMdd -> Additional characters at the end of date string, expected pattern 'yyyyMMdd' found 'x'",
       "2001|yyyyMMdd -> cpp/date/DateTime: Illegal date 2001-00-00",
       "24:00:00|HH:mm:ss -> cpp/date/DateTime: Illegal time 24:00:00.000"},
      read);
}

TEST(DateStr, ReadsViewsWithoutATerminator) {
  tvstring const line("1120010203445"), patterns("xxyyyyMMddxx");
  DateTime const value = DateTime::fromString(line.substr(2, 8), patterns.substr(2, 8));
  EXPECT_TRUE(value == DateTime(2001, 2, 3, 0, 0, 0, 0));
  EXPECT_EQ(value.toString(patterns.substr(2, 6)), "200102");
}

// The shortcuts of the common patterns against the machine for any pattern, over texts and values with flaws.
TEST(DateStr, ShortcutsChangeNothing) {
  std::mt19937 random(1);
  auto const below = [&](size_t n) { return static_cast<int>(random() % n); };
  for (Text const pattern : COMMON_PATTERNS) {
    for (int round = 0; round < 2000; ++round) {
      BrokenDownTime const time{below(1100), below(70) - 5, below(70) - 5,     below(30) - 3,
                                below(64),   below(70) - 5, below(11000) - 500};
      char out[64];
      Text value(out, DateStr::formatAnyPattern(out, sizeof out, pattern.data(), pattern.size(), time));
      for (int flaws = below(3); flaws > 0; --flaws)
        value[static_cast<size_t>(below(value.size()))] = "09:/- \xff"[below(7)];
      if (below(3) == 0) value.resize(static_cast<size_t>(below(value.size() + 1)));
      size_t const size = round % 2 == 0 ? 64 : static_cast<size_t>(below(30));
      EXPECT_TRUE(shortcutsChangeNothing(value, pattern, time, size)) << pattern << ' ' << value;
    }
  }
}

}  // namespace
}  // namespace tavrone

#pragma once

#include <cstddef>
#include <string_view>

#include "tavrone/core/Export.h"

namespace tavrone {

// A point in time taken apart, as the patterns name its members.
struct BrokenDownTime {
  int millisecond = 0;
  int second = 0;
  int minute = 0;
  int hour = 0;
  int dayOfMonth = 1;
  int month = 0;  // 0 to 11
  int year = 1970;
};

// The pattern language of dates: runs of "y", "M", "d", "H", "m", "s" and "S"; every other character stands for itself,
// and there is no quoting. The formatter and the parser differ on purpose in which runs they accept: the formatter
// takes any, the parser is strict.
//
// Texts and patterns are exactly the given bytes, no terminator needed. Neither direction allocates, but for failures,
// which are TransformRuntimeExceptions with the trace "cpp/date/DateStr".
class TAVRONE_API DateStr {
 public:
  // The three-letter name is the beginning of the full one. No pattern letter gives the names of days.
  static constexpr std::string_view MONTH_NAMES[12] = {"January",   "February", "March",    "April",
                                                       "May",       "June",     "July",     "August",
                                                       "September", "October",  "November", "December"};
  static constexpr std::string_view DAY_NAMES[7] = {"Sunday",   "Monday", "Tuesday", "Wednesday",
                                                    "Thursday", "Friday", "Saturday"};

  // Writes the time into out, cut at size - 1 bytes and terminated; returns the length written, 0 for a size of 0.
  //   runs of H, d, m, s  two digits         M, MM   month number, two digits
  //   runs of S           three digits       MMM     "Jan" to "Dec"; longer runs "January" to "December"
  //   yyyy                four digits, five beyond 9999; any other run of y the last two digits
  // A negative year is written by its absolute value. Raises "Illegal date <date>" for the name of a month outside 0
  // to 11.
  static size_t format(char *out, size_t size, char const *pattern, size_t patternLength, BrokenDownTime const &time);

  // Reads the text by the pattern and overwrites those members of `time` that the pattern names.
  //   dd, HH, mm, ss  two digits             MM      two digits
  //   S to SSS        three digits           MMM     "Jan" to "Dec" in any case; longer runs full names
  //   yy              1970 to 2069           yyyy    four digits, longer runs too
  // Reading a digit field stops early at what is no digit, but the position always moves by the whole width, also past
  // the end: short fields show up in the next literal, at the end, or when the date is validated.
  static void parse(char const *text, size_t length, char const *pattern, size_t patternLength, BrokenDownTime &time);

  // The machines for any pattern. The two above have shortcuts for flawless values of the common patterns and come here
  // for the rest; results are the same.
  static size_t formatAnyPattern(char *out, size_t size, char const *pattern, size_t patternLength,
                                 BrokenDownTime const &time);
  static void parseAnyPattern(char const *text, size_t length, char const *pattern, size_t patternLength,
                              BrokenDownTime &time);
};

}  // namespace tavrone

#pragma once

#include "tavrone/core/DateTime.h"

namespace tavrone {

// Dates for formulas, with the calendar, the limits and the peculiarities of Date and DateTime. Offsets from UTC are
// minutes, east positive; there is no data base of zones. Nothing validates but isValid, parse and isDate.
class TAVRONE_API DateFunctions {
 public:
  // The local clock, and local midnight.
  static DateTime now() { return DateTime::now(); }
  static DateTime today() { return DateTime::today(); }
  static DateTime create(int year, int month, int date, int hours, int minutes, int seconds, int milliseconds) {
    return DateTime(year, month, date, hours, minutes, seconds, milliseconds);
  }

  static int year(DateTime const &value) { return value.getYear(); }
  static int month(DateTime const &value) { return value.getMonth(); }  // 1 to 12
  static int day(DateTime const &value) { return value.getDate(); }     // of the month
  static int hour(DateTime const &value) { return value.getHours(); }
  static int minute(DateTime const &value) { return value.getMinutes(); }
  static int second(DateTime const &value) { return value.getSeconds(); }
  static int millisecond(DateTime const &value) { return value.getMilliseconds(); }
  // 1 is Sunday, 7 Saturday.
  static int dayOfWeek(DateTime const &value) { return value.getDatePortion().dayOfWeek(); }
  static bool isWeekend(DateTime const &value);
  // 1 is 1 January; the days dropped in October 1582 don't count.
  static int dayOfYear(DateTime const &value);
  // As Date has it: 0 for a month outside 1 to 12, 21 for October 1582.
  static int daysInMonth(int year, int month) { return Date::daysInMonth(year, month); }
  static bool isValid(int year, int month, int date) { return Date::isValidDate(year, month, date); }

  // Any number, negative ones go back. Months and years keep the day, or take the month's last one where it has no such
  // day; the value is unchanged if the year would be past an int.
  static DateTime addYears(DateTime const &value, int years);
  static DateTime addMonths(DateTime const &value, int months);
  static DateTime addDays(DateTime const &value, int days);
  static DateTime addHours(DateTime const &value, int hours);
  static DateTime addMinutes(DateTime const &value, int minutes);
  static DateTime addSeconds(DateTime const &value, int seconds);
  static DateTime addMilliseconds(DateTime const &value, int milliseconds);

  // Whole units from the first to the second, cut towards zero; negative if the second is earlier. A month is whole
  // when addMonths(first, 1) is reached, a year is twelve months.
  static int yearsBetween(DateTime const &first, DateTime const &second);
  static int monthsBetween(DateTime const &first, DateTime const &second);
  static int daysBetween(DateTime const &first, DateTime const &second);
  static long long secondsBetween(DateTime const &first, DateTime const &second);
  static long long millisecondsBetween(DateTime const &first, DateTime const &second);

  static bool equal(DateTime const &a, DateTime const &b) { return a == b; }
  static bool notEqual(DateTime const &a, DateTime const &b) { return a != b; }
  static bool less(DateTime const &a, DateTime const &b) { return a < b; }
  static bool lessEqual(DateTime const &a, DateTime const &b) { return a <= b; }
  static bool greater(DateTime const &a, DateTime const &b) { return a > b; }
  static bool greaterEqual(DateTime const &a, DateTime const &b) { return a >= b; }
  static DateTime min(DateTime const &a, DateTime const &b) { return b < a ? b : a; }
  static DateTime max(DateTime const &a, DateTime const &b) { return a < b ? b : a; }

  // Midnight of the day; the time of day on 1970-01-01, as times without a date are read.
  static DateTime datePart(DateTime const &value) { return DateTime(value.getDatePortion(), Time()); }
  static DateTime timePart(DateTime const &value) { return DateTime(Date(1970, 1, 1), value.getTimePortion()); }
  // The time of day stays. The month's last day is that of daysInMonth.
  static DateTime firstDayOfMonth(DateTime const &value);
  static DateTime lastDayOfMonth(DateTime const &value);

  // By the patterns of DateStr. parse raises TransformRuntimeException with the row SRT563 for what does not fit the
  // pattern or is no date; isDate tells whether it would.
  static DateTime parse(tvstring const &text, tvstring const &pattern);
  static tvstring toText(DateTime const &value, tvstring const &pattern) { return value.toString(pattern); }
  static bool isDate(tvstring const &text, tvstring const &pattern);

  // The same clock, said to be at the offset.
  static ISODateTime withOffset(DateTime const &value, int minutes) { return ISODateTime(value, minutes); }
  // The same moment at another offset.
  static ISODateTime toOffset(ISODateTime const &value, int minutes);
  static DateTime toUTC(ISODateTime const &value) { return toOffset(value, 0); }
  static DateTime toLocal(ISODateTime const &value) { return toOffset(value, localOffset()); }
  static DateTime convert(DateTime const &value, int from, int to);
  static int offset(ISODateTime const &value) { return value.getTimeZoneOffset(); }
  // As ISODateTime works it out.
  static int localOffset() { return ISODateTime::getLocalTimeZoneOffset(); }

  // Milliseconds from 1970-01-01, no zone applied, with DateTime's peculiarities before it.
  static long long toTimestamp(DateTime const &value) { return value.toTimestamp(); }
  static DateTime fromTimestamp(long long milliseconds) { return DateTime::fromTimestamp(milliseconds); }
};

}  // namespace tavrone

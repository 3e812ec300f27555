#pragma once

#include "tavrone/core/DateTime.h"
#include "tavrone/core/tvstring.h"

namespace tavrone {

// Dates, times and booleans as tag=value text holds them. A format... operation writes the text into `out` and returns
// it. Dates that do not fit their pattern fail as Parsing::parseDate does.
template <class Format>
class TAVRONE_API TagValueType {
 public:
  // "yyyyMMdd-HH:mm:ss", with ".SSS" behind it if the text has a '.', or the value milliseconds.
  static DateTime parseUTCTimestamp(tvstring const &text);
  static tvstring &formatUTCTimestamp(DateTime const &value, tvstring &out);
  // "HH:mm:ss", with ".SSS" under the same rule.
  static DateTime parseUTCTimeOnly(tvstring const &text);
  static tvstring &formatUTCTimeOnly(DateTime const &value, tvstring &out);
  static DateTime parseLocalMktTimeOnly(tvstring const &text) { return parseUTCTimeOnly(text); }
  static tvstring &formatLocalMktTimeOnly(DateTime const &value, tvstring &out) {
    return formatUTCTimeOnly(value, out);
  }
  // "yyyyMMdd".
  static DateTime parseUTCDate(tvstring const &text);
  static tvstring &formatUTCDate(DateTime const &value, tvstring &out);
  static DateTime parseLocalMktDate(tvstring const &text) { return parseUTCDate(text); }
  static tvstring &formatLocalMktDate(DateTime const &value, tvstring &out) { return formatUTCDate(value, out); }
  // "yyyyMMdd-HH:mm:ss", milliseconds are neither read nor written.
  static DateTime parseLocalMktTimestamp(tvstring const &text);
  static tvstring &formatLocalMktTimestamp(DateTime const &value, tvstring &out);
  // "yyyyMM".
  static DateTime parsemonth_year(tvstring const &text);
  static tvstring &formatmonth_year(DateTime const &value, tvstring &out);

  // Milliseconds since 1970 in decimal, by DateTime::fromTimestamp and DateTime::toTimestamp.
  static DateTime parseUTCTimestamp_int64(tvstring const &text);
  static DateTime parseUTCTimestamp_int64(long long milliseconds) { return DateTime::fromTimestamp(milliseconds); }
  static tvstring &formatUTCTimestamp_int64(DateTime const &value, tvstring &out);

  // By the first character alone: 'Y' or 'N'. Raises the Format's ParsingException "Illegal boolean value, it can't be
  // empty" or "Illegal boolean value <text>" with its TYPE_SOURCE.
  static bool parseBoolean(tvstring const &text);
  static bool parseBoolean_4_1(tvstring const &text) { return parseBoolean(text); }
  // "Y" or "N".
  static tvstring &formatBoolean(bool value, tvstring &out);
  static tvstring &formatBoolean_4_1(bool value, tvstring &out) { return formatBoolean(value, out); }
};

}  // namespace tavrone

#include "tavrone/fix/TagValueType.h"

#include "tavrone/core/Parsing.h"
#include "tavrone/core/Raise.h"
#include "tavrone/fix/FIXType.h"
#include "tavrone/siaccanonical/SIACCanonicalType.h"

namespace tavrone {

namespace {

constinit tvstringliteral const DATE("yyyyMMdd");
constinit tvstringliteral const MONTH("yyyyMM");
constinit tvstringliteral const TIME("HH:mm:ss");
constinit tvstringliteral const TIME_MILLIS("HH:mm:ss.SSS");
constinit tvstringliteral const TIMESTAMP("yyyyMMdd-HH:mm:ss");
constinit tvstringliteral const TIMESTAMP_MILLIS("yyyyMMdd-HH:mm:ss.SSS");
constinit tvstringliteral const YES("Y");
constinit tvstringliteral const NO("N");

// The second pattern is the first with milliseconds.
DateTime parseTime(tvstring const &text, tvstring const &pattern, tvstring const &patternWithMillis) {
  return Parsing::parseDate(text, text.find('.') == tvstring::npos ? pattern : patternWithMillis);
}
tvstring &formatTime(DateTime const &value, tvstring const &pattern, tvstring const &patternWithMillis, tvstring &out) {
  return Parsing::formatDate(value, value.getMilliseconds() > 0 ? patternWithMillis : pattern, out);
}

}  // namespace

template <class Format>
DateTime TagValueType<Format>::parseUTCTimestamp(tvstring const &text) {
  return parseTime(text, TIMESTAMP, TIMESTAMP_MILLIS);
}
template <class Format>
tvstring &TagValueType<Format>::formatUTCTimestamp(DateTime const &value, tvstring &out) {
  return formatTime(value, TIMESTAMP, TIMESTAMP_MILLIS, out);
}

template <class Format>
DateTime TagValueType<Format>::parseUTCTimeOnly(tvstring const &text) {
  return parseTime(text, TIME, TIME_MILLIS);
}
template <class Format>
tvstring &TagValueType<Format>::formatUTCTimeOnly(DateTime const &value, tvstring &out) {
  return formatTime(value, TIME, TIME_MILLIS, out);
}

template <class Format>
DateTime TagValueType<Format>::parseUTCDate(tvstring const &text) {
  return Parsing::parseDate(text, DATE);
}
template <class Format>
tvstring &TagValueType<Format>::formatUTCDate(DateTime const &value, tvstring &out) {
  return Parsing::formatDate(value, DATE, out);
}

template <class Format>
DateTime TagValueType<Format>::parseLocalMktTimestamp(tvstring const &text) {
  return Parsing::parseDate(text, TIMESTAMP);
}
template <class Format>
tvstring &TagValueType<Format>::formatLocalMktTimestamp(DateTime const &value, tvstring &out) {
  return Parsing::formatDate(value, TIMESTAMP, out);
}

template <class Format>
DateTime TagValueType<Format>::parsemonth_year(tvstring const &text) {
  return Parsing::parseDate(text, MONTH);
}
template <class Format>
tvstring &TagValueType<Format>::formatmonth_year(DateTime const &value, tvstring &out) {
  return Parsing::formatDate(value, MONTH, out);
}

template <class Format>
DateTime TagValueType<Format>::parseUTCTimestamp_int64(tvstring const &text) {
  return DateTime::fromTimestamp(Parsing::parseLong(text));
}
template <class Format>
tvstring &TagValueType<Format>::formatUTCTimestamp_int64(DateTime const &value, tvstring &out) {
  return dlongToString(value.toTimestamp(), out);
}

template <class Format>
bool TagValueType<Format>::parseBoolean(tvstring const &text) {
  if (text.empty())
    raise<typename Format::ParsingException>("Illegal boolean value, it can't be empty", Format::TYPE_SOURCE);
  if (text[0] == 'Y') return true;
  if (text[0] == 'N') return false;
  raise<typename Format::ParsingException>("Illegal boolean value " + text, Format::TYPE_SOURCE);
}

template <class Format>
tvstring &TagValueType<Format>::formatBoolean(bool value, tvstring &out) {
  return out = value ? YES : NO;
}

template class TagValueType<FIXFormat>;
template class TagValueType<SIACCanonicalFormat>;

}  // namespace tavrone

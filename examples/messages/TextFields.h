#pragma once

#include <climits>
#include <string_view>
#include <type_traits>

#include "examples/messages/ReportingParser.h"

namespace examples {

// Texts of the layouts as the values of fields, and back. Days are 20240315, times 20240315-14:30:05, with milliseconds
// 20240315-14:30:05.125, or 20240315143005; "Y" and "N" stand for bool. A text that would be written otherwise than it
// was read is refused, but for numbers.

inline tvstring datePattern(size_t length) {
  if (length == 8) return "yyyyMMdd";
  if (length == 14) return "yyyyMMddHHmmss";
  return length == 21 ? "yyyyMMdd-HH:mm:ss.SSS" : "yyyyMMdd-HH:mm:ss";
}

inline void parseText(tvstring const &text, tvstring &value) {
  value = text;
}
inline void parseText(tvstring const &text, char &value) {
  value = Parsing::parseChar(text);
}
inline void parseText(tvstring const &text, int &value) {
  long long const number = parseDigits(text);
  if (number > INT_MAX) fail("Cannot convert '" + text + "' to a number");
  value = static_cast<int>(number);
}
// By way of a BigDecimal, which takes the whole text or nothing: Parsing::parseDouble reads 1.2.3 as 1.2.
inline void parseText(tvstring const &text, double &value) {
  try {
    value = Parsing::parseBigDecimal(text).toDouble();
  } catch (TransformException const &) {
    fail("Cannot convert '" + text + "' to a decimal");
  }
}
inline void parseText(tvstring const &text, bool &value) {
  value = UniversalFieldParser::parseBoolean(text, "Y", "N");
}
inline void parseText(tvstring const &text, DateTime &value) {
  tvstring const pattern = datePattern(text.length());
  value = Parsing::parseDate(text, pattern);
  if (value.toString(pattern) != text) fail("Illegal date " + text);
}

inline tvstring textOf(tvstring const &value, bool) {
  return value;
}
inline tvstring textOf(char value, bool) {
  return Parsing::charToString(value);
}
inline tvstring textOf(int value, bool) {
  return Parsing::intToString(value);
}
inline tvstring textOf(double value, bool) {
  return Parsing::doubleToString(value);
}
inline tvstring textOf(bool value, bool) {
  return UniversalFieldParser::formatbool(value, "Y", "N");
}
inline tvstring textOf(DateTime const &value, bool isDay) {
  if (isDay) return value.toString("yyyyMMdd");
  return value.toString(value.getMilliseconds() == 0 ? "yyyyMMdd-HH:mm:ss" : "yyyyMMdd-HH:mm:ss.SSS");
}

template <FixedText Name, class Part>
void readField(Part &part, tvstring const &text) {
  std::remove_cvref_t<decltype(std::as_const(part).template get<Name>())> value{};
  parseText(text, value);
  part.template set<Name>(value);
}
// REQUIRES: the field is not null
template <FixedText Name, class Part>
tvstring fieldText(Part const &part) {
  return textOf(part.template get<Name>(), Name.view() == "TradeDate");
}

// For writers of lines: raises "Field '<field>' <what is wrong>" of the type "Output Writing".
[[noreturn]] inline void cannotWrite(char const *field, char const *what) {
  auto failure =
      failureAt<TransformException>(tvstring("Field '") + field + "' " + what, "examples/TextFields", __LINE__);
  failure.setErrorType(ExceptionObject::ERROR_TYPE_OUTPUT);
  failure.setFFieldName(field);
  throw failure;
}

// The text of a field, which is to be read back as it is: fails for a text with a control byte or one of the
// delimiters, and for a decimal with more digits than its text keeps.
template <class Value>
tvstring lineText(Value const &value, char const *field, std::string_view delimiters) {
  tvstring const text = textOf(value, std::string_view(field) == "TradeDate");
  if constexpr (std::is_same_v<Value, tvstring> || std::is_same_v<Value, char>) {
    auto const isDelimiter = [&](char c) {
      return static_cast<unsigned char>(c) < ' ' || delimiters.find(c) != delimiters.npos;
    };
    if (std::any_of(text.data(), text.data() + text.length(), isDelimiter)) cannotWrite(field, "holds a delimiter");
  } else if constexpr (std::is_same_v<Value, double>) {
    double kept = 0;
    parseText(text, kept);
    if (kept != value) cannotWrite(field, "has more digits than its text keeps");
  }
  return text;
}

}  // namespace examples

#include "tavrone/universal/UniversalFieldParser.h"

#include <algorithm>
#include <array>

#include "tavrone/core/Binary.h"
#include "tavrone/core/Parsing.h"
#include "tavrone/core/Raise.h"
#include "tavrone/universal/UniversalRecord.h"

namespace tavrone {
namespace {

constexpr char const *SOURCE = "cpp/universal/UniversalFieldParser";

}  // namespace

bool UniversalFieldParser::parseBoolean(tvstring const &value, tvstring const &trueText, tvstring const &falseText) {
  if (value.empty()) raise<TransformException>("Illegal bool value, it can't be empty", SOURCE);
  if (value == trueText) return true;
  if (value != falseText) raise<TransformException>("Illegal bool value " + value, SOURCE);
  return false;
}

// The result refers to `room` where the text is short enough for it.
tvstring UniversalFieldParser::fixDecimal(tvstring const &value, char point, NumberText &room) {
  if (point == '.') return value;
  if (value.find('.') != tvstring::npos)
    raise<TransformException>("Unexpected '.' character while parsing floating point field", SOURCE);
  Binary const fixed =
      value.length() > room.size() ? Binary(value.length()) : Binary(room.data(), value.length(), false);
  std::replace_copy(value.data(), value.data() + value.length(), const_cast<char *>(fixed.data()), point, '.');
  return fixed.asText();
}

double UniversalFieldParser::parseDouble(tvstring const &value, char point) {
  if (point == '.') return Parsing::parseDouble(value);
  NumberText room;
  return Parsing::parseDouble(fixDecimal(value, point, room));
}

double UniversalFieldParser::parseDouble(tvstring const &value, int integerDigits, int fractionDigits, char point) {
  if (point == '\0') return parseImpliedDouble(value, integerDigits, fractionDigits);
  NumberText room;
  tvstring const fixed = fixDecimal(value, point, room);
  size_t const index = fixed.find('.');
  if (index == tvstring::npos || integerDigits < 0 || index != static_cast<size_t>(integerDigits))
    raise<TransformException>("Float field's value '" + value + "' is not in specified format '" +
                                  intToString(integerDigits) + "." + intToString(fractionDigits) + "'",
                              SOURCE);
  return Parsing::parseDouble(fixed);
}

double UniversalFieldParser::parseImpliedDouble(tvstring const &value, int, int fractionDigits) {
  size_t const n = std::min(static_cast<size_t>(std::max(fractionDigits, 0)), value.length());
  if (n >= UniversalRecord::LONG_POWERS_OF_10.size())
    raise<TransformException>("Cannot convert '" + value + "' to double", SOURCE);
  size_t const integerLength = value.length() - n;
  long long fraction = Parsing::parseLong(value.substr(integerLength));  // fails for an empty text, which is meant
  long long const whole = integerLength == 0 ? 0 : Parsing::parseLong(value.substr(0, integerLength));
  if (whole < 0) fraction = -fraction;
  return static_cast<double>(fraction) / static_cast<double>(UniversalRecord::LONG_POWERS_OF_10[n]) +
         static_cast<double>(whole);
}

}  // namespace tavrone

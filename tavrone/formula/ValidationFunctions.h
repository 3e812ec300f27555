#pragma once

#include <type_traits>

#include "tavrone/core/BigDecimal.h"
#include "tavrone/formula/DateFunctions.h"
#include "tavrone/formula/TextFunctions.h"

namespace tavrone {

// Tests of values for formulas. None fails.
class TAVRONE_API ValidationFunctions {
 public:
  // low <= value <= high, for numbers, characters, dates and decimals; no range holds a double that is not a number.
  template <class Value, class Low, class High>
  requires(!std::is_convertible_v<Value, tvstring>) static bool inRange(Value const &value, Low const &low,
                                                                        High const &high) {
    return low <= value && value <= high;
  }
  static bool inRange(tvstring const &value, tvstring const &low, tvstring const &high) {
    return TextFunctions::lessEqual(low, value) && TextFunctions::lessEqual(value, high);
  }
  // The same for the number of bytes.
  static bool lengthInRange(tvstring const &value, int low, int high) { return holds(low, high, value.length()); }
  static bool lengthInRange(Binary const &value, int low, int high) { return holds(low, high, value.length()); }

  // Whether the value is one of the list's parts, which are those of TextFunctions::split, however many.
  static bool isOneOf(tvstring const &value, tvstring const &list, tvstring const &separator);
  // Whether the pattern is the whole text: '*' stands for any bytes, none included, '?' for one; nothing escapes them.
  static bool matches(tvstring const &text, tvstring const &pattern);

  // A sign, digits, and a value within the type. Stricter than the conversions, which let a sign alone and some
  // overflows pass.
  static bool isInt(tvstring const &text);
  static bool isLong(tvstring const &text);
  // A sign, digits with a point anywhere, and an exponent "e5", "E-5"; at least one digit, and a value within the type.
  static bool isDouble(tvstring const &text);
  // "true" or "false" in any case of letters.
  static bool isBoolean(tvstring const &text);
  // Pairs of hexadecimal digits in either case; the empty text are no bytes.
  static bool isHex(tvstring const &text);
  // RFC 4648 with padding and without line breaks; the empty text are no bytes.
  static bool isBase64(tvstring const &text);
  static bool isDate(tvstring const &text, tvstring const &pattern) { return DateFunctions::isDate(text, pattern); }

  // Whether the number, without leading and trailing zeros, has no more digits in front of its point and behind it.
  static bool fitsDigits(BigDecimal const &value, int integerDigits, int fractionDigits);
  // False for a zero divisor.
  static bool isMultipleOf(BigDecimal const &value, BigDecimal const &divisor);

 private:
  static bool holds(int low, int high, size_t length) {
    return high >= 0 && (low < 0 || static_cast<size_t>(low) <= length) && length <= static_cast<size_t>(high);
  }
};

}  // namespace tavrone

#pragma once

#include <array>

#include "tavrone/core/tvstring.h"

namespace tavrone {

// Field texts of the Universal format as values. All static, no state, C locale. Failures are TransformExceptions, also
// those of Parsing, by which the digits are read.
class TAVRONE_API UniversalFieldParser {
 public:
  // Raises "Illegal bool value, it can't be empty" or "Illegal bool value V". True wins where both texts are equal.
  static bool parseBoolean(tvstring const &value, tvstring const &trueText, tvstring const &falseText);
  static tvstring formatbool(bool value, tvstring const &trueText, tvstring const &falseText) {
    return value ? trueText : falseText;
  }

  // With `point` as the decimal character. Raise "Unexpected '.' character while parsing floating point field" for a
  // '.' that is not the point.
  static float parseFloat(tvstring const &value, char point) { return static_cast<float>(parseDouble(value, point)); }
  static double parseDouble(tvstring const &value, char point);

  // With exactly `integerDigits` characters, a sign among them, before the point; what is behind it is not counted.
  // Without a point (0) as parseImpliedDouble. Raise "Float field's value 'V' is not in specified format 'I.F'", the
  // double form too.
  static float parseFloat(tvstring const &value, int integerDigits, int fractionDigits, char point) {
    return static_cast<float>(parseDouble(value, integerDigits, fractionDigits, point));
  }
  static double parseDouble(tvstring const &value, int integerDigits, int fractionDigits, char point);

  // The last `fractionDigits` characters are the fraction. The sign is that of the integer part's value, so that
  // "-012" with 2 of them gives 0.12: that is meant. The first int has no effect. Raises "Cannot convert 'V' to double"
  // for a fraction of more than 18 characters.
  static double parseImpliedDouble(tvstring const &value, int integerDigits, int fractionDigits);

 private:
  using NumberText = std::array<char, 64>;  // so that only a longer number allocates

  static tvstring fixDecimal(tvstring const &value, char point, NumberText &room);
};

}  // namespace tavrone

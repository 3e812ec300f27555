#pragma once

#include "tavrone/core/ObjectList.h"
#include "tavrone/core/Parsing.h"
#include "tavrone/core/ResourceBundle.h"

namespace tavrone {

// Values as text and back, for formulas. Nothing depends on the locale.
class TAVRONE_API FormatFunctions {
 public:
  // "{n}" replaced by the text of args[n]; see formatMessage.
  static tvstring format(tvstring const &pattern, ObjectList const &args) { return formatMessage(pattern, args); }
  // By the patterns of DateStr.
  static tvstring formatDate(DateTime const &value, tvstring const &pattern) { return value.toString(pattern); }

  // The number by a pattern such as "#,##0.00" or "USD 0.00;(USD 0.00)": literal text, places, literal text, and
  // perhaps the same again behind a ';' for negative numbers, of which only the literal text counts. Of the places
  //   0   is a digit that is always written; without any there is still one in front of the point
  //   #   behind the point is a digit that is written unless only zeros follow; in front of it, nothing
  //   ,   between digits: the distance of the last one from the point is the size of groups
  //   .   is the point
  // and a '%' in the literal text shows the number times 100. Rounded half away from zero; a negative number has '-' in
  // front unless its own literal text follows. A pattern without places, or a number that is not finite, gives toText.
  static tvstring formatNumber(int value, tvstring const &pattern);
  static tvstring formatNumber(long long value, tvstring const &pattern);
  static tvstring formatNumber(double value, tvstring const &pattern);
  static tvstring formatNumber(BigDecimal const &value, tvstring const &pattern);
  // So many digits behind the point, rounded half away from zero; a negative count means all there are. Of a double
  // that is not finite, toText.
  static tvstring formatFixed(double value, int decimals);
  static tvstring formatFixed(BigDecimal const &value, int decimals);
  // At least `width` characters, zeros between the sign and the digits.
  static tvstring zeroPad(int value, int width) { return zeroPad(static_cast<long long>(value), width); }
  static tvstring zeroPad(long long value, int width);
  static tvstring formatBool(bool value, tvstring const &whenTrue, tvstring const &whenFalse) {
    return value ? whenTrue : whenFalse;
  }

  // Numbers as the number texts of Conversion.h, dates by the pattern "MMM dd, yyyy", a Binary's bytes.
  static tvstring toText(int value) { return ::intToString(value); }
  static tvstring toText(long long value) { return ::dlongToString(value); }
  static tvstring toText(float value) { return ::floatToString(value); }
  static tvstring toText(double value) { return ::doubleToString(value); }
  static tvstring toText(char value) { return ::charToString(value); }
  static tvstring toText(bool value) { return ::boolToString(value); }
  static tvstring toText(tvstring const &value) { return value; }
  static tvstring toText(char const *value) { return value; }
  static tvstring toText(DateTime const &value);
  static tvstring toText(Binary const &value) { return value.toString(); }
  static tvstring toText(BigInteger const &value) { return value.toString(); }
  static tvstring toText(BigDecimal const &value) { return value.toString(); }

  // As Parsing reads them, with its failures.
  static int toInt(tvstring const &text) { return Parsing::parseInt(text); }
  static long long toLong(tvstring const &text) { return Parsing::parseLong(text); }
  static double toDouble(tvstring const &text) { return Parsing::parseDouble(text); }
  static float toFloat(tvstring const &text) { return Parsing::parseFloat(text); }
  static bool toBool(tvstring const &text) { return Parsing::parseBool(text); }
  static BigDecimal toBigDecimal(tvstring const &text) { return Parsing::parseBigDecimal(text); }
  // toDouble of a text with this point and this character between groups of digits, which is skipped wherever it
  // stands. Raises TransformException "Cannot convert '...' to double" for any other character that no number has.
  static double parseNumber(tvstring const &text, char point, char grouping);
};

}  // namespace tavrone

#pragma once

#include <iosfwd>

#include "tavrone/core/Conversion.h"
#include "tavrone/core/Wrappers.h"

namespace tavrone {

// Text to typed values and back, by the names of the design-time types; all static, no state, C locale. Failures are
// plain TransformExceptions unless said, with the trace of the layer that found them.
//
// Dates are read by the compact patterns "yyyyMMdd", "HH:mm:ss.SSS" and "yyyyMMdd-HH:mm:ss.SSS", but written as
// "yyyy-MM-ddTHH:mm:ss.SSS" and its parts: that is meant.
class TAVRONE_API Parsing {
 public:
  static tvstring const &TRUE_VALUE;   // "true"
  static tvstring const &FALSE_VALUE;  // "false"
  static tvstring const &EMPTY;

  // As t_atoi and t_atol, with their failures and their wrapping.
  static int parseInt(tvstring const &text) { return t_atoi(text.data(), text.data() + text.length()); }
  static long long parseLong(tvstring const &text) { return t_atol(text.data(), text.data() + text.length()); }
  // Raises "Cannot convert '...' to double" if a character is no digit, '+', '-', '.', 'e' or 'E'. Beyond that nothing
  // is checked: the value is what strtod reads before it stops, so "1.2.3" is 1.2, and "--" and the empty text are 0.
  static double parseDouble(tvstring const &text);
  // parseDouble, narrowed.
  static float parseFloat(tvstring const &text) { return static_cast<float>(parseDouble(text)); }
  // "true" or "false" in any case of letters. Raises "Cannot convert ... to boolean", without quotes.
  static bool parseBool(tvstring const &text);
  static bool parseBoolean(tvstring const &text) { return parseBool(text); }
  // The one character of the text. Raises "Cannot convert ... to char", without quotes.
  static char parseChar(tvstring const &text);
  // Text as MAPM reads it, with its failures.
  static BigDecimal parseBigDecimal(tvstring const &text) { return BigDecimal(text); }
  // A copy of the bytes.
  static Binary parseBinary(tvstring const &text) { return Binary(text.data(), text.length()); }

  // By the patterns of DateStr, as DateTime::fromString and DateTime::toString do, with their failures.
  static DateTime parseDate(tvstring const &text, tvstring const &pattern);
  static tvstring formatDate(DateTime const &value, tvstring const &pattern);
  static tvstring &formatDate(DateTime const &value, tvstring const &pattern, tvstring &out);

  // The texts of Conversion.h. A Binary's is a copy of its bytes; big numbers are written with all digits.
  static tvstring intToString(int value) { return ::intToString(value); }
  static tvstring longToString(long long value) { return ::dlongToString(value); }
  static tvstring doubleToString(double value) { return ::doubleToString(value); }
  static tvstring floatToString(float value) { return ::floatToString(value); }
  static tvstring charToString(char value) { return ::charToString(value); }
  static tvstring stringToString(tvstring const &value) { return value; }
  static tvstring boolToString(bool value) { return value ? TRUE_VALUE : FALSE_VALUE; }
  static tvstring bigDecimalToString(BigDecimal const &value) { return value.toString(); }
  static tvstring bigIntegerToString(BigInteger const &value) { return value.toString(); }
  static tvstring binaryToString(Binary const &value) { return value.toString(); }

  // As Binary reads and writes them.
  static Binary hexStringToBinary(tvstring const &text) { return Binary::fromHexString(text); }
  static tvstring binaryToHexString(Binary const &value) { return value.toHexString(); }
  static Binary base64StringToBinary(tvstring const &text) { return Binary::fromBase64String(text); }
  static tvstring binaryToBase64String(Binary const &value) { return value.toBase64String(); }

  // The text as a new object, the caller's, of the wrapper that belongs to the type. Null for an empty text of a date,
  // time or character. Raises "Cannot convert '...' to <type>" for a longer "Character" and for any other type, the ISO
  // ones included: those are only written.
  static Object *toRuntimeObject(tvstring const &text, tvstring const &typeName);
  // Dates and times by their type's pattern, without milliseconds that are 0; "Binary" as hexadecimal, which
  // toRuntimeObject does not read back; all else by the object's own text. REQUIRES: object is not null
  static tvstring runtimeObjectToString(Object const *object, tvstring const &typeName);
  // The argument, whatever its type.
  static Object *toBinaryTypeObject(Object *object) { return object; }
  // A new RawMessageObject, the caller's, around the value of a BinaryObject or StringObject; any other object, null
  // included, as it is.
  static Object *toRawMessageTypeObject(Object *object);

  // Text behind its length in bytes, 16 bits, high byte first; the bytes are not converted. Both raise "Out of bounds":
  // for more than 65,535 bytes, before anything is written, and for a stream that ends early.
  static void writeUTF(std::ostream &out, tvstring const &text);
  static tvstring readUTF(std::istream &in);

  // The values of wrappers. The strict forms raise TransformRuntimeException "Null value" for null; the others give
  // zero or the empty value.
  static int intValue(NumberObject const *object) { return strict(object).getInt(); }
  static int intValueWithNull(NumberObject const *object) { return object == nullptr ? 0 : object->getInt(); }
  static long long longValue(NumberObject const *object) { return strict(object).getLong(); }
  static long long longValueWithNull(NumberObject const *object) { return object == nullptr ? 0 : object->getLong(); }
  static double doubleValue(NumberObject const *object) { return strict(object).getDouble(); }
  static double doubleValueWithNull(NumberObject const *object) {
    return object == nullptr ? 0.0 : object->getDouble();
  }
  static float floatValue(NumberObject const *object) { return strict(object).getFloat(); }
  static float floatValueWithNull(NumberObject const *object) { return object == nullptr ? 0.0F : object->getFloat(); }
  static char charValue(CharObject const *object) { return strict(object).getCharacter(); }
  static char charValueWithNull(CharObject const *object) { return object == nullptr ? '\0' : object->getCharacter(); }
  static tvstring stringValue(StringObject const *object) { return strict(object).getString(); }
  static tvstring stringValueWithNull(StringObject const *object) {
    return object == nullptr ? EMPTY : object->getString();
  }
  static DateTime dateValue(DateObject const *object) { return strict(object).getDate(); }
  static DateTime dateValueWithNull(DateObject const *object) {
    return object == nullptr ? DateTime() : object->getDate();
  }
  static BigDecimal bigDecimalValue(BigDecimalObject const *object) { return strict(object).getBigDecimal(); }
  static BigDecimal bigDecimalValueWithNull(BigDecimalObject const *object) {
    return object == nullptr ? BigDecimal() : object->getBigDecimal();
  }
  static Binary binaryValue(BinaryObject const *object) { return strict(object).getBinary(); }
  static Binary binaryValueWithNull(BinaryObject const *object) {
    return object == nullptr ? Binary() : object->getBinary();
  }
  static bool boolValue(BoolObject const *object) { return strict(object).getBoolean(); }
  static BigInteger bigIntegerValue(BigIntegerObject const *object) { return strict(object).getBigInteger(); }

 private:
  template <class Wrapper>
  static Wrapper const &strict(Wrapper const *object) {
    if (object == nullptr) raiseNullValue();
    return *object;
  }
  [[noreturn]] static void raiseCannotConvert(tvstring const &text, tvstring const &typeName);
  [[noreturn]] static void raiseNullValue();
};

}  // namespace tavrone

#pragma once

#include <concepts>
#include <type_traits>

#include "tavrone/core/BigDecimal.h"
#include "tavrone/core/Binary.h"
#include "tavrone/core/DateTime.h"
#include "tavrone/core/Object.h"

namespace tavrone {

// Choices and plain arithmetic for formulas. Failures are TransformRuntimeExceptions with a row of the catalogue and
// the trace "cpp/formula/UtilFunctions".
class TAVRONE_API UtilFunctions {
 public:
  // The first value if the condition holds, else the second. Texts, literals too, give a tvstring.
  template <class Value>
  requires(!std::is_convertible_v<Value, tvstring>) static Value
      choose(bool condition, Value const &whenTrue, Value const &whenFalse) {
    return condition ? whenTrue : whenFalse;
  }
  static tvstring choose(bool condition, tvstring const &whenTrue, tvstring const &whenFalse) {
    return condition ? whenTrue : whenFalse;
  }

  static bool isNull(Object const *object) { return object == nullptr; }
  // The object's value, read by the getter of the other value's type and with that getter's failures; the other value
  // for a null object.
  template <class Value>
  requires(!std::is_convertible_v<Value, tvstring>) static Value nvl(Object const *object, Value const &otherwise) {
    return object == nullptr ? otherwise : valueOf(*object, otherwise);
  }
  static tvstring nvl(Object const *object, tvstring const &otherwise) {
    return object == nullptr ? otherwise : object->getString();
  }

  // The lowest int and the lowest long long have no positive counterpart and stay as they are.
  static int abs(int value) { return value < 0 ? wrappingNegative(value) : value; }
  static long long abs(long long value) { return value < 0 ? wrappingNegative(value) : value; }
  static float abs(float value) { return __builtin_fabsf(value); }
  static double abs(double value) { return __builtin_fabs(value); }
  static BigDecimal abs(BigDecimal const &value) { return value.abs(); }
  static BigInteger abs(BigInteger const &value) { return value.abs(); }

  // Of any type with an order; the first value of two that are equal.
  template <class Value>
  requires(!std::is_convertible_v<Value, tvstring>) static Value min(Value const &a, Value const &b) {
    return b < a ? b : a;
  }
  template <class Value>
  requires(!std::is_convertible_v<Value, tvstring>) static Value max(Value const &a, Value const &b) {
    return a < b ? b : a;
  }
  static tvstring min(tvstring const &a, tvstring const &b) { return b < a ? b : a; }
  static tvstring max(tvstring const &a, tvstring const &b) { return a < b ? b : a; }

  // Half away from zero on the shortest decimal text that is the double, so that 2.675 to 2 decimals is 2.68; negative
  // counts go left of the point. What is not finite is unchanged.
  static double round(double value, int decimals);
  // The nearest multiple of the significance that is not nearer to zero (ceiling) or not farther from it (floor) than
  // the number, worked out on decimals: floor(0.3, 0.1) is 0.3. Raise SRT568 for a significance of zero and SRT567 for
  // two signs.
  static double ceiling(double number, double significance);
  static double floor(double number, double significance);

  // Raises SRT571 for a negative value.
  static double sqrt(double value);
  // The natural logarithm; raises SRT570 for a value of zero or below.
  static double log(double value);
  // Raises SRT569 where either is zero or below; exact for powers of the bases 2 and 10.
  static double log(double value, double base);
  // As std::pow.
  static double power(double base, double exponent);
  // With the dividend's sign; 0 for a zero divisor.
  static int mod(int dividend, int divisor) { return divisor == 0 || divisor == -1 ? 0 : dividend % divisor; }

 private:
  template <std::signed_integral Value>
  static Value wrappingNegative(Value value) {
    return static_cast<Value>(0 - static_cast<std::make_unsigned_t<Value>>(value));
  }

  // The object's value of the type of the second argument.
  static int valueOf(Object const &object, int) { return object.getInt(); }
  static long long valueOf(Object const &object, long long) { return object.getLong(); }
  static float valueOf(Object const &object, float) { return object.getFloat(); }
  static double valueOf(Object const &object, double) { return object.getDouble(); }
  static char valueOf(Object const &object, char) { return object.getCharacter(); }
  static bool valueOf(Object const &object, bool) { return object.getBoolean(); }
  static DateTime valueOf(Object const &object, DateTime const &) { return object.getDate(); }
  static ISODateTime valueOf(Object const &object, ISODateTime const &) { return object.getISODate(); }
  static Binary valueOf(Object const &object, Binary const &) { return object.getBinary(); }
  static BigInteger valueOf(Object const &object, BigInteger const &) { return object.getBigInteger(); }
  static BigDecimal valueOf(Object const &object, BigDecimal const &) { return object.getBigDecimal(); }
};

}  // namespace tavrone

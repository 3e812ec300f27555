#pragma once

#include "tavrone/core/BigDecimal.h"
#include "tavrone/core/Binary.h"
#include "tavrone/core/DateTime.h"
#include "tavrone/core/tvstringbuffer.h"

namespace tavrone {

// What generated concatenations call: first they add up an estimate of the length, then they append, so that the buffer
// grows once.
class TAVRONE_API ConcatFunctionsHelper {
 public:
  // Bytes to expect of a value. There is no estimate for a long long or a Binary.
  static int lengthOf(char) { return 1; }
  static int lengthOf(int) { return 10; }
  static int lengthOf(float) { return 15; }
  static int lengthOf(double) { return 15; }
  static int lengthOf(bool) { return 4; }
  static int lengthOf(char const *value) { return static_cast<int>(std::strlen(value)); }
  static int lengthOf(tvstring const &value) { return static_cast<int>(value.length()); }
  static int lengthOf(DateTime const &) { return 20; }
  static int lengthOf(BigInteger const &) { return 30; }
  static int lengthOf(BigDecimal const &) { return 40; }

  // Appends the value's text and returns the buffer: numbers as the number texts of Conversion.h, "true" or "false",
  // dates by the pattern "MMM dd, yyyy" (which fails for a month that does not exist), a Binary's bytes as they are.
  static tvstringbuffer &appendToString(tvstringbuffer &buffer, char value) { return buffer.append(value); }
  static tvstringbuffer &appendToString(tvstringbuffer &buffer, int value);
  static tvstringbuffer &appendToString(tvstringbuffer &buffer, long long value);
  static tvstringbuffer &appendToString(tvstringbuffer &buffer, float value);
  static tvstringbuffer &appendToString(tvstringbuffer &buffer, double value);
  static tvstringbuffer &appendToString(tvstringbuffer &buffer, bool value) {
    return buffer.append(value ? "true" : "false");
  }
  static tvstringbuffer &appendToString(tvstringbuffer &buffer, char const *value) { return buffer.append(value); }
  static tvstringbuffer &appendToString(tvstringbuffer &buffer, tvstring const &value) { return buffer.append(value); }
  static tvstringbuffer &appendToString(tvstringbuffer &buffer, DateTime const &value);
  static tvstringbuffer &appendToString(tvstringbuffer &buffer, BigInteger const &value);
  static tvstringbuffer &appendToString(tvstringbuffer &buffer, BigDecimal const &value);
  static tvstringbuffer &appendToString(tvstringbuffer &buffer, Binary const &value) {
    return buffer.append(value.data(), value.length());
  }
};

}  // namespace tavrone

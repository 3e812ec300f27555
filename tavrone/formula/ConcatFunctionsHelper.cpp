#include "tavrone/formula/ConcatFunctionsHelper.h"

#include "tavrone/core/Conversion.h"

namespace tavrone {
namespace {

// The number's text by way of `render`, which writes at most `Size` bytes, without a string in between.
template <size_t Size, class Number>
tvstringbuffer &appendNumber(tvstringbuffer &buffer, Number value, char *(*render)(Number, char *)) {
  char text[Size];
  return buffer.append(render(value, text));
}

template <class Number>
tvstringbuffer &appendDecimal(tvstringbuffer &buffer, Number const &value) {
  char text[128];
  if (char const *end = value.writeFixed(text, text + sizeof text))
    return buffer.append(text, static_cast<size_t>(end - text));
  return buffer.append(value.toString());
}

}  // namespace

tvstringbuffer &ConcatFunctionsHelper::appendToString(tvstringbuffer &buffer, int value) {
  return appendNumber<12>(buffer, value, ::intToString);
}

tvstringbuffer &ConcatFunctionsHelper::appendToString(tvstringbuffer &buffer, long long value) {
  char text[21];
  t_ltoa(value, text);
  return buffer.append(text);
}

tvstringbuffer &ConcatFunctionsHelper::appendToString(tvstringbuffer &buffer, float value) {
  return appendNumber<64>(buffer, value, ::floatToString);
}

tvstringbuffer &ConcatFunctionsHelper::appendToString(tvstringbuffer &buffer, double value) {
  return appendNumber<352>(buffer, value, ::doubleToString);
}

tvstringbuffer &ConcatFunctionsHelper::appendToString(tvstringbuffer &buffer, DateTime const &value) {
  char text[32];
  return buffer.append(text, value.asString(text, sizeof text, "MMM dd, yyyy"));
}

tvstringbuffer &ConcatFunctionsHelper::appendToString(tvstringbuffer &buffer, BigInteger const &value) {
  return appendDecimal(buffer, value);
}

tvstringbuffer &ConcatFunctionsHelper::appendToString(tvstringbuffer &buffer, BigDecimal const &value) {
  return appendDecimal(buffer, value);
}

}  // namespace tavrone

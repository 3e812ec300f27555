#include "tavrone/formula/ValidationFunctions.h"

#include <algorithm>
#include <charconv>
#include <cmath>

#include "tavrone/core/Parsing.h"

namespace tavrone {
namespace {

bool isHexDigit(char c) {
  return TextFunctions::isNum(c) || (c >= 'a' && c <= 'f') || (c >= 'A' && c <= 'F');
}
bool isBase64Character(char c) {
  return TextFunctions::isAlphaNum(c) || c == '+' || c == '/';
}

template <class Number>
bool isWhole(tvstring const &text) {
  char const *begin = text.data();
  char const *const end = begin + text.length();
  if (begin != end && *begin == '+' && ++begin != end && *begin == '-') return false;
  Number value;
  auto const [at, error] = std::from_chars(begin, end, value);
  return error == std::errc() && at == end;
}

// A text walked from its front.
struct Walk {
  char const *at;
  char const *const end;

  bool take(char a, char b) {
    bool const taken = at != end && (*at == a || *at == b);
    at += taken ? 1 : 0;
    return taken;
  }
  bool takeDigits() {
    char const *const start = at;
    at = std::find_if_not(at, end, [](char c) { return TextFunctions::isNum(c); });
    return at != start;
  }
};

bool hasFormOfDouble(tvstring const &text) {
  Walk walk{text.data(), text.data() + text.length()};
  walk.take('+', '-');
  bool digits = walk.takeDigits();
  if (walk.take('.', '.')) digits = walk.takeDigits() || digits;
  if (!digits) return false;
  if (walk.take('e', 'E')) {
    walk.take('+', '-');
    if (!walk.takeDigits()) return false;
  }
  return walk.at == walk.end;
}

}  // namespace

bool ValidationFunctions::isOneOf(tvstring const &value, tvstring const &list, tvstring const &separator) {
  if (list.empty()) return false;
  if (separator.empty()) return value == list;
  for (size_t at = 0;;) {
    size_t const found = list.find(separator, at);
    size_t const end = std::min(found, list.length());
    if (end - at == value.length() && tvstring::equals(list.data() + at, value.data(), value.length())) return true;
    if (found == tvstring::npos) return false;
    at = end + separator.length();
  }
}

// On a mismatch the last '*' takes one byte more: no earlier one ever needs to, so the work is at most the product of
// the lengths.
bool ValidationFunctions::matches(tvstring const &text, tvstring const &pattern) {
  size_t star = tvstring::npos, starred = 0, at = 0, place = 0;
  while (at < text.length()) {
    if (place < pattern.length() && pattern[place] == '*') {
      star = ++place;
      starred = at;
    } else if (place < pattern.length() && (pattern[place] == '?' || pattern[place] == text[at])) {
      ++place;
      ++at;
    } else if (star != tvstring::npos) {
      place = star;
      at = ++starred;
    } else {
      return false;
    }
  }
  while (place < pattern.length() && pattern[place] == '*') ++place;
  return place == pattern.length();
}

bool ValidationFunctions::isInt(tvstring const &text) {
  return isWhole<int>(text);
}
bool ValidationFunctions::isLong(tvstring const &text) {
  return isWhole<long long>(text);
}
bool ValidationFunctions::isDouble(tvstring const &text) {
  return hasFormOfDouble(text) && std::isfinite(Parsing::parseDouble(text));
}
bool ValidationFunctions::isBoolean(tvstring const &text) {
  return TextFunctions::equalIgnoreCase(text, Parsing::TRUE_VALUE) ||
         TextFunctions::equalIgnoreCase(text, Parsing::FALSE_VALUE);
}
bool ValidationFunctions::isHex(tvstring const &text) {
  return text.length() % 2 == 0 && std::all_of(text.data(), text.data() + text.length(), isHexDigit);
}
bool ValidationFunctions::isBase64(tvstring const &text) {
  char const *end = text.data() + text.length();
  for (int padding = 0; padding < 2 && end != text.data() && end[-1] == '='; ++padding) --end;
  return text.length() % 4 == 0 && std::all_of(text.data(), end, isBase64Character);
}

bool ValidationFunctions::fitsDigits(BigDecimal const &value, int integerDigits, int fractionDigits) {
  int const integers = value.sign() == 0 ? 0 : std::max(value.exponent() + 1, 0);
  int const fractions = std::max(value.significant_digits() - value.exponent() - 1, 0);
  return integers <= integerDigits && fractions <= fractionDigits;
}
bool ValidationFunctions::isMultipleOf(BigDecimal const &value, BigDecimal const &divisor) {
  return divisor.sign() != 0 && value.rem(divisor).sign() == 0;
}

}  // namespace tavrone

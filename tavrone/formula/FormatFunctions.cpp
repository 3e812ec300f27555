#include "tavrone/formula/FormatFunctions.h"

#include <cmath>
#include <memory>
#include <string>

#include "tavrone/core/Raise.h"
#include "tavrone/formula/NewText.h"
#include "tavrone/formula/ShortestDecimal.h"
#include "tavrone/formula/TextFunctions.h"

namespace tavrone {
namespace {

constexpr char const *SOURCE = "cpp/formula/FormatFunctions";

// How a number is written: between two literal texts, in so many digits at least and at most, in groups unless 0.
struct Layout {
  std::string_view before;
  std::string_view behind;
  int minIntegers = 1;
  int minFractions = 0;
  int maxFractions = 0;
  int group = 0;
};

// The places from `at` on; returns where they end. A point or comma behind the last digit is literal text.
size_t readPlaces(std::string_view pattern, size_t at, Layout &layout) {
  int integers = 0, firstZero = -1, fractions = 0, lastZero = -1, comma = -1;
  bool isFraction = false;
  for (; at < pattern.size(); ++at) {
    char const c = pattern[at];
    if (c == '.' && !isFraction) {
      isFraction = true;
    } else if (c == ',' && !isFraction) {
      comma = integers;
    } else if (c == '0' || c == '#') {
      int &zero = isFraction ? lastZero : firstZero;
      int &count = isFraction ? fractions : integers;
      if (c == '0' && (isFraction || zero < 0)) zero = count;
      ++count;
    } else {
      break;
    }
  }
  while (pattern[at - 1] == '.' || pattern[at - 1] == ',') --at;
  bool const hasZero = firstZero >= 0 || lastZero >= 0;
  layout.minIntegers = firstZero >= 0 ? integers - firstZero : hasZero ? 0 : 1;
  layout.minFractions = lastZero + 1;
  layout.maxFractions = fractions;
  layout.group = comma < 0 ? 0 : integers - comma;
  return at;
}

// False if the pattern has no places; all of it is literal text then.
bool readPattern(std::string_view pattern, Layout &layout) {
  size_t start = 0;
  while (start < pattern.size() && pattern[start] != '#' && pattern[start] != '0') ++start;
  if (start == pattern.size()) {
    layout.before = pattern;
    return false;
  }
  if (start > 0 && pattern[start - 1] == '.') --start;
  layout.before = pattern.substr(0, start);
  layout.behind = pattern.substr(readPlaces(pattern, start, layout));
  return true;
}

// The digits of a number without its sign, all that it has.
class Digits {
 public:
  explicit Digits(BigDecimal const &value) {
    char const *end = value.writeFixed(scratch_, scratch_ + sizeof scratch_);
    if (end != nullptr) {
      text_ = {scratch_, static_cast<size_t>(end - scratch_)};
    } else {
      longText_.reset(value.toFixPtStringExp(-1, '.', '\0', 0));
      text_ = longText_.get();
    }
    if (text_.front() == '-') text_.remove_prefix(1);
  }
  Digits(Digits const &) = delete;
  Digits &operator=(Digits const &) = delete;

  std::string_view whole() const { return text_.substr(0, text_.find('.')); }
  std::string_view fraction() const {
    size_t const point = text_.find('.');
    return point == std::string_view::npos ? std::string_view() : text_.substr(point + 1);
  }

 private:
  char scratch_[128];
  std::unique_ptr<char[]> longText_;
  std::string_view text_;
};

// The digits with zeros in front of them up to a count, a comma in front of each group.
char *putGrouped(char *to, std::string_view digits, size_t count, size_t group) {
  size_t zeros = count - digits.size();
  for (size_t size = group == 0 ? count : (count - 1) % group + 1;; size = group) {
    size_t const filled = std::min(size, zeros);
    to = put(put(to, filled, '0'), digits.substr(0, size - filled));
    digits.remove_prefix(size - filled);
    zeros -= filled;
    count -= size;
    if (count == 0) return to;
    *to++ = ',';
  }
}

// REQUIRES: the number has no more fraction digits than the layout
tvstring write(BigDecimal const &value, Layout const &layout) {
  Digits const digits(value);
  std::string_view whole = digits.whole();
  std::string_view const fraction = digits.fraction();
  if (layout.minIntegers == 0 && whole == "0") whole = {};
  size_t const integers = std::max(whole.size(), static_cast<size_t>(layout.minIntegers));
  size_t const fractions = std::max(fraction.size(), static_cast<size_t>(layout.minFractions));
  size_t const group = static_cast<size_t>(layout.group);
  size_t const commas = group == 0 || integers == 0 ? 0 : (integers - 1) / group;
  size_t const length =
      layout.before.size() + integers + commas + (fractions == 0 ? 0 : 1 + fractions) + layout.behind.size();
  return newText(length, [&](char *to) {
    to = put(to, layout.before);
    if (integers != 0) to = putGrouped(to, whole, integers, group);
    if (fractions != 0) {
      *to++ = '.';
      to = put(put(to, fraction), fractions - fraction.size(), '0');
    }
    put(to, layout.behind);
  });
}

tvstring format(BigDecimal const &value, tvstring const &pattern) {
  Layout layout;
  if (!readPattern(viewOf(pattern), layout)) return value.toString();
  size_t const semicolon = layout.behind.find(';');
  bool const forNegative = semicolon != std::string_view::npos;
  std::string_view const rest = forNegative ? layout.behind.substr(semicolon + 1) : std::string_view();
  layout.behind = layout.behind.substr(0, semicolon);
  auto const shows = [](std::string_view literal, char c) { return literal.find(c) != std::string_view::npos; };
  bool const percent = shows(layout.before, '%') || shows(layout.behind, '%');
  BigDecimal const shown = (percent ? value * 100 : value).roundDecimals(layout.maxFractions);
  if (shown.sign() >= 0) return write(shown, layout);
  Layout negative;
  if (forNegative) {
    readPattern(rest, negative);
    layout.before = negative.before;
    layout.behind = negative.behind;
    return write(shown, layout);
  }
  std::string const before = '-' + std::string(layout.before);
  layout.before = before;
  return write(shown, layout);
}

bool isPartOfNumber(char c) {
  return TextFunctions::isNum(c) || c == '+' || c == '-' || c == 'e' || c == 'E';
}

}  // namespace

tvstring FormatFunctions::formatNumber(int value, tvstring const &pattern) {
  return tavrone::format(BigDecimal(value), pattern);
}
tvstring FormatFunctions::formatNumber(long long value, tvstring const &pattern) {
  return tavrone::format(BigDecimal(value), pattern);
}
tvstring FormatFunctions::formatNumber(double value, tvstring const &pattern) {
  return std::isfinite(value) ? tavrone::format(shortestDecimal(value), pattern) : toText(value);
}
tvstring FormatFunctions::formatNumber(BigDecimal const &value, tvstring const &pattern) {
  return tavrone::format(value, pattern);
}

tvstring FormatFunctions::formatFixed(double value, int decimals) {
  return std::isfinite(value) ? formatFixed(shortestDecimal(value), decimals) : toText(value);
}
tvstring FormatFunctions::formatFixed(BigDecimal const &value, int decimals) {
  if (decimals < 0) return value.toString();
  BigDecimal const shown = value.roundDecimals(decimals);
  Layout layout;
  if (shown.sign() < 0) layout.before = "-";
  layout.minFractions = decimals;
  return write(shown, layout);
}

tvstring FormatFunctions::zeroPad(long long value, int width) {
  char text[21];
  t_ltoa(value, text);
  std::string_view const number(text);
  size_t const length = std::max(number.size(), static_cast<size_t>(std::max(width, 0)));
  size_t const sign = value < 0 ? 1 : 0;
  return newText(length, [&](char *to) {
    to = put(to, number.substr(0, sign));
    put(put(to, length - number.size(), '0'), number.substr(sign));
  });
}

tvstring FormatFunctions::toText(DateTime const &value) {
  tvstringbuffer text;
  return ConcatFunctionsHelper::appendToString(text, value);
}

double FormatFunctions::parseNumber(tvstring const &text, char point, char grouping) {
  bool plain = true;
  for (char const c : viewOf(text)) {
    if (isPartOfNumber(c) || (c == '.' && point == '.')) continue;
    if (c != point && c != grouping) raise<TransformException>("Cannot convert '" + text + "' to double", SOURCE);
    plain = false;
  }
  if (plain) return Parsing::parseDouble(text);
  tvstringbuffer number;
  number.reserve(text.length());
  for (char const c : viewOf(text)) {
    if (isPartOfNumber(c))
      number.append(c);
    else if (c == point)
      number.append('.');
  }
  return Parsing::parseDouble(number);
}

}  // namespace tavrone

#include "tavrone/formula/TextFunctions.h"

#include <cctype>

#include "tavrone/core/Conversion.h"
#include "tavrone/core/Raise.h"
#include "tavrone/formula/NewText.h"

namespace tavrone {
namespace {

constexpr char const *SOURCE = "cpp/formula/TextFunctions";

// The C library's tolower and toupper of a byte, in the locale at the time of construction.
#ifdef __GLIBC__
// Through the tables that they read: a call for each text instead of one for each byte.
struct Lowering {
  char operator()(char c) const { return static_cast<char>(table[static_cast<unsigned char>(c)]); }
  int32_t const *const table = *__ctype_tolower_loc();
};
struct Raising {
  char operator()(char c) const { return static_cast<char>(table[static_cast<unsigned char>(c)]); }
  int32_t const *const table = *__ctype_toupper_loc();
};
#else
struct Lowering {
  char operator()(char c) const { return static_cast<char>(std::tolower(static_cast<unsigned char>(c))); }
};
struct Raising {
  char operator()(char c) const { return static_cast<char>(std::toupper(static_cast<unsigned char>(c))); }
};
#endif

std::string_view viewOf(char const &c) {
  return {&c, 1};
}

// Of two lengths.
size_t product(size_t a, size_t b) {
  if (b != 0 && a > INT_MAX / b) throw std::bad_array_new_length();
  return a * b;
}

template <class Change>
tvstring changed(tvstring const &text, Change const &change) {
  return newText(text.length(),
                 [&](char *to) { std::transform(text.data(), text.data() + text.length(), to, change); });
}

template <bool (*Accepts)(char)>
bool passes(tvstring const &text) {
  return std::all_of(text.data(), text.data() + text.length(), Accepts);
}

// Whether the part stands at the offset, which may be any number.
template <class Equal>
bool standsAt(tvstring const &text, tvstring const &part, ptrdiff_t offset, Equal const &equal) {
  if (offset < 0 || static_cast<size_t>(offset) > text.length()) return false;
  return part.length() <= text.length() - static_cast<size_t>(offset) &&
         std::equal(part.data(), part.data() + part.length(), text.data() + offset, equal);
}
struct EqualIgnoringCase {
  bool operator()(char a, char b) const { return lowered(a) == lowered(b); }
  Lowering const lowered{};
};
ptrdiff_t endOffset(tvstring const &text, tvstring const &suffix) {
  return static_cast<ptrdiff_t>(text.length()) - static_cast<ptrdiff_t>(suffix.length());
}

// -1 for npos.
int toPosition(size_t position) {
  return static_cast<int>(position);
}
size_t notNegative(int position) {
  return position < 0 ? 0 : static_cast<size_t>(position);
}
bool isWithin(tvstring const &text, int index) {
  return index >= 0 && static_cast<size_t>(index) < text.length();
}

// The text with `value` in place of count bytes from `from` on. REQUIRES: the run lies within the text
tvstring splice(tvstring const &text, size_t from, size_t count, std::string_view value) {
  if (count == 0 && value.empty()) return text;
  std::string_view const whole = viewOf(text);
  return newText(whole.size() - count + value.size(),
                 [&](char *to) { put(put(put(to, whole.substr(0, from)), value), whole.substr(from + count)); });
}

tvstring insertAt(tvstring const &text, int position, std::string_view value) {
  return splice(text, std::min(notNegative(position), text.length()), 0, value);
}

tvstring replaceRun(tvstring const &text, int start, int count, std::string_view value) {
  if (!isWithin(text, start) || count < 0) return text;
  size_t const from = static_cast<size_t>(start);
  return splice(text, from, std::min(static_cast<size_t>(count), text.length() - from), value);
}

// The next occurrence in [from, end), or null. Looking for the first byte is the fastest for short parts; for long ones
// its work would grow with the product of the lengths. REQUIRES: part is not empty
char const *next(char const *from, char const *end, std::string_view part) {
  constexpr size_t SHORT = 16;
  std::string_view const rest(from, static_cast<size_t>(end - from));
  if (part.size() > SHORT) return static_cast<char const *>(memmem(from, rest.size(), part.data(), part.size()));
  size_t const at = rest.find(part);
  return at == std::string_view::npos ? nullptr : from + at;
}

tvstring replaceAll(tvstring const &text, std::string_view old, std::string_view value) {
  if (old.empty()) return text;
  constexpr size_t KEPT = 32;  // hits that the second walk need not search for again
  char const *hits[KEPT];
  size_t count = 0;
  char const *const end = text.data() + text.length();
  for (char const *from = text.data(), *hit; (hit = next(from, end, old)) != nullptr; from = hit + old.size()) {
    if (count < KEPT) hits[count] = hit;
    ++count;
  }
  if (count == 0) return text;
  return newText(text.length() - count * old.size() + product(count, value.size()), [&](char *to) {
    char const *from = text.data();
    for (size_t i = 0; i != count; ++i) {
      char const *const hit = i < KEPT ? hits[i] : next(from, end, old);
      to = put(std::copy(from, hit, to), value);
      from = hit + old.size();
    }
    std::copy(from, end, to);
  });
}

bool isBlank(char c) {
  return static_cast<signed char>(c) <= ' ';
}
size_t blanksBefore(tvstring const &text) {
  size_t at = 0;
  while (at < text.length() && isBlank(text[at])) ++at;
  return at;
}
// The length without the blanks at the end, if it is not below `from`.
size_t endOfText(tvstring const &text, size_t from) {
  size_t end = text.length();
  while (end > from && isBlank(text[end - 1])) --end;
  return end;
}

// Exactly `width` bytes: the text's first ones, with fill before or behind them.
tvstring padded(tvstring const &text, char pad, int width, bool before) {
  size_t const wanted = notNegative(width);
  if (text.length() >= wanted) return text.substr(0, wanted);
  size_t const fill = wanted - text.length();
  return newText(wanted, [&](char *to) {
    if (before) to = put(to, fill, pad);
    to = put(to, viewOf(text));
    if (!before) put(to, fill, pad);
  });
}

}  // namespace

int TextFunctions::compareIgnoreCase(tvstring const &a, tvstring const &b) {
  Lowering const lowered{};
  size_t const common = std::min(a.length(), b.length());
  for (size_t i = 0; i != common; ++i) {
    signed char const x = static_cast<signed char>(lowered(a[i]));
    signed char const y = static_cast<signed char>(lowered(b[i]));
    if (x != y) return x - y;
  }
  return static_cast<int>(static_cast<uint32_t>(a.length() - b.length()));
}

bool TextFunctions::startsWith(tvstring const &text, tvstring const &prefix, int offset) {
  return standsAt(text, prefix, offset, std::equal_to<>());
}
bool TextFunctions::startsWithIgnoreCase(tvstring const &text, tvstring const &prefix, int offset) {
  return standsAt(text, prefix, offset, EqualIgnoringCase());
}
bool TextFunctions::endsWith(tvstring const &text, tvstring const &suffix) {
  return standsAt(text, suffix, endOffset(text, suffix), std::equal_to<>());
}
bool TextFunctions::endsWithIgnoreCase(tvstring const &text, tvstring const &suffix) {
  return standsAt(text, suffix, endOffset(text, suffix), EqualIgnoringCase());
}

int TextFunctions::findFirst(tvstring const &text, char c, int from) {
  return toPosition(text.find(static_cast<signed char>(c), notNegative(from)));
}
int TextFunctions::findFirst(tvstring const &text, tvstring const &part, int from) {
  return toPosition(text.find(part, notNegative(from)));
}
int TextFunctions::findLast(tvstring const &text, char c, int from) {
  return from < 0 ? -1 : toPosition(text.rfind(c, static_cast<size_t>(from)));
}
int TextFunctions::findLast(tvstring const &text, tvstring const &part, int from) {
  return from < 0 ? -1 : toPosition(text.rfind(part, static_cast<size_t>(from)));
}

bool TextFunctions::isAlphaUpper(tvstring const &text) {
  return passes<isAlphaUpper>(text);
}
bool TextFunctions::isAlpha(tvstring const &text) {
  return passes<isAlpha>(text);
}
bool TextFunctions::isNum(tvstring const &text) {
  return passes<isNum>(text);
}
bool TextFunctions::isAlphaNum(tvstring const &text) {
  return passes<isAlphaNum>(text);
}
bool TextFunctions::isAlphaUpperNum(tvstring const &text) {
  return passes<isAlphaUpperNum>(text);
}

tvstring TextFunctions::lowercase(tvstring const &text) {
  return changed(text, Lowering());
}
tvstring TextFunctions::uppercase(tvstring const &text) {
  return changed(text, Raising());
}

tvstring TextFunctions::leftStr(tvstring const &text, tvstring const &marker) {
  size_t const at = text.find(marker);
  return at == tvstring::npos ? text : text.substr(0, at);
}
tvstring TextFunctions::rightStr(tvstring const &text, tvstring const &marker) {
  size_t const at = text.find(marker);
  return at == tvstring::npos ? text : text.substr(at + marker.length());
}

char TextFunctions::charAt(tvstring const &text, int index) {
  if (!isWithin(text, index)) raise<TransformRuntimeException>("Index out of range of string.", SOURCE);
  return text[static_cast<size_t>(index)];
}

tvstring TextFunctions::insert(tvstring const &text, int position, tvstring const &value) {
  return insertAt(text, position, viewOf(value));
}
tvstring TextFunctions::insert(tvstring const &text, int position, int value) {
  char number[12];
  return insertAt(text, position, ::intToString(value, number));
}
tvstring TextFunctions::insert(tvstring const &text, int position, float value) {
  char number[64];
  return insertAt(text, position, ::floatToString(value, number));
}
tvstring TextFunctions::insert(tvstring const &text, int position, double value) {
  char number[352];
  return insertAt(text, position, ::doubleToString(value, number));
}
tvstring TextFunctions::insert(tvstring const &text, int position, char value) {
  return insertAt(text, position, viewOf(value));
}

tvstring TextFunctions::deleteCharAt(tvstring const &text, int index) {
  return deleteStr(text, index, 1);
}
tvstring TextFunctions::deleteStr(tvstring const &text, int start, int count) {
  return replaceRun(text, start, count, {});
}

tvstring TextFunctions::replace(tvstring const &text, char old, char replacement) {
  if (findFirst(text, old) < 0) return text;
  return changed(text, [=](char c) { return c == old ? replacement : c; });
}
tvstring TextFunctions::replace(tvstring const &text, char old, tvstring const &replacement) {
  return replaceAll(text, viewOf(old), viewOf(replacement));
}
tvstring TextFunctions::replace(tvstring const &text, tvstring const &old, char replacement) {
  return replaceAll(text, viewOf(old), viewOf(replacement));
}
tvstring TextFunctions::replace(tvstring const &text, tvstring const &old, tvstring const &replacement) {
  return replaceAll(text, viewOf(old), viewOf(replacement));
}
tvstring TextFunctions::replace(tvstring const &text, int start, int count, tvstring const &replacement) {
  return replaceRun(text, start, count, viewOf(replacement));
}
tvstring TextFunctions::replace(tvstring const &text, int index, char replacement) {
  return replaceRun(text, index, 1, viewOf(replacement));
}

tvstring TextFunctions::trimLeft(tvstring const &text) {
  return text.substr(blanksBefore(text));
}
tvstring TextFunctions::trimRight(tvstring const &text) {
  return text.substr(0, endOfText(text, 0));
}
tvstring TextFunctions::trim(tvstring const &text) {
  size_t const start = blanksBefore(text);
  return text.substr(start, endOfText(text, start) - start);
}

tvstring TextFunctions::reverse(tvstring const &text) {
  return newText(text.length(), [&](char *to) { std::reverse_copy(text.data(), text.data() + text.length(), to); });
}

tvstring TextFunctions::repeat(tvstring const &text, int count) {
  size_t const total = product(notNegative(count), text.length());
  return newText(total, [&](char *to) {
    put(to, viewOf(text));
    for (size_t done = text.length(); done != total; done += std::min(done, total - done))
      std::memcpy(to + done, to, std::min(done, total - done));
  });
}

tvstring TextFunctions::rpad(tvstring const &text, char pad, int width) {
  return padded(text, pad, width, false);
}
tvstring TextFunctions::lpad(tvstring const &text, char pad, int width) {
  return padded(text, pad, width, true);
}

TextFunctions::List TextFunctions::split(tvstring const &separator, tvstring const &text, int limit) {
  List parts;
  if (text.empty()) return parts;
  if (separator.empty()) {
    parts.add(text);
    return parts;
  }
  for (size_t at = 0; parts.size() < limit;) {
    size_t const end = text.find(separator, at);
    if (end == tvstring::npos) {
      parts.add(text.substr(at));
      break;
    }
    parts.add(text.substr(at, end - at));
    at = end + separator.length();
    if (at == text.length()) {
      parts.add(tvstring());  // over the limit, too
      break;
    }
  }
  return parts;
}

}  // namespace tavrone

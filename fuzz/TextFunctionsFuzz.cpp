// Every text function with arguments of any kind, beside the same work on a std::string, written as plainly as can be.

#include <algorithm>
#include <cctype>
#include <climits>
#include <functional>
#include <vector>

#include "tavrone/core/Exceptions.h"
#include "tavrone/formula/TextFunctions.h"
#include "tests/FuzzInput.h"
#include "tests/Text.h"

using namespace tavrone;
using Formula = TextFunctions;
using Text = std::string;

namespace {

size_t count(int value) {
  return value < 0 ? 0 : static_cast<size_t>(value);
}

Text lowered(Text text) {
  for (char &c : text) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
  return text;
}

Text left(Text const &text, int n) {
  return text.substr(0, count(n));
}

Text spliced(Text const &text, int start, int n, Text const &value) {
  if (start < 0 || count(start) >= text.size() || n < 0) return text;
  return text.substr(0, count(start)) + value + text.substr(std::min(text.size(), count(start) + count(n)));
}

Text replaced(Text const &text, Text const &old, Text const &value) {
  if (old.empty()) return text;
  Text result;
  size_t at = 0;
  for (size_t hit; (hit = text.find(old, at)) != Text::npos; at = hit + old.size())
    result += text.substr(at, hit - at) + value;
  return result + text.substr(at);
}

Text trimmed(Text text, bool atFront, bool atBack) {
  auto const blank = [](char c) { return static_cast<signed char>(c) <= 32; };
  while (atBack && !text.empty() && blank(text.back())) text.pop_back();
  while (atFront && !text.empty() && blank(text.front())) text.erase(0, 1);
  return text;
}

std::vector<Text> split(Text const &separator, Text const &text, int limit) {
  if (text.empty()) return {};
  if (separator.empty()) return {text};
  std::vector<Text> parts;
  for (size_t at = 0; static_cast<int>(parts.size()) < limit;) {
    size_t const hit = text.find(separator, at);
    parts.push_back(text.substr(at, hit - at));
    if (hit == Text::npos) break;
    at = hit + separator.size();
    if (at == text.size()) {
      parts.emplace_back();
      break;
    }
  }
  return parts;
}

int sign(int value) {
  return (value > 0) - (value < 0);
}
int compared(Text const &a, Text const &b) {
  for (size_t i = 0; i < std::min(a.size(), b.size()); ++i)
    if (a[i] != b[i]) return static_cast<signed char>(a[i]) < static_cast<signed char>(b[i]) ? -1 : 1;
  return (a.size() > b.size()) - (a.size() < b.size());
}

bool standsAt(Text const &text, Text const &part, int offset) {
  return offset >= 0 && count(offset) <= text.size() && text.compare(count(offset), part.size(), part) == 0;
}
bool endsWith(Text const &text, Text const &part) {
  return text.size() >= part.size() && text.substr(text.size() - part.size()) == part;
}
int position(size_t found) {
  return found == Text::npos ? -1 : static_cast<int>(found);
}
// As tvstring::find, which finds nothing at or past the end but an empty text in an empty text.
int found(Text const &text, Text const &part, int from) {
  if (count(from) >= text.size() && !(text.empty() && count(from) == 0)) return -1;
  return position(text.find(part, count(from)));
}

bool all(Text const &text, char const *accepted) {
  return text.find_first_not_of(accepted) == Text::npos;
}

// An argument: mostly one near the length.
int takeIndex(FuzzInput &input, size_t length) {
  static constexpr int EXTREMES[] = {INT_MIN, INT_MAX, -1, 1 << 16};
  uint8_t const choice = input.take<uint8_t>();
  return choice < 8 ? EXTREMES[choice & 3] : static_cast<int>(choice % (length + 3)) - 1;
}
// One that a result's length may follow.
int takeCount(FuzzInput &input) {
  return std::min(takeIndex(input, 40), 1000);
}
Text takeText(FuzzInput &input) {
  return input.takeText(input.below(64));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(uint8_t const *data, size_t size) {
  FuzzInput input(data, size);
  Text const s = takeText(input), part = input.take<uint8_t>() & 1 ? takeText(input) : s.substr(s.size() / 2, 2);
  Text const value = takeText(input);
  // Views on one array, so that reading past a text's end shows.
  tvstring const array((s + part + value).c_str(), s.size() + part.size() + value.size());
  tvstring const text = array.substr(0, s.size()), piece = array.substr(s.size(), part.size()),
                 other = array.substr(s.size() + part.size());
  int const i = takeIndex(input, s.size()), n = takeIndex(input, s.size()), times = takeCount(input);
  char const c = input.take<char>(), d = input.take<char>();
  Text const C(1, c), D(1, d);
  auto const same = [](tvstring const &result, Text const &expected) { require(str(result) == expected); };

  require(Formula::equal(text, piece) == (s == part) && Formula::notEqual(text, piece) == (s != part));
  require(Formula::lessEqual(text, piece) == (compared(s, part) <= 0));
  require(Formula::greaterEqual(text, piece) == (compared(s, part) >= 0));
  require(sign(Formula::compareIgnoreCase(text, piece)) == compared(lowered(s), lowered(part)));
  require(Formula::equalIgnoreCase(text, piece) == (lowered(s) == lowered(part)));
  require(Formula::notEqualIgnoreCase(text, piece) == (lowered(s) != lowered(part)));
  require(Formula::startsWith(text, piece) == standsAt(s, part, 0));
  require(Formula::startsWith(text, piece, i) == standsAt(s, part, i));
  require(Formula::startsWithIgnoreCase(text, piece, i) == standsAt(lowered(s), lowered(part), i));
  require(Formula::endsWith(text, piece) == endsWith(s, part));
  require(Formula::endsWithIgnoreCase(text, piece) == endsWith(lowered(s), lowered(part)));
  require(Formula::findFirst(text, piece, i) == found(s, part, i));
  require(Formula::findFirst(text, c, i) == found(s, C, i));
  require(Formula::findLast(text, piece, i) == (i < 0 ? -1 : position(s.rfind(part, count(i)))));
  require(Formula::findLast(text, c, i) == (i < 0 ? -1 : position(s.rfind(c, count(i)))));

  Text const capitals = "ABCDEFGHIJKLMNOPQRSTUVWXYZ", letters = capitals + lowered(capitals), digits = "0123456789";
  require(Formula::isAlphaUpper(text) == all(s, capitals.c_str()) && Formula::isAlpha(text) == all(s, letters.c_str()));
  require(Formula::isNum(text) == all(s, digits.c_str()));
  require(Formula::isAlphaNum(text) == all(s, (letters + digits).c_str()));
  require(Formula::isAlphaUpperNum(text) == all(s, (capitals + digits).c_str()));

  same(Formula::lower(text), lowered(s));
  require(lowered(str(Formula::upper(text))) == lowered(s) && str(Formula::lower(Formula::upper(text))) == lowered(s));
  same(Formula::left(text, n), left(s, n));
  same(Formula::right(text, n), n < 0 ? "" : s.substr(s.size() - std::min(count(n), s.size())));
  same(Formula::mid(text, i, n), count(i) >= s.size() ? "" : left(s.substr(count(i)), n));
  same(Formula::leftStr(text, piece), s.substr(0, s.find(part)));
  same(Formula::rightStr(text, piece), s.find(part) == Text::npos ? s : s.substr(s.find(part) + part.size()));
  try {
    require(Formula::charAt(text, i) == s[count(i)] && i >= 0 && count(i) < s.size());
  } catch (TransformRuntimeException const &) {
    require(i < 0 || count(i) >= s.size());
  }
  Text const front = left(s, i), back = s.substr(front.size());
  same(Formula::insert(text, i, other), front + value + back);
  same(Formula::insert(text, i, n), front + std::to_string(n) + back);
  same(Formula::insert(text, i, n / 8.0), front + str(doubleToString(n / 8.0)) + back);
  same(Formula::insert(text, i, c), front + C + back);
  same(Formula::deleteCharAt(text, i), spliced(s, i, 1, ""));
  same(Formula::deleteStr(text, i, n), spliced(s, i, n, ""));
  same(Formula::replace(text, i, n, other), spliced(s, i, n, value));
  same(Formula::replace(text, i, c), spliced(s, i, 1, C));
  same(Formula::replace(text, piece, other), replaced(s, part, value));
  same(Formula::replace(text, piece, c), replaced(s, part, C));
  same(Formula::replace(text, c, other), replaced(s, C, value));
  same(Formula::replace(text, c, d), replaced(s, C, D));
  same(Formula::trim(text), trimmed(s, true, true));
  same(Formula::trimLeft(text), trimmed(s, true, false));
  same(Formula::trimRight(text), trimmed(s, false, true));
  same(Formula::reverse(text), Text(s.rbegin(), s.rend()));
  Text repeated;
  for (int k = 0; k < times; ++k) repeated += s;
  same(Formula::repeat(text, times), repeated);
  Text const cut = left(s, times), fill(count(times) - cut.size(), c);
  same(Formula::rpad(text, c, times), cut + fill);
  same(Formula::lpad(text, c, times), fill + cut);

  std::vector<Text> const parts = split(part, s, n);
  Formula::List const list = Formula::split(piece, text, n);
  require(std::equal(list.begin(), list.end(), parts.begin(), parts.end(),
                     [](tvstring const &a, Text const &b) { return str(a) == b; }));

  tvstringbuffer buffer = Formula::createStringBuffer();
  Formula::append(Formula::append(Formula::append(Formula::append(buffer, text), n), c), Binary(other));
  same(Formula::append(buffer, BigInteger(i)), s + std::to_string(n) + C + value + std::to_string(i));
  return 0;
}

#pragma once

#include <vector>

#include "tavrone/core/TList.h"
#include "tavrone/formula/ConcatFunctionsHelper.h"

namespace tavrone {

// Text work for formulas. Indexes are 0-based and count bytes. Arguments don't change; parts of a text are views on it.
//
// Only charAt fails. Anywhere else an index that is out of range gives the empty text or the text unchanged, as each
// function says; a text that no array can hold (past an int) raises std::bad_array_new_length.
class TAVRONE_API TextFunctions {
 public:
  using List = TList<std::vector<tvstring>, tvstring>;

  // Byte by byte; the order is tvstring's, where bytes from 128 up come first.
  static bool equal(tvstring const &a, tvstring const &b) { return a == b; }
  static bool notEqual(tvstring const &a, tvstring const &b) { return a != b; }
  static bool lessEqual(tvstring const &a, tvstring const &b) { return !(a > b); }
  static bool greaterEqual(tvstring const &a, tvstring const &b) { return !(a < b); }

  // As tvstring::compare on lowered copies: negative, zero or positive.
  static int compareIgnoreCase(tvstring const &a, tvstring const &b);
  static bool equalIgnoreCase(tvstring const &a, tvstring const &b) { return compareIgnoreCase(a, b) == 0; }
  static bool notEqualIgnoreCase(tvstring const &a, tvstring const &b) { return compareIgnoreCase(a, b) != 0; }

  // Whether the prefix stands at the offset; false for one outside the text.
  static bool startsWith(tvstring const &text, tvstring const &prefix, int offset = 0);
  static bool startsWithIgnoreCase(tvstring const &text, tvstring const &prefix, int offset = 0);
  static bool endsWith(tvstring const &text, tvstring const &suffix);
  static bool endsWithIgnoreCase(tvstring const &text, tvstring const &suffix);

  // The first position at or after `from`, or -1; a negative `from` is 0. An empty text is found as by tvstring::find.
  static int findFirst(tvstring const &text, char c, int from = 0);
  static int findFirst(tvstring const &text, tvstring const &part, int from = 0);
  // The last position at or before `from`, or -1, also for a negative `from`.
  static int findLast(tvstring const &text, char c, int from);
  static int findLast(tvstring const &text, tvstring const &part, int from);

  // ASCII alone, whatever the locale. A text passes if each of its characters does, so the empty text always passes.
  static bool isAlphaUpper(char c) { return c >= 'A' && c <= 'Z'; }
  static bool isAlpha(char c) { return isAlphaUpper(c) || (c >= 'a' && c <= 'z'); }
  static bool isNum(char c) { return c >= '0' && c <= '9'; }
  static bool isAlphaNum(char c) { return isAlpha(c) || isNum(c); }
  static bool isAlphaUpperNum(char c) { return isAlphaUpper(c) || isNum(c); }
  static bool isAlphaUpper(tvstring const &text);
  static bool isAlpha(tvstring const &text);
  static bool isNum(tvstring const &text);
  static bool isAlphaNum(tvstring const &text);
  static bool isAlphaUpperNum(tvstring const &text);

  // Byte by byte through the C library's tolower and toupper, and so by the process's locale.
  static tvstring lowercase(tvstring const &text);
  static tvstring uppercase(tvstring const &text);
  static tvstring lower(tvstring const &text) { return lowercase(text); }
  static tvstring upper(tvstring const &text) { return uppercase(text); }

  // The first or last n bytes: none for a negative n, the whole text if it is no longer.
  static tvstring left(tvstring const &text, int n) {
    return n < 0 ? tvstring() : text.substr(0, static_cast<size_t>(n));
  }
  static tvstring right(tvstring const &text, int n) {
    if (n < 0) return tvstring();
    size_t const length = static_cast<size_t>(n);
    return length >= text.length() ? text : text.substr(text.length() - length);
  }
  // A negative start is 0; empty for a negative count or a start at or past the end; cut at the end.
  static tvstring mid(tvstring const &text, int start, int count) {
    size_t const from = start < 0 ? 0 : static_cast<size_t>(start);
    return count < 0 || from >= text.length() ? tvstring() : text.substr(from, static_cast<size_t>(count));
  }
  // What stands before and behind the first marker; without one both give the whole text.
  static tvstring leftStr(tvstring const &text, tvstring const &marker);
  static tvstring rightStr(tvstring const &text, tvstring const &marker);
  // Raises TransformRuntimeException "Index out of range of string."
  static char charAt(tvstring const &text, int index);

  // Numbers as the number texts of Conversion.h. A negative position is 0, one past the end appends.
  static tvstring insert(tvstring const &text, int position, tvstring const &value);
  static tvstring insert(tvstring const &text, int position, int value);
  static tvstring insert(tvstring const &text, int position, float value);
  static tvstring insert(tvstring const &text, int position, double value);
  static tvstring insert(tvstring const &text, int position, char value);
  // Unchanged for an index out of range.
  static tvstring deleteCharAt(tvstring const &text, int index);
  // Unchanged for a start outside the text or a negative count; a count past the end is cut.
  static tvstring deleteStr(tvstring const &text, int start, int count);

  // Every occurrence from left to right, none within what was put in. An empty old text changes nothing.
  static tvstring replace(tvstring const &text, char old, char replacement);
  static tvstring replace(tvstring const &text, char old, tvstring const &replacement);
  static tvstring replace(tvstring const &text, tvstring const &old, char replacement);
  static tvstring replace(tvstring const &text, tvstring const &old, tvstring const &replacement);
  // A run, or the byte at an index: deleteStr's rules for what is out of range.
  static tvstring replace(tvstring const &text, int start, int count, tvstring const &replacement);
  static tvstring replace(tvstring const &text, int index, char replacement);

  // Without leading or trailing blanks: every byte that, signed, is at most 32. So bytes from 128 up are blanks, too,
  // which is meant.
  static tvstring trimLeft(tvstring const &text);
  static tvstring trimRight(tvstring const &text);
  static tvstring trim(tvstring const &text);

  // The bytes, not the characters of an encoding, in reverse order.
  static tvstring reverse(tvstring const &text);
  // `count` copies; empty for a count below 1.
  static tvstring repeat(tvstring const &text, int count);
  // Exactly `width` bytes, empty for a width below 1: a longer text is cut to its first ones, a shorter one filled on
  // its right or on its left.
  static tvstring rpad(tvstring const &text, char pad, int width);
  static tvstring lpad(tvstring const &text, char pad, int width);

  // The parts between separators, at most `limit` of them, what is left over is lost: that is meant. A separator at the
  // very end adds an empty part, over the limit, too. Empty for an empty text; an empty separator parts nothing.
  static List split(tvstring const &separator, tvstring const &text, int limit = 1000000);

  static tvstringbuffer createStringBuffer() { return tvstringbuffer(); }
  // Appends a value of any type that ConcatFunctionsHelper::appendToString takes, as that does, and returns the buffer.
  template <class Value>
  static tvstringbuffer &append(tvstringbuffer &buffer, Value const &value) {
    return ConcatFunctionsHelper::appendToString(buffer, value);
  }
};

}  // namespace tavrone

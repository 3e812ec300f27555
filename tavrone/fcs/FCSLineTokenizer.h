#pragma once

#include <algorithm>
#include <array>
#include <climits>

#include "tavrone/core/tvstring.h"

namespace tavrone {

// A cursor over the tokens of one line. Tokens are views on the line, cut when the line is set; nothing is copied and
// nothing allocated. Meant to be kept and given one line after the other.
//
// A space separates, several as one; a tab is a token character. A line holds 47 tokens, the last of which must run to
// the line's end. A token that does not exist reads as empty text, also where the cursor was sent to before the first.
// Token numbers are 0-based.
//
// References to tokens and to the line are good until the next setString. Failures are FCSParseExceptions; those of
// an operation that is not static carry the line and the column, and leave the tokenizer as it was.
class TAVRONE_API FCSLineTokenizer {
 public:
  FCSLineTokenizer() = default;
  FCSLineTokenizer(tvstring const &line) { setString(line); }
  FCSLineTokenizer(FCSLineTokenizer const &other) { *this = other; }
  FCSLineTokenizer &operator=(FCSLineTokenizer const &other);
  ~FCSLineTokenizer() { setTokenCount(0); }

  // Starts afresh with the line, which may be a token of the former one. Raises "Too many tokens in line" and then
  // keeps the former line.
  void setString(tvstring const &line);

  // The token at the cursor. Advances, at the end too, so that pushback always undoes it.
  tvstring const &getNextToken() {
    tvstring const &next = peekNextToken();
    moveTo(currentToken_ + 1LL);
    return next;
  }
  tvstring const &peekNextToken() const { return token(currentToken_); }
  // The token i places on; 0 is the next one.
  tvstring const &peekToken(int i) const { return token(static_cast<long long>(currentToken_) + i); }
  // The token i places back; 1 is the one that getNextToken gave last.
  tvstring const &previousToken(int i) const { return token(static_cast<long long>(currentToken_) - i); }
  // The token n places on; the cursor goes behind it.
  tvstring const &getNextToken(int n);

  int mark() const { return currentToken_; }
  void reset() { currentToken_ = 0; }
  // To a mark.
  void reset(int mark) { moveTo(mark); }
  // Forward by n tokens, to the end of the line at most.
  void skip(int n);
  void skipToEnd() { currentToken_ = tokenCount_; }
  // Back by one token; the argument is not used.
  void pushback(tvstring const & /*token*/) { moveTo(currentToken_ - 1LL); }

  bool hasMoreTokens() const { return currentToken_ < tokenCount_; }
  // No tokens at all.
  bool isEmpty() const { return tokenCount_ == 0; }
  int getTokenCount() const { return tokenCount_; }
  // There are tokens and none was taken.
  bool hasFullLine() const { return tokenCount_ != 0 && currentToken_ == 0; }
  // The sum of (length + 1) over the tokens before the cursor: the cursor's 0-based column in a line without
  // superfluous spaces.
  int getColumn() const { return columnOf(currentToken_); }

  // The whole line; the cursor goes to its end.
  tvstring const &getLine() {
    skipToEnd();
    return line_;
  }
  // The text from the next token to the end of the line, spaces included; getRest moves to the end.
  tvstring getRest();
  tvstring peekRest() const;
  // The text from the next token through the last one before token i, to which the cursor goes; empty, without moving,
  // where the cursor is already there.
  tvstring getTillToken(int i);
  // The text from the next token through the n-th from here.
  tvstring peekTokenList(int n) const { return run(static_cast<long long>(currentToken_) + n); }
  // Whether the line from the next token on begins with the text and the text does not end inside a token.
  bool matchTokens(tvstring const &text) const;

  // The next token, taken, if it is all digits (all capital letters 'A' to 'Z') and at most n long, or exactly n with
  // `exact`. Else empty, and nothing is taken.
  tvstring getNumberType(int n, bool exact);
  tvstring getCharType(int n, bool exact);
  // The same tests on the next token, which stays.
  bool isCharType(int n, bool exact) const;
  bool isAlphaNumericType(int n, bool exact) const;
  bool isTextType(int n, bool exact) const;

  // Tests on a text: not empty, at most maxLength bytes, and digits, capital letters, or bytes below 0x80.
  static bool isNumberType(tvstring const &value, int maxLength);
  static bool isCharType(tvstring const &value, int maxLength);
  // Tests the length only and takes every byte: callers depend on that.
  static bool isAlphaNumericType(tvstring const &value, int maxLength);
  static bool isTextType(tvstring const &value, int maxLength);
  // ASCII letters and digits.
  static bool isAlphaNumericType(char c) {
    return (c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z');
  }
  static bool isTextType(char c) { return (c & 0x80) == 0; }

  // Whether the next token is of digits and '.' only.
  bool isPrice() const;
  // Takes a price: a decimal ("12.5"), or a whole number that a fraction may follow ("12 3/8"). Any token behind a
  // whole number that begins with a digit is taken for its fraction, so "100 200" fails. Raises "Unexpected character
  // in fraction part of price" and "Illegal fraction part of price" (numerator or denominator missing, 0 or past an
  // int), and the words of Parsing::parseDouble or t_atoi for a whole part that is no number. The whole part is then
  // behind, a fraction is not.
  double parsePrice();

  // Raises "Error parsing line '<name>', unexpected tokens at the end of line. Remaining '<rest>'" if tokens remain.
  void assertEmpty(char const *lineName) const;

  // For generated parsers. All raise.
  [[noreturn]] static void emptyLineError();
  [[noreturn]] static void additionalLinesAtEndError();
  [[noreturn]] static void lineLengthError(char const *name, int limit);
  [[noreturn]] static void missingFieldError(char const *field, tvstring const &line);

 private:
  static constexpr int PLACES = 50;

  // Room for tokens; those of the line are constructed, the others are not. Most lines have few.
  union Places {
    Places() {}
    ~Places() {}
    std::array<tvstring, PLACES> places;
  };

  tvstring const &token(long long i) const {
    return i >= 0 && i < tokenCount_ ? tokens_.places[static_cast<size_t>(i)] : tvstring::EMPTY;
  }
  void moveTo(long long place) { currentToken_ = static_cast<int>(std::clamp<long long>(place, INT_MIN, INT_MAX)); }
  // The next token that exists, if any does.
  int nextPlace() const { return std::max(currentToken_, 0); }
  // Constructs those that are missing and destroys those that are too many.
  void setTokenCount(size_t count);
  tvstring run(long long end) const;
  int columnOf(int end) const;
  double readFraction() const;
  [[noreturn]] void fail(tvstring const &text, int line = __builtin_LINE()) const;

  tvstring line_;
  Places tokens_;
  int currentToken_ = 0;
  int tokenCount_ = 0;
};

}  // namespace tavrone

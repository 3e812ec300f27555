#include "tavrone/fcs/FCSLineTokenizer.h"

#include <algorithm>
#include <bit>
#include <memory>

#include "tavrone/core/Parsing.h"
#include "tavrone/core/Raise.h"
#include "tavrone/fcs/ByteScan.h"

namespace tavrone {

namespace {

constexpr char const *SOURCE = "cpp/fcs/FCSLineTokenizer";

// Objects, so that they are inlined into the loops.
constexpr auto isDigit = [](char c) { return c >= '0' && c <= '9'; };
constexpr auto isCapital = [](char c) { return c >= 'A' && c <= 'Z'; };

template <class Test>
bool allOf(tvstring const &value, Test const &test) {
  return std::all_of(value.data(), value.data() + value.length(), test);
}

bool fits(tvstring const &value, int maxLength) {
  return !value.empty() && maxLength > 0 && value.length() <= static_cast<size_t>(maxLength);
}
bool hasLength(tvstring const &value, int n, bool exact) {
  return fits(value, n) && (!exact || value.length() == static_cast<size_t>(n));
}

// Where the tokens of a line begin and end, in turn.
class Edges {
 public:
  static constexpr size_t MAX_TOKENS = 47;

  // Stops where the line turns out to have too many.
  explicit Edges(tvstring const &line) : length_(line.length()) {
    ByteFinder const space(' ');
    uint64_t inToken = 0;
    for (size_t block = 0; block < length_ && !hasTooMany(); block += BLOCK) {
      char const *const from = line.data() + block;
      size_t const rest = length_ - block;
      uint64_t const token = ~(rest >= BLOCK ? space.in64(from) : space.inLast(line.data(), from, rest)) &
                             (rest >= BLOCK ? ~0ULL : (1ULL << rest) - 1);
      for (uint64_t edges = token ^ (token << 1 | inToken); edges != 0; edges &= edges - 1)
        at_[count_++] = block + static_cast<size_t>(std::countr_zero(edges));
      inToken = token >> (BLOCK - 1);
    }
    if (count_ % 2 != 0) at_[count_++] = length_;
  }

  size_t tokenCount() const { return count_ / 2; }
  size_t begin(size_t token) const { return at_[2 * token]; }
  size_t end(size_t token) const { return at_[2 * token + 1]; }
  // Whether a space ends the last token that a line may have.
  bool hasTooMany() const { return tokenCount() >= MAX_TOKENS && end(MAX_TOKENS - 1) != length_; }

 private:
  static constexpr size_t BLOCK = 64;

  size_t length_;
  size_t count_ = 0;
  std::array<size_t, 2 * MAX_TOKENS + BLOCK + 1> at_;
};

// The number that digits spell, 0 for none; past an int, some number past an int.
long long readDigits(char const *&at, char const *end) {
  long long value = 0;
  for (; at != end && isDigit(*at); ++at)
    if (value <= INT_MAX) value = value * 10 + (*at - '0');
  return value;
}

}  // namespace

void FCSLineTokenizer::setString(tvstring const &line) {
  Edges const edges(line);
  if (edges.hasTooMany()) {
    auto failure = failureAt<FCSParseException>("Too many tokens in line", SOURCE, __builtin_LINE());
    failure.setFailedLine(line);
    failure.setColumn(static_cast<int>(std::min<size_t>(edges.end(Edges::MAX_TOKENS - 1), INT_MAX)));
    throw failure;
  }
  tvstring text(line);  // which may be one of the tokens
  size_t const count = edges.tokenCount();
  setTokenCount(count);
  // Tokens that had the line's array before aren't counted up and down.
  for (size_t i = 0; i != count; ++i) text.substr(edges.begin(i), edges.end(i) - edges.begin(i), tokens_.places[i]);
  line_ = std::move(text);
  currentToken_ = 0;
}

FCSLineTokenizer &FCSLineTokenizer::operator=(FCSLineTokenizer const &other) {
  int const place = other.currentToken_;
  setString(tvstring(other.line_));
  currentToken_ = place;
  return *this;
}

void FCSLineTokenizer::setTokenCount(size_t count) {
  auto const former = static_cast<size_t>(tokenCount_);
  for (size_t i = former; i < count; ++i) std::construct_at(&tokens_.places[i]);
  for (size_t i = count; i < former; ++i) std::destroy_at(&tokens_.places[i]);
  tokenCount_ = static_cast<int>(count);
}

tvstring const &FCSLineTokenizer::getNextToken(int n) {
  long long const place = static_cast<long long>(currentToken_) + n;
  moveTo(place + 1);
  return token(place);
}

void FCSLineTokenizer::skip(int n) {
  if (n > 0 && hasMoreTokens()) moveTo(std::min<long long>(static_cast<long long>(currentToken_) + n, tokenCount_));
}

int FCSLineTokenizer::columnOf(int end) const {
  size_t column = 0;
  for (int i = 0; i < std::min(end, tokenCount_); ++i) column += token(i).length() + 1;
  return static_cast<int>(std::min<size_t>(column, INT_MAX));
}

tvstring FCSLineTokenizer::peekRest() const {
  if (nextPlace() >= tokenCount_) return tvstring();
  return line_.substr(static_cast<size_t>(token(nextPlace()).data() - line_.data()));
}
tvstring FCSLineTokenizer::getRest() {
  tvstring rest = peekRest();
  skipToEnd();
  return rest;
}

// The text from the next token through the last one before `end`.
tvstring FCSLineTokenizer::run(long long end) const {
  long long const last = std::min<long long>(end, tokenCount_) - 1;
  return last < nextPlace() ? tvstring() : token(nextPlace()).span(token(last));
}
tvstring FCSLineTokenizer::getTillToken(int i) {
  tvstring text = run(i);
  if (i > currentToken_ && hasMoreTokens()) moveTo(std::min(i, tokenCount_));
  return text;
}

bool FCSLineTokenizer::matchTokens(tvstring const &text) const {
  tvstring const rest = peekRest();
  size_t const length = text.length();
  if (length > rest.length() || !tvstring::equals(rest.data(), text.data(), length)) return false;
  return length == 0 || length == rest.length() || rest[length] == ' ' || rest[length - 1] == ' ';
}

tvstring FCSLineTokenizer::getNumberType(int n, bool exact) {
  bool const matches = hasLength(peekNextToken(), n, exact) && allOf(peekNextToken(), isDigit);
  return matches ? getNextToken() : tvstring();
}
tvstring FCSLineTokenizer::getCharType(int n, bool exact) {
  return isCharType(n, exact) ? getNextToken() : tvstring();
}

bool FCSLineTokenizer::isCharType(int n, bool exact) const {
  return hasLength(peekNextToken(), n, exact) && allOf(peekNextToken(), isCapital);
}
bool FCSLineTokenizer::isAlphaNumericType(int n, bool exact) const {
  return hasLength(peekNextToken(), n, exact);
}
bool FCSLineTokenizer::isTextType(int n, bool exact) const {
  return hasLength(peekNextToken(), n, exact) && isTextType(peekNextToken(), n);
}

bool FCSLineTokenizer::isNumberType(tvstring const &value, int maxLength) {
  return fits(value, maxLength) && allOf(value, isDigit);
}
bool FCSLineTokenizer::isCharType(tvstring const &value, int maxLength) {
  return fits(value, maxLength) && allOf(value, isCapital);
}
bool FCSLineTokenizer::isAlphaNumericType(tvstring const &value, int maxLength) {
  return fits(value, maxLength);
}
bool FCSLineTokenizer::isTextType(tvstring const &value, int maxLength) {
  return fits(value, maxLength) && allOf(value, [](char c) { return isTextType(c); });
}

bool FCSLineTokenizer::isPrice() const {
  tvstring const &price = peekNextToken();
  return !price.empty() && allOf(price, [](char c) { return isDigit(c) || c == '.'; });
}

double FCSLineTokenizer::parsePrice() {
  tvstring const &price = getNextToken();
  bool const hasPoint = price.find('.') != tvstring::npos;
  double whole = 0;
  try {
    whole = hasPoint ? Parsing::parseDouble(price) : Parsing::parseInt(price);
  } catch (TransformException const &failure) {
    fail(failure.getMessage());
  }
  if (hasPoint) return whole;
  tvstring const &next = peekNextToken();
  if (next.empty() || !isDigit(next[0])) return whole;
  double const fraction = readFraction();
  getNextToken();
  return whole + fraction;
}

double FCSLineTokenizer::readFraction() const {
  tvstring const &fraction = peekNextToken();
  char const *at = fraction.data();
  char const *const end = at + fraction.length();
  long long const numerator = readDigits(at, end);
  if (at != end && *at == '/') ++at;
  long long const denominator = readDigits(at, end);
  if (at != end) fail("Unexpected character in fraction part of price");
  if (numerator == 0 || denominator == 0 || numerator > INT_MAX || denominator > INT_MAX)
    fail("Illegal fraction part of price");
  return static_cast<double>(numerator) / static_cast<double>(denominator);
}

void FCSLineTokenizer::assertEmpty(char const *lineName) const {
  if (hasMoreTokens())
    fail("Error parsing line '" + tvstring(lineName) + "', unexpected tokens at the end of line. Remaining '" +
         peekRest() + "'");
}

void FCSLineTokenizer::fail(tvstring const &text, int line) const {
  auto failure = failureAt<FCSParseException>(text, SOURCE, line);
  failure.setFailedLine(line_);
  failure.setColumn(getColumn());
  throw failure;
}

void FCSLineTokenizer::emptyLineError() {
  raise<FCSParseException>("Empty line expected", SOURCE);
}
void FCSLineTokenizer::additionalLinesAtEndError() {
  raise<FCSParseException>("Unrecognized lines at the end", SOURCE);
}
void FCSLineTokenizer::lineLengthError(char const *name, int limit) {
  raise<FCSParseException>(
      "The length of line '" + tvstring(name) + "' exceeds the allowed length - " + intToString(limit), SOURCE);
}
void FCSLineTokenizer::missingFieldError(char const *field, tvstring const &line) {
  raise<FCSParseException>("Expected field '" + tvstring(field) + "' in line " + line, SOURCE);
}

}  // namespace tavrone

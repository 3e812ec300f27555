#include "tavrone/universal/UniversalInputRecord.h"

#include <algorithm>
#include <climits>
#include <cstring>
#include <limits>
#include <string_view>

#include "tavrone/core/Conversion.h"
#include "tavrone/core/DigitText.h"
#include "tavrone/core/Raise.h"
#include "tavrone/core/TextBlock.h"

namespace tavrone {
namespace {

constexpr char const *SOURCE = "cpp/universal/UniversalInputRecord";

constexpr uint64_t lowNibbles(uint64_t word, int n) {
  return n < 16 ? word & ((uint64_t{1} << 4 * n) - 1) : word;
}

uint64_t bigEndianWord(char const *from, int n) {
  uint64_t word = 0;
  for (int i = 0; i < n; ++i) word = word << 8 | static_cast<unsigned char>(from[i]);
  return word;
}

template <class Unsigned>
Unsigned swapBytes(Unsigned value) {
  if constexpr (sizeof value == 2) return __builtin_bswap16(value);
  if constexpr (sizeof value == 4) return __builtin_bswap32(value);
  if constexpr (sizeof value == 8) return __builtin_bswap64(value);
}

bool beginsWith(tvstring const &value, tvstring const &text) {
  return value.length() >= text.length() && tvstring::equals(value.data(), text.data(), text.length());
}

bool isBreak(char c) {
  return c == '\r' || c == '\n';
}

// The first break in [from, to), or the larger of both.
int findBreak(char const *bytes, int from, int to) {
  constexpr int STEP = BLOCK;
  for (; to - from >= STEP; from += STEP) {
    __m128i const block = loadBlock(bytes + from);
    __m128i const breaks =
        _mm_or_si128(_mm_cmpeq_epi8(block, _mm_set1_epi8('\r')), _mm_cmpeq_epi8(block, _mm_set1_epi8('\n')));
    if (unsigned const hits = highBits(breaks)) return from + std::countr_zero(hits);
  }
  while (from < to && !isBreak(bytes[from])) ++from;
  return from;
}

std::string_view viewOf(tvstring const &text) {
  return {text.data(), text.length()};
}

[[noreturn]] TAVRONE_COLD void raisePackedOverflow(int line = __builtin_LINE()) {
  raise<TransformException>("Packed decimal overflow", SOURCE, line);
}

}  // namespace

// The copy is a record of its own, which nobody holds yet.
UniversalInputRecord::UniversalInputRecord(UniversalInputRecord const &other)
    : Object(other),
      UniversalRecord(other),
      startPosition_(other.startPosition_),
      endPosition_(other.endPosition_),
      binary_(other.binary_),
      message_(other.message_),
      rawBytes_(other.rawBytes_),
      currentPosition_(other.currentPosition_),
      previousPosition_(other.previousPosition_),
      enclosingRecord_(other.enclosingRecord_),
      lineScan_(other.lineScan_),
      messageNumber_(other.messageNumber_) {}

UniversalInputRecord::~UniversalInputRecord() noexcept(false) = default;

void UniversalInputRecord::init(Binary const &binary) {
  if (binary.size() > INT_MAX) throwASCIITokenizeException("Out of bounds");
  Binary const bytes = binary.counted();
  UniversalRecord::init(EMPTY_STRING, false, true);
  init(bytes.asText(), bytes, 0, static_cast<int>(bytes.size()), nullptr);
  ++messageNumber_;
}

void UniversalInputRecord::init(tvstring const &message, Binary const &binary, int start, int length,
                                UniversalInputRecord *enclosing) {
  if (message.empty() != binary.empty()) {
    Binary const whole = message.empty() ? binary : Binary(message);
    return init(whole.asText(), whole, start, length, enclosing);
  }
  adopt(message, binary, start, assertRange(message, binary, start, length), enclosing);
}

void UniversalInputRecord::adopt(tvstring const &message, Binary const &binary, int start, int end,
                                 UniversalInputRecord *enclosing) {
  // The text is of the bytes' array where it may be: then the same bytes again need no counting.
  auto const isOneArray = [](tvstring const &text, Binary const &bytes) {
    return text.data() == bytes.data() && text.length() == bytes.length();
  };
  bool const isSameArray = binary_.isCounted() && binary.data() == rawBytes_ && binary.size() == binary_.size();
  unsigned const messageNumber = enclosing == nullptr ? messageNumber_ : enclosing->messageNumber_;
  // An array may hold another message by now.
  if (!isSameArray || enclosing == nullptr || messageNumber != messageNumber_) lineScan_ = LineScan();
  messageNumber_ = messageNumber;
  if (!isSameArray || !isOneArray(message, binary) || !isOneArray(message_, binary_)) {
    message_ = isOneArray(message, binary) ? binary.asText() : message;
    binary_ = binary;
    rawBytes_ = binary_.data();
  }
  startPosition_ = currentPosition_ = previousPosition_ = start;
  endPosition_ = end;
  enclosingRecord_ = enclosing;
}

void UniversalInputRecord::init(tvstring const &message, Binary const &binary, int start, int length,
                                tvstring const &delimiter, bool recordFlag, bool dropLastDelimiter,
                                UniversalInputRecord *enclosing) {
  init(message, binary, start, length, enclosing);
  UniversalRecord::init(delimiter, recordFlag, dropLastDelimiter);
}

// Both views of the message must reach so far; returns the end.
int UniversalInputRecord::assertRange(tvstring const &message, Binary const &binary, int start, int length) {
  size_t const size = std::min({message.length(), binary.size(), static_cast<size_t>(INT_MAX)});
  int const available = start < 0 ? -1 : static_cast<int>(size) - start;
  if (length < 0 || length > available)
    throwASCIITokenizeException("Not enough characters. Required " + intToString(length) + " , available " +
                                intToString(std::max(available, 0)));
  return start + length;
}

void UniversalInputRecord::reset() {
  UniversalRecord::reset();
  enclosingRecord_ = nullptr;
}

UniversalInputRecord *UniversalInputRecord::getDelimitedRecord(UniversalInputRecord *child, tvstring const &delimiter,
                                                               bool recordFlag, bool dropLastDelimiter) {
  onField();
  int const begin = currentPosition_;
  int const found = findDelimiter(delimiter, NO_QUOTE, begin, endPosition_);
  int const end = found < 0 ? endPosition_ : found;
  take((found < 0 ? end : end + static_cast<int>(delimiter.length())) - begin);
  child->UniversalRecord::init(delimiter, recordFlag, dropLastDelimiter);
  child->adopt(message_, binary_, begin, end, this);
  return child;
}

tvstring UniversalInputRecord::getStringAtEnd(int n) {
  if (isTrailingField() && isEmpty()) return EMPTY_STRING;
  assertRemaining(n);
  int const begin = take(n);
  return textAt(begin, n);
}

tvstring UniversalInputRecord::peekString(int offset, int length) const {
  long long const from = static_cast<long long>(currentPosition_) + offset;
  if (from >= endPosition_) return EMPTY_STRING;
  if (from < 0) raiseNotEnough(offset);
  if (length < 0) raiseNotEnough(length);
  return message_.substr(static_cast<size_t>(from), static_cast<size_t>(length));
}

tvstring UniversalInputRecord::peekRest() const {
  return textAt(currentPosition_, remaining());
}

bool UniversalInputRecord::isNext(char const *text) const {
  return isNext(Binary(text, std::strlen(text), false).asText());
}

bool UniversalInputRecord::isNext(tvstring const &text) const {
  size_t const position = static_cast<size_t>(currentPosition_);
  return text.length() < message_.length() - position &&
         tvstring::equals(message_.data() + position, text.data(), text.length());
}

tvstring UniversalInputRecord::getAnyDelimitedString(tvstring const &delimiter, char quote) {
  int const begin = currentPosition_;
  int const found = findDelimiter(delimiter, quote, begin, endPosition_);
  int const end = found < 0 ? endPosition_ : found;
  take((found < 0 ? end : end + static_cast<int>(delimiter.length())) - begin);
  tvstring const field = textAt(begin, end - begin);
  return hasQuote(field, quote) ? removeQuote(field, quote) : field;
}

int UniversalInputRecord::findDelimiter(tvstring const &delimiter, char quote, int from, int to) const {
  from = std::max(from, 0);
  to = static_cast<int>(std::min(static_cast<long long>(message_.length()), static_cast<long long>(to)));
  if (from >= to || delimiter.empty()) return -1;
  std::string_view const range(message_.data(), static_cast<size_t>(to));
  size_t begin = static_cast<size_t>(from);
  if (quote != NO_QUOTE && range[begin] == quote) begin = range.find(quote, begin + 1);
  if (begin >= range.size()) return -1;
  size_t const found = delimiter.length() == 1 ? range.find(delimiter[0], begin) : range.find(viewOf(delimiter), begin);
  return found == range.npos ? -1 : static_cast<int>(found);
}

int UniversalInputRecord::findByteNearStart(char c, int from, int to) const {
  char const *const text = message_.data();
  return static_cast<int>(std::find(text + from, text + to, c) - text);
}

tvstring UniversalInputRecord::removeQuote(tvstring const &value, char quote) {
  if (!hasQuote(value, quote)) return value;
  std::string_view const text = viewOf(value);
  size_t const next = text.find(quote, 1);
  if (next == text.npos || next == text.size() - 1) return value.substr(1, next - 1);
  tvstring unquoted;
  char *const begin = unquoted.getBuffer(static_cast<int>(text.size()));
  char *end = begin;
  bool afterDropped = false;
  for (char const c : text.substr(1)) {
    afterDropped = c == quote && !afterDropped;
    if (!afterDropped) *end++ = c;
  }
  unquoted.setBufferLength(static_cast<int>(end - begin));
  return unquoted;
}

template <class Unsigned>
Unsigned UniversalInputRecord::takeInteger(bool bigEndian) {
  Unsigned value;
  std::memcpy(&value, takeField(sizeof value), sizeof value);
  return bigEndian ? swapBytes(value) : value;
}

int UniversalInputRecord::getBinaryInt2(bool bigEndian, bool isSigned) {
  uint16_t const value = takeInteger<uint16_t>(bigEndian);
  return isSigned ? static_cast<int16_t>(value) : value;
}
int UniversalInputRecord::getBinaryInt4(bool bigEndian) {
  return static_cast<int>(takeInteger<uint32_t>(bigEndian));
}
long long UniversalInputRecord::getBinaryInt4Unsigned(bool bigEndian) {
  return takeInteger<uint32_t>(bigEndian);
}
long long UniversalInputRecord::getBinaryInt8(bool bigEndian) {
  return static_cast<long long>(takeInteger<uint64_t>(bigEndian));
}

Binary UniversalInputRecord::getBinaryBinary(int n) {
  return Binary(takeField(n), static_cast<size_t>(n));
}

long long UniversalInputRecord::getBinaryLong(int length, bool isSigned, bool bigEndian) {
  switch (length) {
    case 1:
      return getBinaryInt1(bigEndian, isSigned);
    case 2:
      return getBinaryInt2(bigEndian, isSigned);
    case 4:
      return isSigned ? getBinaryInt4(bigEndian) : getBinaryInt4Unsigned(bigEndian);
    case 8:
      return getBinaryInt8(bigEndian);
    default:
      break;
  }
  // The length cuts the text's beginning off instead of standing at its end.
  constexpr std::string_view TEXT = "Illegal integral length - ";
  bool const cuts = length >= 0 && length < static_cast<int>(TEXT.size());
  throwASCIITokenizeException(cuts ? TEXT.data() + length : "");
}

long long UniversalInputRecord::getAnyPacked(int digits, int maxDigits, long long max) {
  constexpr int WORD_DIGITS = 15;  // and the sign, in the last eight bytes
  onField();
  if (digits < 0 || digits > maxDigits) raisePackedOverflow();
  int const length = (digits + 2) / 2;
  assertRemaining(length);
  char const *const begin = rawBytes_ + take(length);
  int const ahead = std::max(length - WORD, 0);
  bool const hasTwoWords = currentPosition_ >= 2 * WORD;
  uint64_t const word = hasTwoWords ? wordBefore(currentPosition_) : bigEndianWord(begin + ahead, length - ahead);
  static_assert(valueOf16Nibbles(0x9876543210123456) == 9876543210123456 && valueOf16Nibbles(0xFF) == 165);
  uint64_t magnitude = valueOf16Nibbles(lowNibbles(word, digits + 1) >> 4);
  if (ahead != 0) {
    uint64_t const first = hasTwoWords ? wordBefore(currentPosition_ - WORD) : bigEndianWord(begin, ahead);
    magnitude += valueOf16Nibbles(lowNibbles(first, digits - WORD_DIGITS)) * LONG_POWERS_OF_10[WORD_DIGITS];
  }
  bool const negative = parseSign(static_cast<int>(word & 0xF));
  if (magnitude > static_cast<uint64_t>(max) + negative) raisePackedOverflow();
  return static_cast<long long>(negative ? -magnitude : magnitude);
}

template <class Real>
Real UniversalInputRecord::getPackedFraction(int integerDigits, int fractionDigits) {
  constexpr int MAX_INT_DIGITS = 8;
  long long const digits = static_cast<long long>(integerDigits) + fractionDigits;
  if (integerDigits < 0 || fractionDigits < 0 || digits > static_cast<int>(LONG_POWERS_OF_10.size()) ||
      fractionDigits >= static_cast<int>(LONG_POWERS_OF_10.size())) {
    onField();
    raisePackedOverflow();
  }
  int const count = static_cast<int>(digits);
  Real const value =
      static_cast<Real>(count > MAX_INT_DIGITS ? getPackedDecimalLong(count) : getPackedDecimalInt(count));
  return value / static_cast<Real>(LONG_POWERS_OF_10[static_cast<size_t>(fractionDigits)]);
}

double UniversalInputRecord::getPackedDecimalDouble(int integerDigits, int fractionDigits) {
  return getPackedFraction<double>(integerDigits, fractionDigits);
}
float UniversalInputRecord::getPackedDecimalFloat(int integerDigits, int fractionDigits) {
  return getPackedFraction<float>(integerDigits, fractionDigits);
}

void UniversalInputRecord::raiseBadSign(int nibble) {
  throwASCIITokenizeException("The sign byte in a packed decimal should be one of 'D', 'C' or 'F'. found " +
                              intToString(nibble));
}

void UniversalInputRecord::skipTag(tvstring const &tag, char const *kind) {
  tvstring const text = getTagString(static_cast<int>(tag.length()));
  if (text != tag) throwASCIITokenizeException(kind + (" '" + tag) + "' expected. Found '" + text + "'");
}

void UniversalInputRecord::skipFieldTag(tvstring const &tag) {
  skipTag(tag, "Field tag");
}
void UniversalInputRecord::skipFieldTag(tvstring const &tag, tvstring const &separator) {
  skipTag(tag, "Field tag");
  skipTag(separator, "Field tag separator");
}
void UniversalInputRecord::skipSectionTag(tvstring const &tag) {
  skipTag(tag, "Section tag");
}
void UniversalInputRecord::skipSectionTag(tvstring const &tag, tvstring const &separator) {
  skipTag(tag, "Section tag");
  skipTag(separator, "Section tag separator");
}

tvstring UniversalInputRecord::splitTagValue(tvstring const &value, tvstring const &tag) {
  if (!beginsWith(value, tag)) throwASCIITokenizeException("Tag " + tag + " expected in " + value);
  return value.substr(tag.length());
}

tvstring UniversalInputRecord::splitTagValue(tvstring const &value, tvstring const &tag, tvstring const &separator) {
  if (!beginsWith(value, tag)) throwASCIITokenizeException("Tag '" + tag + "' expected in " + value);
  tvstring const rest = value.substr(tag.length());
  if (!beginsWith(rest, separator))
    throwASCIITokenizeException("Tag-value Separator '" + separator + "' expected in " + value);
  return rest.substr(separator.length());
}

void UniversalInputRecord::assertMessageCompleted() const {
  if (!isEmpty()) throwASCIITokenizeException("Unexpected characters at the end of message.");
}
void UniversalInputRecord::assertCompleted() const {
  if (!isEmpty()) throwASCIITokenizeException("Unexpected characters at the end of sequence.");
}
void UniversalInputRecord::assertCompleted(tvstring const &sectionName) const {
  if (!isEmpty()) throwASCIITokenizeException("Unexpected characters at the end of section '" + sectionName + "'.");
}

std::pair<int, int> UniversalInputRecord::getLineOffsetAt(int position) {
  if (position < 1) return {0, position};
  LineScan &scan = lineScan_;
  if (position < scan.index) scan = LineScan();
  // Whether a CR takes the next byte along depends on the position only for the last byte before it: what comes earlier
  // is settled for later positions too.
  int const size = static_cast<int>(std::min(binary_.size(), static_cast<size_t>(INT_MAX)));
  int const last = position - 1;
  int const end = std::min(last, size);
  while ((scan.index = findBreak(rawBytes_, scan.index, end)) < end) {
    ++scan.line;
    scan.lastBreak = scan.index;
    scan.index += rawBytes_[scan.index] == '\r' ? 2 : 1;
  }
  if (scan.index == last && last < size && isBreak(rawBytes_[last])) return {scan.line + 1, 1};
  return {scan.line, position - scan.lastBreak};
}

tvstring UniversalInputRecord::terminateRight(tvstring const &value, char c) {
  size_t const end = value.find(c);
  return end == tvstring::npos ? value : value.substr(0, end);
}

tvstring UniversalInputRecord::trimSpaces(tvstring const &value, bool left, bool right) {
  std::string_view const text = viewOf(value);
  size_t const begin = left ? std::min(text.find_first_not_of(' '), text.size()) : 0;
  size_t const end = right ? text.find_last_not_of(' ') + 1 : text.size();  // npos + 1 is 0
  return value.substr(begin, end > begin ? end - begin : 0);
}

void UniversalInputRecord::throwASCIITokenizeException(tvstring const &message, int line) {
  raise<TransformException>(message, SOURCE, line);
}

void UniversalInputRecord::raiseNotEnough(int n) const {
  throwASCIITokenizeException("Not enough characters. Required " + intToString(n) + " , available " +
                              intToString(remaining()));
}

}  // namespace tavrone

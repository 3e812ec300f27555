#pragma once

#include <emmintrin.h>

#include <bit>
#include <climits>
#include <cstdint>
#include <cstring>
#include <utility>

#include "tavrone/core/Binary.h"
#include "tavrone/universal/UniversalRecord.h"

namespace tavrone {

// A cursor over the bytes of one message, or of one record cut from it. It hands out one field after the other and
// knows nothing of the layout: generated code walks that. All positions are bytes of the whole message, 0-based, also
// in a record cut from it. The message stands once in memory: records that are cut from it, and every text handed out,
// are views on the one counted array.
//
// A length below 0, or above what the record has left, raises TransformException "Not enough characters. Required N ,
// available M" (the blank before the comma is meant) and moves nothing. A failure leaves getPreviousIndex() where the
// field that failed, or the last one before it, began. One thread at a time.
class TAVRONE_API UniversalInputRecord : public UniversalRecord {
 public:
  UniversalInputRecord() = default;
  UniversalInputRecord(UniversalInputRecord const &other);
  UniversalInputRecord &operator=(UniversalInputRecord const &) = default;
  ~UniversalInputRecord() noexcept(false) override;

  using UniversalRecord::getString;
  using UniversalRecord::init;
  // The whole message. Bytes that nobody counts are copied, or the texts handed out could outlive them. Raises "Out of
  // bounds" for more than an int's worth.
  void init(Binary const &binary);
  // The bytes [start, start + length) of a message that is given as text and as bytes; where one of them is empty, the
  // other stands for both. The enclosing record is the one that this one was cut from, borrowed, null for none.
  void init(tvstring const &message, Binary const &binary, int start, int length, UniversalInputRecord *enclosing);
  void init(tvstring const &message, Binary const &binary, int start, int length, tvstring const &delimiter,
            bool recordFlag, bool dropLastDelimiter, UniversalInputRecord *enclosing);
  // Forgets the groups, the delimiter and the enclosing record, and keeps what is allocated.
  void reset();

  // Makes `child` the record that ends before the next delimiter, and moves this one behind that delimiter. Without a
  // delimiter that lies wholly in this record, and for an empty one, the child gets all that is left. Counts as a field
  // of this record. Returns the child.
  UniversalInputRecord *getDelimitedRecord(UniversalInputRecord *child, tvstring const &delimiter, bool recordFlag,
                                           bool dropLastDelimiter);

  UniversalInputRecord *getEnclosingRecord() const { return enclosingRecord_; }
  // The next byte to hand out.
  int getCurrentIndex() const override { return currentPosition_; }
  // Where the last field began.
  int getPreviousIndex() const { return previousPosition_; }
  bool isEmpty() const { return currentPosition_ == endPosition_; }

  // Fixed fields. Among trailing fields, those at the exact end of the record read as empty; a record that ends inside
  // a field fails all the same. A fixed data field is onField() and then getString(n): getString, getTagString, skip
  // and the peeking ones count no field, the fillers do.
  tvstring getString(int n) {
    // A length of 0 takes the slow branch, since it may stand at the end of the trailing fields.
    if (n <= 0 || n > remaining()) return getStringAtEnd(n);
    int const begin = currentPosition_;
    currentPosition_ = begin + n;
    tvstring text = textAt(begin, n);
    // Apart from the other position: compilers join neighbouring stores in a vector register, and the next field would
    // wait for that.
    previousPosition_ = begin;
    return text;
  }
  tvstring getTagString(int n) { return getString(n); }
  tvstring getFixedFiller(int n) {
    onField();
    return getString(n);
  }
  void skip(int n) {
    if (n <= 0 || n > remaining())
      getStringAtEnd(n);
    else
      take(n);
  }
  void skipFixedFiller(int n) {
    onField();
    skip(n);
  }
  // What a choice leaves of its width.
  void skipChoicePadding(int n) { skip(n); }

  // At most `length` bytes from `offset` bytes ahead, up to the message's end, not the record's: that is meant. Empty
  // from the record's end on. Nothing moves.
  tvstring peekString(int offset, int length) const;
  tvstring peekString(int n) const { return peekString(0, n); }
  // All that is left of the record.
  tvstring peekRest() const;
  static tvstring peekString(UniversalInputRecord *record, int n) { return record->peekString(n); }
  static tvstring peekString(UniversalInputRecord *record, int offset, int n) { return record->peekString(offset, n); }
  static tvstring peekRest(UniversalInputRecord *record) { return record->peekRest(); }
  // Whether the text stands at the current position with at least one byte of the message, not only of the record,
  // behind it: what reaches the message's last byte is never next, which is meant.
  bool isNext(char const *text) const;
  bool isNext(tvstring const &text) const;

  // Delimited fields. A field ends before the next delimiter that lies wholly in the record, or with the record; an
  // empty delimiter is never found. Where the field begins with `quote`, which is not 0, delimiters up to the next
  // quote don't count, and removeQuote takes the quotes away. The last argument has no effect.
  tvstring getDelimitedField(tvstring const &delimiter) {
    onField();
    return getDelimitedString(delimiter, NO_QUOTE, false);
  }
  tvstring getDelimitedField(tvstring const &delimiter, char quote) {
    return getDelimitedField(delimiter, quote, false);
  }
  tvstring getDelimitedField(tvstring const &delimiter, bool) { return getDelimitedField(delimiter); }
  tvstring getDelimitedField(tvstring const &delimiter, char quote, bool flag) {
    onField();
    return getDelimitedString(delimiter, quote, flag);
  }
  tvstring getDelimitedFiller(tvstring const &delimiter) { return getDelimitedField(delimiter); }
  // The same without counting a field.
  tvstring getDelimitedString(tvstring const &delimiter, char quote, bool) {
    if (delimiter.length() != 1 || quote != NO_QUOTE) return getAnyDelimitedString(delimiter, quote);
    int const begin = previousPosition_ = currentPosition_;
    int const end = findByte(delimiter[0], begin, endPosition_);
    currentPosition_ = end + (end != endPosition_);
    return textAt(begin, end - begin);
  }
  // The position of the first delimiter that lies wholly in [from, to), or -1. If the byte at `from` is the quote, the
  // search begins at the next quote: a doubled quote inside the text ends the quoted part at its first half, which is
  // meant. No byte outside of the range is touched.
  int findDelimiter(tvstring const &delimiter, char quote, int from, int to) const;
  // A value that begins with the quote, without its quotes; of two in a row the second stays. Any other value as it is.
  // Nothing checks that the value ends with a quote.
  static tvstring removeQuote(tvstring const &value, char quote);
  static bool hasQuote(tvstring const &value, char quote) {
    return quote != NO_QUOTE && !value.empty() && value[0] == quote;
  }

  // Binary fields; each counts. Without `bigEndian` the least significant byte comes first.
  int getBinaryInt1(bool, bool isSigned) {
    char const byte = *takeField(1);
    return isSigned ? static_cast<signed char>(byte) : static_cast<unsigned char>(byte);
  }
  int getBinaryInt2(bool bigEndian, bool isSigned);
  int getBinaryInt4(bool bigEndian);
  long long getBinaryInt4Unsigned(bool bigEndian);
  long long getBinaryInt8(bool bigEndian);
  // IEEE 754.
  float getBinaryFloat(bool bigEndian) { return intBitsToFloat(getBinaryInt4(bigEndian)); }
  double getBinaryDouble(bool bigEndian) { return longBitsToDouble(getBinaryInt8(bigEndian)); }
  // True for any byte but 0.
  bool getBinaryBoolean() { return *takeField(1) != 0; }
  // A copy of n bytes.
  Binary getBinaryBinary(int n);
  // An integer of 1, 2, 4 or 8 bytes; getBinaryInt gives its low 32 bits. Any other length raises "Illegal integral
  // length - " from its character `length` on, which is meant, and counts nothing.
  int getBinaryInt(int length, bool isSigned, bool bigEndian) {
    return static_cast<int>(getBinaryLong(length, isSigned, bigEndian));
  }
  long long getBinaryLong(int length, bool isSigned, bool bigEndian);

  // Packed decimals: a digit in each nibble and the sign in the last one, D for minus, C and F for plus; an even count
  // of digits has a spare nibble in front, which is not looked at. Nibbles above 9 count with their value. Raise
  // "Packed decimal overflow" for a negative count, more than 10 (int) or 19 (long) digits and a value past the type,
  // and "The sign byte in a packed decimal should be one of 'D', 'C' or 'F'. found N".
  int getPackedDecimalInt(int digits) {
    constexpr int MAX_DIGITS = INT_POWERS_OF_10.size();
    return static_cast<int>(getPacked(digits, MAX_DIGITS, INT_MAX));
  }
  long long getPackedDecimalLong(int digits) {
    constexpr int MAX_DIGITS = LONG_POWERS_OF_10.size();
    return getPacked(digits, MAX_DIGITS, LLONG_MAX);
  }
  // Up to 8 digits in all are read as an int, more as a long; the float form divides in single precision.
  double getPackedDecimalDouble(int integerDigits, int fractionDigits);
  float getPackedDecimalFloat(int integerDigits, int fractionDigits);

  // Moves past the tag, and the separator behind it, which must come next. Raise "Field tag 'T' expected. Found 'X'",
  // "Field tag separator 'S' expected. Found 'X'", and the same with "Section"; the text found is then behind.
  void skipFieldTag(tvstring const &tag);
  void skipFieldTag(tvstring const &tag, tvstring const &separator);
  void skipSectionTag(tvstring const &tag);
  void skipSectionTag(tvstring const &tag, tvstring const &separator);
  // What follows the tag, and the separator, in a value that begins with them. Raise "Tag T expected in V", without
  // quotes; with a separator "Tag 'T' expected in V" and "Tag-value Separator 'S' expected in V".
  static tvstring splitTagValue(tvstring const &value, tvstring const &tag);
  static tvstring splitTagValue(tvstring const &value, tvstring const &tag, tvstring const &separator);

  // Raise "Unexpected characters at the end of message.", "... of sequence." and "... of section 'S'." unless the
  // record is used up.
  void assertMessageCompleted() const;
  void assertCompleted() const;
  void assertCompleted(tvstring const &sectionName) const;
  void assertRemaining(int n) const {
    if (n < 0 || n > remaining()) raiseNotEnough(n);
  }

  // The line of a position, from 0, and the distance from the line break before it, whose own position is the base: in
  // every line after the first the first character's offset is 1, or 2 after CR LF. CR, LF and CR LF end a line; CR
  // takes the byte behind it along whatever that is, unless it is the last before the position: both are meant.
  // A later call for a later position goes on from where this one stopped, so that all failures of a file are located
  // in one pass over it; nobody writes to the message meanwhile.
  std::pair<int, int> getLineOffsetAt(int position);

  // Up to the first c; the whole value where there is none.
  static tvstring terminateRight(tvstring const &value, char c);
  static tvstring terminateNullRight(tvstring const &value) { return terminateRight(value, '\0'); }
  // Without the spaces (0x20 only) at the chosen ends.
  static tvstring trimSpaces(tvstring const &value, bool left, bool right);
  static tvstring trimSpaces(tvstring const &value) { return trimSpaces(value, true, true); }

 protected:
  [[noreturn]] static void throwASCIITokenizeException(tvstring const &message, int line = __builtin_LINE());

 private:
  static constexpr char NO_QUOTE = '\0';
  static constexpr int WORD = sizeof(uint64_t);

  // Where the search for lines stands: the lines in [0, index), and the last break among them.
  struct LineScan {
    int index = 0;
    int line = 0;
    int lastBreak = 0;
  };

  // What is left of the record; positions stand in order, so that it is never negative.
  int remaining() const { return endPosition_ - currentPosition_; }
  // Moves past n bytes and returns where they began. REQUIRES: 0 <= n <= remaining()
  int take(int n) {
    previousPosition_ = currentPosition_;
    currentPosition_ += n;
    return previousPosition_;
  }
  // Counts a field of n bytes and moves past it.
  char const *takeField(int n) {
    onField();
    assertRemaining(n);
    return rawBytes_ + take(n);
  }
  tvstring getStringAtEnd(int n);
  tvstring getAnyDelimitedString(tvstring const &delimiter, char quote);
  tvstring textAt(int begin, int n) const {
    tvstring text;
    message_.substr(static_cast<size_t>(begin), static_cast<size_t>(n), text);  // the form that looks at no limit
    return text;
  }

  // The first c in [from, to), or `to`. Fields are short, so that a call of memchr would cost more than the search. Of
  // the last block, the bytes that were looked at, or stand before the field, are shifted out.
  int findByte(char c, int from, int to) const {
    constexpr int STEP = sizeof(__m128i);
    if (to < STEP) return findByteNearStart(c, from, to);
    for (; to - from >= STEP; from += STEP)
      if (unsigned const hits = hitsAt(from, c)) return from + std::countr_zero(hits);
    unsigned const hits = hitsAt(to - STEP, c) >> (STEP - (to - from));
    return hits != 0 ? from + std::countr_zero(hits) : to;
  }
  int findByteNearStart(char c, int from, int to) const;
  // A bit for each of the 16 bytes from there that is c.
  unsigned hitsAt(int position, char c) const {
    __m128i const bytes = _mm_loadu_si128(reinterpret_cast<__m128i const *>(message_.data() + position));
    return static_cast<unsigned>(_mm_movemask_epi8(_mm_cmpeq_epi8(bytes, _mm_set1_epi8(c))));
  }

  template <class Unsigned>
  Unsigned takeInteger(bool bigEndian);
  template <class Real>
  Real getPackedFraction(int integerDigits, int fractionDigits);
  // Up to 15 digits and their sign fit into eight bytes, and fewer than the type has digits are never past it. They are
  // read together with what stands before them.
  long long getPacked(int digits, int maxDigits, long long max) {
    constexpr int WORD_DIGITS = 15;
    if (digits < 0 || digits > WORD_DIGITS || digits >= maxDigits) return getAnyPacked(digits, maxDigits, max);
    int const length = (digits + 2) / 2;
    if (length > remaining() || currentPosition_ < WORD) return getAnyPacked(digits, maxDigits, max);
    int const end = currentPosition_ + length;
    previousPosition_ = currentPosition_;
    onField();  // keeps the two stores apart, as in getString
    currentPosition_ = end;
    uint64_t const word = wordBefore(end);
    int const shift = 4 * (WORD_DIGITS - digits);
    uint64_t const nibbles = word << shift >> shift >> 4;
    uint64_t const magnitude =
        digits <= 8 ? valueOf8Nibbles(static_cast<uint32_t>(nibbles)) : valueOf16Nibbles(nibbles);
    return static_cast<long long>(parseSign(static_cast<int>(word & 0xF)) ? -magnitude : magnitude);
  }
  long long getAnyPacked(int digits, int maxDigits, long long max);
  // The eight bytes before a position, as a number.
  uint64_t wordBefore(int end) const {
    uint64_t word;
    std::memcpy(&word, rawBytes_ + end - WORD, WORD);
    return __builtin_bswap64(word);
  }
  // The number that nibbles spell, the first in the highest place: neighbours are joined, in pairs, in fours and so on.
  // A nibble counts with its value, up to 15; no lane runs over.
  static constexpr uint64_t valueOf8Nibbles(uint32_t word) {
    word -= (word >> 4 & 0x0F0F0F0F) * (0x10 - 10);
    word -= (word >> 8 & 0x00FF00FF) * (0x100 - 100);
    return word - (word >> 16) * (0x10000 - 10000);
  }
  static constexpr uint64_t valueOf16Nibbles(uint64_t word) {
    word -= (word >> 4 & 0x0F0F0F0F0F0F0F0F) * (0x10 - 10);
    word -= (word >> 8 & 0x00FF00FF00FF00FF) * (0x100 - 100);
    word -= (word >> 16 & 0x0000FFFF0000FFFF) * (0x10000 - 10000);
    return word - (word >> 32) * (0x100000000 - 100000000);
  }
  // Whether it says minus.
  static bool parseSign(int nibble) {
    constexpr int SIGNS = 1 << 0xC | 1 << 0xD | 1 << 0xF;
    if ((SIGNS >> nibble & 1) == 0) raiseBadSign(nibble);
    return nibble == 0xD;
  }

  // Takes bytes of a message for this record's own.
  void adopt(tvstring const &message, Binary const &binary, int start, int end, UniversalInputRecord *enclosing);
  static int assertRange(tvstring const &message, Binary const &binary, int start, int length);
  void skipTag(tvstring const &tag, char const *kind);
  [[noreturn]] TAVRONE_COLD static void raiseBadSign(int nibble);
  [[noreturn]] TAVRONE_COLD void raiseNotEnough(int n) const;

  int startPosition_ = 0;
  int endPosition_ = 0;
  Binary binary_;
  tvstring message_;
  char const *rawBytes_ = Binary::EMPTY_BIN_LITERAL;
  int currentPosition_ = 0;
  int previousPosition_ = 0;
  UniversalInputRecord *enclosingRecord_ = nullptr;
  LineScan lineScan_;
  unsigned messageNumber_ = 0;  // counts the whole messages; a record cut from another one has that one's
};

}  // namespace tavrone

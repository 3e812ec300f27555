#pragma once

#include <bit>
#include <string_view>

#include "tavrone/core/DigitText.h"
#include "tavrone/core/Parsing.h"

namespace tavrone {

// One field of tag=value text.
struct TagValuePair {
  int toInt() const { return Parsing::parseInt(value); }

  int tag = 0;
  tvstring value;  // a view on the message
};

// A walk over the fields of one message of the form tag=value, each ended by a delimiter, normally SOH (0x01). Holds
// the message; values are views on it and no text is copied. One field can be handed back.
//
// The last byte of a message is taken for a delimiter, whatever it is. All failures are the Format's ParsingException
// with its TOKENIZER_SOURCE; a token that fails is taken, so that the position stays behind it.
template <class Format>
class TAVRONE_API TagValueTokenizer {
 public:
  using TagValuePair = tavrone::TagValuePair;

  // Shares the message's storage where it has an owner; text without one has to outlive the tokenizer and its values.
  // Bytes past an int are not looked at.
  TagValueTokenizer(tvstring const &message, char delimiter) : message_(message), delimiter_(delimiter) { init(); }

  // The field that was handed back, else the next one; false at the end, the pair untouched. Raises "'Name or value'
  // can't be empty. Unable to parse tag=value of form <token>" for a token without '=', and the words of t_atoi for a
  // tag that is no number. A value may be empty.
  bool next(TagValuePair &pair);

  // The same for a field whose value is exactly dataLength bytes and may hold the delimiter. Raises "Length based tag
  // not supported here" while a field is handed back, "Unexpected end of input while looking for data" for a length
  // that is negative or leads past the end, and "Blob type tag value pair has incorrect data length, ..." if no
  // delimiter follows. A length that is negative or past an int moves nothing; after any other wrong one the position
  // is behind the '='.
  bool nextDataTag(TagValuePair &pair, int dataLength);

  // The next call of next() gives this pair. Only the last one is kept.
  void pushBack(TagValuePair const &pair) {
    pushedBack_ = pair;
    hasPushedBack_ = true;
    forgetEnds();
  }

  // Raises "Unexpected tag <tag>" if a field is left, which next() still gives.
  void assertEmpty();

  // The next byte to read; a field handed back does not count.
  int getCurrentIndex() const { return currentIndex_; }
  // About where the field begins: three bytes before its value, as for a tag of two digits.
  int getTokenIndex(TagValuePair const &pair) const { return static_cast<int>(message_.distance(pair.value)) - 3; }
  int getNextTokenIndex() const { return hasPushedBack_ ? getTokenIndex(pushedBack_) : currentIndex_; }

 private:
  static constexpr int BLOCK = 64;
  static constexpr int WORD = 8;

  void init();
  bool hasMoreTokens() const { return currentIndex_ < length_; }
  // The text up to the next delimiter, and the text through n bytes behind the next '='.
  std::string_view nextToken();
  std::string_view nextToken(int n);
  void split(std::string_view token, TagValuePair &pair) const;

  // Any field, handed back or not.
  bool nextOfAnyForm(TagValuePair &pair);
  // Takes the next field, whose first eight bytes are `word`, if it has the usual form: digits and '=' among those.
  // REQUIRES: ends_ != 0
  bool takeUsual(TagValuePair &pair, uint64_t word);

  // The block moves on until it holds a delimiter, or to the message's end.
  void findEnds();
  // The next block begins with the next byte to read.
  void forgetEnds() {
    block_ = currentIndex_ - BLOCK;
    ends_ = 0;
  }

  int currentIndex_ = 0;
  int tokenStart_ = 0;
  int length_ = 0;
  tvstring message_;
  char delimiter_;
  TagValuePair pushedBack_;
  bool hasPushedBack_ = false;

  int wordsEnd_ = 0;   // before it, eight bytes can be read
  int block_ = 0;      // where the block begins that ends_ tells of
  uint64_t ends_ = 0;  // the delimiters of the block that are not yet behind; 0 while a field is handed back
};

// The delimiters of 64 bytes are found at once, and each field takes the next one, so that its end does not wait for
// the field before. The tag is read from the first eight bytes as a word, whose digits are counted and multiplied out
// together. All else goes the long way.
template <class Format>
inline bool TagValueTokenizer<Format>::next(TagValuePair &pair) {
  if (ends_ == 0 || currentIndex_ >= wordsEnd_) return nextOfAnyForm(pair);
  return takeUsual(pair, load8(message_.data() + currentIndex_)) || nextOfAnyForm(pair);
}

template <class Format>
inline bool TagValueTokenizer<Format>::takeUsual(TagValuePair &pair, uint64_t word) {
  constexpr uint64_t TENS_UP = 0x7676767676767676;  // lifts 10 and more to the high bit
  constexpr uint64_t HIGH = 0x8080808080808080;
  uint64_t const digits = word ^ ASCII_ZEROS;
  uint64_t const others = ((digits + TENS_UP) | digits) & HIGH;
  if (others == 0) return false;
  unsigned const tagBits = static_cast<unsigned>(std::countr_zero(others)) & 0x38;
  size_t const tagEnd = static_cast<size_t>(currentIndex_) + tagBits / 8;
  if (tagBits == 0 || message_[tagEnd] != '=') return false;
  pair.tag = static_cast<int>(valueOfDigits8(digits << (64 - tagBits)));
  size_t const end = static_cast<size_t>(block_) + static_cast<size_t>(std::countr_zero(ends_));
  ends_ &= ends_ - 1;
  message_.substr(tagEnd + 1, end - tagEnd - 1, pair.value);
  tokenStart_ = currentIndex_;
  currentIndex_ = static_cast<int>(end) + 1;
  return true;
}

}  // namespace tavrone

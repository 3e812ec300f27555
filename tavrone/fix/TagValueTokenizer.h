#pragma once

#include <emmintrin.h>

#include <algorithm>
#include <array>
#include <bit>

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
// The last byte of a message is taken for a delimiter, whatever it is. Failures are the Format's ParsingException with
// its TOKENIZER_SOURCE unless said; a token that fails is taken, so that the position stays behind it.
template <class Format>
class TAVRONE_API TagValueTokenizer {
 public:
  using TagValuePair = tavrone::TagValuePair;

  // Borrows nothing: shares the message's storage where it has an owner.
  TagValueTokenizer(tvstring const &message, char delimiter) : message_(message), delimiter_(delimiter) { init(); }

  // The field that was handed back, else the next one; false at the end, the pair untouched. Raises "'Name or value'
  // can't be empty. Unable to parse tag=value of form <token>" for a token without '=', and as t_atoi does for a tag
  // that is no number. A value may be empty.
  bool next(TagValuePair &pair);

  // The same for a field whose value is exactly dataLength bytes and may hold the delimiter. Raises "Length based tag
  // not supported here" while a field is handed back, "Unexpected end of input while looking for data" for a length
  // that is negative or leads past the end, and "Blob type tag value pair has incorrect data length, ..." if no
  // delimiter follows; none of these moves the position.
  bool nextDataTag(TagValuePair &pair, int dataLength);

  // The next call of next() gives this pair. Only the last one is kept.
  void pushBack(TagValuePair const &pair) {
    pushedBack_ = pair;
    hasPushedBack_ = true;
    glanceEnd_ = 0;
  }

  // Raises "Unexpected tag <tag>" if a field is left, which next() still gives.
  void assertEmpty();

  // The next byte to read; a field handed back does not count.
  int getCurrentIndex() const { return currentIndex_; }
  // About where the field begins: three bytes before its value, as for a tag of two digits.
  int getTokenIndex(TagValuePair const &pair) const { return static_cast<int>(message_.distance(pair.value)) - 3; }
  int getNextTokenIndex() const { return hasPushedBack_ ? getTokenIndex(pushedBack_) : currentIndex_; }

 private:
  // A field of at most this many bytes is found at one glance.
  static constexpr int GLANCE = 32;

  void init();
  bool hasMoreTokens() const { return currentIndex_ < length_; }
  // The text up to the next delimiter, and the text through n bytes behind the next '='.
  tvstring nextToken();
  tvstring nextToken(int n);
  // Any field, handed back or not.
  bool nextOfAnyForm(TagValuePair &pair);
  void split(tvstring const &token, TagValuePair &pair) const;

  // Takes a field of the usual form, given where in the next bytes a delimiter stands, a bit for each, and the first
  // eight bytes; false for any other.
  bool takeUsual(TagValuePair &pair, unsigned ends, uint64_t word);
  bool takeLast(TagValuePair &pair);
  void findGlanceEnd();
  unsigned matches(char const *sixteen) const {
    __m128i const text = _mm_loadu_si128(reinterpret_cast<__m128i const *>(sixteen));
    __m128i const delimiters = _mm_loadu_si128(reinterpret_cast<__m128i const *>(delimiters_.data()));
    return static_cast<unsigned>(_mm_movemask_epi8(_mm_cmpeq_epi8(text, delimiters)));
  }

  int currentIndex_ = 0;
  int tokenStart_ = 0;
  int length_ = 0;
  tvstring message_;
  char delimiter_;
  TagValuePair pushedBack_;
  bool hasPushedBack_ = false;

  int glanceEnd_ = 0;  // before it, GLANCE bytes can be read; 0 where a glance is not enough
  std::array<char, 16> delimiters_;
};

// A field in the usual form takes one look at 32 bytes: the delimiter's place comes from a comparison of all of them,
// and the tag from the first eight as a word, whose digits are counted and multiplied out together, so that there is no
// branch to predict. All else goes the long way.
template <class Format>
inline bool TagValueTokenizer<Format>::next(TagValuePair &pair) {
  if (currentIndex_ >= glanceEnd_) return nextOfAnyForm(pair);
  char const *const at = message_.data() + currentIndex_;
  return takeUsual(pair, matches(at) | matches(at + 16) << 16, load8(at)) || nextOfAnyForm(pair);
}

template <class Format>
inline bool TagValueTokenizer<Format>::takeUsual(TagValuePair &pair, unsigned ends, uint64_t word) {
  constexpr uint64_t TENS_UP = 0x7676767676767676;  // lifts 10 and more to the high bit
  constexpr uint64_t HIGH = 0x8080808080808080;
  uint64_t const digits = word ^ ASCII_ZEROS;
  uint64_t const others = ((digits + TENS_UP) | digits) & HIGH;
  if (ends == 0 || others == 0) return false;
  unsigned const tagBits = static_cast<unsigned>(std::countr_zero(others)) & 0x38;
  size_t const tagEnd = static_cast<size_t>(currentIndex_) + tagBits / 8;
  if (tagBits == 0 || message_[tagEnd] != '=') return false;
  pair.tag = static_cast<int>(valueOfDigits8(digits << (64 - tagBits)));
  size_t const end = static_cast<size_t>(currentIndex_) + static_cast<unsigned>(std::countr_zero(ends));
  message_.substr(tagEnd + 1, end - tagEnd - 1, pair.value);
  tokenStart_ = currentIndex_;
  currentIndex_ = static_cast<int>(end) + 1;
  return true;
}

}  // namespace tavrone

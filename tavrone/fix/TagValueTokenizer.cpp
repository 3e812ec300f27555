#include "tavrone/fix/TagValueTokenizer.h"

#include <algorithm>
#include <limits>

#include "tavrone/core/Raise.h"
#include "tavrone/fix/FIXTokenizer.h"
#include "tavrone/siaccanonical/SIACCanonicalTokenizer.h"

namespace tavrone {

// A message longer than an int counts is read as far as an int reaches; assertEmpty tells that there is more.
template <class Format>
void TagValueTokenizer<Format>::init() {
  length_ = static_cast<int>(std::min(message_.length(), size_t{std::numeric_limits<int>::max()}));
  delimiters_.fill(delimiter_);
  findGlanceEnd();
}

// What stands before '=' is taken for digits, so no delimiter may be one of those.
template <class Format>
void TagValueTokenizer<Format>::findGlanceEnd() {
  bool const isPartOfTags = (delimiter_ >= '0' && delimiter_ <= '9') || delimiter_ == '=';
  glanceEnd_ = isPartOfTags ? 0 : length_ - GLANCE + 1;
}

// A usual field among the last bytes: those are read as a whole, and what stands before the field shifted out.
template <class Format>
bool TagValueTokenizer<Format>::takeLast(TagValuePair &pair) {
  if (glanceEnd_ <= 0 || currentIndex_ < glanceEnd_) return false;
  int const glance = length_ - GLANCE;
  int const look = std::min(currentIndex_, length_ - 8);
  char const *const text = message_.data();
  unsigned const ends = (matches(text + glance) | matches(text + glance + 16) << 16) >> (currentIndex_ - glance);
  return takeUsual(pair, ends, load8(text + look) >> (8 * (currentIndex_ - look)));
}

template <class Format>
tvstring TagValueTokenizer<Format>::nextToken() {
  tokenStart_ = currentIndex_;
  size_t const start = static_cast<size_t>(tokenStart_);
  size_t const rest = static_cast<size_t>(length_) - start;
  void const *hit = std::memchr(message_.data() + start, delimiter_, rest);
  // Without a delimiter the last byte goes in its place.
  size_t const end =
      hit == nullptr ? rest - 1 : static_cast<size_t>(static_cast<char const *>(hit) - (message_.data() + start));
  currentIndex_ += static_cast<int>(end) + 1;
  return message_.substr(start, end);
}

template <class Format>
tvstring TagValueTokenizer<Format>::nextToken(int n) {
  size_t const start = static_cast<size_t>(currentIndex_);
  size_t const length = static_cast<size_t>(length_);
  size_t const equals = message_.find('=', start);
  size_t const valueStart = std::min(equals, length - 1) + 1;
  if (n < 0 || static_cast<size_t>(n) >= length - valueStart)
    raise<typename Format::ParsingException>("Unexpected end of input while looking for data",
                                             Format::TOKENIZER_SOURCE);
  size_t const end = valueStart + static_cast<size_t>(n);
  if (message_[end] != delimiter_)
    raise<typename Format::ParsingException>(
        "Blob type tag value pair has incorrect data length, character after the specified length is not the SOH "
        "character",
        Format::TOKENIZER_SOURCE);
  tokenStart_ = currentIndex_;
  currentIndex_ = static_cast<int>(end) + 1;
  return message_.substr(start, end - start);
}

template <class Format>
void TagValueTokenizer<Format>::split(tvstring const &token, TagValuePair &pair) const {
  size_t const equals = token.find('=');
  if (equals == tvstring::npos)
    raise<typename Format::ParsingException>(
        "'Name or value' can't be empty. Unable to parse tag=value of form " + token, Format::TOKENIZER_SOURCE);
  pair.tag = t_atoi(token.data(), token.data() + equals);
  token.substr(equals + 1, pair.value);
}

template <class Format>
bool TagValueTokenizer<Format>::nextOfAnyForm(TagValuePair &pair) {
  if (hasPushedBack_) {
    pair = pushedBack_;
    hasPushedBack_ = false;
    findGlanceEnd();
    return true;
  }
  if (!hasMoreTokens()) return false;
  if (!takeLast(pair)) split(nextToken(), pair);
  return true;
}

template <class Format>
bool TagValueTokenizer<Format>::nextDataTag(TagValuePair &pair, int dataLength) {
  if (hasPushedBack_)
    raise<typename Format::ParsingException>("Length based tag not supported here", Format::TOKENIZER_SOURCE);
  if (!hasMoreTokens()) return false;
  split(nextToken(dataLength), pair);
  return true;
}

template <class Format>
void TagValueTokenizer<Format>::assertEmpty() {
  if (!hasPushedBack_ && static_cast<size_t>(currentIndex_) >= message_.length()) return;
  TagValuePair pair;
  if (!next(pair)) raise<typename Format::ParsingException>(Format::LEFTOVER_TEXT, Format::TOKENIZER_SOURCE);
  pushBack(pair);
  raise<typename Format::ParsingException>("Unexpected tag " + intToString(pair.tag), Format::TOKENIZER_SOURCE);
}

template class TagValueTokenizer<FIXFormat>;
template class TagValueTokenizer<SIACCanonicalFormat>;

}  // namespace tavrone

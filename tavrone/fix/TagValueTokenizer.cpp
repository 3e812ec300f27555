#include "tavrone/fix/TagValueTokenizer.h"

#include <emmintrin.h>

#include <algorithm>
#include <array>
#include <limits>

#include "tavrone/core/Raise.h"
#include "tavrone/fix/FIXTokenizer.h"
#include "tavrone/siaccanonical/SIACCanonicalTokenizer.h"

namespace tavrone {

namespace {

// A bit for each of the 64 bytes that is c.
uint64_t matchesOf64(char const *bytes, char c) {
  __m128i const wanted = _mm_set1_epi8(c);
  uint64_t matches = 0;
  for (int i = 48; i >= 0; i -= 16) {
    __m128i const text = _mm_loadu_si128(reinterpret_cast<__m128i const *>(bytes + i));
    matches = matches << 16 | static_cast<unsigned>(_mm_movemask_epi8(_mm_cmpeq_epi8(text, wanted)));
  }
  return matches;
}

// The same for the bytes from an index on, as far as the text goes. Its last bytes are looked at together with what
// stands before them, which is shifted out.
uint64_t matchesFrom(char const *text, int length, int index, char c) {
  int const rest = length - index;
  if (rest >= 64) return matchesOf64(text + index, c);
  if (length >= 64) return matchesOf64(text + length - 64, c) >> (64 - rest);
  std::array<char, 64> padded{};
  std::copy_n(text + index, rest, padded.begin());
  return matchesOf64(padded.data(), c) & ~uint64_t{0} >> (64 - rest);
}

}  // namespace

// A message longer than an int counts is read as far as an int reaches; assertEmpty tells that there is more.
template <class Format>
void TagValueTokenizer<Format>::init() {
  length_ = static_cast<int>(std::min(message_.length(), size_t{std::numeric_limits<int>::max()}));
  // A tag that may hold the delimiter is not read as a word.
  bool const isUsual = delimiter_ != '=' && (delimiter_ < '0' || delimiter_ > '9');
  wordsEnd_ = isUsual ? length_ - WORD + 1 : std::numeric_limits<int>::min();
  forgetEnds();
}

template <class Format>
void TagValueTokenizer<Format>::findEnds() {
  while (ends_ == 0 && block_ < length_ - BLOCK) {
    block_ += BLOCK;
    ends_ = matchesFrom(message_.data(), length_, block_, delimiter_);
  }
}

template <class Format>
std::string_view TagValueTokenizer<Format>::nextToken() {
  tokenStart_ = currentIndex_;
  findEnds();
  // Without a delimiter the last byte goes in its place.
  int const end = ends_ == 0 ? length_ - 1 : block_ + std::countr_zero(ends_);
  ends_ &= ends_ - 1;
  currentIndex_ = end + 1;
  return {message_.data() + tokenStart_, static_cast<size_t>(end - tokenStart_)};
}

template <class Format>
std::string_view TagValueTokenizer<Format>::nextToken(int n) {
  size_t const equals = message_.find('=', static_cast<size_t>(currentIndex_));
  size_t const valueStart = std::min(equals, static_cast<size_t>(length_) - 1) + 1;
  int end;
  bool const isPossible = n >= 0 && !__builtin_add_overflow(valueStart, n, &end);
  if (isPossible) {
    tokenStart_ = currentIndex_;
    currentIndex_ = static_cast<int>(valueStart);  // stays there if the length is wrong
    forgetEnds();
  }
  if (!isPossible || end >= length_)
    raise<typename Format::ParsingException>("Unexpected end of input while looking for data",
                                             Format::TOKENIZER_SOURCE);
  if (message_[static_cast<size_t>(end)] != delimiter_)
    raise<typename Format::ParsingException>(
        "Blob type tag value pair has incorrect data length, character after the specified length is not the SOH "
        "character",
        Format::TOKENIZER_SOURCE);
  currentIndex_ = end + 1;
  forgetEnds();
  return {message_.data() + tokenStart_, static_cast<size_t>(end - tokenStart_)};
}

template <class Format>
void TagValueTokenizer<Format>::split(std::string_view token, TagValuePair &pair) const {
  size_t const equals = token.find('=');
  if (equals == std::string_view::npos)
    raise<typename Format::ParsingException>(
        "'Name or value' can't be empty. Unable to parse tag=value of form " + tvstring(token.data(), token.size()),
        Format::TOKENIZER_SOURCE);
  try {
    pair.tag = t_atoi(token.data(), token.data() + equals);
  } catch (TransformException const &failure) {
    raise<typename Format::ParsingException>(failure.getMessage(), Format::TOKENIZER_SOURCE);
  }
  size_t const start = static_cast<size_t>(tokenStart_);
  message_.substr(start + equals + 1, token.size() - equals - 1, pair.value);
}

template <class Format>
bool TagValueTokenizer<Format>::nextOfAnyForm(TagValuePair &pair) {
  if (hasPushedBack_) {
    pair = pushedBack_;
    hasPushedBack_ = false;
    return true;
  }
  if (!hasMoreTokens()) return false;
  findEnds();
  if (ends_ != 0 && wordsEnd_ > 0) {
    int const look = std::min(currentIndex_, wordsEnd_ - 1);
    if (takeUsual(pair, load8(message_.data() + look) >> (8 * (currentIndex_ - look)))) return true;
  }
  split(nextToken(), pair);
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

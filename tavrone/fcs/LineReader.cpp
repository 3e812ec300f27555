#include "tavrone/fcs/LineReader.h"

#include <algorithm>
#include <bit>
#include <climits>

#include "tavrone/core/Raise.h"
#include "tavrone/fcs/ByteScan.h"

namespace tavrone {

namespace {

constexpr size_t USUAL_LINES = 15;
constexpr size_t SHORT_LINE = 16;
constexpr size_t BLOCK = 64;
constexpr size_t CHUNK = 512 * BLOCK;

// One walk over the bytes for both. Returns the number of line feeds.
size_t copyAndCountLineFeeds(char const *from, size_t length, char *to) {
  ByteFinder const lineFeed('\n');
  __m128i const zero = _mm_setzero_si128();
  __m128i counts = zero;
  size_t i = 0;
  for (; length - i >= sizeof counts; i += sizeof counts) {
    __m128i const bytes = _mm_loadu_si128(reinterpret_cast<__m128i const *>(from + i));
    _mm_storeu_si128(reinterpret_cast<__m128i *>(to + i), bytes);
    // A match is a byte of -1: the sum of its distances from 0 counts it.
    counts = _mm_add_epi64(counts, _mm_sad_epu8(_mm_sub_epi8(zero, lineFeed.compare(bytes)), zero));
  }
  auto count = static_cast<size_t>(_mm_cvtsi128_si64(counts) + _mm_cvtsi128_si64(_mm_unpackhi_epi64(counts, zero)));
  for (; i != length; ++i) count += (to[i] = from[i]) == '\n';
  return count;
}

// The text of an input source, which keeps it.
Binary view(InputSource &input) {
  int length = 0;
  char const *const bytes = input.getAsBytes(length);
  return Binary(bytes, length < 0 ? tvstring::npos : static_cast<size_t>(length), false);
}

}  // namespace

LineReader::LineReader(char const *bytes, int length, bool hasTrailer)
    : LineReader(Binary(bytes, length < 0 ? tvstring::npos : static_cast<size_t>(length), false), hasTrailer) {}

LineReader::LineReader(InputSource &input, bool hasTrailer) : LineReader(view(input), hasTrailer) {}

LineReader::LineReader(Binary const &bytes, bool hasTrailer) : hasTrailer_(hasTrailer) {
  // Room for a terminator and for the sentinel's number.
  if (bytes.length() > INT_MAX - BLOCK) raise<FCSParseException>("Out of bounds", "cpp/fcs/LineReader");
  readLines(bytes.data(), bytes.length());
}

// Chunk by chunk, so that the bytes are still near when they are looked at for lines.
void LineReader::readLines(char const *bytes, size_t length) {
  tvstring text;
  char *const copy = text.getBuffer(static_cast<int>(length + BLOCK));
  std::memset(copy + length, 0, BLOCK);  // so that whole blocks can be read to the end
  text.setBufferLength(static_cast<int>(length));
  lines_.reserve(USUAL_LINES);

  ByteFinder const lineFeed('\n');
  size_t start = 0;
  for (size_t chunk = 0; chunk < length; chunk += CHUNK) {
    size_t const size = std::min(CHUNK, length - chunk);
    size_t const lineFeeds = copyAndCountLineFeeds(bytes + chunk, size, copy + chunk);
    makeRoom(lineFeeds, std::min(lineFeeds * ((length - chunk) / size - 1), (length - chunk) / SHORT_LINE));
    for (size_t block = chunk; block < chunk + size; block += BLOCK) {
      for (uint64_t found = lineFeed.in64(copy + block); found != 0; found &= found - 1) {
        size_t const at = block + static_cast<size_t>(std::countr_zero(found));
        bool const afterReturn = at != start && copy[at - 1] == '\r';
        lines_.push_back(text.substr(start, at - afterReturn - start));
        start = at + 1;
      }
    }
  }
  if (start != length) lines_.push_back(text.substr(start));

  if (hasTrailer_ && !lines_.empty()) {
    trailerLine_ = std::move(lines_.back());
    lines_.pop_back();
  }
  lineCount_ = static_cast<int>(lines_.size());
  lines_.emplace_back();
}

// For that many lines more, a last one without an ender and the sentinel. An array that is too small makes room for
// those that are likely to come: most files need one array, and none more than a few.
void LineReader::makeRoom(size_t lineFeeds, size_t likely) {
  size_t const needed = lines_.size() + lineFeeds + 2;
  if (needed > lines_.capacity()) lines_.reserve(std::max(needed + likely + likely / 16, 2 * lines_.capacity()));
}

}  // namespace tavrone

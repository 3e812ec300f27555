// A random walk of reading operations over random bytes: no operation leaves its record, a failure moves nothing but by
// the field that failed, and what is read is what a plain reading of the bytes gives.

#include "tavrone/core/Exceptions.h"
#include "tavrone/universal/UniversalFieldParser.h"
#include "tavrone/universal/UniversalInputRecord.h"
#include "tests/FuzzInput.h"
#include "tests/Text.h"

using namespace tavrone;

namespace {

// The line of a position and its distance from the last break, byte by byte.
std::pair<int, int> plainLineOffset(std::string const &bytes, int position) {
  if (position < 1) return {0, position};
  int line = 0, lastBreak = 0;
  for (int i = 0; i < position && i < static_cast<int>(bytes.size()); ++i) {
    char const c = bytes[static_cast<size_t>(i)];
    if (c != '\r' && c != '\n') continue;
    ++line;
    lastBreak = i;
    if (c == '\r' && i < position - 1) ++i;
  }
  return {line, position - lastBreak};
}

// Digit by digit; the sum wraps nowhere for up to 19 digits.
void checkPacked(std::string const &field, int digits, long long value) {
  uint64_t magnitude = 0;
  for (int nibble = digits % 2 == 0; nibble < digits + (digits % 2 == 0); ++nibble) {
    int const byte = field[static_cast<size_t>(nibble / 2)];
    magnitude = magnitude * 10 + static_cast<uint64_t>(nibble % 2 == 0 ? byte >> 4 & 0xF : byte & 0xF);
  }
  require(static_cast<uint64_t>(value) == ((field.back() & 0xF) == 0xD ? 0 - magnitude : magnitude));
}

class Walk {
 public:
  Walk(FuzzInput &input, std::string const &bytes, UniversalInputRecord &record, int start, int end)
      : input_(input), bytes_(bytes), record_(record), start_(start), end_(end) {}

  // One operation. A failure keeps the record within its bounds.
  void step() {
    int const before = record_.getCurrentIndex();
    try {
      operation();
    } catch (TransformException const &e) {
      require(!e.getTrace().getFileName().empty());
    }
    int const after = record_.getCurrentIndex();
    require(start_ <= before && before <= after && after <= end_ && record_.getPreviousIndex() <= after);
    require(str(record_.peekRest()) == text(after, end_));
  }

 private:
  std::string text(int begin, int end) const {
    return bytes_.substr(static_cast<size_t>(begin), static_cast<size_t>(end - begin));
  }
  tvstring takeText() { return textOf(input_.takeText(input_.below(3))); }
  // Mostly short, sometimes anything.
  int takeLength() {
    size_t const kind = input_.below(16);
    return kind == 0 ? input_.take<int>() : static_cast<int>(input_.below(24));
  }

  void fixed() {
    int const begin = record_.getCurrentIndex();
    std::string const value = str(record_.getString(takeLength()));
    require(value == text(begin, record_.getCurrentIndex()));
  }
  void delimited() {
    tvstring const delimiter = takeText();
    size_t const begin = static_cast<size_t>(record_.getCurrentIndex()), end = static_cast<size_t>(end_);
    std::string const value = str(record_.getDelimitedField(delimiter));
    size_t found = delimiter.empty() ? std::string::npos : bytes_.find(str(delimiter), begin);
    bool const isFound = found != std::string::npos && found + delimiter.length() <= end;
    found = isFound ? found : end;
    require(value == bytes_.substr(begin, found - begin));
    require(record_.getCurrentIndex() == static_cast<int>(found + (isFound ? delimiter.length() : 0)));
  }
  void quoted() {
    tvstring const delimiter = takeText();
    require(record_.getDelimitedField(delimiter, input_.take<char>(), true).length() <= bytes_.size());
  }
  void packed() {
    int const digits = takeLength(), begin = record_.getCurrentIndex();
    bool const isLong = input_.below(2) == 0;
    long long const value = isLong ? record_.getPackedDecimalLong(digits) : record_.getPackedDecimalInt(digits);
    checkPacked(text(begin, record_.getCurrentIndex()), digits, value);
  }
  void cut() {
    UniversalInputRecord child;
    tvstring const delimiter = takeText();
    int const begin = record_.getCurrentIndex();
    record_.getDelimitedRecord(&child, delimiter, true, false);
    Walk inner(input_, bytes_, child, begin, begin + static_cast<int>(child.peekRest().length()));
    for (size_t n = input_.below(4); n > 0; --n) inner.step();
  }
  void peek() {
    int const offset = takeLength(), n = takeLength();
    std::string const ahead = str(record_.peekString(offset, n));
    require(ahead.size() <= static_cast<size_t>(n));
    tvstring const mark = takeText();
    bool const isNext = record_.isNext(mark);
    require(!isNext || str(UniversalInputRecord::peekString(&record_, static_cast<int>(mark.length()))) == str(mark) ||
            record_.getCurrentIndex() + static_cast<int>(mark.length()) > end_ || record_.isEmpty());
  }
  void locate() {
    int const position = takeLength();
    require(record_.getLineOffsetAt(position) == plainLineOffset(bytes_, position));
  }
  void convert() {
    tvstring const value = record_.getDelimitedField(takeText());
    require(UniversalInputRecord::trimSpaces(value).length() <= value.length());
    UniversalFieldParser::parseDouble(value, takeLength(), takeLength(), input_.take<char>());
  }

  void number() { record_.getBinaryLong(takeLength(), true, input_.below(2) == 0); }
  void bytes() { record_.getBinaryBinary(takeLength()); }
  void packedDecimal() { record_.getPackedDecimalDouble(takeLength(), takeLength()); }
  void tag() { record_.skipFieldTag(takeText(), takeText()); }
  void trailing() { record_.startTrailingFields(); }
  void find() { record_.findDelimiter(takeText(), input_.take<char>(), takeLength(), takeLength()); }

  void operation() {
    static constexpr void (Walk::*OPERATIONS[])() = {
        &Walk::fixed,         &Walk::delimited, &Walk::quoted,   &Walk::packed, &Walk::cut,
        &Walk::peek,          &Walk::locate,    &Walk::convert,  &Walk::number, &Walk::bytes,
        &Walk::packedDecimal, &Walk::tag,       &Walk::trailing, &Walk::find};
    (this->*OPERATIONS[input_.below(std::size(OPERATIONS))])();
  }

  FuzzInput &input_;
  std::string const &bytes_;
  UniversalInputRecord &record_;
  int start_;
  int end_;
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(uint8_t const *data, size_t size) {
  FuzzInput input(data, size);
  std::string const bytes = input.takeText(input.below(80));
  UniversalInputRecord record;
  record.init(Binary(bytes.data(), bytes.size()));
  Walk walk(input, bytes, record, 0, static_cast<int>(bytes.size()));
  while (input.at < size) walk.step();
  return 0;
}

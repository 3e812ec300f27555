#include "examples/orderdesk/MessageReader.h"

#include <algorithm>

#include "examples/messages/FixedOrder.h"
#include "examples/orderdesk/Rejects.h"
#include "examples/orderdesk/TakeNumber.h"

namespace examples {

namespace {

constexpr char SOH = '\x01';
constexpr std::string_view FIX_BEGIN = "8=FIX", SIAC_BEGIN = "10001=";
constexpr std::string_view FCS_TOKENS[] = {"BUY", "SELL", "CXL", "BOT", "SLD"};

bool beginsTagValue(std::string_view text) {
  return text.starts_with(FIX_BEGIN) || text.starts_with(SIAC_BEGIN);
}

// Where the line ends, and the same without a CR before the LF.
size_t lineFeed(std::string_view text, size_t from) {
  return std::min(text.find('\n', from), text.size());
}
size_t withoutCR(std::string_view text, size_t begin, size_t end) {
  return end > begin && end < text.size() && text[end - 1] == '\r' ? end - 1 : end;
}

// The bytes of a CheckSum field, "10=123" and SOH, that the text begins with; 0 if there is none.
size_t checkSumLength(std::string_view text) {
  constexpr size_t LENGTH = 7;
  std::string_view const field = text.substr(0, LENGTH);
  return field.size() == LENGTH && field.starts_with("10=") && field.back() == SOH ? LENGTH : 0;
}

// The length of a message by its second field, BodyLength; 0 if the bytes there do not end a message.
size_t framedLength(std::string_view text) {
  constexpr size_t LONGEST_FIRST_FIELD = 32;
  bool const isSIAC = text.starts_with(SIAC_BEGIN);
  size_t const first = text.substr(0, LONGEST_FIRST_FIELD).find(SOH);
  std::string_view rest = text.substr(first == text.npos ? text.size() : first + 1);
  size_t length = 0;
  if (!takeNumber(rest, isSIAC ? "10002=" : "9=", length) || !rest.starts_with(SOH)) return 0;
  rest.remove_prefix(1);
  if (length == 0 || length > rest.size() || rest[length - 1] != SOH) return 0;
  rest.remove_prefix(length);
  size_t const end = text.size() - rest.size();
  if (size_t const checkSum = checkSumLength(rest)) return end + checkSum;
  // A SIAC message need have no CheckSum, so what follows has to show that it ends here.
  bool const ends = rest.empty() || rest.starts_with("\n") || rest.starts_with("\r\n") || beginsTagValue(rest);
  return isSIAC && ends ? end : 0;
}

// Where a message begins whose first field ends at the SOH, as its second field shows; 0 if none does.
size_t messageAround(std::string_view text, size_t soh) {
  constexpr size_t LONGEST_FIRST_FIELD = 32;
  std::string_view const next = text.substr(soh + 1);
  bool const isFIX = next.starts_with("9=");
  if (!isFIX && !next.starts_with("10002=")) return 0;
  size_t const from = soh - std::min(soh, LONGEST_FIRST_FIELD);
  size_t const begin = text.substr(from, soh - from).rfind(isFIX ? FIX_BEGIN : SIAC_BEGIN);
  return begin == text.npos ? 0 : from + begin;
}

// Up to the line's end, behind a CheckSum, or up to the next message. Looks at hardly a byte behind that.
size_t unframedLength(std::string_view text) {
  for (size_t at = text.find_first_of("\n\x01"); at != text.npos; at = text.find_first_of("\n\x01", at + 1)) {
    if (text[at] == '\n') return withoutCR(text, 0, at);
    if (size_t const next = messageAround(text, at)) return next;
    if (size_t const checkSum = checkSumLength(text.substr(at + 1))) return at + 1 + checkSum;
  }
  return text.size();
}

// What begins a message of its own wherever it stands, but for an FCS message.
bool hasMark(std::string_view text, size_t line) {
  size_t const mark = text.find_first_of("\n|\x01", line);
  return text.substr(line).starts_with(FixedOrder::TAG) || (mark != text.npos && text[mark] != '\n');
}

bool isFCSBody(std::string_view line) {
  std::string_view const token = line.substr(0, line.find_first_of(" \r\n"));
  return std::find(std::begin(FCS_TOKENS), std::end(FCS_TOKENS), token) != std::end(FCS_TOKENS);
}

size_t blockLength(std::string_view text) {
  size_t feed = lineFeed(text, 0);
  size_t end = withoutCR(text, 0, feed);
  bool const isFCS = feed < text.size() && isFCSBody(text.substr(feed + 1, 8));
  while (feed < text.size()) {
    size_t const line = feed + 1;
    if (!isFCS && hasMark(text, line)) break;
    feed = lineFeed(text, line);
    size_t const lineEnd = withoutCR(text, line, feed);
    if (lineEnd == line) break;
    end = lineEnd;
  }
  return end;
}

size_t messageLength(std::string_view text) {
  if (beginsTagValue(text)) {
    size_t const framed = framedLength(text);
    return framed != 0 ? framed : unframedLength(text);
  }
  if (text.starts_with(FixedOrder::TAG)) return withoutCR(text, 0, lineFeed(text, 0));
  size_t const mark = text.find_first_of("\n|\x01");
  if (mark == text.npos || text[mark] == '\n') return blockLength(text);
  return text[mark] == SOH ? unframedLength(text) : withoutCR(text, 0, lineFeed(text, mark));
}

}  // namespace

MessageReader::MessageReader(std::string_view source, std::string_view bytes)
    : source_(source), rest_(bytes), size_(bytes.size()), isRejects_(RejectHeader::begins(bytes)) {}

bool MessageReader::next(FileMessage &message) {
  skipBlankLines();
  if (rest_.empty()) return false;
  if (isRejects_ && takeReject(message)) return true;
  isRejects_ = false;
  message = {source_, line_, column_, rest_.substr(0, messageLength(rest_))};
  take(message.bytes.size());
  return true;
}

void MessageReader::skipBlankLines() {
  while (rest_.starts_with("\n") || rest_.starts_with("\r\n")) take(rest_[0] == '\n' ? 1 : 2);
}

void MessageReader::take(size_t count) {
  std::string_view const taken = rest_.substr(0, count);
  size_t const feed = taken.rfind('\n');
  line_ += static_cast<size_t>(std::count(taken.begin(), taken.end(), '\n'));
  column_ = feed == taken.npos ? column_ + count : count - feed;
  rest_.remove_prefix(count);
}

// What is no whole reject is left to be read as any file is.
bool MessageReader::takeReject(FileMessage &message) {
  RejectHeader header;
  size_t const begin = header.parse(rest_);
  if (begin == 0 || header.xml > rest_.size() - begin || header.bytes > rest_.size() - begin - header.xml) return false;
  message = {header.source, header.line, header.column, rest_.substr(begin + header.xml, header.bytes)};
  take(begin + header.xml + header.bytes);
  return true;
}

}  // namespace examples

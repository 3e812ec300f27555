#include "tavrone/fcs/FCSInputParser.h"

#include "tavrone/core/Raise.h"
#include "tavrone/core/Wrappers.h"

namespace tavrone {

namespace {

constexpr char const *SOURCE = "cpp/fcs/FCSInputParser";
constexpr int MAX_ISN_LENGTH = 6;
constexpr int MIN_LAST_ISN_LENGTH = 4;
constexpr int MAX_BRANCH_LENGTH = 4;

enum TrailerField { ISN, TEXT };

FCSParseException failureIn(tvstring const &line, int column, tvstring const &text, int sourceLine) {
  auto failure = failureAt<FCSParseException>(text, SOURCE, sourceLine);
  failure.setFailedLine(line);
  failure.setColumn(column);
  return failure;
}

[[noreturn]] void fail(FCSLineTokenizer &tokenizer, tvstring const &text, int sourceLine = __builtin_LINE()) {
  int const column = tokenizer.getColumn();  // first: getLine moves to the end
  throw failureIn(tokenizer.getLine(), column, text, sourceLine);
}

bool isNumber(tvstring const &token) {
  return FCSLineTokenizer::isNumberType(token, INT_MAX);
}

// A number may stand alone at either end of the line.
bool isNextTokenISN(FCSLineTokenizer const &tokenizer) {
  tvstring const &token = tokenizer.peekNextToken();
  if (!isNumber(token)) return false;
  bool const isFirst = tokenizer.mark() == 0;
  if (isFirst && FCSLineTokenizer::isCharType(tokenizer.peekToken(1), MAX_BRANCH_LENGTH)) return true;
  bool const isLast = tokenizer.mark() + 1 == tokenizer.getTokenCount();
  return isLast && token.length() >= static_cast<size_t>(MIN_LAST_ISN_LENGTH);
}

// The ISN, taken, if the next token is one or announces one; else empty.
tvstring takeISN(FCSLineTokenizer &tokenizer) {
  tvstring const &token = tokenizer.peekNextToken();
  if (!(token.length() >= 2 && token[0] == 'O' && token[1] == 'L'))
    return isNextTokenISN(tokenizer) ? tokenizer.getNextToken() : tvstring();
  tvstring isn = tokenizer.getNextToken().substr(2);
  if (isn.empty()) {
    if (!tokenizer.hasMoreTokens())
      fail(tokenizer, "The token 'OL' should be followed by a token representing Input Sequence Number (ISN)");
    isn = tokenizer.getNextToken();
  }
  FCSInputParser::verifyISN(isn, tokenizer, tokenizer.mark() - 1);
  return isn;
}

struct FirmToCMSTrailer {
  explicit FirmToCMSTrailer(tvstring const &line) {
    if (line.empty()) throw failureIn(line, 0, "Trailer is not present in Input", __builtin_LINE());
    FCSLineTokenizer tokenizer(line);
    while (tokenizer.hasMoreTokens()) {
      if (isn.empty()) {
        isn = takeISN(tokenizer);
        if (!isn.empty()) continue;
      }
      addToText(tokenizer.getNextToken());
    }
    if (isn.empty()) fail(tokenizer, "Input Sequence Number (ISN) is not found in trailer");
  }

  // Tokens that stand one space apart stay a view on the line.
  void addToText(tvstring const &token) {
    if (text.empty())
      text = token;
    else if (token.data() == text.data() + text.length() + 1)
      text = text.span(token);
    else
      text = text + ' ' + token;
  }

  tvstring isn;
  tvstring text;
};

}  // namespace

FCSInputParser::~FCSInputParser() noexcept(false) = default;

void FCSInputParser::parseTrailer(DataObject *trailer, LineReader &reader, TransformContext &context) {
  parseFirmToCMSTrailer(trailer, reader, context);
}

void FCSInputParser::parseInternal(ExternalObject *object, LineReader &reader, TransformContext &context) {
  parseHeader(object->getHeader(), reader, context);
  parseData(object->getData(), reader, context);
  parseTrailer(object->getTrailer(), reader, context);
  if (reader.hasMoreLines()) additionalLinesAtEndError(reader);
}
void FCSInputParser::parseInternal(ExternalObject *object, Binary const &bytes, TransformContext &context) {
  LineReader reader(bytes, true);
  parseInternal(object, reader, context);
}
void FCSInputParser::parseInternal(ExternalObject *object, char const *bytes, int length, TransformContext &context) {
  LineReader reader(bytes, length, true);
  parseInternal(object, reader, context);
}

void FCSInputParser::parseFirmToCMSTrailer(DataObject *trailer, LineReader &reader, TransformContext &) {
  try {
    FirmToCMSTrailer const parsed(reader.getTrailerLine());
    if (trailer == nullptr) return;
    trailer->setField(ISN, StringObject(parsed.isn));
    if (!parsed.text.empty()) trailer->setField(TEXT, StringObject(parsed.text));
  } catch (FCSParseException &failure) {
    failure.setLine(reader.getTrailerLineNumber());
    throw;
  }
}

void FCSInputParser::verifyISN(tvstring const &value, FCSLineTokenizer &tokenizer, int mark) {
  if (FCSLineTokenizer::isNumberType(value, MAX_ISN_LENGTH)) return;
  tokenizer.reset(mark);
  fail(tokenizer, "Invalid Input Sequence Number (ISN)");
}

void FCSInputParser::additionalLinesAtEndError() {
  raise<FCSParseException>("Unrecognized lines at the end", SOURCE);
}
void FCSInputParser::additionalLinesAtEndError(LineReader &reader) {
  auto failure = failureIn(reader.getNextLine(), 0, "Unrecognized lines at the end", __builtin_LINE());
  failure.setLine(reader.getLineNumber());
  reader.pushBackLine();
  throw failure;
}

}  // namespace tavrone

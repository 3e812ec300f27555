// Any bytes cut into lines and tokens, both as a plain walk over the bytes cuts them. Prices are read or refused, and a
// refused one leaves the tokenizer where it was; a refused trailer leaves nothing behind.
#include <string_view>
#include <vector>

#include "tavrone/tavrone.h"
#include "tests/FuzzInput.h"
#include "tests/Text.h"

namespace {

using namespace tavrone;
using Trailer = Record<"Trailer", Field<"ISN", tvstring>, Field<"Text", tvstring>>;

std::vector<std::string> plainLines(std::string_view rest) {
  std::vector<std::string> lines;
  while (!rest.empty()) {
    size_t const length = std::min(rest.find('\n'), rest.size());
    bool const isEnded = length != rest.size();
    bool const afterReturn = isEnded && length != 0 && rest[length - 1] == '\r';
    lines.emplace_back(rest.substr(0, length - afterReturn));
    rest.remove_prefix(length + isEnded);
  }
  return lines;
}

std::vector<std::string> plainTokens(std::string const &line) {
  std::vector<std::string> tokens;
  for (size_t at = 0; (at = line.find_first_not_of(' ', at)) != line.npos;) {
    size_t const end = std::min(line.find(' ', at), line.size());
    tokens.push_back(line.substr(at, end - at));
    at = end;
  }
  return tokens;
}

void checkPrice(FCSLineTokenizer &tokenizer) {
  tokenizer.reset();
  try {
    tokenizer.parsePrice();
    require(tokenizer.mark() == 1 || tokenizer.mark() == 2);
  } catch (TransformException const &) {
    require(tokenizer.mark() == 1);
  }
}

void checkTokens(FCSLineTokenizer &tokenizer, tvstring const &line) {
  std::vector<std::string> const tokens = plainTokens(str(line));
  bool const fits = tokens.size() < 47 || (tokens.size() == 47 && line[line.length() - 1] != ' ');
  try {
    tokenizer.setString(line);
  } catch (FCSParseException const &failure) {
    require(!fits && failure.getFailedLine() == line);
    return;
  }
  require(fits && tokenizer.getTokenCount() == static_cast<int>(tokens.size()));
  for (std::string const &token : tokens) require(str(tokenizer.getNextToken()) == token);
  require(tokenizer.getNextToken().empty() && tokenizer.peekNextToken().empty());
  checkPrice(tokenizer);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(uint8_t const *data, size_t size) {
  std::string_view const input(reinterpret_cast<char const *>(data), size);
  std::vector<std::string> const lines = plainLines(input);
  LineReader reader(input.data(), static_cast<int>(size), true);
  FCSLineTokenizer tokenizer;
  for (size_t i = 0; i + 1 < lines.size(); ++i) {
    require(reader.hasMoreLines());
    tvstring const &line = reader.getNextLine();
    require(str(line) == lines[i]);
    checkTokens(tokenizer, line);
    // In an array of its own, so that a read past its end is seen.
    checkTokens(tokenizer, tvstring(line.data(), line.length()));
  }
  require(!reader.hasMoreLines() && str(reader.getTrailerLine()) == (lines.empty() ? "" : lines.back()));

  struct Parser : FCSInputParser {
    void parse(ExternalObject *, Binary const &, TransformContext &) override {}
    ExternalObject *parse(Binary const &, TransformContext &) override { return nullptr; }
    void parseHeader(DataObject *, LineReader &, TransformContext &) override {}
    void parseData(DataObject *, LineReader &, TransformContext &) override {}
  } parser;
  TransformContext context;
  Trailer trailer;
  try {
    parser.parseTrailer(&trailer, reader, context);
    require(!trailer.isNull<"ISN">());
  } catch (FCSParseException const &failure) {
    require(trailer.isEmpty() && failure.getLine() == reader.getTrailerLineNumber());
  }
  return 0;
}

// Headers of both tag=value formats read from bytes, against the walk over the whole message.
#include "tavrone/fix/FIXHeaderParser.h"
#include "tavrone/siaccanonical/SIACCanonicalHeaderParser.h"
#include "tests/FuzzInput.h"
#include "tests/fix/TagValueReference.h"

using namespace tavrone;

namespace {

template <class Header, class Parse>
std::string shown(Parse const &parse) {
  Header header;
  std::string failure;
  try {
    failure = parse(header);
  } catch (TransformException const &e) {
    failure = str(e.getMessage());
  }
  return str(header.toXMLString()) + failure;
}

template <class Header, class Tokenizer, class Parser>
void check(std::string const &text) {
  std::string const whole = shown<Header>([&](Header &header) {
    Tokenizer tokens(UnownedText(text), '\x01');
    try {
      Parser::parseHeader(&header, tokens);
    } catch (TransformException const &failure) {
      return "[col " + std::to_string(tokens.getNextTokenIndex()) + "] " + str(failure.getMessage());
    }
    return std::string();
  });
  std::string const bytes = shown<Header>([&](Header &header) {
    std::string const copy = text;
    Parser::parseHeader(header, copy.data(), static_cast<int>(copy.size()));
    return std::string();
  });
  require(whole == bytes);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(uint8_t const *data, size_t size) {
  std::string const text(reinterpret_cast<char const *>(data), size);
  check<FIXHeader, FIXTokenizer, FIXHeaderParser>(text);
  check<SIACCanonicalHeader, SIACCanonicalTokenizer, SIACCanonicalHeaderParser>(text);
  return 0;
}

#include "tavrone/fix/TagValueHeaderParser.h"

#include <algorithm>
#include <exception>

#include "tavrone/core/Binary.h"
#include "tavrone/fix/FIXHeaderParser.h"
#include "tavrone/siaccanonical/SIACCanonicalHeaderParser.h"

namespace tavrone {

namespace {

constexpr char SOH = '\x01';

}  // namespace

template <class Binding>
void TagValueHeaderParser<Binding>::parseHeader(Header *header, Tokenizer &tokenizer) {
  TagValuePair field;
  while (tokenizer.next(field)) {
    if (header->setTag(field.tag, field.value)) continue;
    tokenizer.pushBack(field);
    return;
  }
}

// The header is read from the bytes as they stand. Only then is it known how many of them it needs.
template <class Binding>
void TagValueHeaderParser<Binding>::parseHeader(Header &header, char const *bytes, int length) try {
  Binary const message(bytes, static_cast<std::size_t>(std::max(length, 0)), false);
  if (header.hasTextIn(bytes, std::max(length, 0))) {
    // Bytes that the header itself keeps may go with the text that a field replaces.
    tvstring const copy(message.data(), message.length());
    return parseHeader(header, copy.data(), length);
  }
  Tokenizer tokenizer(message.asText(), SOH);
  try {
    parseHeader(&header, tokenizer);
  } catch (TransformException &failure) {
    header.keepTexts(bytes, tokenizer.getCurrentIndex());
    failure.setMessage("[col " + intToString(tokenizer.getNextTokenIndex()) + "] " + failure.getMessage());
    Binding::fail(failure);
  }
  header.keepTexts(bytes, tokenizer.getCurrentIndex());
} catch (std::exception const &) {
  header.init();  // without memory to keep its texts it is left with none: they were views on the caller's bytes
  throw;
}

template class TagValueHeaderParser<FIXHeaderBinding>;
template class TagValueHeaderParser<SIACCanonicalHeaderBinding>;

}  // namespace tavrone

#include "tavrone/fix/TagValueHeaderParser.h"

#include <algorithm>

#include "tavrone/fix/FIXHeaderParser.h"
#include "tavrone/siaccanonical/SIACCanonicalHeaderParser.h"

namespace tavrone {

namespace {

constexpr char SOH = '\x01';

char const *findByte(char const *from, char const *end, char byte) {
  return static_cast<char const *>(std::memchr(from, byte, static_cast<std::size_t>(end - from)));
}

enum class TokenKind { OF_HEADER, OF_BODY, BROKEN };

template <class Header>
TokenKind kindOf(char const *token, char const *end) {
  char const *equals = findByte(token, end, '=');
  int tag;
  if (equals == nullptr || !tryReadInt(token, equals, tag)) return TokenKind::BROKEN;
  return Header::hasTag(tag) ? TokenKind::OF_HEADER : TokenKind::OF_BODY;
}

// How many bytes the header takes: through its last field, or through the token that breaks it. The field behind it may
// be huge and is looked at only as far as its tag reaches. The message's last byte belongs to no token.
template <class Header>
std::size_t headerLength(char const *bytes, char const *end) {
  constexpr std::ptrdiff_t TAG_ROOM = 12;
  for (char const *at = bytes; at != end;) {
    TokenKind kind = kindOf<Header>(at, at + std::min(TAG_ROOM, end - 1 - at));
    if (kind == TokenKind::OF_BODY) return static_cast<std::size_t>(at - bytes);
    char const *tokenEnd = findByte(at, end, SOH);
    if (tokenEnd == nullptr) break;
    if (kind == TokenKind::BROKEN) kind = kindOf<Header>(at, tokenEnd);
    if (kind == TokenKind::OF_BODY) return static_cast<std::size_t>(at - bytes);
    at = tokenEnd + 1;
    if (kind == TokenKind::BROKEN) return static_cast<std::size_t>(at - bytes);
  }
  return static_cast<std::size_t>(end - bytes);
}

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

template <class Binding>
void TagValueHeaderParser<Binding>::parseHeader(Header &header, char const *bytes, int length) {
  Tokenizer tokenizer(tvstring(bytes, headerLength<Header>(bytes, bytes + std::max(length, 0))), SOH);
  try {
    parseHeader(&header, tokenizer);
  } catch (TransformException &failure) {
    failure.setMessage("[col " + intToString(tokenizer.getNextTokenIndex()) + "] " + failure.getMessage());
    Binding::fail(failure);
  }
}

template class TagValueHeaderParser<FIXHeaderBinding>;
template class TagValueHeaderParser<SIACCanonicalHeaderBinding>;

}  // namespace tavrone

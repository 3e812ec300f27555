#include "tavrone/core/Binary.h"

#include "tavrone/core/BinaryText.h"

namespace tavrone {

static_assert(sizeof(Binary) == 3 * sizeof(void *));

Binary::Binary(char const *bytes, size_t n, bool copy) {
  if (copy)
    init(bytes, n);
  else if (bytes != nullptr)
    bytes_.assign0(bytes, n, nullptr, false);
}

tvstring Binary::toHexString() const {
  if (empty()) return tvstring();
  tvstring text;
  encodeHex(data(), length(), text.ensureCleanFree(2 * length()));
  text.length_ = 2 * length();
  return text;
}

Binary Binary::fromHexString(tvstring const &text) {
  Binary value(text.length() / 2);
  decodeHex(text.data(), text.length(), const_cast<char *>(value.data()));
  return value;
}

tvstring Binary::toBase64String() const {
  if (empty()) return tvstring();
  tvstring text;
  size_t const textLength = base64TextLength(length());
  base64Codec().encode(data(), length(), text.ensureCleanFree(textLength));
  text.length_ = textLength;
  return text;
}

Binary Binary::fromBase64String(tvstring const &text) {
  size_t const padding = text.find('=');
  size_t const textLength = padding == tvstring::npos ? text.length() : padding;
  size_t const room = base64ByteLength(textLength);
  Binary value(room);
  value.bytes_.length_ = base64Codec().decode(text.data(), textLength, const_cast<char *>(value.data()));
  // A text that is mostly to be skipped leaves no large array behind.
  return value.length() < room / 2 ? Binary(value.data(), value.length()) : value;
}

}  // namespace tavrone

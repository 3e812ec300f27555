#include <algorithm>
#include <cctype>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <string>

#include "tavrone/core/Binary.h"
#include "tavrone/core/BinaryText.h"

// Hexadecimal and base64, both ways, on every path that this processor can run, against models that go character by
// character.

using namespace tavrone;

namespace {

void require(bool holds) {
  if (!holds) std::abort();
}

template <class Value>
std::string str(Value const &value) {
  return std::string(value.data(), value.length());
}

std::string const ALPHABET = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";

std::string hexEncode(std::string const &bytes) {
  std::string text;
  for (char c : bytes)
    for (int shift : {4, 0}) text += "0123456789ABCDEF"[static_cast<unsigned char>(c) >> shift & 15];
  return text;
}

std::string hexDecode(std::string const &text) {
  auto const value = [](unsigned char c) { return c >= '0' && c <= '9' ? c - '0' : std::toupper(c) - '7'; };
  std::string bytes;
  for (size_t i = 0; i + 1 < text.size(); i += 2)
    bytes += static_cast<char>(value(static_cast<unsigned char>(text[i])) * 16 +
                               value(static_cast<unsigned char>(text[i + 1])));
  return bytes;
}

std::string base64Encode(std::string const &bytes) {
  std::string text;
  for (size_t i = 0; i < bytes.size(); i += 3) {
    unsigned group = 0;
    for (size_t k = i; k < i + 3; ++k)
      group = group << 8 | (k < bytes.size() ? static_cast<unsigned char>(bytes[k]) : 0);
    for (unsigned k = 0; k < 4; ++k) text += i + k > bytes.size() ? '=' : ALPHABET[group >> (18 - 6 * k) & 63];
  }
  return text;
}

std::string base64Decode(std::string const &text) {
  size_t count = 0;
  for (size_t i = 0; i < text.size() && text[i] != '='; ++i) count += ALPHABET.find(text[i]) != std::string::npos;
  size_t const length = count / 4 * 3 + (count % 4 == 0 ? 0 : count % 4 - 1);
  std::string bytes;
  unsigned bits = 0, pending = 0;
  for (size_t i = 0; i < text.size() && text[i] != '='; ++i) {
    size_t const value = ALPHABET.find(text[i]);
    if (value == std::string::npos) continue;
    bits = (bits << 6 | static_cast<unsigned>(value)) & 0xFFFF;
    pending += 6;
    if (pending < 8) continue;
    pending -= 8;
    bytes += static_cast<char>(bits >> pending);
  }
  require(bytes.size() == length);
  return bytes;
}

void check(Base64Codec const &codec, std::string const &input) {
  std::string const expected = base64Encode(input);
  std::string text(base64TextLength(input.size()), '?');
  codec.encode(input.data(), input.size(), text.data());
  require(text == expected);

  size_t const length = std::min(input.find('='), input.size());
  std::string bytes(base64ByteLength(length), '?');
  bytes.resize(codec.decode(input.data(), length, bytes.data()));
  require(bytes == base64Decode(input));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(uint8_t const *data, size_t size) {
  std::string const input(reinterpret_cast<char const *>(data), size);
  Binary const bytes(input.data(), input.size());
  tvstring const text = bytes.toASCIIString();

  require(str(bytes.toHexString()) == hexEncode(input));
  require(str(Binary::fromHexString(text)) == hexDecode(input));
  require(Binary::fromHexString(bytes.toHexString()) == bytes);

  require(str(bytes.toBase64String()) == base64Encode(input));
  require(str(Binary::fromBase64String(text)) == base64Decode(input));
  require(Binary::fromBase64String(bytes.toBase64String()) == bytes);

  check(PLAIN_BASE64, input);
  if (hasAvx2()) check(AVX2_BASE64, input);
  return 0;
}

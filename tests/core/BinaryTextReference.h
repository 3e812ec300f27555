#pragma once

#include <cctype>
#include <string>
#include <vector>

#include "tavrone/core/Binary.h"
#include "tavrone/core/BinaryText.h"
#include "tests/Text.h"

namespace tavrone {

// Hexadecimal and base64 by their rules, character by character: too simple to be wrong in the same way as the
// library's.

inline std::string referenceHexEncode(std::string const &bytes) {
  std::string text;
  for (char c : bytes)
    for (int shift : {4, 0}) text += "0123456789ABCDEF"[static_cast<unsigned char>(c) >> shift & 15];
  return text;
}

inline std::string referenceHexDecode(std::string const &text) {
  auto const value = [](unsigned char c) { return c >= '0' && c <= '9' ? c - '0' : std::toupper(c) - '7'; };
  std::string bytes;
  for (size_t i = 0; i + 1 < text.size(); i += 2)
    bytes += static_cast<char>(value(static_cast<unsigned char>(text[i])) * 16 +
                               value(static_cast<unsigned char>(text[i + 1])));
  return bytes;
}

inline std::string const BASE64_LETTERS = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";

inline std::string referenceBase64Encode(std::string const &bytes) {
  std::string text;
  for (size_t i = 0; i < bytes.size(); i += 3) {
    unsigned group = 0;
    for (size_t k = i; k < i + 3; ++k)
      group = group << 8 | (k < bytes.size() ? static_cast<unsigned char>(bytes[k]) : 0);
    for (unsigned k = 0; k < 4; ++k) text += i + k > bytes.size() ? '=' : BASE64_LETTERS[group >> (18 - 6 * k) & 63];
  }
  return text;
}

inline std::string referenceBase64Decode(std::string const &text) {
  std::string bytes;
  unsigned bits = 0, pending = 0;
  for (char c : text.substr(0, text.find('='))) {
    size_t const value = BASE64_LETTERS.find(c);
    if (value == std::string::npos) continue;
    bits = (bits << 6 | static_cast<unsigned>(value)) & 0xFFFF;
    pending += 6;
    if (pending < 8) continue;
    pending -= 8;
    bytes += static_cast<char>(bits >> pending);
  }
  return bytes;
}

// Whether every path that this processor can run agrees with the rules on the input, taken as bytes to write and as
// text to read.
inline bool binaryTextFollowsTheRules(std::string const &input) {
  Binary const bytes(input.data(), input.size());
  tvstring const text = bytes.toASCIIString();
  std::string const encoded = referenceBase64Encode(input), decoded = referenceBase64Decode(input);
  bool agrees = str(bytes.toHexString()) == referenceHexEncode(input) &&
                str(Binary::fromHexString(text)) == referenceHexDecode(input) &&
                Binary::fromHexString(bytes.toHexString()) == bytes && str(bytes.toBase64String()) == encoded &&
                str(Binary::fromBase64String(text)) == decoded &&
                Binary::fromBase64String(bytes.toBase64String()) == bytes;

  std::vector<Base64Codec const *> codecs{&PLAIN_BASE64};
  if (hasAvx2()) codecs.push_back(&AVX2_BASE64);
  size_t const length = input.substr(0, input.find('=')).size();
  for (Base64Codec const *codec : codecs) {
    std::string written(base64TextLength(input.size()), '?'), read(base64ByteLength(length), '?');
    codec->encode(input.data(), input.size(), written.data());
    read.resize(codec->decode(input.data(), length, read.data()));
    agrees = agrees && written == encoded && read == decoded;
  }
  return agrees;
}

}  // namespace tavrone

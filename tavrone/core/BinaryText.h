#pragma once

#include <cstddef>

#include "tavrone/core/Export.h"

namespace tavrone {

// The text forms of raw bytes over plain memory; Binary is their public face. Nothing is allocated or terminated here,
// and input and output must not overlap.

// Two characters a byte, from "0123456789ABCDEF".
TAVRONE_TEST_API void encodeHex(char const *bytes, size_t n, char *text);
// Writes n / 2 bytes; see Binary::fromHexString for characters that are no digits.
TAVRONE_TEST_API void decodeHex(char const *text, size_t n, char *bytes);

// Characters of n encoded bytes, padding included.
constexpr size_t base64TextLength(size_t n) {
  return n / 3 * 4 + (n % 3 == 0 ? 0 : 4);
}
// Bytes that come of n characters of the alphabet.
constexpr size_t base64ByteLength(size_t n) {
  return n / 4 * 3 + (n % 4 == 0 ? 0 : n % 4 - 1);
}

// Both directions of base64 for one kind of processor. All kinds give the same results.
struct Base64Codec {
  // Writes base64TextLength(n) characters.
  void (*encode)(char const *bytes, size_t n, char *text);
  // Decodes the characters of the alphabet, '=' not among them, and skips the rest. Writes and returns at most
  // base64ByteLength(n) bytes.
  size_t (*decode)(char const *text, size_t n, char *bytes);
};

// For every processor.
TAVRONE_TEST_API extern Base64Codec const PLAIN_BASE64;
// For processors with AVX2 only.
TAVRONE_TEST_API extern Base64Codec const AVX2_BASE64;
TAVRONE_TEST_API bool hasAvx2();
// The faster one of those that this processor can run.
TAVRONE_TEST_API Base64Codec const &base64Codec();

}  // namespace tavrone

#include "tavrone/core/Binary.h"

#include <gtest/gtest.h>

#include <cctype>
#include <string>
#include <vector>
#include <type_traits>

#include "tavrone/core/BinaryText.h"

namespace tavrone {
namespace {

static_assert(sizeof(Binary) == 3 * sizeof(void *));
static_assert(std::is_nothrow_move_constructible_v<Binary> && std::is_nothrow_move_assignable_v<Binary>);

std::string str(tvstring const &text) {
  return std::string(text.data(), text.length());
}
std::string str(Binary const &value) {
  return std::string(value.data(), value.length());
}
Binary binary(std::string const &bytes) {
  return Binary(bytes.data(), bytes.size());
}

TEST(Binary, StartsAtTheStaticWordAndGoesBackThereWhenMovedFrom) {
  Binary value("abc", 3);
  EXPECT_EQ(Binary().data(), Binary::EMPTY_BIN_LITERAL);
  Binary const taken(std::move(value));
  EXPECT_EQ(value.data(), Binary::EMPTY_BIN_LITERAL);  // NOLINT(bugprone-use-after-move)
  EXPECT_TRUE(value.empty());
  EXPECT_EQ(str(taken), "abc");
}

TEST(Binary, SharesOnCopyAndCopiesOnSubAndAssign) {
  char bytes[] = "abcde";
  Binary const unowned(bytes, 5, false);
  Binary const owned(bytes, 5, true);
  bytes[0] = 'X';
  EXPECT_EQ(str(unowned), "Xbcde");
  EXPECT_EQ(str(owned), "abcde");

  Binary shared = owned;
  Binary const part = owned.sub(1, 2);
  owned.set(1, '\xE9');
  EXPECT_EQ(shared.at(1), -23);
  EXPECT_EQ(shared[1], static_cast<char>(-23));
  EXPECT_EQ(str(part), "bc");
  shared.assign(shared.data() + 2, 3);
  EXPECT_EQ(str(shared), "cde");
  EXPECT_EQ(str(shared + part), "cdebc");

  tvstring const text("text");
  EXPECT_EQ(Binary(text).data(), text.data());
  EXPECT_NE(Binary(text).toString().data(), text.data());
  EXPECT_EQ(str(Binary(text).toString()), "text");
}

TEST(Binary, ComparesForEqualityButDoesNotOrder) {
  EXPECT_TRUE(binary("ab") == Binary("abc", 2));
  EXPECT_TRUE(binary("ab") != binary("abc") && binary("ab") != binary("ac"));
  EXPECT_FALSE(binary("a") < binary("b") || binary("b") < binary("a"));
  EXPECT_FALSE(binary("a") > binary("b") || binary("b") > binary("a"));
}

TEST(Binary, WritesAndReadsHexLeniently) {
  struct {
    char const *text;
    std::string bytes;
  } const cases[] = {{"", ""},
                     {"00ff7Fe9", std::string("\0\xFF\x7F\xE9", 4)},
                     {"414", "A"},
                     {"4", ""},
                     {"G0", std::string(1, '\0')},
                     {"0g", "\x10"},
                     {" 1", "\x91"},
                     {"\xE9\x31", "\x21"}};
  for (auto const &c : cases) EXPECT_EQ(str(Binary::fromHexString(c.text)), c.bytes) << c.text;
  EXPECT_EQ(str(binary("\xAB\x01\xef").toHexString()), "AB01EF");
}

TEST(Binary, ReadsBase64Leniently) {
  struct {
    char const *text, *bytes;
  } const cases[] = {{"", ""},
                     {"QQ==", "A"},
                     {"QUI=", "AB"},
                     {"QUJD", "ABC"},
                     {"+/+/", "\xFB\xFF\xBF"},
                     {"-_+/", "\xFB"},
                     {"Q", ""},
                     {"QQ", "A"},
                     {"QUI", "AB"},
                     {"QUJDR", "ABC"},  // values missing at the end
                     {"Q=", ""},
                     {"=QUJD", ""},
                     {"QQ==QUJD", "A"},
                     {"QQ=Q", "A"},
                     {"QUI=QUJD", "AB"},  // the first '=' ends it
                     {" Q\r\nU.J-D\t", "ABC"},
                     {"QU\xE9JD\xFF", "ABC"}};  // what is skipped
  for (auto const &c : cases) EXPECT_EQ(str(Binary::fromBase64String(c.text)), c.bytes) << c.text;
}

// The rules character by character, for every length around the sizes of the blocks, with and without dirt, on every
// kind of processor that this one can play.
std::string slowHexDecode(std::string const &text) {
  auto const value = [](char c) {
    return c >= '0' && c <= '9' ? c - '0' : std::toupper(static_cast<unsigned char>(c)) - '7';
  };
  std::string bytes;
  for (size_t i = 0; i + 1 < text.size(); i += 2) bytes += static_cast<char>(value(text[i]) * 16 + value(text[i + 1]));
  return bytes;
}

constexpr char const ALPHABET[] = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";

std::string slowBase64Encode(std::string const &bytes) {
  std::string text;
  for (size_t bit = 0; bit < bytes.size() * 8; bit += 6) {
    size_t value = 0;
    for (size_t i = bit; i < bit + 6; ++i)
      value = value * 2 + (i / 8 < bytes.size() ? static_cast<unsigned char>(bytes[i / 8]) >> (7 - i % 8) & 1U : 0U);
    text += ALPHABET[value];
  }
  return text.append((4 - text.size() % 4) % 4, '=');
}

TEST(BinaryText, AllPathsAgreeWithTheRules) {
  std::vector<Base64Codec const *> codecs{&PLAIN_BASE64, &base64Codec()};
  if (hasAvx2()) codecs.push_back(&AVX2_BASE64);
  unsigned seed = 1;
  auto const random = [&seed] { return static_cast<char>((seed = seed * 1103515245 + 12345) >> 16); };
  for (size_t n = 0; n <= 200; ++n) {
    std::string bytes(n, '\0');
    for (char &c : bytes) c = random();
    EXPECT_EQ(str(Binary::fromHexString(binary(bytes).toASCIIString())), slowHexDecode(bytes));
    EXPECT_EQ(str(Binary::fromHexString(binary(bytes).toHexString())), bytes);

    std::string const text = slowBase64Encode(bytes);
    for (Base64Codec const *codec : codecs) {
      std::string encoded(base64TextLength(n), '?');
      codec->encode(bytes.data(), n, encoded.data());
      EXPECT_EQ(encoded, text);
      for (size_t dirt : {n + 1, n / 2, n / 3}) {
        std::string dirty = text.substr(0, text.find('='));
        if (dirt <= dirty.size()) dirty.insert(dirt, 1 + dirt % 3, static_cast<char>(n % 2 == 0 ? '\n' : '\xC1'));
        std::string decoded(base64ByteLength(dirty.size()), '?');
        decoded.resize(codec->decode(dirty.data(), dirty.size(), decoded.data()));
        EXPECT_EQ(decoded, bytes) << dirty;
      }
    }
  }
}

}  // namespace
}  // namespace tavrone

#include "tavrone/core/Binary.h"

#include <gtest/gtest.h>

#include <random>
#include <type_traits>

#include "tests/core/BinaryTextReference.h"

namespace tavrone {
namespace {

static_assert(std::is_nothrow_move_constructible_v<Binary> && std::is_nothrow_move_assignable_v<Binary>);

TEST(Binary, StartsAtTheStaticWordAndGoesBackThereWhenMovedFrom) {
  Binary value("abc", 3);
  EXPECT_EQ(Binary().data(), Binary::EMPTY_BIN_LITERAL);
  EXPECT_EQ(str(Binary(std::move(value))), "abc");
  EXPECT_EQ(value.data(), Binary::EMPTY_BIN_LITERAL);  // NOLINT(bugprone-use-after-move)
  EXPECT_TRUE(value.empty());
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
  EXPECT_EQ(str(shared + part), "cdebc");

  tvstring const text("text");
  EXPECT_EQ(Binary(text).data(), text.data());
  EXPECT_NE(Binary(text).toString().data(), text.data());
}

TEST(Binary, ComparesForEqualityButDoesNotOrder) {
  Binary const a("a", 1), b("b", 1);
  EXPECT_TRUE(a == Binary("abc", 1) && a != b && a != Binary("ab", 2));
  EXPECT_FALSE(a < b || b < a || a > b || b > a);
}

TEST(Binary, ReadsHexAndBase64Leniently) {
  std::pair<char const *, tvstring> const hex[] = {{"00ff7Fe9", tvstring("\0\xFF\x7F\xE9", 4)},
                                                   {"414", "A"},
                                                   {"4", ""},
                                                   {"G0", tvstring(1, '\0')},
                                                   {" 1", "\x91"},
                                                   {"\xE9\x31", "\x21"}},
                                          base64[] = {{"QQ==", "A"},
                                                      {"QUI=", "AB"},
                                                      {"+/+/", "\xFB\xFF\xBF"},
                                                      {"Q", ""},  // values missing at the end
                                                      {"QUI", "AB"},
                                                      {"QUJDR", "ABC"},
                                                      {"=QUJD", ""},  // the first '=' ends it
                                                      {"QQ=Q", "A"},
                                                      {" Q\r\nU.J-D\t", "ABC"},  // what is skipped
                                                      {"QU\xE9JD\xFF", "ABC"}};
  for (auto const &[text, bytes] : hex) EXPECT_EQ(str(Binary::fromHexString(text)), str(bytes)) << text;
  for (auto const &[text, bytes] : base64) EXPECT_EQ(str(Binary::fromBase64String(text)), str(bytes)) << text;
  EXPECT_EQ(str(Binary("\xAB\x01\xEF").toHexString()), "AB01EF");
}

// Every length around the sizes of the blocks, clean and with something to skip.
TEST(BinaryText, AllPathsFollowTheRules) {
  std::minstd_rand random(1);
  for (size_t n = 0; n <= 200; ++n) {
    std::string bytes(n, '\0');
    for (char &c : bytes) c = static_cast<char>(random());
    EXPECT_TRUE(binaryTextFollowsTheRules(bytes)) << n;
    std::string text = referenceBase64Encode(bytes);
    EXPECT_TRUE(binaryTextFollowsTheRules(text)) << text;
    text.insert(random() % (text.size() + 1), 1 + n % 3, n % 2 == 0 ? '\n' : '\xC1');
    EXPECT_TRUE(binaryTextFollowsTheRules(text)) << text;
  }
}

}  // namespace
}  // namespace tavrone

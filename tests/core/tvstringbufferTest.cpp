#include "tavrone/core/tvstringbuffer.h"

#include <gtest/gtest.h>

#include <new>
#include <string>

namespace tavrone {
namespace {

std::string bytes(tvstring const &text) {
  return std::string(text.data(), text.length());
}

class Probe : public tvstringbuffer {
 public:
  using tvstring::capacity;
  using tvstringbuffer::tvstringbuffer;
  Probe &operator=(tvstring const &text) {
    assign(text);
    return *this;
  }
};

TEST(tvstringbuffer, GrowsByTheRule) {
  Probe buffer;
  buffer.append('a');
  EXPECT_EQ(buffer.capacity(), 9u);  // the larger of 0 and 0 + 1 + 7, plus 1
  buffer.append("bcdefgh");
  EXPECT_EQ(buffer.capacity(), 9u);
  buffer += 'i';
  EXPECT_EQ(buffer.capacity(), 19u);  // twice 9, plus 1
  buffer.append(30, '-');
  EXPECT_EQ(buffer.capacity(), 47u);  // 9 + 30 + 7, plus 1
  buffer.append(-5, 'x').append(0, 'x');
  EXPECT_EQ(bytes(buffer), "abcdefghi" + std::string(30, '-'));

  Probe reserved("abc");
  reserved.reserve(4);
  EXPECT_EQ(reserved.capacity(), 4u);
  reserved.reserve(20);  // 20 - 4 beyond the length: 3 + 16 + 7, plus 1
  EXPECT_EQ(reserved.capacity(), 27u);
  char const *const array = reserved.data();
  reserved.clear();
  EXPECT_TRUE(reserved.empty() && reserved.data() == array);
}

TEST(tvstringbuffer, SharesItsArrayUntilItGrows) {
  tvstring const text("abcd");
  tvstringbuffer buffer(text);
  EXPECT_NE(buffer.data(), text.data());
  tvstringbuffer const shared(buffer);
  EXPECT_EQ(shared.data(), buffer.data());
  buffer[0] = 'X';
  buffer.erase(1, 1).insert(1, 'Y');
  EXPECT_EQ(shared, "XYcd");
  buffer.append("efghijkl").erase(0, 4);
  EXPECT_EQ(buffer, "efghijkl");
  EXPECT_EQ(shared, "XYcd");
  EXPECT_EQ(text, "abcd");
}

TEST(tvstringbuffer, EditsInPlace) {
  tvstringbuffer buffer("hello world");
  EXPECT_EQ(buffer.insert(5, ","), "hello, world");
  EXPECT_EQ(buffer.erase(5, 1).erase(8, 99), "hello wo");
  EXPECT_EQ(buffer.replace(0, 5, "goodbye"), "goodbye wo");
  EXPECT_EQ(buffer.replace(8, 99, tvstring("all")).insert(11, tvstring("!")), "goodbye all!");
  EXPECT_EQ(buffer.replace(3, 4, "", 0).append(""), "goo all!");
}

TEST(tvstringbuffer, TakesItsOwnTextAcrossGrowth) {
  tvstringbuffer buffer("abc");
  for (int i = 0; i < 3; ++i) buffer += buffer;
  EXPECT_EQ(buffer, "abcabcabcabcabcabcabcabc");
  tvstringbuffer inserted("abc");
  inserted.insert(1, inserted);
  EXPECT_EQ(inserted, "aabcbc");
  EXPECT_EQ(inserted.replace(0, 2, inserted.data() + 3, 3), "cbcbcbc");
  EXPECT_EQ(inserted.append(inserted.data() + 5, 2), "cbcbcbcbc");
}

TEST(tvstringbuffer, CountsWhereAViewStartsInItsRoom) {
  tvstring const whole("abcdef");
  Probe buffer;
  buffer = whole.substr(3, 2);
  buffer.append('X');  // fits: three before it, three of its own, the terminator
  EXPECT_EQ(buffer, "deX");
  EXPECT_EQ(buffer.capacity(), 7u);
  buffer.append('Y');  // the text restarts at the array's start, with its length
  EXPECT_EQ(buffer, "abcY");
  EXPECT_EQ(buffer.capacity(), 15u);
}

TEST(tvstringbuffer, MovesUnownedTextToAnArrayBeforeItWrites) {
  tvstringliteral const literal("abc");
  Probe buffer;
  buffer = literal;
  buffer[1] = 'X';
  EXPECT_EQ(buffer, "aXc");
  EXPECT_EQ((buffer = literal, buffer.erase(0, 1)), "bc");
  EXPECT_EQ((buffer = literal, buffer.insert(1, "--")), "a--bc");
  EXPECT_EQ((buffer = literal, buffer.replace(0, 1, "Y")), "Ybc");
  EXPECT_EQ((buffer = literal, bytes(buffer.append('X'))), std::string("\0\0\0X", 4));
  EXPECT_EQ(literal, "abc");
}

TEST(tvstringbuffer, RefusesSizesThatNoArrayCanHave) {
  tvstringbuffer buffer("abc");
  EXPECT_THROW(buffer.append("x", tvstring::npos), std::bad_alloc);
  EXPECT_THROW(buffer.insert(0, "x", tvstring::npos - 3), std::bad_alloc);
  EXPECT_THROW(buffer.reserve(tvstring::npos), std::bad_alloc);
  EXPECT_EQ(buffer, "abc");
  buffer.setBufferLength(-1);
  EXPECT_THROW(buffer.append('x'), std::bad_alloc);
}

}  // namespace
}  // namespace tavrone

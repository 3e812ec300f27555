#include "tavrone/core/tvstringbuffer.h"

#include <gtest/gtest.h>

#include <new>

namespace tavrone {
namespace {

class Probe : public tvstringbuffer {
 public:
  using tvstring::capacity, tvstringbuffer::tvstringbuffer;
  using tvstringbuffer::operator=;
};

TEST(tvstringbuffer, GrowsByTheRule) {
  Probe buffer;
  buffer.append('a');
  EXPECT_EQ(buffer.capacity(), 9u);  // the larger of 0 and 0 + 1 + 7, plus 1
  buffer.append("bcdefgh") += 'i';
  EXPECT_EQ(buffer.capacity(), 19u);  // twice 9, plus 1
  buffer.append(30, '-').append(-5, 'x').append(0, 'x');
  EXPECT_EQ(buffer.capacity(), 47u);  // 9 + 30 + 7, plus 1
  EXPECT_EQ(buffer, "abcdefghi" + tvstring(30, '-'));

  Probe reserved("abc");
  reserved.reserve(4);
  EXPECT_EQ(reserved.capacity(), 4u);
  reserved.reserve(20);  // 20 - 4 beyond the length: 3 + 16 + 7, plus 1
  EXPECT_EQ(reserved.capacity(), 27u);
}

TEST(tvstringbuffer, SharesItsArrayUntilItGrows) {
  tvstring const text("abcd");
  tvstringbuffer buffer(text);
  tvstringbuffer const shared(buffer);
  buffer[0] = 'X';
  buffer.erase(1, 1).insert(1, 'Y');
  EXPECT_EQ(shared, "XYcd");
  EXPECT_EQ(buffer.append("efghijkl").erase(0, 4), "efghijkl");
  EXPECT_EQ(shared, "XYcd");
  EXPECT_EQ(text, "abcd");
}

TEST(tvstringbuffer, EditsInPlaceWithItsOwnTextTooAndAcrossGrowth) {
  tvstringbuffer buffer("hello world");
  EXPECT_EQ(buffer.insert(5, ",").erase(8, 99), "hello, w");
  EXPECT_EQ(buffer.replace(0, 6, "bye").replace(4, 99, tvstring("all")).insert(7, tvstring("!")), "bye all!");
  for (int i = 0; i < 2; ++i) buffer += buffer;
  EXPECT_EQ(buffer, "bye all!bye all!bye all!bye all!");
  tvstringbuffer inserted("abcd");
  EXPECT_EQ(inserted.insert(1, inserted), "aabcdbcd");
  EXPECT_EQ(inserted.replace(0, 2, inserted.data() + 3, 3), "cdbbcdbcd");
  EXPECT_EQ(inserted.insert(1, inserted.data() + 4, 2), "ccddbbcdbcd");
}

TEST(tvstringbuffer, CountsWhereAViewStartsInItsRoom) {
  Probe buffer;
  buffer = tvstring("abcdef").substr(3, 2);
  EXPECT_EQ(buffer.append('X'), "deX");  // fits: three before it, three of its own, the terminator
  EXPECT_EQ(buffer.capacity(), 7u);
  EXPECT_EQ(buffer.append('Y'), "abcY");  // the text restarts at the array's start, with its length
}

TEST(tvstringbuffer, MovesUnownedTextToAnArrayBeforeItWrites) {
  tvstringliteral const literal("abc");
  tvstringbuffer buffer;
  buffer = literal;
  buffer[1] = 'X';
  EXPECT_EQ(buffer, "aXc");
  EXPECT_EQ((buffer = literal, buffer.erase(0, 1)), "bc");
  EXPECT_EQ((buffer = literal, buffer.insert(1, "--")), "a--bc");
  EXPECT_EQ((buffer = literal, buffer.replace(0, 1, "Y")), "Ybc");
  EXPECT_EQ((buffer = literal, buffer.append('X')), tvstring("\0\0\0X", 4));
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

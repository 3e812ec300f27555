#include "tavrone/core/ByteBuffer.h"

#include <gtest/gtest.h>

#include <climits>
#include <cmath>
#include <memory>

#include "tests/Failure.h"

namespace tavrone {
namespace {

template <class Action>
void expectOutOfBounds(Action const &action) {
  Failure const failure = failureOf<TransformException>(action);
  EXPECT_EQ(failure.text, "Out of bounds");
  EXPECT_EQ(failure.source, "cpp/ByteBuffer");
}

TEST(ByteBuffer, DoublesOrJumpsToWhatIsNeeded) {
  ByteBuffer buffer;
  for (int i = 0; i < 16; ++i) buffer.write('a' + i);
  buffer.append(tvstring());
  EXPECT_EQ(buffer.capacity(), 16);
  buffer.append('q');
  EXPECT_EQ(buffer.capacity(), 32);
  buffer.append(tvstring(100, 'x'));
  buffer.ensureFree(0);
  EXPECT_EQ(buffer.capacity(), 117);
  buffer.expandCapacity(118);
  EXPECT_EQ(buffer.capacity(), 234);
  EXPECT_EQ(buffer.toString(), "abcdefghijklmnopq" + tvstring(100, 'x'));

  ByteBuffer own(4);
  own.append(tvstring("abc"));
  own.append(own);
  own.append(own.str() + 2, 4);
  EXPECT_EQ(own.toString(), "abcabccabc");
}

TEST(ByteBuffer, HostileSizesChangeNothing) {
  ByteBuffer buffer(-5);
  buffer.append(tvstring("abc"));
  char const *const block = buffer.str();
  buffer.append("xyz", -1);
  buffer.append0("xyz", INT_MIN);
  buffer.ensureFree(INT_MIN);
  expectOutOfBounds([&] { buffer.ensureFree(INT_MAX); });
  for (int n : {-1, INT_MIN, buffer.capacity() + 1, INT_MAX}) expectOutOfBounds([&] { buffer.chop(n); });
  EXPECT_EQ(buffer.str(), block);
  buffer.chop(2);
  EXPECT_EQ(buffer.toString(), "ab");
}

TEST(ByteBuffer, ReadsSignedBytesAndKeepsTheCursorStrictlyInside) {
  ByteBuffer buffer("\xE9zyd", 4);
  EXPECT_EQ(buffer.read(), -23);
  for (int n : {3, 4, -1, INT_MAX, INT_MIN}) expectOutOfBounds([&] { buffer.getCursor(n); });
  EXPECT_EQ(tvstring(buffer.getCursor(2), 2), "zy");
  EXPECT_EQ(buffer.read(), 'd');
  EXPECT_FALSE(buffer.hasMore());
  expectOutOfBounds([&] { buffer.read(); });
  expectOutOfBounds([&] { buffer.getCursor(0); });
}

TEST(ByteBuffer, WritesNumbersAsDecimalText) {
  ByteBuffer buffer;
  buffer.append(-12);
  buffer.appendDelimiter("|");
  buffer.append(1234567890123LL);
  buffer.append(1.5f);
  buffer.append(1.5, ',');
  buffer.append(-0.25f, ';');
  buffer.append(1.5, '.');
  buffer.append(std::nan(""), ',');
  EXPECT_EQ(buffer.toString(), "-12|12345678901231.51,5-0;251.5nan");
  EXPECT_EQ(ByteBuffer::floatToIntBits(-2.0f), static_cast<int>(0xC0000000));
  EXPECT_EQ(ByteBuffer::longBitsToDouble(ByteBuffer::doubleToLongBits(1.5)), 1.5);
}

TEST(ByteBuffer, OnlyTheSourceOwnsAndWhoDoesNotMovesAwayToWrite) {
  char const bytes[] = "abc";
  ByteBuffer source(bytes, 3);
  EXPECT_EQ(source.str(), bytes);
  source.append('d');
  EXPECT_STREQ(bytes, "abc");
  source.read();
  {
    ByteBuffer copy(source), assigned;
    assigned = copy;
    EXPECT_EQ(copy.str(), source.str());
    EXPECT_EQ(assigned.read(), 'b');
    copy.write(Binary("x", 1));
    EXPECT_EQ(copy.toString(), "abcdx");
    source = assigned;  // the same bytes come back, with the other's read position
  }
  source.append('e');
  EXPECT_EQ(source.read(), 'c');
  ByteBuffer const moved(std::move(source));
  source.append('z');  // NOLINT(bugprone-use-after-move)
  EXPECT_EQ(moved.toString() + source.toString(), "abcdez");
  int n = 0;
  std::unique_ptr<char[]> const copied(moved.toByteArray(n));
  EXPECT_EQ(tvstring(copied.get(), static_cast<size_t>(n)), "abcde");
}

}  // namespace
}  // namespace tavrone

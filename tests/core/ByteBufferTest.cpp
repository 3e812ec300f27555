#include "tavrone/core/ByteBuffer.h"

#include <gtest/gtest.h>

#include <climits>
#include <cmath>
#include <string>

#include "tavrone/core/Exceptions.h"

namespace tavrone {
namespace {

std::string str(ByteBuffer const &buffer) {
  return std::string(buffer.str(), static_cast<size_t>(buffer.length()));
}

template <class Action>
void expectOutOfBounds(Action const &action) {
  try {
    action();
    ADD_FAILURE() << "no failure";
  } catch (TransformException const &failure) {
    EXPECT_TRUE(failure.getMessage() == "Out of bounds");
    EXPECT_TRUE(failure.getTrace().getFileName() == "cpp/ByteBuffer");
  }
}

TEST(ByteBuffer, DoublesOrJumpsToWhatIsNeeded) {
  ByteBuffer buffer;
  for (int i = 0; i < 16; ++i) buffer.write('a' + i);
  buffer.append(tvstring());
  EXPECT_EQ(buffer.capacity(), 16);
  buffer.append('q');
  EXPECT_EQ(buffer.capacity(), 32);
  buffer.append(std::string(100, 'x').data(), 100);
  EXPECT_EQ(buffer.capacity(), 117);
  buffer.ensureFree(0);
  buffer.expandCapacity(117);
  EXPECT_EQ(buffer.capacity(), 117);
  buffer.expandCapacity(118);
  EXPECT_EQ(buffer.capacity(), 234);
  EXPECT_EQ(str(buffer), "abcdefghijklmnopq" + std::string(100, 'x'));
}

TEST(ByteBuffer, HostileSizesChangeNothing) {
  ByteBuffer buffer(-5);
  buffer.append(tvstring("abc"));
  char const *const block = buffer.str();
  buffer.append("xyz", -1);
  buffer.append0("xyz", INT_MIN);
  buffer.ensureFree(INT_MIN);
  buffer.expandCapacity(-1);
  expectOutOfBounds([&] { buffer.ensureFree(INT_MAX); });
  for (int n : {-1, INT_MIN, buffer.capacity() + 1, INT_MAX}) expectOutOfBounds([&] { buffer.chop(n); });
  EXPECT_EQ(buffer.str(), block);
  buffer.chop(2);
  EXPECT_EQ(str(buffer), "ab");
}

TEST(ByteBuffer, ReadsSignedBytesAndKeepsTheCursorStrictlyInside) {
  ByteBuffer buffer(
      "\xE9"
      "bcd",
      4);
  EXPECT_EQ(buffer.read(), -23);
  for (int n : {3, 4, -1, INT_MAX, INT_MIN}) expectOutOfBounds([&] { buffer.getCursor(n); });
  EXPECT_EQ(std::string(buffer.getCursor(2), 2), "bc");
  EXPECT_EQ(buffer.read(), 'd');
  EXPECT_FALSE(buffer.hasMore());
  expectOutOfBounds([&] { buffer.read(); });
  expectOutOfBounds([&] { buffer.getCursor(0); });
}

TEST(ByteBuffer, WritesNumbersAsDecimalText) {
  ByteBuffer buffer;
  buffer.append(-12);
  buffer.append(1234567890123LL);
  buffer.appendDelimiter("|");
  buffer.append(1.5f);
  buffer.append(1.5, ',');
  buffer.append(-0.25f, ';');
  buffer.append(1.5, '.');
  buffer.append(-1e300, ',');
  EXPECT_EQ(str(buffer).substr(0, 37), "-121234567890123|1.51,5-0;251.5-10000");
  EXPECT_EQ(str(buffer).substr(str(buffer).size() - 3), "0,0");
  ByteBuffer letters;
  letters.append(std::nan(""), ',');
  EXPECT_EQ(str(letters), "nan");
}

TEST(ByteBuffer, OwnBytesAreAppendedAcrossGrowth) {
  ByteBuffer buffer(4);
  buffer.append(tvstring("abc"));
  buffer.append(buffer);
  buffer.append(buffer.str() + 2, 4);
  EXPECT_EQ(str(buffer), "abcabccabc");
}

TEST(ByteBuffer, WrappedBytesAreLeftAloneAndMovedToAnOwnBlockByTheFirstWrite) {
  char bytes[] = "abc";
  ByteBuffer wrapped(bytes, 3);
  EXPECT_EQ(wrapped.str(), bytes);
  wrapped.append(tvstring("def"));
  wrapped.write(Binary("gh", 2));
  EXPECT_EQ(str(wrapped), "abcdefgh");
  ByteBuffer expanded(bytes, 3);
  expanded.expandCapacity(1);
  EXPECT_EQ(str(expanded), "abc");
  EXPECT_EQ(std::string(bytes), "abc");
}

TEST(ByteBuffer, CopiesSeeTheBytesWhichOnlyTheSourceOwns) {
  ByteBuffer source;
  source.append(tvstring("abc"));
  source.read();
  {
    ByteBuffer copy(source);
    ByteBuffer assigned;
    assigned = copy;
    EXPECT_EQ(copy.str(), source.str());
    EXPECT_EQ(assigned.read(), 'b');
    copy.append('x');
    EXPECT_EQ(str(copy), "abcx");
    source = assigned;  // the same bytes come back, with the other's read position
  }
  source.append('d');
  EXPECT_EQ(source.read(), 'c');
  EXPECT_EQ(str(source), "abcd");
  ByteBuffer const moved(std::move(source));
  source.append('z');  // NOLINT(bugprone-use-after-move)
  EXPECT_EQ(str(moved) + str(source), "abcdz");
  int n = 0;
  std::unique_ptr<char[]> const bytes(moved.toByteArray(n));
  EXPECT_EQ(std::string(bytes.get(), static_cast<size_t>(n)), "abcd");
}

TEST(ByteBuffer, ReinterpretsBits) {
  EXPECT_EQ(ByteBuffer::floatToIntBits(-2.0f), static_cast<int>(0xC0000000));
  EXPECT_EQ(ByteBuffer::intBitsToFloat(0x3FC00000), 1.5f);
  EXPECT_EQ(ByteBuffer::doubleToLongBits(1.5), 0x3FF8000000000000LL);
  EXPECT_EQ(ByteBuffer::longBitsToDouble(0x3FF8000000000000LL), 1.5);
}

}  // namespace
}  // namespace tavrone

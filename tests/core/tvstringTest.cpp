#include "tavrone/core/tvstring.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <climits>
#include <cstdlib>
#include <new>
#include <string>
#include <vector>

#include "tavrone/core/Exceptions.h"
#include "tests/core/AllocationCount.h"

namespace tavrone {
namespace {

constexpr size_t NPOS = tvstring::npos;

std::string bytes(tvstring const &text) {
  return std::string(text.data(), text.length());
}

// Shows what only derived classes see.
class Probe : public tvstring {
 public:
  using tvstring::tvstring;
  Probe(tvstring const &text) : tvstring(text) {}
  using tvstring::capacity;
  using tvstring::operator=;
  chararray *owner() const { return owner_; }
};

TEST(chararray, IsOneBlockAndRefusesToBeDeletedWhileReferencesRemain) {
  AllocationCount const allocations;
  chararray *array = chararray::create(5);
  EXPECT_EQ(allocations.soFar(), 1);
  EXPECT_EQ(array->getPtr(), reinterpret_cast<char *>(array + 1));
  EXPECT_EQ(array->length(), 5u);
  EXPECT_EQ(array->getRefCount(), 1);
  try {
    delete array;
    FAIL();
  } catch (TransformException const &failure) {
    EXPECT_EQ(failure.getMessage(), "Ref count error. Illegal delete on tvstring object");
  }
  EXPECT_THROW(chararray::create(NPOS), std::bad_alloc);
}

TEST(tvstring, GivesEachConstructedTextAnArrayWithOneSpareByte) {
  EXPECT_EQ(Probe("abc").capacity(), 4u);
  EXPECT_EQ(Probe("a\0c", 3).length(), 3u);
  EXPECT_EQ(Probe(3, 'x').capacity(), 4u);
  EXPECT_EQ(tvstring(3, 'x'), "xxx");
  EXPECT_TRUE(tvstring("abc", 0).empty());
  EXPECT_EQ(Probe(nullptr).capacity(), 1u);
  EXPECT_EQ(Probe().capacity(), 0u);
  EXPECT_TRUE(tvstring() == tvstring(nullptr));
  EXPECT_STREQ(tvstring::EMPTY.c_str(), "");
  EXPECT_THROW(tvstring(NPOS, 'x'), std::bad_alloc);
  EXPECT_THROW(tvstring("x", NPOS), std::bad_alloc);
}

TEST(tvstring, CopiesCutsComparesAndMovesWithoutAllocating) {
  Probe const whole("abcdef");
  tvstring target("xyz");
  std::vector<tvstring> fields;
  fields.reserve(2);
  AllocationCount const allocations;
  tvstring copy(whole);
  tvstring moved(std::move(copy));
  EXPECT_TRUE(copy.empty());
  whole.substr(2, target);
  target = whole.substr(1, 3);
  target = std::move(moved);
  fields.push_back(target.substr(4));
  EXPECT_TRUE(target == whole && target.compare(whole) == 0 && fields[0] > target);
  EXPECT_EQ(allocations.soFar(), 0);
  EXPECT_EQ(whole.owner()->getRefCount(), 3);
}

TEST(tvstring, AssignsItselfAndItsOwnParts) {
  tvstring text("abcdef");
  text = *&text;
  EXPECT_EQ(text, "abcdef");
  text = text.substr(1);
  text.substr(1, text);
  EXPECT_EQ(text, "cdef");
  text = text.c_str() + 1;
  EXPECT_EQ(text.assign(text.data() + 1, 2), "ef");
  tvstring out("old");
  text.toString(out);
  EXPECT_EQ(out.data(), text.data());
  EXPECT_EQ(out.static_string("literal").length(), 7u);
}

TEST(tvstring, CutsViewsAsTold) {
  tvstring const text("abcdef");
  EXPECT_EQ(text.substr(4, 9), "ef");
  EXPECT_EQ(text.substr(6), "");
  tvstring out;
  text.substr(2, 9, out);  // this form does not clamp
  EXPECT_EQ(out.length(), 9u);
  EXPECT_EQ(text.substr(1, 2).span(text.substr(3, 2)), "bcde");
  EXPECT_TRUE(text.substr(3).span(text.substr(1)).empty());
  EXPECT_EQ(text.substr(1).distance(text.substr(5)), 4);
}

TEST(tvstring, TerminatesLazilyAndLeavesOtherHoldersAlone) {
  Probe const whole("abcdef");
  char const *const start = whole.data();
  tvstring const shared(whole);
  EXPECT_STREQ(shared.c_str(), "abcdef");  // the spare byte takes the terminator, no copy
  EXPECT_EQ(shared.data(), start);
  Probe const view(whole.substr(1, 3));
  EXPECT_STREQ(view.c_str(), "bcd");
  EXPECT_EQ(view.capacity(), 4u);
  EXPECT_EQ(whole.owner()->getRefCount(), 2);
  EXPECT_EQ(whole, "abcdef");
  EXPECT_STREQ(Probe("xyz").substr(2).c_str(), "z");  // the view alone holds the array by then
  EXPECT_STREQ(tvstringliteral("literal").substr(2, 3).c_str(), "teral");
}

TEST(tvstring, NeverTerminatesBeyondItsArray) {
  tvstring const whole("abcdef");
  whole.c_str();
  tvstring view;
  whole.substr(2, 5, view);  // as long as the array minus one, but further behind
  EXPECT_STREQ(view.c_str(), "cdef");
  whole.substr(2, 100, view);
  EXPECT_STREQ(view.c_str(), "cdef");
  EXPECT_EQ(view.length(), 100u);
  whole.substr(0, NPOS, view);
  EXPECT_THROW(view.c_str(), std::bad_alloc);
  tvstring text("abc");
  text.setBufferLength(50);
  EXPECT_EQ(std::string(text.c_str(), 3), "abc");
  text.setBufferLength(-1);
  EXPECT_THROW(text.c_str(), std::bad_alloc);
}

TEST(tvstring, HandsOutItsBufferOnlyForSizesThatExist) {
  Probe text("abc");
  EXPECT_THROW(text.getBuffer(-1), std::bad_alloc);
  EXPECT_EQ(text, "abc");
  char *buffer = text.getBuffer(3);
  EXPECT_EQ(buffer, text.data());
  EXPECT_TRUE(text.empty());
  std::memcpy(buffer, "xyz", 3);
  text.setBufferLength(3);
  EXPECT_STREQ(text.c_str(), "xyz");
  tvstring const holder(text);
  EXPECT_NE(text.getBuffer(2), holder.data());
  EXPECT_EQ(text.capacity(), 3u);
  EXPECT_EQ(holder, "xyz");
}

TEST(tvstring, RendersNumbersIntoItsOwnArrayWhereItCan) {
  Probe text;
  text.assign(-17);
  EXPECT_EQ(text, "-17");
  EXPECT_EQ(text.capacity(), 26u);
  text.assign(LLONG_MIN);
  EXPECT_EQ(text, "-9223372036854775808");
  EXPECT_EQ(text.capacity(), 101u);
  char const *const array = text.data();
  text.assign(0.1f);
  text.assign('x');
  text.assign(1.5);
  EXPECT_EQ(text, "1.5");
  EXPECT_EQ(text.data(), array);
  tvstring const holder(text);
  text.assign(2);
  EXPECT_EQ(holder, "1.5");
  text.assign(-1e300);
  EXPECT_EQ(text.length(), 304u);
}

TEST(tvstring, FindsFromBothEnds) {
  tvstring const text("abcabc\xE9");
  tvstring const empty;
  struct {
    size_t found, expected;
  } const cases[] = {
      {text.find('b'), 1},         {text.find('b', 2), 4},       {text.find('b', 99), NPOS},
      {text.find(0xE9), NPOS},  // bytes compare sign-extended
      {text.find(0xE9 - 256), 6},  {text.find('b' + 256), NPOS}, {text.find("bc"), 1},
      {text.find("bc", 2), 4},     {text.find("bc", 5), NPOS},   {text.find("", 3), 3},
      {text.find("", 7), NPOS},    {empty.find(""), 0},          {empty.find("", 1), NPOS},
      {empty.find("a"), NPOS},     {text.rfind('a'), 3},         {text.rfind('a', 2), 0},
      {text.rfind('a', NPOS), 3},  {text.rfind('x'), NPOS},      {empty.rfind('a'), NPOS},
      {empty.rfind('a', 5), NPOS}, {text.rfind("bc"), 4},        {text.rfind("bc", 3), 1},
      {text.rfind("bc", 0), NPOS}, {text.rfind("bca"), 1},       {text.rfind(""), 7},
      {text.rfind("", 2), 2},      {empty.rfind(""), 0},         {empty.rfind("abc"), NPOS},
  };
  for (auto const &c : cases) EXPECT_EQ(c.found, c.expected) << "case " << &c - cases;
}

TEST(tvstring, ComparesBytesAsSigned) {
  EXPECT_EQ(tvstring("abc").compare("abd"), -1);
  EXPECT_EQ(tvstring("abc").compare("ab"), 1);
  EXPECT_EQ(tvstring("a").compare("abcd", 4), -3);
  EXPECT_EQ(tvstring("\x80").compare("\x7F"), -255);
  EXPECT_TRUE(tvstring("a\xFF") < "ab");
  EXPECT_TRUE(tvstring("b") > tvstring("ab") && "b" == tvstring("b") && tvstring("b") != "bb");
  for (size_t const length : {1U, 3U, 4U, 7U, 8U, 13U, 16U, 31U, 33U, 255U, 256U, 600U})
    for (size_t at = 0; at < length; ++at) {
      std::string a(length, 'x'), b(length, 'x');
      b[at] = '\xFE';
      a[length - 1] = 'a';
      int const expected = (at == length - 1 ? 'a' : 'x') + 2;
      ASSERT_EQ(tvstring(a.data(), length).compare(b.data(), length), expected) << length << ' ' << at;
    }
}

TEST(tvstring, JoinsIntoAFreshArrayOfTheExactSize) {
  tvstring const a("ab");
  Probe const sum(a + tvstring("cd"));
  EXPECT_EQ(sum, "abcd");
  EXPECT_EQ(sum.capacity(), 5u);
  EXPECT_EQ('<' + a + '>' + "tail", "<ab>tail");
  EXPECT_EQ("head" + a, "headab");
  EXPECT_EQ(bytes(a + '\0'), std::string("ab\0", 3));
  EXPECT_THROW(addtvstrings("a", NPOS, "b", 2), std::bad_alloc);
}

}  // namespace
}  // namespace tavrone

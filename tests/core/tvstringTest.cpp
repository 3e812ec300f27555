#include "tavrone/core/tvstring.h"

#include <gtest/gtest.h>

#include <climits>
#include <new>

#include "tests/Cases.h"
#include "tests/Failure.h"
#include "tests/core/AllocationCount.h"

namespace tavrone {
namespace {

constexpr size_t NPOS = tvstring::npos;

// Shows what only derived classes see.
class Probe : public tvstring {
 public:
  using tvstring::tvstring;
  Probe(tvstring const &text) : tvstring(text) {}
  using tvstring::capacity;
  int references() const { return owner_->getRefCount(); }
};

TEST(chararray, IsOneBlockAndRefusesToBeDeletedWhileReferencesRemain) {
  AllocationCount const allocations;
  chararray *array = chararray::create(5);
  EXPECT_EQ(allocations.soFar(), 1);
  EXPECT_EQ(array->getPtr(), reinterpret_cast<char *>(array + 1));
  EXPECT_FAILURE(TransformException, delete array, "Ref count error. Illegal delete on tvstring object");
  EXPECT_THROW(chararray::create(NPOS), std::bad_alloc);
}

TEST(tvstring, HasAnArrayWithOneSpareByteUnlessItIsStatic) {
  EXPECT_EQ(words(Probe("abc").capacity(), Probe(3, 'x').capacity(), Probe(nullptr).capacity()), "4 4 1");
  EXPECT_EQ(words(Probe().capacity(), Probe(tvstringliteral("abc")).capacity()), "0 0");
  EXPECT_TRUE(tvstring() == tvstring(nullptr) && tvstring("abc", 0).empty());
  EXPECT_EQ(Probe('<' + tvstring("a") + tvstring("b") + '>' + "tail").capacity(), 9u);
  EXPECT_EQ("head" + tvstring("ab") + '\0', tvstring("headab\0", 7));
  EXPECT_THROW(tvstring(NPOS, 'x'), std::bad_alloc);
  EXPECT_THROW(tvstring("x", NPOS), std::bad_alloc);
  EXPECT_THROW(addtvstrings("a", NPOS, "b", 2), std::bad_alloc);
}

TEST(tvstring, CopiesCutsComparesAndMovesWithoutAllocating) {
  Probe const whole("abcdef");
  tvstring target("xyz");
  AllocationCount const allocations;
  tvstring copy(whole);
  tvstring moved(std::move(copy));
  EXPECT_TRUE(copy.empty());
  whole.substr(2, target);
  target = whole.substr(1, 3);
  target = std::move(moved);
  EXPECT_TRUE(target == whole && target.compare(whole) == 0 && target.substr(4) > target);
  EXPECT_EQ(words(allocations.soFar(), whole.references()), "0 2");
}

TEST(tvstring, AssignsItselfAndItsOwnParts) {
  tvstring text("abcdef");
  text = *&text;
  text = text.substr(1);
  text.substr(1, text);
  EXPECT_EQ(text, "cdef");
  text = text.c_str() + 1;
  EXPECT_EQ(text.assign(text.data() + 1, 2), "ef");
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
  EXPECT_EQ(text.substr(5).distance(text.substr(1)), -4);
}

TEST(tvstring, TerminatesLazilyAndLeavesOtherHoldersAlone) {
  tvstring const whole("abcdef"), shared(whole);
  EXPECT_EQ(shared.c_str(), whole.data());  // the spare byte takes the terminator, no copy
  Probe const view(whole.substr(1, 3));
  EXPECT_STREQ(view.c_str(), "bcd");
  EXPECT_EQ(view.capacity(), 4u);
  EXPECT_STREQ(whole.c_str(), "abcdef");
  EXPECT_STREQ(tvstring("xyz").substr(2).c_str(), "z");  // the view alone holds the array by then
  EXPECT_STREQ(tvstringliteral("literal").substr(2, 3).c_str(), "teral");
}

TEST(tvstring, NeverTerminatesBeyondItsArray) {
  tvstring const whole("abcdef");
  whole.c_str();
  tvstring view;
  for (size_t length : {6U, 100U}) {  // as long as the whole text, but further behind; and far too long
    whole.substr(2, length, view);
    EXPECT_STREQ(view.c_str(), "cdef");
  }
  tvstring text("abc");
  text.setBufferLength(50);
  EXPECT_EQ(std::string(text.c_str(), 3), "abc");
  text.setBufferLength(-1);
  EXPECT_THROW(text.c_str(), std::bad_alloc);
}

TEST(tvstring, WritesIntoItsOwnArrayOnlyWhereNobodySharesIt) {
  Probe text("abc");
  EXPECT_THROW(text.getBuffer(-1), std::bad_alloc);
  EXPECT_EQ(text, "abc");
  EXPECT_EQ(text.getBuffer(3), text.data());
  EXPECT_TRUE(text.empty());
  EXPECT_EQ(text.assign(-17), "-17");
  EXPECT_EQ(text.capacity(), 26u);
  EXPECT_EQ(text.assign(LLONG_MIN), "-9223372036854775808");
  EXPECT_EQ(text.capacity(), 101u);
  char const *const array = text.data();
  EXPECT_EQ(text.assign(0.1f), "0.1");
  EXPECT_EQ(text.assign('x'), "x");
  EXPECT_EQ(text.assign(1.5), "1.5");
  EXPECT_EQ(text.data(), array);
  tvstring const holder(text);
  text.assign(2);
  text.assign(-1e300);
  EXPECT_EQ(text.length(), 304u);
  EXPECT_EQ(holder, "1.5");
}

TEST(tvstring, FindsBytesAsSignedAndTextsFromBothEnds) {
  tvstring const text("abcabc\xE9");
  tvstring const empty;
  std::pair<size_t, size_t> const cases[] = {
      {text.find('b'), 1},      {text.find('b', 2), 4},       {text.find('b', 99), NPOS}, {text.find(0xE9 - 256), 6},
      {text.find(0xE9), NPOS},  {text.find('b' + 256), NPOS}, {text.find("bc", 2), 4},    {text.find("bc", 5), NPOS},
      {text.find("", 3), 3},    {text.find("", 7), NPOS},     {empty.find("", 1), NPOS},  {empty.find(""), 0},
      {empty.find("a"), NPOS},  {text.rfind('a'), 3},         {text.rfind('a', 2), 0},    {text.rfind('x'), NPOS},
      {empty.rfind('a'), NPOS}, {text.rfind("bc"), 4},        {text.rfind("bc", 3), 1},   {text.rfind("bc", 0), NPOS},
      {text.rfind("bca"), 1},   {text.rfind("", 2), 2},       {empty.rfind(""), 0},       {empty.rfind("abc"), NPOS}};
  for (auto const &c : cases) EXPECT_EQ(c.first, c.second) << "case " << &c - cases;
}

TEST(tvstring, ComparesBytesAsSigned) {
  EXPECT_EQ(words(tvstring("abc").compare("ab"), tvstring("a").compare("abcd", 4)), "1 -3");
  EXPECT_EQ(tvstring("\x80").compare("\x7F"), -255);
  EXPECT_TRUE(tvstring("a\xFF") < "ab" && tvstring("b") > tvstring("ab"));
  EXPECT_TRUE("b" == tvstring("b") && tvstring("b") != "bb");
  for (size_t const length : {1U, 3U, 4U, 7U, 8U, 13U, 16U, 31U, 33U, 255U, 256U, 600U})
    for (size_t at = 0; at < length; ++at) {
      std::string a(length, 'x'), b(length, 'x');
      b[at] = '\xFE';
      a[length - 1] = 'a';
      int const expected = (at == length - 1 ? 'a' : 'x') + 2;
      ASSERT_EQ(tvstring(a.data(), length).compare(b.data(), length), expected) << length << ' ' << at;
    }
}

}  // namespace
}  // namespace tavrone

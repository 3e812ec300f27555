#include "tavrone/core/Wrappers.h"

#include <gmock/gmock.h>

#include <limits>
#include <tuple>

#include "tavrone/core/SmartPtr.h"
#include "tavrone/dataobject/DataObjectSectionImpl.h"
#include "tests/Failure.h"
#include "tests/Tracked.h"

namespace tavrone {
namespace {

constexpr int MIN_INT = std::numeric_limits<int>::min();
constexpr int MAX_INT = std::numeric_limits<int>::max();
constexpr long long MIN_LONG = std::numeric_limits<long long>::min();

TEST(NumberObjects, ConvertAsTheLanguageDoesAndNeverUndefined) {
  std::tuple<double, int, long long> const cases[] = {{2.9, 2, 2},
                                                      {-2.9, -2, -2},
                                                      {2147483647.9, MAX_INT, MAX_INT},
                                                      {2147483648.0, MIN_INT, 2147483648LL},
                                                      {-2147483648.9, MIN_INT, -2147483648LL},
                                                      {-9223372036854775808.0, MIN_INT, MIN_LONG},
                                                      {9223372036854775808.0, MIN_INT, MIN_LONG},
                                                      {1e300, MIN_INT, MIN_LONG},
                                                      {std::numeric_limits<double>::quiet_NaN(), MIN_INT, MIN_LONG}};
  for (auto const &[value, whole, wide] : cases) {
    IntObject asInt;
    asInt.setDouble(value);
    LongObject asLong;
    asLong.setDouble(value);
    EXPECT_EQ(asInt.getValue(), whole) << value;
    EXPECT_EQ(asLong.getValue(), wide) << value;
    EXPECT_EQ(DoubleObject(value).intValue(), whole) << value;
    EXPECT_EQ(DoubleObject(value).longValue(), wide) << value;
  }
  EXPECT_EQ(FloatObject(2147483648.0F).getInt(), MIN_INT);
  EXPECT_EQ(FloatObject(-1e30F).getLong(), MIN_LONG);
  IntObject narrow;
  narrow.setLong(0x1FFFFFFFELL);
  EXPECT_EQ(narrow.getFloat(), -2.0F);
  EXPECT_EQ(LongObject(0x1FFFFFFFELL).getInt(), -2);
}

// A wrapper with a value, an empty one of its class, and what they show.
struct WrapperCase {
  SmartPtr<Object> value, empty;
  char const *type, *text, *emptyText;
};

auto const &wrapperCases() {
  static DateTime const date(2024, 2, 29, 13, 4, 5, 6);
  static WrapperCase const cases[] = {
      {new IntObject(5), new IntObject, "Integer", "5", "0"},
      {new LongObject(MIN_LONG), new LongObject, "Long", "-9223372036854775808", "0"},
      {new DoubleObject(1.25), new DoubleObject, "Double", "1.25", "0.0"},
      {new FloatObject(0.5F), new FloatObject, "Float", "0.5", "0.0"},
      {new CharObject('x'), new CharObject('y'), "Character", "x", "y"},
      {new BoolObject(true), new BoolObject, "Boolean", "true", "false"},
      {new StringObject("some text"), new StringObject, "String", "some text", ""},
      {new BinaryObject(Binary("bytes", 5)), new BinaryObject, "Binary", "bytes", ""},
      {new DateObject(date), new DateObject, "DateTime", "2024-02-29T13:04:05.006", "0000-01-01T00:00:00.000"},
      {new ISODateObject(ISODateTime(date, 330)), new ISODateObject, "ISODateTime", "2024-02-29T13:04:05.006",
       "0000-01-01T00:00:00.000"},
      {new BigIntegerObject(BigInteger("-12345678901234567890")), new BigIntegerObject, "BigInteger",
       "-12345678901234567890", "0"},
      {new BigDecimalObject(BigDecimal("1234567890.0123456789")), new BigDecimalObject, "BigDecimal",
       "1234567890.0123456789", "0"}};
  return cases;
}

TEST(Wrappers, ShowCloneAndTakeTheirValue) {
  for (auto const &c : wrapperCases()) {
    EXPECT_EQ(c.value->getObjectType(), c.type);
    EXPECT_EQ(c.value->toString(), c.text);
    EXPECT_EQ(c.empty->toString(), c.emptyText) << c.type;
    SmartPtr<Object> const clone(c.value->clone());
    EXPECT_TRUE(typeid(*clone) == typeid(*c.value));
    SmartPtr<Object> const taker(c.empty->clone());
    taker->setObject(clone.get());
    EXPECT_EQ(taker->toString(), c.text);
  }
}

TEST(Wrappers, FailOnEveryOtherTypeAndKeepTheirValue) {
  auto const isNumber = [](WrapperCase const &c) { return dynamic_cast<NumberObject *>(c.value.get()) != nullptr; };
  for (auto const &to : wrapperCases())
    for (auto const &from : wrapperCases()) {
      if (&to == &from || (isNumber(to) && isNumber(from))) continue;
      EXPECT_FAILURE(TransformException, to.value->setObject(from.value.get()),
                     std::string("Cannot convert ") + from.type + " to " + to.type);
      EXPECT_EQ(to.value->toString(), to.text);
    }
  EXPECT_FAILURE(TransformException, IntObject(5).getString(), "Cannot convert Integer to String");
}

struct NamedSection : DataObjectSectionImpl {
  tvstring toString() override { return "the section"; }
};
using Counted = Tracked<NamedSection>;

TEST(SectionObject, DeletesOnlyWhatItOwns) {
  int const &alive = Counted::alive;
  Counted borrowed;
  {
    SectionObject holder(borrowed);
    holder.setSection(new Counted, true);
    EXPECT_EQ(alive, 2);
    holder.setSection(&borrowed);
    EXPECT_EQ(alive, 1);
    holder.setSection(new Counted, false);
    holder.setSection(holder.getSection(), true);  // now it is owned
    holder.setSection(*holder.getSection());       // and stays so
    holder.setObject(&holder);
    EXPECT_EQ(alive, 2);

    SectionObject const copy(holder);
    SectionObject assigned(new Counted, true);
    assigned = holder;
    SmartPtr<Object> const clone(holder.clone());
    assigned.setObject(clone.get());
    EXPECT_EQ(assigned.getSection(), holder.getSection());
    EXPECT_EQ(clone->toString(), "the section");
    EXPECT_EQ(clone->getObjectType(), "Section");
  }
  EXPECT_EQ(alive, 1);

  SectionObject empty;
  EXPECT_EQ(empty.toString(), "");
  IntObject const number(1);
  for (Object const *other : {static_cast<Object const *>(&number), static_cast<Object const *>(nullptr)})
    EXPECT_THAT(failureOf<ClassCastException>([&] { empty.setObject(other); }).text,
                testing::StartsWith(other == nullptr ? "Cannot cast NULL to " : "Cannot cast "));
}

}  // namespace
}  // namespace tavrone

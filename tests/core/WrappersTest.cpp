#include "tavrone/core/Wrappers.h"

#include <gmock/gmock.h>

#include <limits>

#include "tavrone/core/SmartPtr.h"
#include "tavrone/dataobject/DataObjectSection.h"
#include "tests/Failure.h"

namespace tavrone {
namespace {

constexpr int MIN_INT = std::numeric_limits<int>::min();
constexpr int MAX_INT = std::numeric_limits<int>::max();
constexpr long long MIN_LONG = std::numeric_limits<long long>::min();

TEST(NumberObjects, ConvertAsTheLanguageDoesAndNeverUndefined) {
  struct {
    double value;
    int asInt;
    long long asLong;
  } const cases[] = {{2.9, 2, 2},
                     {-2.9, -2, -2},
                     {2147483647.9, MAX_INT, MAX_INT},
                     {2147483648.0, MIN_INT, 2147483648LL},
                     {-2147483648.9, MIN_INT, -2147483648LL},
                     {-9223372036854775808.0, MIN_INT, MIN_LONG},
                     {9223372036854775808.0, MIN_INT, MIN_LONG},
                     {1e300, MIN_INT, MIN_LONG},
                     {std::numeric_limits<double>::quiet_NaN(), MIN_INT, MIN_LONG}};
  for (auto const &c : cases) {
    EXPECT_EQ(DoubleObject(c.value).getInt(), c.asInt) << c.value;
    EXPECT_EQ(DoubleObject(c.value).longValue(), c.asLong) << c.value;
    IntObject asInt;
    asInt.setDouble(c.value);
    EXPECT_EQ(asInt.getValue(), c.asInt) << c.value;
    LongObject asLong;
    asLong.setDouble(c.value);
    EXPECT_EQ(asLong.getValue(), c.asLong) << c.value;
  }
  EXPECT_EQ(FloatObject(2147483648.0F).getInt(), MIN_INT);
  EXPECT_EQ(FloatObject(-1e30F).getLong(), MIN_LONG);

  IntObject narrow;
  narrow.setLong(0x1FFFFFFFELL);
  EXPECT_EQ(narrow.getInt(), -2);
  EXPECT_EQ(LongObject(0x1FFFFFFFELL).intValue(), -2);
  EXPECT_EQ(IntObject(7).getFloat(), 7.0F);
  EXPECT_EQ(LongObject(-7).doubleValue(), -7.0);
  DoubleObject wide;
  wide.setFloat(0.5F);
  EXPECT_EQ(wide.floatValue(), 0.5F);
}

// One wrapper with a value, an empty one of its class, and what they show.
struct WrapperCase {
  SmartPtr<Object> value;
  SmartPtr<Object> empty;
  char const *type;
  char const *text;
  char const *emptyText;
};

std::vector<WrapperCase> wrapperCases() {
  std::vector<WrapperCase> cases;
  auto const add = [&](Object *value, Object *empty, char const *type, char const *text, char const *emptyText) {
    cases.emplace_back();
    auto &c = cases.back();
    c.value.set(value);
    c.empty.set(empty);
    c.type = type;
    c.text = text;
    c.emptyText = emptyText;
  };
  cases.reserve(16);
  add(new IntObject(5), new IntObject, "Integer", "5", "0");
  add(new LongObject(MIN_LONG), new LongObject, "Long", "-9223372036854775808", "0");
  add(new DoubleObject(1.25), new DoubleObject, "Double", "1.25", "0.0");
  add(new FloatObject(0.5F), new FloatObject, "Float", "0.5", "0.0");
  add(new CharObject('x'), new CharObject('y'), "Character", "x", "y");
  add(new BoolObject(true), new BoolObject, "Boolean", "true", "false");
  add(new StringObject("some text"), new StringObject, "String", "some text", "");
  add(new BinaryObject(Binary("bytes", 5)), new BinaryObject, "Binary", "bytes", "");
  DateTime const date(2024, 2, 29, 13, 4, 5, 6);
  add(new DateObject(date), new DateObject, "DateTime", "2024-02-29T13:04:05.006", "0000-01-01T00:00:00.000");
  add(new ISODateObject(ISODateTime(date, 330)), new ISODateObject, "ISODateTime", "2024-02-29T13:04:05.006",
      "0000-01-01T00:00:00.000");
  add(new BigIntegerObject(BigInteger("-12345678901234567890")), new BigIntegerObject, "BigInteger",
      "-12345678901234567890", "0");
  add(new BigDecimalObject(BigDecimal("1234567890.0123456789")), new BigDecimalObject, "BigDecimal",
      "1234567890.0123456789", "0");
  return cases;
}

TEST(Wrappers, ShowCloneAndTakeTheirValue) {
  for (auto const &c : wrapperCases()) {
    EXPECT_EQ(c.value->getObjectType(), c.type);
    EXPECT_EQ(c.value->toString(), c.text);
    EXPECT_EQ(c.empty->toString(), c.emptyText) << c.type;
    SmartPtr<Object> const clone(c.value->clone());
    EXPECT_TRUE(typeid(*clone) == typeid(*c.value));
    c.empty->setObject(clone.get());
    EXPECT_EQ(c.empty->toString(), c.text);
  }
}

TEST(Wrappers, FailOnEveryOtherTypeAndKeepTheirValue) {
  auto const cases = wrapperCases();
  for (auto const &to : cases)
    for (auto const &from : cases) {
      bool const bothNumbers = dynamic_cast<NumberObject *>(to.value.get()) != nullptr &&
                               dynamic_cast<NumberObject *>(from.value.get()) != nullptr;
      if (bothNumbers || to.type == from.type) continue;
      EXPECT_EQ(failureOf<TransformException>([&] { to.value->setObject(from.value.get()); }).text,
                std::string("Cannot convert ") + from.type + " to " + to.type);
      EXPECT_EQ(to.value->toString(), to.text);
    }
  EXPECT_EQ(failureOf<TransformException>([] { IntObject(5).getString(); }).text, "Cannot convert Integer to String");
  EXPECT_EQ(failureOf<TransformException>([] { StringObject("1").setInt(1); }).text,
            "Cannot convert String to Integer");
}

// Counts how many of it are alive.
class FakeSection : public DataObjectSection {
 public:
  explicit FakeSection(int &alive) : alive_(alive) { ++alive_; }
  FakeSection(FakeSection const &) = delete;
  FakeSection &operator=(FakeSection const &) = delete;
  ~FakeSection() noexcept(false) override { --alive_; }
  DataObject *getElement(int) const override { return nullptr; }
  bool removeElement(int) override { return false; }
  void addElement(DataObject *) override {}
  int getElementIndex(DataObject *) const override { return -1; }
  int getElementCount() const override { return 0; }
  DataObject *createElement() override { return nullptr; }
  tvstring toString() override { return "the section"; }
  tvstring const &getName() const override { return tvstring::EMPTY; }
  tvstring getQualifiedName() override { return {}; }
  DataObject *getParent() const override { return nullptr; }
  DataObject *getRootDataObject() const override { return nullptr; }
  void assertConstraints() const override {}
  bool isEmpty() const override { return true; }
  void removeLastElement() override {}
  void clear() override {}
  DataObjectSection *clone() const override { return nullptr; }

 private:
  int &alive_;
};

TEST(SectionObject, DeletesOnlyWhatItOwns) {
  int alive = 0;
  FakeSection borrowed(alive);
  {
    SectionObject holder(borrowed);
    holder.setSection(new FakeSection(alive), true);
    EXPECT_EQ(alive, 2);
    holder.setSection(&borrowed);
    EXPECT_EQ(alive, 1);
    holder.setSection(new FakeSection(alive), false);
    holder.setSection(holder.getSection(), true);  // now it is owned
    holder.setSection(*holder.getSection());       // and stays so
    EXPECT_EQ(alive, 2);
    holder.setObject(&holder);
    EXPECT_EQ(alive, 2);
  }
  EXPECT_EQ(alive, 1);
}

TEST(SectionObject, CopiesBorrow) {
  int alive = 0;
  SectionObject owner(new FakeSection(alive), true);
  {
    SectionObject const copy(owner);
    SectionObject assigned(new FakeSection(alive), true);
    assigned = owner;
    SmartPtr<Object> const clone(owner.clone());
    SectionObject taken;
    taken.setObject(clone.get());
    EXPECT_EQ(taken.getSection(), owner.getSection());
    EXPECT_EQ(clone->toString(), "the section");
    EXPECT_EQ(clone->getObjectType(), "Section");
  }
  EXPECT_EQ(alive, 1);
  EXPECT_EQ(SectionObject().toString(), "");
}

TEST(SectionObject, TakesOnlySections) {
  SectionObject section;
  IntObject const number(1);
  EXPECT_THAT(failureOf<ClassCastException>([&] { section.setObject(&number); }).text,
              testing::StartsWith("Cannot cast "));
  EXPECT_THAT(failureOf<ClassCastException>([&] { section.setObject(nullptr); }).text,
              testing::StartsWith("Cannot cast NULL to "));
}

}  // namespace
}  // namespace tavrone

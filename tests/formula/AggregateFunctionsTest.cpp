#include "tavrone/formula/AggregateFunctions.h"

#include <gtest/gtest.h>

#include <climits>

#include "examples/messages/GeneratedOrder.h"
#include "tavrone/dataobject/GenericDataObject.h"
#include "tavrone/dataobject/Record.h"
#include "tests/Cases.h"
#include "tests/Failure.h"
#include "tests/core/AllocationCount.h"
#include "tests/dataobject/Orders.h"

namespace tavrone {
namespace {

using F = AggregateFunctions;

struct Fill : Record<"Fill", Field<"Size", int>, Field<"Price", double>, Field<"Note", tvstring>,
                     Field<"Fee", BigDecimal>, Field<"Big", long long>, Field<"Rate", float>, Field<"Mark", char>> {};
struct Part : Record<"Part", Field<"Size", int>, Section<"Fills", Fill>, Nested<"First", Fill>> {};
struct Trade : Record<"Trade", Section<"Parts", Part>> {};

// The same trade, as a declared record and as a generic one.
struct Aggregates : testing::TestWithParam<bool> {
  Aggregates() {
    setFields(*addPart(), 0, IntObject(1));
    setFields(*addFill(0), 0, IntObject(7), DoubleObject(1.5), StringObject("a.b"), BigDecimalObject(BigDecimal("2")),
              LongObject(1LL << 40), FloatObject(0.25F), CharObject('x'));
    setFields(*addFill(0), 1, DoubleObject(-1e10), StringObject("c"));
    addPart();
    setFields(*addPart(), 0, IntObject(3));
  }
  ~Aggregates() noexcept override = default;

  DataObject *addPart() { return add(parts); }
  DataObject *addFill(int part) { return add(parts->getElement(part)->getSection("Fills")); }
  static DataObject *add(DataObjectSection *section) {
    SmartPtr<DataObject> const element(section->createElement());
    section->addElement(element.get());
    return element.get();
  }

  SmartPtr<DataObject> trade{
      GetParam() ? new Trade : static_cast<DataObject *>(new GenericDataObject(Trade::typeMetaInfo(), false))};
  DataObjectSection *parts = trade->getSection("Parts");
};
INSTANTIATE_TEST_SUITE_P(DeclaredAndGeneric, Aggregates, testing::Bool());

TEST_P(Aggregates, CountAndCompareFieldsOfAllElements) {
  for (auto const &[name, count] : std::initializer_list<std::pair<char const *, int>>{
           {"Size", 2}, {"Fills.Price", 2}, {"Fills.Size", 1}, {"First.Size", 0}, {"Fills.Mark", 1}}) {
    EXPECT_EQ(F::fieldCount(parts, name), count) << name;
    EXPECT_EQ(F::fieldExistsInOne(parts, name), count == 1) << name;
    EXPECT_EQ(F::fieldExistsInAtMostOne(parts, name), count < 2) << name;
    EXPECT_EQ(F::fieldExistsInAtLeastOne(parts, name), count > 0) << name;
  }
  for (auto const &[name, text] :
       std::initializer_list<std::pair<char const *, char const *>>{{"Size", "3"},
                                                                    {"Fills.Price", "-10000000000.0"},
                                                                    {"Fills.Note", "a.b"},
                                                                    {"Fills.Big", "1099511627776"},
                                                                    {"Fills.Rate", "0.25"},
                                                                    {"Fills.Mark", "x"},
                                                                    {"Fills.Fee", "2"}}) {
    EXPECT_EQ(F::fieldValueCount(parts, name, text), 1) << name;
    EXPECT_TRUE(F::fieldValueExistsInAtLeastOne(parts, name, text)) << name;
    EXPECT_FALSE(F::fieldValueExistsInAtLeastOne(parts, name, text + tvstring("0"))) << name;
  }
}

TEST_P(Aggregates, PassOverNullsAndWhatIsNoNumber) {
  EXPECT_EQ(F::secSum(parts, "Size"), 4);
  EXPECT_EQ(F::secAvg(parts, "Size"), 2.0);
  EXPECT_EQ(F::secMin(parts, "Size"), 1);
  EXPECT_EQ(F::secMax(parts, "Size"), 3);
  EXPECT_EQ(F::secSumDouble(parts, "Fills.Price"), 1.5 - 1e10);
  EXPECT_EQ(F::secSum(parts, "Fills.Price"), INT_MIN);
  EXPECT_EQ(F::secMinDouble(parts, "Fills.Price"), -1e10);
  EXPECT_EQ(F::secMaxDouble(parts, "Fills.Price"), 1.5);
  EXPECT_EQ(F::secMax(parts, "Fills.Price"), 1);
  EXPECT_EQ(F::secMax(parts, "Fills.Big"), 0);  // an int keeps the low bits
  EXPECT_EQ(F::secMaxDouble(parts, "Fills.Rate"), 0.25);
  for (char const *name : {"Fills.Note", "Fills.Fee", "Fills.Mark", "First.Size"}) {
    EXPECT_EQ(F::secSumDouble(parts, name), 0.0) << name;
    EXPECT_EQ(F::secAvg(parts, name), 0.0) << name;
    EXPECT_EQ(F::secMin(parts, name), 0) << name;
    EXPECT_EQ(F::secMax(parts, name), 0) << name;
    EXPECT_EQ(F::secMinDouble(parts, name), 0.0) << name;
    EXPECT_EQ(F::secMaxDouble(parts, name), 0.0) << name;
  }
}

TEST_P(Aggregates, AskEveryElement) {
  EXPECT_FALSE(F::fieldExistsInAll(parts, "Size"));
  EXPECT_FALSE(F::fieldExistsInAll(parts, "Fills.Price"));  // two parts have no fills
  EXPECT_FALSE(F::secExistsInAll(parts, "Fills"));
  EXPECT_EQ(F::secCount(parts, "Fills"), 2);
  EXPECT_TRUE(F::secExistsInAtLeastOne(parts, "Fills"));
  EXPECT_FALSE(F::secExistsInAtMostOne(parts, "Fills"));
  parts->removeElement(2);
  parts->removeElement(1);
  EXPECT_TRUE(F::fieldExistsInAll(parts, "Fills.Price"));
  EXPECT_TRUE(F::fieldExistsInAll(parts, "Price", " Fills "));
  EXPECT_TRUE(F::fieldExistsInAll(parts, "Fills.Price", " \xC3"));
  EXPECT_FALSE(F::fieldExistsInAll(parts, "Size", "Fills."));
  EXPECT_TRUE(F::fieldValueExistsInAll(parts, "Size", "1"));
  EXPECT_FALSE(F::fieldValueExistsInAll(parts, "Fills.Note", "c"));
  EXPECT_TRUE(F::secExistsInAll(parts, "Fills"));
  EXPECT_FALSE(F::secExistsInAll(parts, "First", ""));
  EXPECT_EQ(parts->getElement(0)->isNull("First"), !GetParam());  // asking makes no section
  parts->getElement(0)->getSection("Fills")->clear();
  EXPECT_FALSE(F::fieldExistsInAll(parts, "Price", "Fills"));
  parts->clear();
  EXPECT_TRUE(F::fieldExistsInAll(parts, "No.Such", "Name"));
  EXPECT_TRUE(F::secExistsInAll(parts, "NoSuchName"));
}

TEST_P(Aggregates, FailForAnUnknownNameOnlyWhereAnElementIsAsked) {
  for (char const *name : {"Nope", "Nope.Price", "Fills.Nope"}) {
    std::string const text = "Field with name Nope not defined";
    EXPECT_EQ(failureOf<FieldNotFoundException>([&] { F::fieldCount(parts, name); }).text, text);
    EXPECT_EQ(failureOf<FieldNotFoundException>([&] { F::secMinDouble(parts, name); }).text, text);
    EXPECT_EQ(failureOf<FieldNotFoundException>([&] { F::secExistsInAll(parts, name); }).text, text);
    EXPECT_EQ(F::secCount(parts, name), 0);
    EXPECT_FALSE(F::secExistsInAtLeastOne(parts, name));
  }
  EXPECT_EQ(F::secCount(static_cast<DataObjectCollection *>(nullptr)), 0);
  EXPECT_EQ(F::secSum(static_cast<DataObjectSection *>(nullptr), "Size"), 0);
}

TEST(AggregateFunctions, AskRecordsWrittenByHandThroughTheirAccessors) {
  examples::GeneratedOrder order;
  for (int ratio : {4, 9}) addLeg(order, ratio);
  order.setField("Symbol", StringObject("ACME"));
  DataObjectSection *legs = order.getSection("Legs");
  EXPECT_EQ(words(F::secSum(legs, "Ratio"), F::secMin(legs, "Ratio"), F::secMaxDouble(legs, "Ratio")), "13 4 9");
  EXPECT_EQ(words(F::fieldCount(legs, "Symbol"), F::fieldValueCount(legs, "Ratio", "9")), "0 1");
  EXPECT_EQ(failureOf<FieldNotFoundException>([&] { F::secMax(legs, "Nope"); }).text,
            "Field with name Nope not defined");
}

TEST(AggregateFunctions, ReadThousandsOfDeclaredElementsWithoutAllocating) {
  Trade trade;
  for (int i = 0; i < 1000; ++i) {
    Part &part = trade.section<"Parts">().add();
    part.set<"Size">(i);
    part.section<"Fills">().add().set<"Price">(i);
  }
  DataObjectSection *parts = &trade.section<"Parts">();
  tvstring const size("Size"), price("Fills.Price"), fills("Fills"), text("999");
  AllocationCount const allocations;
  EXPECT_EQ(F::secSum(parts, size), 499500);
  EXPECT_EQ(F::secMaxDouble(parts, price), 999.0);
  EXPECT_EQ(F::fieldValueCount(parts, size, text), 1);
  EXPECT_EQ(F::secCount(parts, fills), 1000);
  EXPECT_EQ(allocations.soFar(), 0);
}

}  // namespace
}  // namespace tavrone

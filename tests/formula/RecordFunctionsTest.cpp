#include <gtest/gtest.h>

#include <climits>

#include "examples/messages/GeneratedOrder.h"
#include "examples/messages/Order.h"
#include "tests/Cases.h"
#include "tests/core/AllocationCount.h"
#include "tests/dataobject/Orders.h"
#include "tests/pipeline/Walk.h"

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
  std::pair<char const *, int> const counts[] = {
      {"Size", 2}, {"Fills.Price", 2}, {"Fills.Size", 1}, {"First.Size", 0}, {"Fills.Mark", 1}};
  for (auto const &[name, count] : counts) {
    EXPECT_EQ(F::fieldCount(parts, name), count) << name;
    EXPECT_EQ(F::fieldExistsInOne(parts, name), count == 1) << name;
    EXPECT_EQ(F::fieldExistsInAtMostOne(parts, name), count < 2) << name;
    EXPECT_EQ(F::fieldExistsInAtLeastOne(parts, name), count > 0) << name;
  }
  std::pair<char const *, char const *> const values[] = {{"Size", "3"},          {"Fills.Price", "-10000000000.0"},
                                                          {"Fills.Note", "a.b"},  {"Fills.Big", "1099511627776"},
                                                          {"Fills.Rate", "0.25"}, {"Fills.Mark", "x"},
                                                          {"Fills.Fee", "2"}};
  for (auto const &[name, text] : values) {
    EXPECT_EQ(F::fieldValueCount(parts, name, text), 1) << name;
    EXPECT_TRUE(F::fieldValueExistsInAtLeastOne(parts, name, text)) << name;
    EXPECT_FALSE(F::fieldValueExistsInAtLeastOne(parts, name, text + tvstring("0"))) << name;
  }
}

TEST_P(Aggregates, PassOverNullsAndWhatIsNoNumber) {
  EXPECT_EQ(words(F::secSum(parts, "Size"), F::secAvg(parts, "Size"), F::secMin(parts, "Size")), "4 2 1");
  EXPECT_EQ(words(F::secMax(parts, "Size"), F::secMax(parts, "Fills.Price"), F::secMaxDouble(parts, "Fills.Price"),
                  F::secMaxDouble(parts, "Fills.Rate")),
            "3 1 1.5 0.25");
  EXPECT_EQ(words(F::secSum(parts, "Fills.Price"), F::secMinDouble(parts, "Fills.Price")), "-2147483648 -1e+10");
  EXPECT_EQ(F::secSumDouble(parts, "Fills.Price"), 1.5 - 1e10);
  EXPECT_EQ(F::secMax(parts, "Fills.Big"), 0);  // an int keeps the low bits
  for (char const *name : {"Fills.Note", "Fills.Fee", "Fills.Mark", "First.Size"})
    EXPECT_EQ(words(F::secSumDouble(parts, name), F::secAvg(parts, name), F::secMin(parts, name),
                    F::secMax(parts, name), F::secMinDouble(parts, name), F::secMaxDouble(parts, name)),
              "0 0 0 0 0 0")
        << name;
}

TEST_P(Aggregates, AskEveryElement) {
  EXPECT_FALSE(F::fieldExistsInAll(parts, "Size"));
  EXPECT_FALSE(F::fieldExistsInAll(parts, "Fills.Price"));  // two parts have no fills
  EXPECT_FALSE(F::secExistsInAll(parts, "Fills"));
  EXPECT_EQ(F::secCount(parts, "Fills"), 2);
  EXPECT_TRUE(F::secExistsInAtLeastOne(parts, "Fills") && !F::secExistsInAtMostOne(parts, "Fills"));
  parts->removeElement(2);
  parts->removeElement(1);
  EXPECT_TRUE(F::fieldExistsInAll(parts, "Fills.Price") && F::fieldExistsInAll(parts, "Price", " Fills "));
  EXPECT_TRUE(F::fieldExistsInAll(parts, "Fills.Price", " \xC3") && !F::fieldExistsInAll(parts, "Size", "Fills."));
  EXPECT_TRUE(F::fieldValueExistsInAll(parts, "Size", "1") && !F::fieldValueExistsInAll(parts, "Fills.Note", "c"));
  EXPECT_TRUE(F::secExistsInAll(parts, "Fills") && !F::secExistsInAll(parts, "First", ""));
  EXPECT_EQ(parts->getElement(0)->isNull("First"), !GetParam());  // asking makes no section
  parts->getElement(0)->getSection("Fills")->clear();
  EXPECT_FALSE(F::fieldExistsInAll(parts, "Price", "Fills"));
  parts->clear();
  EXPECT_TRUE(F::fieldExistsInAll(parts, "No.Such", "Name") && F::secExistsInAll(parts, "NoSuchName"));
}

TEST_P(Aggregates, FailForAnUnknownNameOnlyWhereAnElementIsAsked) {
  for (char const *name : {"Nope", "Nope.Price", "Fills.Nope"}) {
    std::string const text = "Field with name Nope not defined";
    EXPECT_FAILURE(FieldNotFoundException, F::fieldCount(parts, name), text);
    EXPECT_FAILURE(FieldNotFoundException, F::secMinDouble(parts, name), text);
    EXPECT_FAILURE(FieldNotFoundException, F::secExistsInAll(parts, name), text);
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
  EXPECT_FAILURE(FieldNotFoundException, F::secMax(legs, "Nope"), "Field with name Nope not defined");
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
  EXPECT_TRUE(F::fieldValueCount(parts, size, text) == 1 && F::secCount(parts, fills) == 1000);
  EXPECT_EQ(allocations.soFar(), 0);
}

// What formulas read from a new order: each field in each way, then its legs as they stand and sorted.
std::string readByFormulas(DataObject &order) {
  using Data = DataObjectFunctions;
  using Legs = SectionFunctions;
  setFields(order, 0, StringObject("12"), StringObject("A"), StringObject(""), CharObject('B'), IntObject(-7),
            LongObject(1LL << 40), DoubleObject(2.5), FloatObject(0.5F), BigDecimalObject("3.75"),
            DateObject(DateTime(2024, 1, 2, 0, 0, 0, 0)), DateObject(DateTime(2024, 1, 2, 3, 4, 5, 6)),
            BoolObject(true), BinaryObject(Binary("x")));
  for (int price : {2, 3, 1}) addLeg(order, "Price", DoubleObject(price))->setField("Ratio", IntObject(10 * price));
  addLeg(order, "Symbol", StringObject("C"));
  std::string shown;
  for (int i = 0; i < order.getFieldCount() - 1; ++i) {
    tvstring const name = order.getFieldName(i);
    shown += words(str(Data::getText(&order, name)), Data::getDate(&order, name, DateTime()).toTimestamp(), "");
    if (name != "Account") shown += words(Data::getInt(&order, name, 1), Data::getLong(&order, name, 1), "");
    if (name != "Account") shown += words(Data::getDouble(&order, name, 1), Data::isNull(&order, name), "");
  }
  DataObjectSection *const legs = order.getSection("Legs");
  shown +=
      words(Legs::indexOf(legs, "Price", "3.0"), Legs::indexOf(legs, "Symbol", "C"), Legs::isUnique(legs, "Ratio"));
  for (char const *field : {"Price", "Ratio", "Symbol"})
    for (bool ascending : {false, true}) {
      Legs::sort(legs, field, ascending);
      shown += " " + str(Legs::values(legs, "Price").toString());
    }
  Data::setNull(&order, "Legs");
  StringObject const value("9");
  Data::setField(&order, "Text", &value);
  SmartPtr<DataObject> const copy(checkedCast<DataObject>(order.clone()));
  return shown +
         words("", str(Data::getText(&order, "Text")), Data::isNull(&order, "Legs"), Data::equal(&order, copy.get()));
}

TEST(Formulas, ReadGeneratedAndGenericRecordsAsDeclaredOnes) {
  examples::Order declared;
  examples::GeneratedOrder generated;
  GenericDataObject generic(declared.getMetaInfo(), false);
  std::string const expected = readByFormulas(declared);
  EXPECT_EQ(readByFormulas(generated), expected);
  EXPECT_EQ(readByFormulas(generic), expected);
}

struct Validator : ValidationRules {
  void validate(DataObject *object) override { walk(exceptionHandler, textOf(object)); }
};
struct Message : AbstractInternalMessage {
  Message() : AbstractInternalMessage("formula.message") { addValidator("Default", new Validator); }
  DataObject *createNormalizedObject() override { return new Line; }
};

TEST(MessageFunctions, WorkThroughTheMessageTypeOfTheName) {
  bindFactory<Message>("formula.message");
  TransformContext context;
  EXPECT_TRUE(MessageFunctions::isValid("formula.message", line("fine"), context));
  EXPECT_FALSE(MessageFunctions::isValid("formula.message", line("a!b!"), context));
  EXPECT_FALSE(MessageFunctions::isValid("formula.message", nullptr, context));
  EXPECT_TRUE(MessageFunctions::serialize("formula.message", nullptr, context).empty());
  EXPECT_EQ(str(MessageFunctions::serialize("formula.message", line("fine"), context)),
            str(line("fine")->toXMLString()));
  EXPECT_FAILURE(TransformException, MessageFunctions::parse("formula.message", Binary(), context),
                 "unsupported operation parse for internal messages");
  LookupContextFactory::getLookupContext()->unbind("formula.message");
}

}  // namespace
}  // namespace tavrone

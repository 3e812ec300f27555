#include "tavrone/formula/DataObjectFunctions.h"

#include <gtest/gtest.h>

#include "examples/messages/GeneratedOrder.h"
#include "examples/messages/Order.h"
#include "tavrone/formula/SectionFunctions.h"
#include "tests/Cases.h"
#include "tests/Text.h"
#include "tests/dataobject/Orders.h"

namespace tavrone {
namespace {

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

// Its fields come as wrappers: of a plain GenericDataObject they are read where they stand.
struct OtherRecord : GenericDataObject {
  using GenericDataObject::GenericDataObject;
};

TEST(Formulas, SortWrappedValuesAsWhatTheyAre) {
  char const *names[] = {"Big", "Long", "Mixed"};
  char const *types[] = {"BigDecimal", "Long", "Double"};
  DataObjectMetaInfo type("Row", names, types, 3);
  DataObjectSectionImpl rows;
  long long const large = 1LL << 53;  // a double can't tell it from the next one
  for (int i : {1, 0, 2}) {
    DataObject *row = new OtherRecord(&rows, &type, false);
    rows.addElement(row);
    char const *const bigs[] = {"9", "10", "100"};
    row->setField(0, BigDecimalObject(bigs[i]));
    row->setField(1, LongObject(large + i));
    if (i == 1)
      row->setField(2, IntObject(1));
    else
      row->setField(2, DoubleObject(i));
  }
  for (char const *field : {"Big", "Long", "Mixed"}) {
    SectionFunctions::sort(&rows, field, false);
    EXPECT_EQ(SectionFunctions::values(&rows, "Big").toString(), "[100, 10, 9]") << field;
    SectionFunctions::sort(&rows, field, true);
    EXPECT_EQ(SectionFunctions::values(&rows, "Big").toString(), "[9, 10, 100]") << field;
    EXPECT_TRUE(SectionFunctions::isUnique(&rows, field)) << field;
  }
}

}  // namespace
}  // namespace tavrone

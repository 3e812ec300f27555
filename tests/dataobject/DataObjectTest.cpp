#include <gmock/gmock.h>

#include <memory>

#include "examples/messages/GeneratedOrder.h"
#include "tavrone/dataobject/GenericDataObject.h"
#include "tavrone/dataobject/MetaInfo.h"
#include "tests/Failure.h"
#include "tests/dataobject/Orders.h"

namespace tavrone {
namespace {

using examples::GeneratedLeg;
using examples::GeneratedOrder;

// The type of an order, with the element type that a generic section needs.
DataObjectMetaInfo *genericOrder() {
  static DataObjectMetaInfo leg(*GeneratedLeg::metaInfoOfType());
  static FieldMetaInfo id("OrderID", "String", true);
  static FieldMetaInfo stamp("Stamp", "Integer", true, true);
  static SectionMetaInfo legs(&leg, "Legs", 1, 2);
  static SectionMetaInfo owner(&leg, "Owner", "DataObject", 0, 1, false);
  static FieldMetaInfo *fields[] = {&id, &stamp, &legs, &owner};
  static DataObjectMetaInfo type("Order", fields, 4);
  return &type;
}

TEST(AbstractDataObject, FieldsStartNullAndReadThroughTheHooks) {
  SmartPtr<GeneratedOrder> const order(new GeneratedOrder);
  EXPECT_TRUE(order->isNull(GeneratedOrder::PRICE));
  EXPECT_EQ(order->getField("Price"), nullptr);
  IntObject untouched(7);
  EXPECT_FALSE(order->getField(GeneratedOrder::QUANTITY, untouched));
  EXPECT_EQ(untouched.getValue(), 7);
  EXPECT_EQ(failureOf<FieldNullException>([&] { order->getPrice(); }).text,
            "Attempt to access field 'Price' with null value");
  EXPECT_EQ(failureOf<FieldNullException>([&] { order->assertNotNull(GeneratedOrder::PRICE); }),
            "cpp/AbstractDataObject:160:Not-null check failed. The field 'Price' has null value");

  order->setField("Price", IntObject(412));
  EXPECT_EQ(order->getFieldVal("Price")->toString(), "412.0");
  DoubleObject price;
  EXPECT_TRUE(order->getField("Price", price));
  EXPECT_EQ(price.getValue(), 412.0);
  order->setField("Price", nullptr);
  EXPECT_TRUE(order->isNull("Price"));
  order->setNull(GeneratedOrder::PRICE, false);
  EXPECT_EQ(order->getPrice(), 412.0);

  order->setField(GeneratedOrder::TEXT, "hello");
  tvstring text;
  EXPECT_TRUE(order->getField(GeneratedOrder::TEXT, text));
  EXPECT_EQ(text, "hello");
}

TEST(AbstractDataObject, WrongIndexesNamesAndTypesFail) {
  SmartPtr<GeneratedOrder> const order(new GeneratedOrder);
  for (int index : {15, -1}) {
    std::string const text = "Field index out of bounds - " + std::to_string(index);
    EXPECT_EQ(failureOf<FieldNotFoundException>([&] { order->getField(index); }), "cpp/AbstractDataObject:219:" + text);
    EXPECT_EQ(failureOf<FieldNotFoundException>([&] { order->setField(index, IntObject(1)); }),
              "cpp/AbstractDataObject:223:" + text);
  }
  EXPECT_EQ(failureOf<FieldNotFoundException>([&] { order->setNull("Prise"); }).text,
            "Field with name Prise not defined");
  EXPECT_EQ(failureOf<TransformException>([&] { order->setField("Price", StringObject("1")); }).text,
            "Cannot convert String to Double");
  EXPECT_EQ(failureOf<TransformException>([&] { order->createSectionElement("Text", nullptr); }).text,
            "No section with name 'Text'.");
  order->setPrice(1);
  EXPECT_THAT(failureOf<ClassCastException>([&] { order->getSection("Price"); }).text,
              testing::HasSubstr("DoubleObject"));
}

TEST(AbstractDataObject, CopiesKeepFlagsButNoReferencesAndNoParent) {
  SmartPtr<GeneratedOrder> const order(new GeneratedOrder);
  order->setOrderID("A1");
  addLeg(*order, "Symbol", StringObject("ACME"));
  SmartPtr<GeneratedOrder> const copy(checkedCast<GeneratedOrder>(order->clone()));
  EXPECT_EQ(copy->getRefCount(), 1);
  EXPECT_EQ(copy->getOrderID(), "A1");
  EXPECT_TRUE(copy->isNull("Price"));
  ASSERT_EQ(copy->getLegs().getElementCount(), 1);
  EXPECT_EQ(copy->getLegs().getElement(0)->getRootDataObject(), copy.get());
  EXPECT_EQ(copy->getLegs().getElement(0)->getQualifiedName(0), "Legs.Symbol");
  SmartPtr<GeneratedOrder> const other(new GeneratedOrder);
  *other = *order;
  EXPECT_EQ(other->getRefCount(), 1);
  EXPECT_EQ(other->getOrderID(), "A1");
  order->reset();
  EXPECT_TRUE(order->isEmpty());
  EXPECT_EQ(order->getLegs().getElementCount(), 0);
  EXPECT_EQ(other->getLegs().getElementCount(), 1);
  addLeg(*order, "Symbol", StringObject("ACME"));
  EXPECT_FALSE(order->isEmpty());
  order->getLegs().getElement(0)->setNull("Symbol");  // an element without a value leaves the record empty
  EXPECT_TRUE(order->isEmpty());
}

TEST(GenericDataObject, StoresClonesAndReleasesTheOld) {
  SmartPtr<GenericDataObject> const order(new GenericDataObject(genericOrder(), false));
  order->setField(0, StringObject("A1"));
  order->setField(0, StringObject("A2"));
  SmartPtr<Object> const first(order->getField(0));
  EXPECT_NE(first.get(), order->getFieldCheckNull(0));
  EXPECT_EQ(order->getFieldCheckNull(0), order->getFieldCheckNull(0));
  EXPECT_NE(order->getFieldCheckNullVal(0).get(), order->getFieldCheckNull(0));
  EXPECT_EQ(first->toString(), "A2");
  order->setField(0, nullptr);
  EXPECT_EQ(failureOf<FieldNullException>([&] { order->getFieldCheckNull(0); }),
            "cpp/GenericDataObject:87:Attempt to access field 'OrderID' with NULL value");
  EXPECT_EQ(failureOf<FieldNotFoundException>([&] { order->isNull(4); }).text, "No valid field at index 4 for Root");
}

TEST(GenericDataObject, SectionsComeIntoBeingOnFirstAccess) {
  SmartPtr<GenericDataObject> const order(new GenericDataObject(genericOrder(), false));
  DataObjectSection *legs = order->getSection("Legs");
  EXPECT_EQ(order->getSection(2), legs);
  addLeg(*order, "Symbol", StringObject("ACME"));
  EXPECT_EQ(legs->getElement(0)->getQualifiedName(0), "Legs.Symbol");
  EXPECT_EQ(failureOf<FieldNotFoundException>([&] { legs->getElement(0)->setNull(9); }).text,
            "No valid field at index 9 for Legs");
  order->setField(2, SectionObject(*legs));
  EXPECT_EQ(order->getSection(2)->getElementCount(), 1);
  EXPECT_EQ(failureOf<FieldTypeMismatchException>([&] { order->getSection("OrderID"); }).text,
            "OrderID is not a section");
  EXPECT_EQ(failureOf<FieldTypeMismatchException>([&] { order->createSectionElement("Stamp", nullptr); }),
            "cpp/GenericDataObject:215:Stamp is not a section");

  DataObjectSection *owner = order->getSection("Owner");
  SmartPtr<DataObject> const one(owner->createElement());
  owner->addElement(one.get());
  EXPECT_EQ(failureOf<FieldNotFoundException>([&] { owner->addElement(one.get()); }).text,
            "Cannot add more than one element to this section");
}

TEST(GenericDataObject, CopiesHaveSectionsOfTheirOwn) {
  SmartPtr<DataObject> order(new GenericDataObject(genericOrder(), false));
  order->setField("Stamp", IntObject(1));
  order->getSection("Legs");
  EXPECT_TRUE(order->isEmpty());  // synthesized fields and empty sections don't count
  order->setField("OrderID", StringObject(""));
  EXPECT_FALSE(order->isEmpty());
  addLeg(*order, "Symbol", StringObject("ACME"));
  SmartPtr<DataObject> const copy(checkedCast<DataObject>(order->clone()));
  order = SmartPtr<DataObject>();
  EXPECT_EQ(copy->getFieldVal("Stamp")->toString(), "1");
  EXPECT_EQ(copy->getSection("Legs")->getElement(0)->getFieldVal("Symbol")->toString(), "ACME");
  EXPECT_EQ(copy->getSection("Legs")->getParent(), nullptr);
  copy->setNull("Legs");
  EXPECT_EQ(copy->getSection("Legs")->getElementCount(), 0);
}

}  // namespace
}  // namespace tavrone

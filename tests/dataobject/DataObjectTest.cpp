#include <gmock/gmock.h>

#include <memory>
#include <stdexcept>

#include "examples/messages/GeneratedOrder.h"
#include "tavrone/dataobject/DataObjectSectionImpl.h"
#include "tavrone/dataobject/GenericDataObject.h"
#include "tavrone/dataobject/MetaInfo.h"
#include "tavrone/dataobject/SectionHelper.h"
#include "tests/Cases.h"
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
  EXPECT_FAILURE(FieldNullException, order->getPrice(), "Attempt to access field 'Price' with null value");
  EXPECT_FAILURE(FieldNullException, order->assertNotNull(GeneratedOrder::PRICE),
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
    EXPECT_FAILURE(FieldNotFoundException, order->getField(index), "cpp/AbstractDataObject:219:" + text);
    EXPECT_FAILURE(FieldNotFoundException, order->setField(index, IntObject(1)), "cpp/AbstractDataObject:223:" + text);
  }
  EXPECT_FAILURE(FieldNotFoundException, order->setNull("Prise"), "Field with name Prise not defined");
  EXPECT_FAILURE(TransformException, order->setField("Price", StringObject("1")), "Cannot convert String to Double");
  EXPECT_FAILURE(TransformException, order->createSectionElement("Text", nullptr), "No section with name 'Text'.");
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
  EXPECT_EQ(words(order->getLegs().getElementCount(), other->getLegs().getElementCount()), "0 1");
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
  EXPECT_FAILURE(FieldNullException, order->getFieldCheckNull(0),
                 "cpp/GenericDataObject:87:Attempt to access field 'OrderID' with NULL value");
  EXPECT_FAILURE(FieldNotFoundException, order->isNull(4), "No valid field at index 4 for Root");
}

TEST(GenericDataObject, SectionsComeIntoBeingOnFirstAccess) {
  SmartPtr<GenericDataObject> const order(new GenericDataObject(genericOrder(), false));
  DataObjectSection *legs = order->getSection("Legs");
  EXPECT_EQ(order->getSection(2), legs);
  addLeg(*order, "Symbol", StringObject("ACME"));
  EXPECT_EQ(legs->getElement(0)->getQualifiedName(0), "Legs.Symbol");
  EXPECT_FAILURE(FieldNotFoundException, legs->getElement(0)->setNull(9), "No valid field at index 9 for Legs");
  order->setField(2, SectionObject(*legs));
  EXPECT_EQ(order->getSection(2)->getElementCount(), 1);
  EXPECT_FAILURE(FieldTypeMismatchException, order->getSection("OrderID"), "OrderID is not a section");
  EXPECT_FAILURE(FieldTypeMismatchException, order->createSectionElement("Stamp", nullptr),
                 "cpp/GenericDataObject:215:Stamp is not a section");

  DataObjectSection *owner = order->getSection("Owner");
  SmartPtr<DataObject> const one(owner->createElement());
  owner->addElement(one.get());
  EXPECT_FAILURE(FieldNotFoundException, owner->addElement(one.get()),
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

  // A field that holds no section at all counts as empty.
  SmartPtr<DataObject> const bare(new GenericDataObject(genericOrder(), false));
  bare->setField("Legs", SectionObject(nullptr, false));
  SmartPtr<DataObject> const bareCopy(checkedCast<DataObject>(bare->clone()));
  DataObjectBase::copy(bare.get(), copy.get());
  EXPECT_TRUE(bare->isEmpty() && bareCopy->isEmpty() && copy->isEmpty());
}

using examples::GeneratedLeg;
using examples::GeneratedOrder;

struct Section : testing::Test {
  ~Section() noexcept override = default;

  SmartPtr<GeneratedOrder> order{new GeneratedOrder};
  DataObjectSectionImpl &legs = order->getLegs();
};

TEST_F(Section, CreatedElementsAreNotYetAdded) {
  SmartPtr<DataObject> const leg(legs.createElement());
  EXPECT_EQ(leg->getParentSection(), &legs);
  EXPECT_EQ(legs.getElementCount(), 0);
  legs.addElement(leg.get());
  EXPECT_EQ(words(legs.getElementIndex(leg.get()), legs.getElementIndex(order.get())), "0 -1");
  DataObjectSectionImpl orphan;
  EXPECT_EQ(failureOf<ClassCastException>([&] { orphan.createElement(); }).text.rfind("Cannot cast NULL to ", 0), 0u);
  EXPECT_EQ(orphan.getRootDataObject(), nullptr);
}

TEST_F(Section, RefusesElementsOfAnotherParentUnlessToldNotToLook) {
  SmartPtr<GeneratedLeg> const stray(new GeneratedLeg);
  EXPECT_FAILURE(IllegalArgumentException, legs.addElement(stray.get()),
                 "cpp/DataObjectSectionImpl:137:The parent of the element added is not this section");
  legs.addElement(stray.get(), false);
  EXPECT_EQ(legs.getElementCount(), 1);
}

TEST_F(Section, AccessOutsideFails) {
  EXPECT_FAILURE(FieldNotFoundException, legs.getElement(2),
                 "Error accessing element of section Legs. Section index out of bound, size = 0, index accessed = 2");
  EXPECT_FAILURE(FieldNotFoundException, legs.removeLastElement(),
                 "Error accessing last element of section Legs. Section index out of bound, size = 0");
  for (int i = 0; i < 3; ++i) addLeg(*order, i);
  for (int index : {3, -1}) EXPECT_THROW(legs.getElement(index), std::out_of_range) << index;
  std::pair<int, char const *> const cases[] = {
      {3, "ex out of bounds "}, {-1, "Index out of bounds "}, {6, "out of bounds "}, {20, ""}, {1000, ""}};
  for (auto const &[index, text] : cases)
    EXPECT_EQ(failureOf<FieldNotFoundException>([&, i = index] { legs.removeElement(i); }).text, text);
  EXPECT_TRUE(legs.removeElement(1));
  EXPECT_EQ(legs.getElement(1)->getFieldVal("Ratio")->getInt(), 2);
  legs.removeLastElement();
  EXPECT_EQ(legs.getElementCount(), 1);
}

TEST_F(Section, OnlyAssertConstraintsLooksAtTheLimits) {
  DataObjectSectionImpl rows(order.get(), "Legs", 1, 0);
  auto const check = [&rows] { rows.assertConstraints(); };
  EXPECT_EQ(failureOf<SectionConstraintException>(check),
            "cpp/AbstractDataObjectSection:54:The number of elements in the section 'Legs' is less than '1'.");
  SmartPtr<DataObject> const leg(rows.createElement());
  rows.addElement(leg.get());
  EXPECT_EQ(failureOf<SectionConstraintException>(check),
            "cpp/AbstractDataObjectSection:59:The number of elements (Legs) in the section '0' is greater than {2}.");
  rows.initialize(order.get(), "Legs", 1, -1);
  EXPECT_NO_THROW(check());
}

TEST_F(Section, ClonesHaveNoParentAndElementsOfTheirOwn) {
  DataObject *original = addLeg(*order, 7);
  std::unique_ptr<DataObjectSection> const copy(legs.clone());
  EXPECT_EQ(copy->getName(), "Legs");
  EXPECT_EQ(copy->getParent(), nullptr);
  EXPECT_NE(copy->getElement(0), original);
  EXPECT_EQ(copy->getElement(0)->getParentSection(), copy.get());
  EXPECT_EQ(copy->getElement(0)->getFieldVal("Ratio")->getInt(), 7);
}

TEST_F(Section, AssignSharesTheElements) {
  DataObject *leg = addLeg(*order, 7);
  SmartPtr<GeneratedOrder> other(new GeneratedOrder);
  DataObjectSection::assign(&other->getLegs(), &legs);
  EXPECT_EQ(other->getLegs().getElement(0), leg);
  EXPECT_EQ(legs.getElement(0), leg);
  EXPECT_EQ(leg->getRootDataObject(), other.get());
  SmartPtr<DataObject> const held(leg);  // outlives both sections
  order = SmartPtr<GeneratedOrder>();
  other = SmartPtr<GeneratedOrder>();
  EXPECT_EQ(held->getParentSection(), nullptr);
  EXPECT_EQ(held->getQualifiedName(1), "Ratio");
}

TEST_F(Section, TakesTheElementsOfASectionInsideItsOwn) {
  for (bool copies : {false, true}) {
    DataObjectSectionImpl outer(nullptr, "Outer", 0, -1);
    SmartPtr<GeneratedOrder> inner(new GeneratedOrder(&outer));
    outer.addElement(inner.get());
    DataObjectSectionImpl &rows = inner->getLegs();
    for (int i = 0; i < 3; ++i) rows.addElement(SmartPtr<DataObject>(rows.createElement()).get());
    inner.release();
    if (copies)
      outer.copy(rows, nullptr);
    else
      DataObjectSection::assign(&outer, &rows);
    ASSERT_EQ(outer.getElementCount(), 3);
    EXPECT_EQ(outer.getElement(2)->getParentSection(), &outer);
  }
}

TEST_F(Section, SingleFormHoldsAtMostOne) {
  DataObjectSingleElementSectionImpl owner(order.get(), "Owner", 0, 1);
  EXPECT_TRUE(owner.removeElement(0) && !owner.removeElement(1));
  EXPECT_FAILURE(FieldNotFoundException, owner.removeLastElement(),
                 "Error accessing last element of section Owner. Section index out of bounds, size = 0");
  SmartPtr<GeneratedLeg> const leg(new GeneratedLeg);
  owner.addElement(leg.get());
  EXPECT_FAILURE(FieldNotFoundException, owner.getElement(1),
                 "Error accessing element of section Owner. Section index out of bound, size = 0, index accessed = 1");
  EXPECT_EQ(owner.getElementIndex(leg.get()), 0);
  std::unique_ptr<DataObjectSection> const copy(owner.clone());
  EXPECT_EQ(copy->getElementCount(), 1);
  owner.clear();
  EXPECT_EQ(owner.getElementCount(), 0);
}

TEST(SectionHelper, TurnsFailuresIntoThoseOfFormulas) {
  ClassCastException cast("c");
  FieldTypeMismatchException type("t");
  InternalError boom("boom");
  std::pair<Exception *, char const *> const cases[] = {
      {&cast, "Field 'Price' is not of specified type."},
      {&type, "Field 'Price' is not of specified type."},
      {&boom, "Unexpected error during formula evaluation ; nested exception is: \n\tboom"},
      {nullptr, "Unexpected error during formula evaluation ; nested exception is: \n\t"}};
  for (auto const &[failure, text] : cases)
    EXPECT_EQ(failureOf<TransformRuntimeException>([f = failure] {
                SectionHelper::handleFieldAccessException("Price", f);
              }).text,
              text);
  FieldNullException null("n");
  FieldNotFoundException unknown("u");
  EXPECT_FAILURE(FieldNotFoundException, SectionHelper::handleFieldAccessException(3, &unknown), "u");
  EXPECT_FAILURE(FieldNullException, SectionHelper::handleFieldAccessException(3, &null), "n");
  EXPECT_FAILURE(TransformRuntimeException, SectionHelper::handleFieldAccessException(3, &cast),
                 "Field at index '3' is not of specified type.");
  DataObjectSectionImpl none;
  EXPECT_EQ(SectionHelper::getFieldIndex(&none, "Price"), -1);
}

}  // namespace
}  // namespace tavrone

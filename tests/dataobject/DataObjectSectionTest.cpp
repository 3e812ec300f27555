#include <gtest/gtest.h>

#include <memory>
#include <stdexcept>

#include "examples/messages/GeneratedOrder.h"
#include "tavrone/dataobject/DataObjectSectionImpl.h"
#include "tavrone/dataobject/SectionHelper.h"
#include "tests/Failure.h"
#include "tests/dataobject/Orders.h"

namespace tavrone {
namespace {

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
  EXPECT_EQ(legs.getElementIndex(leg.get()), 0);
  EXPECT_EQ(legs.getElementIndex(order.get()), -1);
  DataObjectSectionImpl orphan;
  EXPECT_EQ(failureOf<ClassCastException>([&] { orphan.createElement(); }).text.rfind("Cannot cast NULL to ", 0), 0u);
  EXPECT_EQ(orphan.getRootDataObject(), nullptr);
}

TEST_F(Section, RefusesElementsOfAnotherParentUnlessToldNotToLook) {
  SmartPtr<GeneratedLeg> const stray(new GeneratedLeg);
  EXPECT_EQ(failureOf<IllegalArgumentException>([&] { legs.addElement(stray.get()); }),
            "cpp/DataObjectSectionImpl:137:The parent of the element added is not this section");
  legs.addElement(stray.get(), false);
  EXPECT_EQ(legs.getElementCount(), 1);
}

TEST_F(Section, AccessOutsideFails) {
  EXPECT_EQ(failureOf<FieldNotFoundException>([&] { legs.getElement(2); }).text,
            "Error accessing element of section Legs. Section index out of bound, size = 0, index accessed = 2");
  EXPECT_EQ(failureOf<FieldNotFoundException>([&] { legs.removeLastElement(); }).text,
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
  EXPECT_TRUE(owner.removeElement(0));
  EXPECT_FALSE(owner.removeElement(1));
  EXPECT_EQ(failureOf<FieldNotFoundException>([&] { owner.removeLastElement(); }).text,
            "Error accessing last element of section Owner. Section index out of bounds, size = 0");
  SmartPtr<GeneratedLeg> const leg(new GeneratedLeg);
  owner.addElement(leg.get());
  EXPECT_EQ(failureOf<FieldNotFoundException>([&] { owner.getElement(1); }).text,
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
  EXPECT_EQ(failureOf<FieldNotFoundException>([&] { SectionHelper::handleFieldAccessException(3, &unknown); }).text,
            "u");
  EXPECT_EQ(failureOf<FieldNullException>([&] { SectionHelper::handleFieldAccessException(3, &null); }).text, "n");
  EXPECT_EQ(failureOf<TransformRuntimeException>([&] { SectionHelper::handleFieldAccessException(3, &cast); }).text,
            "Field at index '3' is not of specified type.");
  DataObjectSectionImpl none;
  EXPECT_EQ(SectionHelper::getFieldIndex(&none, "Price"), -1);
}

}  // namespace
}  // namespace tavrone

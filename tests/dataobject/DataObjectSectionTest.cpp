#include <gtest/gtest.h>

#include <memory>
#include <stdexcept>

#include "examples/messages/GeneratedOrder.h"
#include "tavrone/dataobject/DataObjectSectionImpl.h"
#include "tavrone/dataobject/SectionHelper.h"
#include "tests/Failure.h"

namespace tavrone {
namespace {

using examples::GeneratedLeg;
using examples::GeneratedOrder;

class Section : public testing::Test {
 public:
  ~Section() noexcept override = default;

 protected:
  DataObject *add(int ratio) {
    SmartPtr<DataObject> const leg(legs.createElement());
    leg->setField("Ratio", IntObject(ratio));
    legs.addElement(leg.get());
    return leg.get();
  }

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
  Failure const refused = failureOf<IllegalArgumentException>([&] { legs.addElement(stray.get()); });
  EXPECT_EQ(refused.text, "The parent of the element added is not this section");
  EXPECT_EQ(refused.source, "cpp/DataObjectSectionImpl");
  EXPECT_EQ(refused.line, 137);
  legs.addElement(stray.get(), false);
  EXPECT_EQ(legs.getElementCount(), 1);
}

TEST_F(Section, AccessOutsideFails) {
  EXPECT_EQ(failureOf<FieldNotFoundException>([&] { legs.getElement(2); }).text,
            "Error accessing element of section Legs. Section index out of bound, size = 0, index accessed = 2");
  EXPECT_EQ(failureOf<FieldNotFoundException>([&] { legs.removeLastElement(); }).text,
            "Error accessing last element of section Legs. Section index out of bound, size = 0");
  for (int i = 0; i < 3; ++i) add(i);
  for (int index : {3, -1}) EXPECT_THROW(legs.getElement(index), std::out_of_range) << index;
  struct {
    int index;
    char const *text;
  } const cases[] = {
      {3, "ex out of bounds "}, {-1, "Index out of bounds "}, {6, "out of bounds "}, {20, ""}, {1000, ""}};
  for (auto const &c : cases)
    EXPECT_EQ(failureOf<FieldNotFoundException>([&] { legs.removeElement(c.index); }).text, c.text) << c.index;
  EXPECT_TRUE(legs.removeElement(1));
  EXPECT_EQ(legs.getElement(1)->getFieldVal("Ratio")->getInt(), 2);
  legs.removeLastElement();
  EXPECT_EQ(legs.getElementCount(), 1);
}

TEST_F(Section, OnlyAssertConstraintsLooksAtTheLimits) {
  DataObjectSectionImpl rows(order.get(), "Legs", 1, 0);
  Failure const few = failureOf<SectionConstraintException>([&] { rows.assertConstraints(); });
  EXPECT_EQ(few.text, "The number of elements in the section 'Legs' is less than '1'.");
  EXPECT_EQ(few.line, 54);
  SmartPtr<DataObject> const leg(rows.createElement());
  rows.addElement(leg.get());
  Failure const many = failureOf<SectionConstraintException>([&] { rows.assertConstraints(); });
  EXPECT_EQ(many.text, "The number of elements (Legs) in the section '0' is greater than {2}.");
  EXPECT_EQ(many.line, 59);
  rows.initialize(order.get(), "Legs", 1, -1);
  EXPECT_NO_THROW(rows.assertConstraints());
}

TEST_F(Section, ClonesHaveNoParentAndElementsOfTheirOwn) {
  DataObject *original = add(7);
  std::unique_ptr<DataObjectSection> const copy(legs.clone());
  EXPECT_EQ(copy->getName(), "Legs");
  EXPECT_EQ(copy->getParent(), nullptr);
  EXPECT_NE(copy->getElement(0), original);
  EXPECT_EQ(copy->getElement(0)->getParentSection(), copy.get());
  EXPECT_EQ(copy->getElement(0)->getFieldVal("Ratio")->getInt(), 7);
}

TEST_F(Section, AssignSharesTheElements) {
  DataObject *leg = add(7);
  SmartPtr<GeneratedOrder> const other(new GeneratedOrder);
  DataObjectSection::assign(&other->getLegs(), &legs);
  EXPECT_EQ(other->getLegs().getElement(0), leg);
  EXPECT_EQ(legs.getElement(0), leg);
  EXPECT_EQ(leg->getRootDataObject(), other.get());
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

TEST_F(Section, AnElementThatIsHeldOutlivesItsSection) {
  SmartPtr<DataObject> const leg(add(7));
  order = SmartPtr<GeneratedOrder>();
  EXPECT_EQ(leg->getParentSection(), nullptr);
  EXPECT_EQ(leg->getQualifiedName(1), "Ratio");
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
  struct Case {
    std::unique_ptr<Exception> failure;
    char const *text;
  };
  Case const runtime[] = {
      {std::make_unique<ClassCastException>("c"), "Field 'Price' is not of specified type."},
      {std::make_unique<FieldTypeMismatchException>("t"), "Field 'Price' is not of specified type."},
      {std::make_unique<InternalError>("boom"),
       "Unexpected error during formula evaluation ; nested exception is: \n\tboom"}};
  for (Case const &c : runtime)
    EXPECT_EQ(failureOf<TransformRuntimeException>([&] {
                SectionHelper::handleFieldAccessException("Price", c.failure.get());
              }).text,
              c.text);
  FieldNullException null("n");
  EXPECT_EQ(failureOf<FieldNullException>([&] { SectionHelper::handleFieldAccessException(3, &null); }).text, "n");
  ClassCastException cast("c");
  EXPECT_EQ(failureOf<TransformRuntimeException>([&] { SectionHelper::handleFieldAccessException(3, &cast); }).text,
            "Field at index '3' is not of specified type.");
  DataObjectSectionImpl none;
  EXPECT_EQ(SectionHelper::getFieldIndex(&none, "Price"), -1);
}

}  // namespace
}  // namespace tavrone

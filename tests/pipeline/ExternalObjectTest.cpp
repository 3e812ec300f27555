#include "tavrone/pipeline/ExternalObject.h"

#include <gtest/gtest.h>

#include "examples/messages/GeneratedOrder.h"
#include "tests/Failure.h"

namespace tavrone {
namespace {

using examples::GeneratedLeg;

GeneratedLeg *leg(char const *symbol) {
  auto *made = new GeneratedLeg;
  made->setSymbol(symbol);
  return made;
}

// The symbols of the parts, "-" for a null one; "?" behind a field that does not count as set.
std::string shown(ExternalObject const &object) {
  std::string text;
  DataObject *const parts[] = {object.getHeader(), object.getData(), object.getTrailer()};
  for (int i = 0; i < 3; ++i) {
    text += parts[i] == nullptr ? "-" : static_cast<GeneratedLeg *>(parts[i])->getSymbol().c_str();
    if (object.isNull(i)) text += "?";
  }
  return text;
}

TEST(ExternalObject, HandsOutItsPartsAsTheyAre) {
  SmartPtr<DataObject> const h = leg("h"), d = leg("d");
  ExternalObject object(h.get(), d.get(), nullptr);
  EXPECT_EQ(shown(ExternalObject()) + " " + shown(object), "-?-?-? hd-");
  EXPECT_EQ(object.getFieldVal("Data").get(), d.get());
  EXPECT_TRUE(object.getFieldVal("Trailer").isNull());
  object.setField(1, object.getFieldVal(1).get());
  object.setField(2, *leg("t"));
  object.setNull("Header");
  EXPECT_EQ(shown(object), "h?dt");
  EXPECT_EQ(object.getField0(0), h.get());
  // A part changes its place, though nobody else holds it.
  object.setExternalObjects(object.getTrailer(), object.getHeader(), nullptr);
  EXPECT_EQ(shown(object), "th-");
  EXPECT_EQ(d->getRefCount(), 1);
}

TEST(ExternalObject, RefusesWhatIsNoPart) {
  ExternalObject object(nullptr, leg("d"), nullptr);
  StringObject text("x");
  EXPECT_EQ(failureOf<FieldNotFoundException>([&] { object.setField(3, text); }).text, "Field index out of bounds - 3");
  EXPECT_EQ(failureOf<FieldNotFoundException>([&] { object.getField(-1); }).text, "Field index out of bounds - -1");
  EXPECT_THROW(object.setField(1, text), ClassCastException);
  EXPECT_EQ(failureOf<TransformException>([&] { object.getField(1, text); }).text, "Cannot convert Object to String");
  EXPECT_EQ(shown(object), "-d-");
}

TEST(ExternalObject, CopiesItsPartsAndResetsThemInPlace) {
  ExternalObject object;
  object.setField(1, *leg("d"));
  SmartPtr<ExternalObject> const clone(checkedCast<ExternalObject>(object.clone()));
  ExternalObject assigned(leg("h"), nullptr, leg("t"));
  assigned = object;
  object.reset();
  EXPECT_TRUE(object.getData()->isNull(GeneratedLeg::SYMBOL));
  EXPECT_EQ(shown(*clone) + shown(assigned), "-?d-?-?d-?");
}

TEST(ExternalObject, ShowsThePartsThatAreThere) {
  EXPECT_EQ(ExternalObject(nullptr, leg("d"), nullptr).toXMLString(),
            "<ExternalObject>\n\t<Leg>\n\t\t<Symbol>d</Symbol>\n\t</Leg>\n</ExternalObject>\n");
  EXPECT_EQ(ExternalObject(nullptr, nullptr, nullptr).toXMLString(2), "\t<ExternalObject>\n\t</ExternalObject>\n");
}

}  // namespace
}  // namespace tavrone

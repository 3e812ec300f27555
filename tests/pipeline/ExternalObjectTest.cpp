#include "tests/pipeline/Walk.h"

namespace tavrone {
namespace {

// The texts of the parts, "-" for a null one; "?" behind a field that does not count as set.
std::string shown(ExternalObject const &object) {
  std::string text;
  DataObject *const parts[] = {object.getHeader(), object.getData(), object.getTrailer()};
  for (int i = 0; i < 3; ++i) {
    text += textOf(parts[i]);
    if (object.isNull(i)) text += "?";
  }
  return text;
}

TEST(ExternalObject, HandsOutItsPartsAsTheyAre) {
  SmartPtr<DataObject> const h = line("h"), d = line("d");
  ExternalObject object(h.get(), d.get(), nullptr);
  EXPECT_EQ(shown(ExternalObject()) + " " + shown(object), "-?-?-? hd-");
  EXPECT_EQ(object.getFieldVal("Data").get(), d.get());
  EXPECT_TRUE(object.getFieldVal("Trailer").isNull());
  object.setField(1, object.getFieldVal(1).get());
  object.setField(2, *line("t"));
  object.setNull("Header");
  EXPECT_EQ(shown(object), "h?dt");
  EXPECT_EQ(object.getField0(0), h.get());
  // A part changes its place, though nobody else holds it.
  object.setExternalObjects(object.getTrailer(), object.getHeader(), nullptr);
  EXPECT_EQ(shown(object), "th-");
  EXPECT_EQ(d->getRefCount(), 1);
}

TEST(ExternalObject, RefusesWhatIsNoPart) {
  ExternalObject object(nullptr, line("d").get(), nullptr);
  StringObject text("x");
  EXPECT_EQ(failureOf<FieldNotFoundException>([&] { object.setField(3, text); }).text, "Field index out of bounds - 3");
  EXPECT_EQ(failureOf<FieldNotFoundException>([&] { object.getField(-1); }).text, "Field index out of bounds - -1");
  EXPECT_THROW(object.setField(1, text), ClassCastException);
  EXPECT_EQ(failureOf<TransformException>([&] { object.getField(1, text); }).text, "Cannot convert Object to String");
  EXPECT_EQ(shown(object), "-d-");
}

TEST(ExternalObject, CopiesItsPartsAndResetsThemInPlace) {
  ExternalObject object;
  object.setField(1, *line("d"));
  SmartPtr<ExternalObject> const clone(checkedCast<ExternalObject>(object.clone()));
  ExternalObject assigned(line("h").get(), nullptr, line("t").get());
  assigned = object;
  object.reset();
  EXPECT_TRUE(object.getData()->isNull(0));
  EXPECT_EQ(shown(*clone) + shown(assigned), "-?d-?-?d-?");
}

TEST(ExternalObject, ShowsThePartsThatAreThere) {
  EXPECT_EQ(ExternalObject(nullptr, line("d").get(), nullptr).toXMLString(),
            "<ExternalObject>\n\t<Line>\n\t\t<Text>d</Text>\n\t</Line>\n</ExternalObject>\n");
  EXPECT_EQ(ExternalObject(nullptr, nullptr, nullptr).toXMLString(2), "\t<ExternalObject>\n\t</ExternalObject>\n");
}

}  // namespace
}  // namespace tavrone

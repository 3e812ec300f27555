#include <gtest/gtest.h>

#include "tavrone/context/PropertyMapImpl.h"
#include "tavrone/core/Raise.h"
#include "tavrone/core/Wrappers.h"
#include "tests/Cases.h"
#include "tests/Failure.h"
#include "tests/core/AllocationCount.h"

namespace tavrone {
namespace {

struct Counted : ObjectRef {};

tvstring namesOf(IPropertyMap &map) {
  return map.getPropertyNames().toString();
}

// What the six converting getters and the text getter read under "k", each with a default of its own.
tvstring readings(IPropertyMap &map) {
  DateTime const date = map.getDateProperty("k", DateTime(2001, 1, 1, 0, 0, 0, 0));
  return intToString(map.getIntProperty("k", -1)) + " " + dlongToString(map.getLongProperty("k", -2)) + " " +
         doubleToString(map.getDoubleProperty("k", -3)) + " " + floatToString(map.getFloatProperty("k", -4)) + " " +
         boolToString(map.getBooleanProperty("k", true)) + " " + date.toString("yyyy") + " " +
         map.getStringProperty("k", "none");
}

TEST(PropertyMap, ConvertsByTheClassOfTheValue) {
  std::pair<Object *, char const *> const cases[] = {
      {nullptr, "-1 -2 -3.0 -4.0 true 2001 none"},
      {new IntObject(7), "7 7 7.0 7.0 true 2001 7"},
      {new DoubleObject(0.5), "0 0 0.5 0.5 false 2001 0.5"},
      {new LongObject(4294967296LL), "0 4294967296 4294967296.0 4294967296.0 false 2001 4294967296"},
      {new BoolObject(false), "-1 -2 -3.0 -4.0 false 2001 false"},
      {new DateObject(DateTime(1999, 2, 3, 4, 5, 6, 0)), "-1 -2 -3.0 -4.0 true 1999 1999-02-03T04:05:06.000"},
      {new CharObject('c'), "-1 -2 -3.0 -4.0 true 2001 c"},
  };
  for (auto const &[value, read] : cases) {
    SmartPtr<IPropertyMap> const map = new PropertyMapImpl;
    map->setProperty("k", value);
    EXPECT_EQ(readings(*map), read);
  }

  SmartPtr<IPropertyMap> const texts = new PropertyMapImpl;  // parsed, but never as dates
  texts->setStringProperty("n", "12");
  texts->setStringProperty("b", "TRUE");
  EXPECT_TRUE(texts->getIntProperty("n", 0) == 12 && texts->getLongProperty("n", 0) == 12);
  EXPECT_TRUE(texts->getDoubleProperty("n", 0) == 12.0 && texts->getFloatProperty("n", 0) == 12.0F);
  EXPECT_TRUE(texts->getBooleanProperty("b", false) && texts->getDateProperty("n", DateTime(5)) == DateTime(5));
  EXPECT_FAILURE(TransformException, texts->getIntProperty("b", 0), "Cannot convert 'TRUE' to int");
  EXPECT_FAILURE(TransformException, texts->getBooleanProperty("n", true), "Cannot convert 12 to boolean");
}

TEST(PropertyMap, EveryKindOfMapSetsAndReadsEveryType) {
  SmartPtr<PropertyMapImpl> const impl = new PropertyMapImpl;
  SmartPtr<IPropertyMap> const maps[] = {new PropertyMapImpl, impl->getProperties("a"),
                                         impl->getProperties("b")->getProperties("c"), new PropertyMapDelegate};
  for (SmartPtr<IPropertyMap> const &map : maps) {
    auto const set = [&](char const *type, auto const &setter) {
      setter();
      EXPECT_EQ(map->getProperty("k")->getObjectType(), type);
      tvstring const read = readings(*map);
      map->removeProperty("k");
      return read;
    };
    EXPECT_EQ(set("Long", [&] { map->setLongProperty("k", 9); }), "9 9 9.0 9.0 true 2001 9");
    EXPECT_EQ(set("Boolean", [&] { map->setBooleanProperty("k", false); }), "-1 -2 -3.0 -4.0 false 2001 false");
    EXPECT_EQ(set("Integer", [&] { map->setIntProperty("k", 8); }), "8 8 8.0 8.0 true 2001 8");
    EXPECT_EQ(set("Double", [&] { map->setDoubleProperty("k", 0.25); }), "0 0 0.25 0.25 false 2001 0.25");
    EXPECT_EQ(set("Float", [&] { map->setFloatProperty("k", 1.5F); }), "1 1 1.5 1.5 true 2001 1.5");
    map->setDateProperty("date", DateTime(7));
    map->setStringProperty("text", "t");
    EXPECT_EQ(map->getDateProperty("date", DateTime(0)), DateTime(7));
    EXPECT_EQ(map->getStringProperty("text", ""), "t");

    struct NotDate : IPropertyMap::PropertyNameFilter {
      bool accept(tvstring const &name) override { return name != "date"; }
    } filter;
    EXPECT_EQ(map->getPropertyNames(&filter).toString(), "[text]");
    EXPECT_EQ(map->getPropertyCount(), 2);
    EXPECT_TRUE(map->hasProperty("text"));
    IntObject other(1);
    EXPECT_EQ(map->getProperty("absent", &other), &other);
    SmartPtr<IPropertyMap> const copy = new PropertyMapImpl;
    copy->putProperties(map.get());
    copy->putProperties(copy.get());
    map->putProperties(map.get());
    EXPECT_EQ(namesOf(*copy), "[date, text]");
    EXPECT_NE(copy->getProperty("text"), map->getProperty("text"));
  }
  EXPECT_EQ(namesOf(*impl), "[a.date, a.text, b.c.date, b.c.text]");
}

TEST(PropertyMap, ReleasesOnRemovalAndDestructionOnly) {
  SmartPtr<Counted> const one = new Counted, two = new Counted;
  {
    SmartPtr<PropertyMapImpl> const map = new PropertyMapImpl;
    map->setProperty("first", one.get());
    map->setIntProperty("second", 2);
    map->setProperty("first", two.get());
    EXPECT_EQ(namesOf(*map), "[first, second]");
    EXPECT_EQ(one->getRefCount(), 2);
    one->decRef();
    map->setProperty("first", nullptr);
    map->setProperty("absent", nullptr);
    EXPECT_EQ(two->getRefCount(), 1);
    EXPECT_EQ(map->getEntry(0).toString(), "second=2");
    map->setProperty("x.kept", one.get());
    map->clear("x.");
    map->addEntry(IPropertyMap::EntryImpl("x", two.get()));
    EXPECT_THROW(map->getEntry(2), std::out_of_range);
    SmartPtr<Object> const second = map->getProperty("second");
    map->clearProperties();
    EXPECT_EQ(words(second->getInt(), one->getRefCount()), "2 2");
    one->decRef();
    EXPECT_EQ(two->getRefCount(), 1);
    map->setProperty("last", one.get());
  }
  EXPECT_EQ(one->getRefCount(), 1);
}

TEST(PropertyMap, PrefixesMatchFromTheStartOfTheKey) {
  SmartPtr<PropertyMapImpl> const map = new PropertyMapImpl;
  SmartPtr<Object> const cleared[] = {new IntObject(1), new IntObject(2), new IntObject(3)};
  map->setProperty("a.b", cleared[0].get());
  for (char const *key : {"ab", "x.a.b"}) map->setIntProperty(key, 0);
  map->setProperty("a.", cleared[1].get());
  map->setProperty("a.c.d", cleared[2].get());
  SmartPtr<IPropertyMap> const subset = map->getProperties("a");
  EXPECT_EQ(namesOf(*subset), "[b, , c.d]");
  auto *const view = dynamic_cast<IPropertyMap2 *>(subset.get());
  EXPECT_EQ(view->getNames("c.").toString(), "[c.d]");
  EXPECT_EQ(view->getEntries("c.").at(0).getName(), "a.c.d");
  view->clear("c.");
  EXPECT_EQ(namesOf(*map), "[a.b, ab, x.a.b, a.]");
  subset->clearProperties();
  EXPECT_EQ(namesOf(*map), "[ab, x.a.b]");
}

TEST(PropertyMap, CopiesShareCountedValuesAndCloneTheRest) {
  SmartPtr<Counted> const shared = new Counted;
  PropertyMapImpl source;
  source.setProperty("counted", shared.get());
  source.setIntProperty("number", 1);
  PropertyMapImpl copy(source), assigned;
  assigned.setProperty("old", shared.get());
  assigned = source;
  assigned = *&assigned;
  EXPECT_EQ(shared->getRefCount(), 4);
  EXPECT_EQ(copy.getProperty("counted"), shared.get());
  EXPECT_NE(copy.getProperty("number"), source.getProperty("number"));
  EXPECT_EQ(namesOf(assigned), "[counted, number]");
  struct Uncloneable : Object {};
  source.setProperty("plain", new Uncloneable);
  EXPECT_NE(failureOf<Exception>([&] { PropertyMapImpl{source}; }).text, "");
  EXPECT_EQ(shared->getRefCount(), 4);
}

TEST(PropertyMapDelegate, MakesItsMapOnFirstUseAndCopiesShareIt) {
  PropertyMapDelegate delegate, without(delegate);
  tvstring const key = "k";
  AllocationCount const count;
  EXPECT_FALSE(delegate.hasProperty(key));
  EXPECT_EQ(count.soFar(), 1);
  PropertyMapDelegate copy(delegate);
  copy.setIntProperty("k", 1);
  copy = *&copy;
  EXPECT_EQ(delegate.getProperties().get(), copy.getProperties().get());
  EXPECT_EQ(delegate.getIntProperty("k", 0), 1);
  EXPECT_FALSE(without.hasProperty("k"));
}

}  // namespace
}  // namespace tavrone

#include "tavrone/core/Object.h"

#include <gtest/gtest.h>

#include <tuple>

#include "tavrone/core/Class.h"
#include "tavrone/core/SmartPtr.h"
#include "tavrone/core/Wrappers.h"
#include "tavrone/pipeline/RawMessage.h"
#include "tests/Failure.h"

namespace tavrone {
namespace {

// Appends its name to the log with each event that SmartPtr must keep in order.
struct Counted : ObjectRef {
  explicit Counted(std::string &l, std::string const &n = "") : log(&l), name(n) {}
  Counted(Counted const &) = default;
  Counted &operator=(Counted const &) = default;
  ~Counted() noexcept(false) override { *log += name + "~ "; }
  void addRef() override {
    *log += name + "+ ";
    ObjectRef::addRef();
  }

  std::string *log;
  std::string name;
  SmartPtr<Counted> next{};
};

class Uncloneable : public Object {};

TEST(Object, EveryTypedOperationFailsWithBothTypeNames) {
  std::tuple<char const *, void (*)(Object const &), void (*)(Object &)> const operations[] = {
      {"Integer", [](Object const &o) { o.getInt(); }, [](Object &o) { o.setInt(1); }},
      {"Long", [](Object const &o) { o.getLong(); }, [](Object &o) { o.setLong(1); }},
      {"Double", [](Object const &o) { o.getDouble(); }, [](Object &o) { o.setDouble(1); }},
      {"Float", [](Object const &o) { o.getFloat(); }, [](Object &o) { o.setFloat(1); }},
      {"Character", [](Object const &o) { o.getCharacter(); }, [](Object &o) { o.setCharacter('1'); }},
      {"Boolean", [](Object const &o) { o.getBoolean(); }, [](Object &o) { o.setBoolean(true); }},
      {"BigInteger", [](Object const &o) { o.getBigInteger(); }, [](Object &o) { o.setBigInteger({}); }},
      {"BigDecimal", [](Object const &o) { o.getBigDecimal(); }, [](Object &o) { o.setBigDecimal({}); }},
      {"DateTime", [](Object const &o) { o.getDate(); }, [](Object &o) { o.setDate({}); }},
      {"ISODateTime", [](Object const &o) { o.getISODate(); }, [](Object &o) { o.setISODate({}); }},
      {"String", [](Object const &o) { o.getString(); }, [](Object &o) { o.setString("1"); }},
      {"Binary", [](Object const &o) { o.getBinary(); }, [](Object &o) { o.setBinary({}); }},
      {"RawMessage", [](Object const &o) { o.getRawMessage(); }, [](Object &o) { o.setRawMessage(RawMessage()); }},
      {"Object", [](Object const &o) { Object().setObject(&o); }, [](Object &o) { o.setObject(&o); }}};
  for (auto const &[target, get, set] : operations) {
    Object object;
    auto const expected = std::string("Cannot convert Object to ") + target;
    EXPECT_EQ(failureOf<TransformException>([&, call = get] { call(object); }).text, expected);
    EXPECT_EQ(failureOf<TransformException>([&, call = set] { call(object); }).text, expected);
  }
}

TEST(Object, ShowsItsClassAndClonesOnlyAsItself) {
  SmartPtr<Object> const copy(Object().clone());
  EXPECT_TRUE(typeid(*copy) == typeid(Object));
  Uncloneable const object;
  EXPECT_FAILURE(Exception, object.clone(), std::string("Clone not implemented in ") + typeid(object).name());
  char expected[64];
  std::snprintf(expected, sizeof expected, "%s%x", typeid(object).name(),
                static_cast<unsigned>(reinterpret_cast<uintptr_t>(&object)));
  EXPECT_EQ(object.toString(), expected);
}

TEST(ObjectRef, DeletesWhenTheCountDropsFromOneOnly) {
  std::string log;
  auto *object = new Counted(log);
  object->decRef();  // stays at 0
  object->releaseRef();
  EXPECT_EQ(object->getRefCount(), -1);
  ObjectRef::addRef(object);
  object->addRef();
  EXPECT_TRUE(object->unique());
  object->addRef();
  object->releaseRef();
  EXPECT_EQ(log, "+ + + ");
  ObjectRef::releaseRef(object);
  EXPECT_EQ(log, "+ + + ~ ");
  ObjectRef::addRef(nullptr);
  ObjectRef::releaseRef(nullptr);

  Counted source(log);
  source.addRef();
  Counted copy(source);  // takes the count
  EXPECT_EQ(copy.getRefCount(), 1);
  copy.decRef();
  copy = source;  // which assignment doesn't
  EXPECT_EQ(copy.getRefCount(), 0);
  source.decRef();
}

TEST(ObjectRef, DestroyingAReferencedObjectFails) {
  std::string log;
  for (int count : {1, 2, -1}) {
    auto const failure = failureOf<TransformException>([&] {
      Counted object(log);
      for (int i = 0; i < count; ++i) object.addRef();
      if (count < 0) object.releaseRef();
    });
    EXPECT_EQ(failure,
              std::string("cpp/Object:70:Ref count error. Illegal delete for class ") + typeid(Counted).name());
  }
  EXPECT_EQ(failureOf<Exception>([&] {
              Counted object(log);
              object.addRef();
              throw Exception("first");
            }).text,
            "first");
}

TEST(SmartPtr, ReleasesBeforeItAddsEvenToItself) {
  std::string log;
  SmartPtr<Counted> a(new Counted(log, "a"));
  a = new Counted(log, "b");
  EXPECT_EQ(log, "a+ a~ b+ ");
  SmartPtr<Counted> const same(a);
  log.clear();
  a = same;
  a.reset(same.get());
  auto &twin = a;
  a = twin;  // changes nothing while somebody else holds it
  EXPECT_EQ(log, "b+ b+ ");
  EXPECT_EQ(a->getRefCount(), 2);
  a.set(same.get());  // forgets the reference that it held
  EXPECT_EQ(a->getRefCount(), 3);
  a->decRef();

  SmartPtr<Counted> only(new Counted(log, "c"));
  auto &alias = only;
  only = alias;  // destroys what only it holds
  EXPECT_TRUE(only.isNull() && log.ends_with("c+ c~ "));
}

TEST(SmartPtr, MovesTheReference) {
  auto const make = [](int value) {
    SmartPtr<Object> both[] = {new IntObject(value), new IntObject(value)};
    return std::move(both[1]);
  };
  SmartPtr<Object> wrapper = make(7);
  wrapper = make(8);
  EXPECT_EQ((*wrapper).getInt(), 8);

  std::string log;
  SmartPtr<Counted> list(new Counted(log, "a"));
  list->next = new Counted(log, "b");
  list = std::move(list->next);
  EXPECT_EQ(log, "a+ b+ a~ ");
  EXPECT_TRUE(list->unique());
}

TEST(Class, ComparesRecordsAndNamesThem) {
  EXPECT_EQ(Class(typeid(IntObject)), Class(&typeid(IntObject)));
  EXPECT_FALSE(Class(typeid(IntObject)) == Class(typeid(Object)));
  EXPECT_EQ(static_cast<tvstring>(Class(typeid(int))), typeid(int).name());
  EXPECT_EQ(Class(nullptr).getName(), "");
}

TEST(CheckedCast, NamesBothTypesWhenItFails) {
  IntObject number(3);
  Object *const object = &number;
  EXPECT_EQ(checkedCast<IntObject>(object), &number);
  std::string const target = typeid(LongObject).name();
  EXPECT_FAILURE(ClassCastException, checkedCast<LongObject>(object),
                 std::string("Cannot cast ") + typeid(IntObject).name() + "* to " + target);
  EXPECT_FAILURE(ClassCastException, checkedCast<LongObject>(static_cast<Object const *>(nullptr)),
                 "Cannot cast NULL to " + target);
}

}  // namespace
}  // namespace tavrone

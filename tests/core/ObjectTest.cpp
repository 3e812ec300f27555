#include "tavrone/core/Object.h"

#include <gmock/gmock.h>

#include "tavrone/core/Class.h"
#include "tavrone/core/SmartPtr.h"
#include "tavrone/core/Wrappers.h"
#include "tests/Failure.h"

namespace tavrone {
namespace {

using testing::HasSubstr;
using testing::StartsWith;

// Appends its name to the log with each event that SmartPtr must keep in order.
class Counted : public ObjectRef {
 public:
  explicit Counted(std::string &log, char const *name = "") : log_(&log), name_(name) {}
  Counted(Counted const &) = default;
  Counted &operator=(Counted const &) = default;
  ~Counted() noexcept(false) override { *log_ += name_ + "~ "; }
  void addRef() override {
    *log_ += name_ + "+ ";
    ObjectRef::addRef();
  }
  using ObjectRef::addRef;

 private:
  std::string *log_;
  std::string name_;
};

class Uncloneable : public Object {};

TEST(Object, EveryTypedOperationFailsWithBothTypeNames) {
  struct {
    tvstring target;
    void (*get)(Object const &);
    void (*set)(Object &);
  } const operations[] = {
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
      {"RawMessage", [](Object const &o) { o.getRawMessage(); }, [](Object &o) { o.setObject(&o); }}};
  for (auto const &operation : operations) {
    Object object;
    bool const raw = operation.target == "RawMessage";
    std::string const expected = std::string("Cannot convert Object to ") + operation.target.c_str();
    EXPECT_EQ(failureOf<TransformException>([&] { operation.get(object); }).text, expected);
    EXPECT_EQ(failureOf<TransformException>([&] { operation.set(object); }).text,
              raw ? "Cannot convert Object to Object" : expected);
  }
  EXPECT_EQ(failureOf<TransformException>([] { Object().setObject(&static_cast<Object const &>(IntObject(1))); }).text,
            "Cannot convert Object to Integer");
}

TEST(Object, ClonesOnlyAsItself) {
  Object const object;
  SmartPtr<Object> const copy(object.clone());
  EXPECT_TRUE(typeid(*copy) == typeid(Object));
  auto const failure = failureOf<Exception>([] { Uncloneable().clone(); });
  EXPECT_THAT(failure.text, StartsWith("Clone not implemented in "));
  EXPECT_THAT(failure.text, HasSubstr("Uncloneable"));
}

TEST(Object, ShowsClassAndLowAddress) {
  Uncloneable const object;
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
}

TEST(ObjectRef, CopyTakesTheCountAndAssignmentDoesNot) {
  std::string log;
  Counted source(log);
  source.addRef();
  Counted copy(source);
  EXPECT_EQ(copy.getRefCount(), 1);
  copy.decRef();
  copy = source;
  EXPECT_EQ(copy.getRefCount(), 0);
  source.decRef();
}

TEST(ObjectRef, DestroyingAReferencedObjectFails) {
  std::string log;
  for (int count : {1, 2, -1}) {
    auto const failure = failureOf<TransformException>([&] {
      auto *object = new Counted(log);
      for (int i = 0; i < count; ++i) object->addRef();
      if (count < 0) object->releaseRef();
      delete object;
    });
    EXPECT_THAT(failure.text, StartsWith("Ref count error. Illegal delete for class "));
    EXPECT_THAT(failure.text, HasSubstr(count > 0 ? "Counted" : "ObjectRef"));
    EXPECT_EQ(failure.source, "cpp/Object");
    EXPECT_EQ(failure.line, 70);
  }
  EXPECT_EQ(failureOf<Exception>([&] {
              Counted object(log);
              object.addRef();
              throw Exception("first");
            }).text,
            "first");
}

TEST(SmartPtr, ReleasesBeforeItAdds) {
  std::string log;
  SmartPtr<Counted> a(new Counted(log, "a"));
  a = new Counted(log, "b");
  EXPECT_EQ(log, "a+ a~ b+ ");
  SmartPtr<Counted> const same(a);
  log.clear();
  a = same;
  a.reset(same.get());
  EXPECT_EQ(log, "b+ b+ ");
  EXPECT_EQ(a->getRefCount(), 2);
}

TEST(SmartPtr, AssignedToItselfDestroysWhatOnlyItHolds) {
  std::string log;
  SmartPtr<Counted> only(new Counted(log));
  auto &alias = only;
  only = alias;
  EXPECT_EQ(log, "+ ~ ");
  EXPECT_TRUE(only.isNull());
}

TEST(SmartPtr, SetKeepsTheReferenceThatItHeld) {
  std::string log;
  Counted first(log);
  Counted second(log);
  SmartPtr<Counted> pointer(&first);
  second.addRef();
  pointer.set(&second);
  pointer.release();
  EXPECT_TRUE(pointer.isNull());
  EXPECT_EQ(first.getRefCount(), 1);
  EXPECT_EQ(second.getRefCount(), 1);
  first.decRef();
  second.decRef();
}

TEST(SmartPtr, OwnsAWrapperThroughAReturn) {
  auto const make = [](int value) {
    SmartPtr<Object> both[] = {new IntObject(value), new IntObject(value)};
    return std::move(both[1]);
  };
  SmartPtr<Object> const pointer = make(7);
  EXPECT_EQ((*pointer).getInt(), 7);
}

TEST(Class, ComparesRecordsAndNamesThem) {
  IntObject const number;
  Object const &object = number;
  EXPECT_EQ(Class(typeid(object)), Class(&typeid(IntObject)));
  EXPECT_FALSE(Class(typeid(object)) == Class(typeid(Object)));
  EXPECT_EQ(static_cast<tvstring>(Class(typeid(int))), typeid(int).name());
  EXPECT_EQ(Class(nullptr).getName(), "");
}

TEST(CheckedCast, NamesBothTypesWhenItFails) {
  IntObject number(3);
  Object *const object = &number;
  EXPECT_EQ(checkedCast<IntObject>(object), &number);
  EXPECT_EQ(failureOf<ClassCastException>([&] { checkedCast<LongObject>(object); }).text,
            std::string("Cannot cast ") + typeid(IntObject).name() + "* to " + typeid(LongObject).name());
  Object const *const none = nullptr;
  EXPECT_EQ(failureOf<ClassCastException>([&] { checkedCast<LongObject>(none); }).text,
            std::string("Cannot cast NULL to ") + typeid(LongObject).name());
}

}  // namespace
}  // namespace tavrone

#include <gtest/gtest.h>

#include "tavrone/context/Factory.h"
#include "tavrone/context/LookupContext.h"
#include "tavrone/context/UserClassManager.h"
#include "tests/Tracked.h"
#include "tests/routing/Routing.h"

namespace tavrone {
namespace {

struct Shared : ObjectRef {};
struct StringFactory : ObjectFactory {
  Object *create() override { return new StringObject; }
};
using Factory = Tracked<StringFactory>;

TEST(LookupContext, HandlesShareOneDirectoryThatOwnsReferences) {
  SmartPtr<ILookupContext> const one = LookupContextFactory::getLookupContext(),
                                 two = LookupContextFactory::getLookupContext();
  EXPECT_NE(one.get(), two.get());
  SmartPtr<Tracked<Shared>> const held = new Tracked<Shared>;
  one->bind("thing", held.get());
  EXPECT_EQ(two->lookup("thing"), held.get());
  EXPECT_EQ(held->getRefCount(), 2);
  two->rebind("thing", held.get());
  EXPECT_EQ(held->getRefCount(), 2);
  two->rebind("thing", new Tracked<Shared>);
  EXPECT_EQ(held->getRefCount(), 1);
  one->unbind("thing");
  one->unbind("thing");
  EXPECT_EQ(one->lookup("thing"), nullptr);
  EXPECT_EQ(Tracked<Shared>::alive, 1);
}

TEST(LookupContext, BindTakesOverWhatItRefuses) {
  SmartPtr<ILookupContext> const directory = LookupContextFactory::getLookupContext();
  auto *bound = new Factory;
  directory->bind("taken", bound);
  for (Object *second : {static_cast<Object *>(new Factory), static_cast<Object *>(new Tracked<Shared>),
                         static_cast<Object *>(bound), static_cast<Object *>(nullptr)})
    EXPECT_EQ(failureOf<NamingException>([&] { directory->bind("taken", second); }).text, "taken already bound");
  EXPECT_EQ(directory->lookup("taken"), bound);
  EXPECT_EQ(Factory::alive, 1);
  EXPECT_EQ(Tracked<Shared>::alive, 0);
  directory->unbind("taken");
  EXPECT_EQ(Factory::alive, 0);
}

TEST(UserClassManager, TheLastRegistrationWins) {
  UserClass const first("test.Class", new Factory);
  UserClass const second("test.Class", new ::tavrone::Factory<TestFormat>);
  EXPECT_EQ(Factory::alive, 0);
  auto *factory = new Factory;
  UserClassManager::registerClass("test.Class", factory);
  UserClassManager::registerClass("test.Class", factory);
  SmartPtr<Object> const made = UserClassManager::createInstance("test.Class");
  EXPECT_NE(dynamic_cast<StringObject *>(made.get()), nullptr);
  UserClassManager::registerClass("test.Class", nullptr);
  EXPECT_EQ(Factory::alive, 0);
  EXPECT_EQ(failureOf<TransformException>([] { UserClassManager::createInstance("test.Class"); }),
            "cpp/UserClassManager:28:Class not found test.Class");
}

TEST(UserClassManager, KeepsANameWhoseBytesGo) {
  char name[] = "test.View";
  UserClassManager::registerClass(tvstring().static_string(name), new Factory);
  name[0] = 'x';
  SmartPtr<Object> const made(UserClassManager::createInstance("test.View"));
  EXPECT_FALSE(made.isNull());
  UserClassManager::registerClass("test.View", nullptr);
}

TEST(Registrar, RunsItsFunctionOnceAtConstruction) {
  static int runs = 0;
  Registrar const registrar([] { ++runs; });
  EXPECT_EQ(runs, 1);
}

}  // namespace
}  // namespace tavrone

#include <gtest/gtest.h>

#include "tavrone/tavrone.h"
#include "tests/Cases.h"
#include "tests/Failure.h"
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
    EXPECT_FAILURE(NamingException, directory->bind("taken", second), "taken already bound");
  EXPECT_EQ(directory->lookup("taken"), bound);
  EXPECT_EQ(words(Factory::alive, Tracked<Shared>::alive), "1 0");
  directory->unbind("taken");
  EXPECT_EQ(Factory::alive, 0);
}

TEST(UserClassManager, TheLastRegistrationWins) {
  UserClass const first("test.Class", new Factory);
  UserClass const second("test.Class", new FactoryOf<TestFormat>);
  EXPECT_EQ(Factory::alive, 0);
  auto *factory = new Factory;
  UserClassManager::registerClass("test.Class", factory);
  UserClassManager::registerClass("test.Class", factory);
  SmartPtr<Object> const made = UserClassManager::createInstance("test.Class");
  EXPECT_NE(dynamic_cast<StringObject *>(made.get()), nullptr);
  UserClassManager::registerClass("test.Class", nullptr);
  EXPECT_EQ(Factory::alive, 0);
  EXPECT_FAILURE(TransformException, UserClassManager::createInstance("test.Class"),
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

TEST(TransformContext, TheLastSetWinsAndPutAllAdds) {
  TransformContext context;
  context.setProperty("key", "old");
  TransformContext copy(context), emptied(context);
  context.setContextProperty("key", "new");
  std::map<tvstring, tvstring> more{{"key", "ignored"}, {"other", "put"}};
  context.putAll(more);
  emptied = TransformContext();
  EXPECT_EQ(copy.getProperty("key") + context.getProperty("key") + context.getProperty("other"), "oldnewput");
  EXPECT_EQ(emptied.getProperty("key"), "");
}

TEST(TransformContext, HoldsOneReferenceOnEachObject) {
  struct Counted : ObjectRef {};
  SmartPtr<Counted> const one = new Counted, two = new Counted;
  {
    TransformContext context;
    EXPECT_EQ(context.getObjectProperty("key"), nullptr);
    for (int i = 0; i < 2; ++i) context.setObjectProperty("key", one.get());
    EXPECT_EQ(one->getRefCount(), 2);
    context.setObjectProperty("key", two.get());
    context.clear();
    EXPECT_EQ(context.getObjectProperty("key"), two.get());
    EXPECT_EQ(one->getRefCount() * 10 + two->getRefCount(), 12);
    context.setObjectProperty("key", nullptr);
    EXPECT_EQ(context.getObjectProperty("key"), nullptr);
    context.setObjectProperty("key", new IntObject(1));
    TransformContext copy(context), emptied(context);
    context.setObjectProperty("last", two.get());
  }
  EXPECT_EQ(two->getRefCount(), 1);
}

TEST(TransformContext, TakesOutputOnlyWhenAskedTo) {
  TransformContext context;
  auto const refused = [&] {
    return failureOf<TransformException>([&] { context.getOutputContext(); }) ==
           "cpp/TransformContext:56:The transform context cannot accept output. Make sure that you call "
           "createOutputContext() on the TransformContext if output is expected";
  };
  EXPECT_TRUE(refused());
  context.createOutputContext();
  context.setProperty("key", "value");
  SmartPtr<IOutputContext> const output = context.getOutputContext();
  output->createOutputDevice(DeviceInfo("", "", ""));
  context.createOutputContext();
  EXPECT_EQ(context.getOutputContext().get(), output.get());
  EXPECT_EQ(output->getOutputCount(), 0);

  TransformContext target;
  target.setProperty("gone", "value");
  context.copyTo(context);
  context.copyTo(target);
  EXPECT_EQ(target.getOutputContext().get(), output.get());
  EXPECT_EQ(target.getProperty("gone") + target.getProperty("key"), "value");
  context.clear();
  EXPECT_EQ(context.getProperty("key"), "");
  EXPECT_TRUE(refused());
  EXPECT_EQ(output->getRefCount(), 2);
}

TEST(TransformContextWrapper, LayersTextPropertiesOnly) {
  TransformContext shared;
  shared.setProperty("hidden", "below");
  shared.setProperty("seen", "below");
  IntObject *const object = new IntObject(1);
  shared.setObjectProperty("seen", object);
  TransformContextWrapper wrapper(&shared);
  wrapper.setContextProperty("hidden", "");
  EXPECT_EQ(wrapper.getProperty("hidden") + wrapper.getProperty("seen"), "below");
  EXPECT_EQ(shared.getProperty("hidden"), "below");
  EXPECT_EQ(wrapper.getObjectProperty("seen"), nullptr);
  wrapper.createOutputContext();
  EXPECT_EQ(wrapper.getOutputContext().get(), shared.getOutputContext().get());
  wrapper.setProperty("own", "value");
  wrapper.clear();
  EXPECT_EQ(wrapper.getProperty("seen") + wrapper.getProperty("own"), "value");
  EXPECT_EQ(failureOf<TransformException>([&] { shared.getOutputContext(); }).line, 56);

  TransformContextWrapper const empty;
  EXPECT_EQ(empty.getTransformContext(), &TransformContext::EMPTY);
  EXPECT_EQ(TransformContextWrapper().getProperty("key"), "");
}

}  // namespace
}  // namespace tavrone

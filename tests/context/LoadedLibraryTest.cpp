#include <gtest/gtest.h>

#include "tests/Failure.h"
#include "tests/components/Components.h"

namespace tavrone {
namespace {

SmartPtr<ILookupContext> directory() {
  return LookupContextFactory::getLookupContext();
}

// The names of a kind, of which each must give a new component at each look-up, as no other name of the library does.
template <class T>
std::string namesOf(ILookupContext &at, TList<tvstring> (ILookupContext::*list)(),
                    SmartPtr<T> (ILookupContext::*lookup)(tvstring const &),
                    std::string const &before = "Unable to lookup '", std::string const &after = "'") {
  TList<tvstring> const names = (at.*list)();
  for (tvstring const &name : names) {
    SmartPtr<T> const one = (at.*lookup)(name), other = (at.*lookup)(name);
    EXPECT_NE(one.get(), other.get());
    EXPECT_EQ(one->getRefCount(), 1);
  }
  bool const isMapping = str(names.toString()) == "[components.mapping]";
  for (char const *wrong : {"none", "components.text", isMapping ? "components.flow" : "components.mapping"}) {
    Failure const failure = failureOf<NamingException>([&] { (at.*lookup)(wrong); });
    EXPECT_EQ(failure.text, before + wrong + after);
    EXPECT_EQ(failure.source, "cpp/LookupContextImpl");
    EXPECT_EQ(failure.line == 19, after == "'");
  }
  return str(names.toString());
}

// By a handle on the directory, and by a trigger context, which forwards to one.
template <class Directory>
struct LoadedLibraryDirectory : testing::Test {};
using Directories = testing::Types<LookupContextImpl, TriggerContextImpl>;
TYPED_TEST_SUITE(LoadedLibraryDirectory, Directories);

TYPED_TEST(LoadedLibraryDirectory, HasAComponentOfEachKind) {
  using I = ILookupContext;
  TypeParam at;
  EXPECT_EQ(namesOf(at, &I::getMessages, &I::lookupMessage), "[components.external, components.internal]");
  EXPECT_EQ(namesOf(at, &I::getExternalMessages, &I::lookupExternalMessage), "[components.external]");
  EXPECT_EQ(namesOf(at, &I::getInternalMessages, &I::lookupInternalMessage), "[components.internal]");
  EXPECT_EQ(namesOf(at, &I::getInternalMessages, &I::lookupBusinessTransaction), "[components.internal]");
  EXPECT_EQ(namesOf(at, &I::getMessageMappings, &I::lookupMessageMapping), "[components.mapping]");
  EXPECT_EQ(namesOf(at, &I::getMessageFlows, &I::lookupMessageFlow), "[components.flow]");
  EXPECT_EQ(namesOf(at, &I::getInputFormats, &I::lookupInputFormat), "[components.input]");
  EXPECT_EQ(namesOf(at, &I::getOutputFormats, &I::lookupOutputFormat), "[components.output]");
  EXPECT_EQ(namesOf(at, &I::getNormalizedObjectMappings, &I::lookupNormalizedObjectMappingFormat,
                    "NormalizedObjectMappingFormat not available at ", ""),
            "[components.normalizedMapping]");
  EXPECT_EQ(at.lookupOutputProtocol("components.protocol"), at.lookupComponent("components.protocol"));
  TypeParam copy(at);
  copy.bind("components.bound", new StringObject("bound"));
  copy.rebind("components.bound", new StringObject("rebound"));
  EXPECT_EQ(at.lookup("components.bound")->toString(), "rebound");
  at.unbind("components.bound");
  EXPECT_EQ(copy.lookup("components.bound"), nullptr);
}

TEST(LoadedLibrary, RegistersItsClassesWhileItLoads) {
  SmartPtr<Object> const rule = UserClassManager::createInstance("components.Rule");
  EXPECT_EQ(rule->toString(), "a rule");
}

TEST(LoadedLibrary, SharesItsProtocols) {
  IOutputProtocol *const protocol = directory()->lookupOutputProtocol("components.protocol");
  EXPECT_EQ(directory()->lookupOutputProtocol("components.protocol"), protocol);
  EXPECT_EQ(protocol->getRefCount(), 1);
  for (char const *name : {"protocol", "former", "unbound"}) directory()->rebind(name, new ContextOutputProtocol);
  EXPECT_EQ(directory()->lookupOutputProtocol("protocol"), directory()->lookup("protocol"));
  directory()->rebind("former", new StringObject("no protocol"));
  directory()->unbind("unbound");
  for (std::string const wrong : {"none", "components.flow", "former", "unbound"})
    EXPECT_FAILURE(NamingException, directory()->lookupOutputProtocol(wrong.c_str()),
                   "Device not available at " + wrong);
  for (char const *name : {"protocol", "former"}) directory()->unbind(name);
}

TEST(LoadedLibrary, FindsTheRuntimeAtWorkBeforeItsOwnStaticObjectsAreMade) {
  EXPECT_EQ(directory()->lookup("components.text")->toString(), runtimeAtWork());
}

}  // namespace
}  // namespace tavrone

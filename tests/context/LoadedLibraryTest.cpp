#include <gtest/gtest.h>

#include <thread>

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
    EXPECT_EQ(failureOf<NamingException>([&] { directory()->lookupOutputProtocol(wrong.c_str()); }).text,
              "Device not available at " + wrong);
  for (char const *name : {"protocol", "former"}) directory()->unbind(name);
}

TEST(LoadedLibrary, FindsTheRuntimeAtWorkBeforeItsOwnStaticObjectsAreMade) {
  EXPECT_EQ(directory()->lookup("components.text")->toString(), runtimeAtWork());
}

struct OrderIdentifier : MessageIdentifier {
  DataObject *identifyMessage(InputSource &) override { return new examples::Order; }
};

// What one host thread makes of some messages, with a router, contexts and components of its own.
std::string processMessages() {
  auto *const service = new MessageIdentificationService;
  service->registerMessageIdentifer(new OrderIdentifier);
  MessageRouter router(service);
  auto *const configuration = new MessageConfiguration;
  configuration->setContextProperty(TransformContext::INPUT_FORMAT_PROPERTY, "components.input");
  router.addMessageConfiguration(configuration);
  std::string texts;
  for (int i = 0; i < 20; ++i) {
    TransformContext context;
    context.createOutputContext();
    StringInputSource input("A-" + intToString(i) + " 100");
    input.setStringProperty("replyTo", "desk");
    router.processMessage(input, context);
    SmartPtr<INormalizedObjectMappingFormat> const mapping =
        directory()->lookupNormalizedObjectMappingFormat("components.normalizedMapping");
    SmartPtr<DataObject> const mapped = mapping->map(nullptr, context);
    IOutputProtocol *const protocol = directory()->lookupOutputProtocol("components.protocol");
    DeviceInfo info("device", "", "");
    tvstring const xml = context.getProperty("xml") + mapped->getMetaInfo()->getName();
    protocol->createDevice(info, context)->write(xml.data(), static_cast<int>(xml.length()));
    texts += context.getOutputContext()->getOutputDevice("device")->getAsString();
    texts += str(directory()->getMessages().toString()) + str(input.toString());
    texts += failureOf<TransformRuntimeException>([&] { mapped->getField("none"); }).text;
    texts += failureOf<NamingException>([&] { directory()->lookupMessage("none"); }).text;
  }
  return texts;
}

// The report of a data race, if there is one, is the thread sanitizer's.
TEST(Threads, ShareTheDirectoryAndTheMetadata) {
  std::string texts[2];
  {
    std::thread first([&] { texts[0] = processMessages(); }), second([&] { texts[1] = processMessages(); });
    first.join();
    second.join();
  }
  EXPECT_EQ(texts[0], texts[1]);
  EXPECT_NE(texts[0].find("<OrderID>A-19</OrderID>"), std::string::npos) << texts[0].substr(0, 1000);
}

}  // namespace
}  // namespace tavrone

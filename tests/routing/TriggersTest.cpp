#include <functional>

#include "tests/Cases.h"
#include "tests/Tracked.h"
#include "tests/core/AllocationCount.h"
#include "tests/pipeline/Walk.h"
#include "tests/routing/Routing.h"

namespace tavrone {
namespace {

// Fails at a context with the property "fail".
struct TestTriggerBase : ITrigger {
  void onNewMessage(DataObject *, TransformContext &) override { ++events; }
  void setContext(TriggerContext *context) override {
    tvstring text;
    if (context->getProperty("fail", text)) raise<TransformException>(text, "test");
    ++contexts;
  }
  void onBatchStart(TransformContext &) override {}
  void onBatchEnd(TransformContext &) override {}
  Object *execute(Properties &) override { return nullptr; }
  int contexts = 0, events = 0;
};
using TestTrigger = Tracked<TestTriggerBase>;
struct NoTriggerBase : ICustomClass {};
using NoTrigger = Tracked<NoTriggerBase>;
struct NullFactory : ObjectFactory {
  Object *create() override { return nullptr; }
};

// Fires one trigger for every message.
struct OneTrigger : Triggers {
  explicit OneTrigger(char const *className = "test.Trigger") : Triggers(nullptr) {
    context.init(nullptr, className, "name");
  }
  void handleNewMessage(DataObject *object, TransformContext &message) override {
    getTriggerObject(context)->onNewMessage(object, message);
  }
  void handleBatchStart(TransformContext &message) override { getTriggerObject(context)->onBatchStart(message); }
  void handleBatchEnd(TransformContext &message) override { getTriggerObject(context)->onBatchEnd(message); }
  TriggerContextImpl context;
};

TransformContext none;
bool const registered = registerClass<TestTrigger>("test.Trigger");

TEST(Triggers, MakeATriggerOnceForEachContextAndReleaseIt) {
  {
    OneTrigger triggers;
    for (int i = 0; i < 2; ++i) triggers.onNewMessage(nullptr, none);
    auto *const trigger = static_cast<TestTrigger *>(triggers.context.getTriggerObject());
    EXPECT_EQ(trigger->contexts * 10 + trigger->events, 12);
    triggers.context.setTriggerObject(trigger);
    EXPECT_EQ(trigger->getRefCount(), 1);
    TriggerContextImpl copy(triggers.context);
    EXPECT_EQ(copy.getTriggerObject(), nullptr);
    copy.setTriggerObject(new TestTrigger);
    copy = triggers.context;
    EXPECT_EQ(copy.getTriggerObject(), nullptr);
    triggers.context.setTriggerObject(new TestTrigger);
    EXPECT_EQ(TestTrigger::alive, 1);
  }
  EXPECT_EQ(TestTrigger::alive, 0);
}

TEST(Triggers, KeepNoTriggerThatFails) {
  registerClass<NoTrigger>("test.NoTrigger");
  UserClassManager::registerClass("test.NullTrigger", new NullFactory);
  for (std::string const name : {"test.NoTrigger", "test.NullTrigger"})
    EXPECT_FAILURE(TransformException, OneTrigger(name.c_str()).onNewMessage(nullptr, none),
                   "cpp/Triggers:35:Not a valid trigger class - '" + name + "'.");
  OneTrigger triggers;
  triggers.context.addProperty("fail", "first");
  triggers.context.addProperty("fail", "second");
  EXPECT_FAILURE(TransformException, triggers.onNewMessage(nullptr, none), "first");
  EXPECT_EQ(triggers.context.getTriggerObject(), nullptr);
  EXPECT_EQ(TestTrigger::alive + NoTrigger::alive, 0);
  tvstring value("kept");
  EXPECT_FALSE(triggers.context.getProperty("absent", value));
  EXPECT_EQ(value, "kept");
  auto const absent = failureOf<TransformException>([&] { triggers.context.getProperty("absent"); });
  EXPECT_EQ(absent.source + " " + absent.text, "cpp/AbstractTriggerContext Property absent not found");
}

// A chain: a First is mapped to a Second, whose text goes to the device "test.memory". Both mark what they handle.
template <char Mark>
struct Chained : AbstractInternalMessage {
  struct Valid : ValidationRules {
    void validate(DataObject *object) override { walk(exceptionHandler, textOf(object)); }
  };
  Chained() : AbstractInternalMessage("chained"), triggers(Mark == '1' ? "InternalRouterTrigger" : "RouterTrigger") {
    addValidator("Default", new Valid);
    triggers.context.addProperty("internalmapping.format", "test.mapping");
    triggers.context.addProperty("output.format", "test.output");
    triggers.context.addProperty("output.device", "test.memory");
  }
  DataObject *createNormalizedObject() override { return new Line; }
  Triggers *getTriggers() override { return &triggers; }
  OneTrigger triggers;
};
struct Mapping : AbstractNormalizedObjectMappingFormat {
  Mapping() : AbstractNormalizedObjectMappingFormat("", "test.second") {}
  using AbstractNormalizedObjectMappingFormat::map;
  DataObject *map(DataObject *source, TransformContext &) override {
    auto *const mapped = new Tracked<Line>;
    mapped->set<"Text">((textOf(source) + ">").c_str());
    return mapped;
  }
};
// Writes the text, with what it sees of the message's context. Where it starts with "outer", it first has the trigger
// handle another message, with output of its own.
struct Output : AbstractOutputFormat {
  void write(DataObject *source, TransformContext &context) override {
    std::string const text = textOf(source);
    if (text.find("outer") == 0) inner();
    DeviceInfo info(context.getProperty("output.device"), "", "");
    tvstring const seen =
        (text + "|").c_str() + context.getProperty("message") + context.getProperty("output.destination");
    lookupContext_->lookupOutputProtocol(info.getDeviceName())
        ->createDevice(info, context)
        ->write(seen.data(), static_cast<int>(seen.length()));
  }
  OutputWriter *getOutputWriter() override { return nullptr; }
  static inline std::function<void()> inner;
};

struct RouterTriggers : testing::Test {
  RouterTriggers() {
    directory->bind("test.memory", new ContextOutputProtocol);
    context.setProperty("message", "unseen");
  }
  ~RouterTriggers() noexcept override { directory->unbind("test.memory"); }

  // What the message's output context collected.
  static std::string handled(IInternalMessage &message, char const *text, TransformContext &context) {
    SmartPtr<DataObject> const object = line(text);
    std::string out;
    try {
      message.handleNormalizedObject(object.get(), context);
    } catch (TransformException const &e) {
      out = str(e.getMessage() + "/" + e.getPhase()).substr(0, 40);
    }
    if (SmartPtr<IOutputContext> const output = context.findOutputContext(); !output.isNull())
      for (ByteArrayOutputDevice *device : output->getOutputDevices()) out += device->getAsString();
    return out;
  }

  SmartPtr<ILookupContext> directory = LookupContextFactory::getLookupContext();
  BoundFormat<Chained<'2'>> second{"test.second"};
  BoundFormat<Mapping> mapping{"test.mapping"};
  BoundFormat<Output> output{"test.output"};
  TransformContext context;
};

TEST_F(RouterTriggers, HandAMessageOnWithItsOutputAndWithoutItsProperties) {
  SmartPtr<IInternalMessage> const first = new Chained<'1'>;
  for (int i = 0; i < 3; ++i) {
    context.createOutputContext();
    ASSERT_EQ(handled(*first, "a", context), "a>|name");
    TransformContextWrapper wrapper(&context);
    context.createOutputContext();
    ASSERT_EQ(handled(*first, "b", wrapper), "b>|name");
    ASSERT_EQ(handled(*first, "c*", context).substr(0, 21), "stop/Internal Message") << "fails in the second message";
    ASSERT_EQ(handled(*first, "d", none), "The transform context cannot accept outp");
  }
  EXPECT_EQ(words(second.made * 100 + mapping.made * 10 + output.made, Tracked<Line>::alive), "111 0");
  EXPECT_EQ(context.getOutputContext()->getRefCount(), 2) << "no trigger keeps it";
}

// A context of a host's own, with its output elsewhere.
TEST_F(RouterTriggers, WriteToTheOutputThatTheContextGives) {
  struct OwnOutput : TransformContext {
    SmartPtr<IOutputContext> getOutputContext() override {
      return own.isNull() ? TransformContext::getOutputContext() : own;
    }
    SmartPtr<IOutputContext> own;
  } other;
  TransformContextWrapper wrapper(&other);
  SmartPtr<IInternalMessage> const first = new Chained<'1'>;
  EXPECT_EQ(handled(*first, "a", other), "The transform context cannot accept outp");
  other.createOutputContext();
  other.own = new IOutputContextImpl;
  EXPECT_EQ(handled(*first, "b", other), "b>|name");
  EXPECT_EQ(handled(*first, "c", wrapper), "b>|namec>|name");
}

TEST_F(RouterTriggers, WorkAsCopiesOnTheSameConfiguration) {
  OneTrigger triggers("RouterTrigger");
  triggers.context.addProperty("output.format", "test.output");
  triggers.context.addProperty("output.device", "test.memory");
  RouterTrigger first, assigned;
  first.setContext(&triggers.context);
  assigned = first;
  RouterTrigger copy(first);
  SmartPtr<DataObject> const object = line("a");
  for (RouterTrigger *trigger : {&first, &assigned, &copy}) {
    context.createOutputContext();
    trigger->onNewMessage(object.get(), context);
    ASSERT_EQ(context.findOutputContext()->getOutputDevices().size(), 1u);
    EXPECT_STREQ(context.findOutputContext()->getOutputDevices()[0]->getAsString(), "a|name");
  }
}

TEST_F(RouterTriggers, MayBeEnteredAgainFromWithinAnEvent) {
  SmartPtr<IInternalMessage> const message = new Chained<'2'>;
  TransformContext other;
  for (bool const fails : {false, true}) {
    context.createOutputContext();
    other.createOutputContext();
    Output::inner = [&] {
      EXPECT_EQ(handled(*message, fails ? "*" : "in", other), fails ? "stop/Internal Message" : "in|name");
    };
    EXPECT_EQ(handled(*message, "outer", context), "outer|name");
  }
}

TEST_F(RouterTriggers, FailWhereTheyAreNotConfigured) {
  OneTrigger router("RouterTrigger"), internal("InternalRouterTrigger");
  std::function<void()> const events[] = {[&] { router.onNewMessage(nullptr, none); },
                                          [&] { router.handleBatchStart(none); }, [&] { router.handleBatchEnd(none); }};
  for (auto const &event : events)
    EXPECT_EQ(failureOf<TransformException>(event),
              "cpp/RouterTrigger:16:RouterTrigger: Output format is not configured (null)");
  Properties properties;
  EXPECT_FAILURE(TransformException, router.context.getTriggerObject()->execute(properties),
                 "cpp/RouterTrigger:11:Nothing to execute");
  auto const start = [&] { internal.handleBatchStart(none); };
  EXPECT_EQ(failureOf<TransformException>(start).text, "Property internalmapping.format not found");
  internal.context.addProperty("internalmapping.format", "test.mapping");
  InternalRouterTrigger trigger;
  directory->unbind("test.second");
  for (int i = 0; i < 2; ++i)
    EXPECT_FAILURE(NamingException, trigger.setContext(&internal.context), "Unable to lookup 'test.second'");
  EXPECT_EQ(mapping.made, 2) << "neither of the two is kept alone";
}

TEST_F(RouterTriggers, AllocateNothingForAnEvent) {
  struct Silent : Output {
    void write(DataObject *, TransformContext &) override {}
  };
  BoundFormat<Silent> silent("test.silent");
  OneTrigger triggers("RouterTrigger");
  triggers.context.addProperty("output.format", "test.silent");
  triggers.onNewMessage(nullptr, context);
  AllocationCount const allocations;
  triggers.onNewMessage(nullptr, context);
  EXPECT_EQ(allocations.soFar(), 0);
}

}  // namespace
}  // namespace tavrone

#include "tests/pipeline/Walk.h"

namespace tavrone {
namespace {

// Each step leaves its mark on the object and walks through what stands there.
void mark(DataObject *object, char step, ExceptionHandler *handler) {
  static_cast<Line *>(object)->set<"Text">((textOf(object) + step).c_str());
  walk(handler, textOf(object));
}

struct Validator : ValidationRules {
  using ValidationRules::exceptionHandler;
  void validate(DataObject *object) override { mark(object, 'v', exceptionHandler); }
};
template <char Step>
struct Rule : BusinessProcessingRules {
  using BusinessProcessingRules::exceptionHandler;
  void process(DataObject *object) override { mark(object, Step, exceptionHandler); }
};
// Fails with the phase "Output" on "out...".
struct TestTriggers : Triggers {
  using Triggers::Triggers;
  void handleNewMessage(DataObject *object, TransformContext &) override {
    TransformException failure("trigger");
    failure.setPhase("Output");
    if (textOf(object).find("out") == 0) throw failure;
    mark(object, 't', nullptr);
  }
  void handleBatchStart(TransformContext &) override {}
  void handleBatchEnd(TransformContext &) override {}
};
// Its rules and triggers by their marks: p and q around the validator v, then t.
struct Message : AbstractInternalMessage {
  explicit Message(tvstring const &marks) : AbstractInternalMessage("test"), marks_(marks) {
    if (has('p')) addProcessing("Preprocess", new Rule<'p'>);
    if (has('v')) addValidator("Default", new Validator);
    if (has('q')) addProcessing("Postprocess", new Rule<'q'>);
  }
  bool has(char mark) const { return marks_.find(mark) != tvstring::npos; }
  DataObject *createNormalizedObject() override { return new Line; }
  Triggers *getTriggers() override { return has('t') ? &triggers : nullptr; }
  tvstring marks_;
  TestTriggers triggers{nullptr};
};

TransformContext context;

TEST(InternalMessage, RunsTheStepsOfAMessageInOrderAndClassifiesFailures) {
  struct {
    char const *marks, *start, *trace;
  } const cases[] = {{"pvqt", "", "pvqt"},
                     {"v", "", "v"},
                     {"pvt", "", "pvt"},
                     {"vqt", "!", "!v bad !v/Internal Message"},
                     {"pvt", "out", "outpv trigger/Output"},
                     {"pqt", "", "p Validator by name 'Default' is not defined for the message/Internal Message"}};
  for (auto const &[marks, start, trace] : cases) {
    SmartPtr<Message> const message = new Message(marks);
    SmartPtr<DataObject> const object = line(start);
    std::string failure;
    try {
      message->handleNormalizedObject(object.get(), context);
    } catch (TransformException const &e) {
      failure = " " + str(e.getMessage() + "/" + e.getPhase());
    }
    EXPECT_EQ(textOf(object.get()) + failure, trace);
    EXPECT_EQ(object->getRefCount(), 1);
  }
  auto *const nobodys = new Line;
  nobodys->set<"Text">("freed");
  SmartPtr<Message>(new Message("v"))->handleNormalizedObject(nobodys, context);
}

TEST(InternalMessage, RunsItsRulesInThreeForms) {
  SmartPtr<Message> const message = new Message("pv");
  auto *const validator = static_cast<Validator *>(message->getValidatorByName("Default"));
  auto const validated = valueInThreeForms(
      validator->exceptionHandler, [&](auto t) { message->validate(line(t), context); },
      [&](auto t, auto *handler) { message->validate("Default", line(t), handler, context); },
      [&](auto t) { return message->validate2(line(t), context); });
  EXPECT_TRUE(validated.isNull());
  auto *const rule = static_cast<Rule<'p'> *>(message->getProcessingRuleByName("Preprocess"));
  auto const processed = valueInThreeForms(
      rule->exceptionHandler, [&](auto t) { message->process("Preprocess", line(t), context); },
      [&](auto t, auto *handler) { message->preprocess(line(t), handler, context); },
      [&](auto t) { return message->preprocess2(line(t), context); });
  EXPECT_EQ(textOf(processed.get()), "a!b!p");
}

TEST(InternalMessage, FailsOnWhatItLacks) {
  SmartPtr<Message> const message = new Message("v");
  SmartPtr<DataObject> const object = line("x");
  ByteArrayInputSource source(Binary("x"));
  std::function<void()> const unsupported[] = {
      [&] { message->parse(Binary(), context); }, [&] { message->parse(RawMessage(), context); },
      [&] { message->parse(source, context); }, [&] { message->parse2(Binary(), context); },
      [&] { message->parse2(source, context); }};
  for (auto const &call : unsupported)
    EXPECT_EQ(failureOf<TransformException>(call).text, "unsupported operation parse for internal messages");
  auto const validator = failureOf<TransformRuntimeException>([&] { message->validate2("X", object, context); });
  EXPECT_EQ(validator.text + validator.source,
            "Validator by name 'X' is not defined for the messagecpp/AbstractInternalMessage");
  EXPECT_EQ(validator.line, 60);
  EXPECT_FAILURE(TransformRuntimeException, message->process("X", object, context),
                 "Processing by name 'X' is not defined for the message");
  EXPECT_EQ(message->postprocess2(message->preprocess(object, context), context).value.get(), object.get());
  Properties none;
  EXPECT_EQ(failureOf<TransformException>([&] { message->triggers.invokeTrigger(none); }).line, 13);
}

TEST(InternalMessage, WritesXmlUnlessAskedForTheStoredForm) {
  SmartPtr<Message> const message = new Message("v");
  SmartPtr<IInternalMessage> const wrapped = new BusinessTransactionWrapper(message.get());
  SmartPtr<DataObject> const failure = TransformExceptionInternalMessage().createNormalizedObject();
  for (char const *form : {"", "xml", "tavrone", "TAVRONE"}) {
    context.setProperty("message.format", form);
    tvstring const xml = failure->toXMLString();
    std::string const expected = str(tvstring("tavrone") == form ? DataObjectIO::serialize(failure.get()) : xml);
    ByteArrayOutputDevice device(DeviceInfo("", "", ""));
    message->serialize(failure, device, context);
    int length = 0;
    char const *const bytes = device.getAsBytes(length);
    EXPECT_EQ(std::string(bytes, static_cast<size_t>(length)), expected);
    EXPECT_EQ(str(wrapped->serialize2(failure, context).value), expected);
    EXPECT_EQ(str(wrapped->serializeMessage(failure, context)->getAsString()), expected);
  }
}

TEST(BusinessTransactionWrapper, DoesWhatTheMessageBehindItDoes) {
  // What each operation makes of a line, or fails with.
  auto const seen = [](IInternalMessage &message) {
    using Line = SmartPtr<DataObject> const &;
    ByteArrayInputSource source(Binary("x"));
    std::function<void(Line)> const operations[] = {
        [&](Line o) { message.validate(o, context); },
        [&](Line o) { message.validate("Other", o, context); },
        [&](Line o) { message.validate2(o, context); },
        [&](Line o) { message.validate2("Other", o, context); },
        [&](Line o) { message.preprocess(o, context); },
        [&](Line o) { message.preprocess2(o, context); },
        [&](Line o) { message.postprocess(o, context); },
        [&](Line o) { message.postprocess2(o, context); },
        [&](Line o) { message.process("Postprocess", o, context); },
        [&](Line o) { message.process2("Preprocess", o, context); },
        [&](Line o) { message.handleNormalizedObject(o.get(), context); },
        [&](Line o) { throw TransformException(message.serialize(o, context).toString()); },
        [&](Line o) { throw TransformException(tvstring(message.serializeMessage2(o, context).value->getAsString())); },
        [&](Line) { message.parse(source, context); },
        [&](Line) { message.parse2(source, context); },
        [&](Line) { message.parse(Binary(), context); },
        [&](Line) { message.parse2(Binary(), context); },
        [&](Line) { message.parse(RawMessage(), context); },
    };
    SmartPtr<DataObject> const made = message.createObject();
    std::string out = str(made->toXMLString());
    for (auto const &operation : operations) {
      SmartPtr<DataObject> const object = line("!");
      std::string failure;
      try {
        operation(object);
      } catch (Exception const &e) {
        failure = e.getTraceString().c_str() + str(e.getMessage());
      }
      out += textOf(object.get()) + failure + "\n";
    }
    return out;
  };
  SmartPtr<Message> const message = new Message("pvqt");
  EXPECT_EQ(seen(*SmartPtr<IInternalMessage>(new BusinessTransactionWrapper(message.get()))), seen(*message));
}

}  // namespace
}  // namespace tavrone

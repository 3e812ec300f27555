#include "tests/pipeline/Walk.h"
#include "tests/routing/Routing.h"

namespace tavrone {
namespace {

// Walks through the texts of its inputs.
struct Flow : AbstractMessageFlow {
  Flow() : AbstractMessageFlow("flow") { addOutputPort("port", "protocol", "device"); }
  using AbstractMessageFlow::ensureVariableNotNull, AbstractMessageFlow::getDefaultTransformContext,
      AbstractMessageFlow::getTransformContext, AbstractMessageFlow::handleException,
      AbstractMessageFlow::handleExceptionResult, AbstractMessageFlow::invokeCustomExternalClass;

  SmartPtr<DataObject> execute(SmartPtr<DataObject> const &object, TransformContext &context) override {
    EXPECT_EQ(&getTransformContext(), &context);
    walk(getExceptionHandler(), textOf(object.get()));
    return object;
  }
  ObjectList execute(ObjectList const &inputs, TransformContext &context) override {
    EXPECT_EQ(getDefaultTransformContext(), &context);
    walk(getExceptionHandler(), str(inputs[0]->getBinary()));
    return inputs;
  }
  DataObject *getVariables() override { return &variables; }
  Line variables;
};

TEST(MessageFlow, StopsAtTheFirstFailureOrCollectsThemAndEndsEveryRun) {
  Flow flow;
  TransformContext context;
  CascadingExceptionHandler hosts;
  auto const ended = [&] {
    return flow.getDefaultTransformContext() == nullptr &&
           flow.getExceptionHandler() == ExceptionHandler::DRACONIAN_EXCEPTION_HANDLER;
  };
  struct {
    char const *text, *failure;
    size_t collected;
  } const cases[] = {{"ab", "", 0}, {"", "", 0}, {"a!b!", "bad a!b!", 2}, {"a!*", "bad a!*", 1}, {"*", "stop", 0}};
  for (auto const &c : cases) {
    std::string const text = c.text;
    ObjectList list;
    list.add(new BinaryObject(Binary(c.text)));
    StringInputSource input(c.text);
    auto const expectEnd = [&](auto const &run, bool collects) {
      flow.setExceptionHandler(&hosts);
      std::string failure;
      try {
        run();
      } catch (TransformException const &e) {
        failure = str(e.getMessage());
      }
      bool const stops = text.find('*') != text.npos;
      EXPECT_EQ(failure, !collects ? c.failure : stops ? "stop" : "") << text;
      EXPECT_TRUE(ended()) << text;
    };
    expectEnd([&] { EXPECT_EQ(textOf(flow.run(line(c.text), context).get()), text); }, false);
    expectEnd([&] { EXPECT_EQ(str(flow.run(list, context)[0]->getBinary()), text); }, false);
    expectEnd([&] { EXPECT_EQ(str(flow.run(input, context)[0]->getBinary()), text); }, false);
    expectEnd([&] { EXPECT_EQ(flow.run2(line(c.text), context).exceptions.size(), c.collected); }, true);
    expectEnd([&] { EXPECT_EQ(flow.run2(list, context).exceptions.size(), c.collected); }, true);
  }
  EXPECT_EQ(failureOf<TransformRuntimeException>([&] { flow.getTransformContext(); }).source,
            "cpp/AbstractMessageFlow");
  EXPECT_EQ(flow.getOutputPorts()[0].getName() + flow.getOutputPorts()[0].getOutputDevice(), "portdevice");
}

TEST(MessageFlow, LooksANameUpOnceForAllKinds) {
  Flow flow;
  TransformContext context;
  context.createOutputContext();
  context.setProperty("input.source", "from");
  LookupContextFactory::getLookupContext()->bind("flow.device", new ContextOutputProtocol);
  SmartPtr<IMessage> message;
  {
    BoundFormat<TransformExceptionInternalMessage> bound("flow.message");
    for (int i = 0; i < 2; ++i) message = flow.lookupMessage("flow.message");
    EXPECT_EQ(bound.made, 1);
  }
  EXPECT_EQ(flow.lookupInternalMessage("flow.message").get(), message.get());
  EXPECT_EQ(failureOf<ClassCastException>([&] { flow.lookupOutputProtocol("flow.message"); }).text.find("Cannot cast "),
            0u);
  for (char const *port : {"port", "no port"}) flow.sendToDevice(port, "flow.device", Binary("x"), context);
  LookupContextFactory::getLookupContext()->unbind("flow.device");
  flow.sendToDevice("", "flow.device", Binary("y"), context);
  std::string sent;
  for (ByteArrayOutputDevice *device : context.getOutputContext()->getOutputDevices()) {
    DeviceInfo const &info = device->getDeviceInfo();
    sent += str(info.getMessageIdentifier() + info.getOutputFormatName() + " ") + device->getAsString() + " ";
  }
  EXPECT_EQ(sent, "from x from x from y ");
}

TEST(MessageFlow, PassesOnWhatItsActivitiesMeet) {
  Flow flow;
  EXPECT_FAILURE(FieldParsingException, flow.ensureVariableNotNull(0), "Variable 'Text' cannot be null.");
  flow.variables.set<"Text">("");
  flow.ensureVariableNotNull(0);
  ClassNotFoundException plain("plain");
  EXPECT_FAILURE(Exception, flow.handleException(plain), "plain");
  FieldNotFoundException first("first"), second("second");
  EXPECT_FAILURE(TransformException, flow.handleException(first), "first");
  std::vector<ExceptionDataObject *> failures;
  flow.handleExceptionResult(failures);
  failures = {&first, &second};
  EXPECT_FAILURE(TransformException, flow.handleExceptionResult(failures), "first");
}

struct Echo : IInvokable {
  Object *invoke(ObjectList const &arguments, TransformContext &context) override {
    return new StringObject(arguments[0]->toString() + context.getProperty("key"));
  }
};

TEST(MessageFlow, AndFormulasCallUsersClasses) {
  struct Functions : FunctionDefs {
    using FunctionDefs::invokeCustomExternalClass;
  } functions;
  Flow flow;
  registerClass<Echo>("flow.Echo");
  registerClass<Flow>("flow.Flow");
  ObjectList arguments;
  arguments.add(new StringObject("x"));
  TransformContext context;
  context.setProperty("key", "y");
  SmartPtr<Object> const fromFlow = flow.invokeCustomExternalClass("flow.Echo", arguments, context),
                         fromFormula = functions.invokeCustomExternalClass("flow.Echo", arguments);
  EXPECT_EQ(fromFlow->toString() + fromFormula->toString(), "xyx");
  EXPECT_EQ(failureOf<TransformException>([&] { functions.invokeCustomExternalClass("flow.Flow", arguments); }).source,
            "cpp/CustomClassSupport");
}

}  // namespace
}  // namespace tavrone

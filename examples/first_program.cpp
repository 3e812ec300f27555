#include <tavrone/tavrone.h>

#include <cstdio>

using namespace tavrone;

// Generated code brings records, parsers and writers; this host makes do with a record of its own.
struct Greeting : DataObject {
  explicit Greeting(tvstring const &who) : name(who) {}
  Object *getField(tvstring const &field) const override {
    return new StringObject(field == "MessageType" ? tvstring("HELLO") : name);
  }
  tvstring toXMLString() override { return "<Greeting>" + name + "</Greeting>\n"; }

  tvstring name;
};

// Knows a greeting by its first bytes; null means that somebody else may know the input.
struct GreetingIdentifier : MessageIdentifier {
  DataObject *identifyMessage(InputSource &input) override {
    tvstring const text = input.getAsBinary().toString();
    if (text.find("HELLO ") != 0) return nullptr;
    return new Greeting(text.substr(6));
  }
};

// What the router hands the input to, with the properties of the configuration that matched.
struct GreetingFormat : IInputFormat {
  DataObject *handleInput(InputSource &input, TransformContext &) override {
    return GreetingIdentifier().identifyMessage(input);
  }
  void processInput(InputSource &input, TransformContext &context) override {
    SmartPtr<DataObject> greeting(handleInput(input, context));
    std::printf("%s\n%s", context.getProperty("desk").c_str(), greeting->toXMLString().c_str());
  }
};

int main() {
  LookupContextFactory::getLookupContext()->bind("greetings", new DefaultObjectFactory<GreetingFormat>);

  auto *identification = new MessageIdentificationService;
  identification->registerMessageIdentifer(new GreetingIdentifier);
  auto *greetings = new MessageConfiguration;
  greetings->setMessageType("HELLO");
  greetings->setContextProperty("input.format", "greetings");
  greetings->setContextProperty("desk", "London");

  MessageRouter router(identification);  // owns both
  router.addMessageConfiguration(greetings);
  ByteArrayInputSource input(tvstring("HELLO world"));
  router.processMessage(input);
}

#include <tavrone/tavrone.h>

#include <cstdio>

using namespace tavrone;

// Generated code brings records, parsers and writers; this host makes do with a record of two fields.
char const *NAMES[] = {"MessageType", "Name"};
char const *TYPES[] = {"String", "String"};
DataObjectMetaInfo GREETING("Greeting", NAMES, TYPES, 2);

// Knows a greeting by its first bytes; null means that somebody else may know the input.
struct GreetingIdentifier : MessageIdentifier {
  DataObject *identifyMessage(InputSource &input) override {
    tvstring const text = input.getAsBinary().toString();
    if (text.find("HELLO ") != 0) return nullptr;
    DataObject *greeting = new GenericDataObject(&GREETING, false);
    greeting->setField("MessageType", StringObject("HELLO"));
    greeting->setField("Name", StringObject(text.substr(6)));
    return greeting;
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
  bindFactory<GreetingFormat>("greetings");

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

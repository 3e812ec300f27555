#include <gmock/gmock.h>

#include "tests/routing/Routing.h"

namespace tavrone {
namespace {

using testing::ElementsAre;

class MessageRouterTest : public testing::Test {
 protected:
  MessageRouterTest() { TestFormat::log.clear(); }
  ~MessageRouterTest() noexcept override {}

  static MessageIdentificationService *serviceWith(MessageIdentifier *identifier) {
    auto *service = new MessageIdentificationService;
    service->registerMessageIdentifer(identifier);
    return service;
  }
  MessageConfiguration *add(tvstring const &type, tvstring const &format) {
    auto *configuration = new MessageConfiguration;
    configuration->setMessageType(type);
    if (!format.empty()) configuration->setContextProperty("input.format", format);
    router.addMessageConfiguration(configuration);
    return configuration;
  }
  void process(tvstring const &payload) {
    ByteArrayInputSource input{Binary(payload)};
    router.processMessage(input, context);
  }
  template <class E>
  Failure failure(tvstring const &payload) {
    return failureOf<E>([&] { process(payload); });
  }

  MessageRouter router{serviceWith(new TestIdentifier)};
  TransformContext context;
};

TEST_F(MessageRouterTest, LooksUpEachFormatOnceHoweverTheStreamAlternates) {
  BoundFormat<TestFormat> a("A"), b("B");
  add("a", "A");
  add("b", "B")->setContextProperty("extra", "!");
  add("", "never asked");
  for (char const *payload : {"a", "a", "b", "a", "b"}) process(payload);
  EXPECT_EQ(a.made + b.made, 2);
  EXPECT_THAT(TestFormat::log, ElementsAre("A:a", "A:a+", "B:b!", "A:a+", "B:b!"));
  TestFormat::log.clear();
  ByteArrayInputSource input{Binary("a", 1)};
  for (int i = 0; i < 2; ++i) router.processMessage(input);  // each in a context of its own
  EXPECT_THAT(TestFormat::log, ElementsAre("A:a", "A:a"));
}

TEST_F(MessageRouterTest, MessagesThatNobodyWantsLeaveTheContextUntouched) {
  add("a", "")->setContextProperty("extra", "1");
  EXPECT_EQ(failure<UnrecognizedMessageException>(""), "cpp/MessageRouter:81:Unrecognized message format");
  EXPECT_EQ(failure<UnhandledMessageException>("b"), "cpp/MessageRouter:89:Cannot handle message <Header/>");
  EXPECT_EQ(failure<TransformException>("a"),
            "cpp/MessageRouter:55:input.format property cannot be empty in the message configuration");
  router.clear();
  EXPECT_EQ(failure<UnhandledMessageException>("a"), "cpp/MessageRouter:89:Cannot handle message <Header/>");
  EXPECT_EQ(context.getProperty("extra"), "");
}

TEST_F(MessageRouterTest, AFailedLookUpForgetsNoFormat) {
  BoundFormat<TestFormat> a("A");
  add("a", "A");
  add("x", "Missing")->setContextProperty("extra", "1");
  process("a");
  EXPECT_EQ(failure<NamingException>("x"), "cpp/LookupContextImpl:19:Unable to lookup 'Missing'");
  EXPECT_EQ(context.getProperty("input.format") + context.getProperty("extra"), "Missing1");
  process("a");
  EXPECT_EQ(failure<NamingException>("x"), "cpp/LookupContextImpl:19:Unable to lookup 'Missing'");
  BoundFormat<TestFormat> missing("Missing");
  process("x");
  process("a");
  EXPECT_EQ(a.made + missing.made, 2);
}

TEST_F(MessageRouterTest, AFailureOfTheFormatPassesAsFatalAndTheFormatStays) {
  BoundFormat<TestFormat> a("A");
  add("", "A");
  try {
    process("fail");
    ADD_FAILURE();
  } catch (TransformRuntimeException const &e) {
    EXPECT_EQ(e.getTraceString() + e.getMessage() + " " + e.getSeverity(), "test:1:failed fatal");
  }
  process("a");
  EXPECT_EQ(a.made, 1);
}

TEST_F(MessageRouterTest, ReadsAFieldOnceAMessageWhateverTheNumberOfConfigurations) {
  struct Keeper : MessageIdentifier {
    DataObject *identifyMessage(InputSource &) override { return header.get(); }
    SmartPtr<TestHeader> header{new TestHeader({{"MessageFormat", "FIX"}, {"Desk", "7"}})};
  };
  auto *keeper = new Keeper;
  TestHeader const &header = *keeper->header.get();
  router.setMessageIdentificationService(serviceWith(keeper));
  for (int i = 0; i < 5; ++i) {
    MessageConfiguration *configuration = add("", "A");
    configuration->setMessageFormat("FIX");
    configuration->setProperty("Desk", i < 4 ? "8" : "7");
    configuration->setProperty("Unknown", "");
  }
  ByteArrayInputSource input{Binary()};
  EXPECT_EQ(router.getMessageConfiguration(input)->getContextProperties().getProperty("input.format"), "A");
  EXPECT_EQ(header.reads, (std::map<tvstring, int>{{"MessageFormat", 1}, {"Desk", 1}, {"Unknown", 1}}));
}

TEST_F(MessageRouterTest, OwnsEveryServiceButTheDefaultOne) {
  int const before = TestIdentifier::alive;
  auto *first = serviceWith(new TestIdentifier);
  {
    MessageRouter other(first);
    other.setMessageIdentificationService(first);
    other.setMessageIdentificationService(serviceWith(new TestIdentifier));
    EXPECT_EQ(TestIdentifier::alive, before + 1);
    other.clearMessageIdentificationService();
    EXPECT_EQ(TestIdentifier::alive, before);
    ByteArrayInputSource input{Binary()};
    EXPECT_FAILURE(TransformException, other.processMessage(input), "No message identification service is set");
    other.setMessageIdentificationService(serviceWith(new TestIdentifier));
  }
  EXPECT_EQ(TestIdentifier::alive, before);
  for (int i = 0; i < 2; ++i) {
    MessageRouter onDefault;
    onDefault.setMessageIdentificationService(MessageIdentificationService::getDefault());
    EXPECT_TRUE(onDefault.onInit() && !onDefault.onInit());
  }
  ByteArrayInputSource input{Binary("?", 1)};
  EXPECT_EQ(MessageIdentificationService::getDefault()->identifyMessage(input), nullptr);
}

TEST(MessageConfiguration, ComparesExactlyAndOnlyWhatIsSet) {
  SmartPtr<TestHeader> const header =
      new TestHeader({{"MessageFormat", "FIX"}, {"MessageType", "D"}, {"Desk", "7"}, {"Null", "null"}});
  struct {
    char const *format, *version, *type, *property, *value;
    bool match;
  } const cases[] = {{"", "", "", "", "", true},           {"FIX", "", "D", "", "", true},
                     {"fix", "", "", "", "", false},       {"FI", "", "", "", "", false},
                     {"FIX.", "", "", "", "", false},      {"*", "", "", "", "", false},
                     {"", "4.2", "", "", "", false},       {"", "", "8", "", "", false},
                     {"", "", "", "Desk", "7", true},      {"", "", "", "Desk", "7 ", false},
                     {"", "", "", "Desk", "", false},      {"", "", "", "Null", "", true},
                     {"", "", "", "Absent", "", true},     {"", "", "", "Absent", "7", false},
                     {"FIX", "", "D", "Desk", "8", false}, {"FIX", "4.2", "D", "Desk", "7", false}};
  for (auto const &c : cases) {
    MessageConfiguration configuration;
    configuration.setMessageFormat(c.format);
    configuration.setMessageVersion(c.version);
    configuration.setMessageType(c.type);
    if (*c.property != '\0') {
      configuration.setProperty(c.property, "replaced");
      configuration.setProperty(c.property, c.value);
    }
    header->reads.clear();
    EXPECT_EQ(MessageConfiguration(configuration).isMatch(header.get()), c.match)
        << c.format << '/' << c.version << '/' << c.type << '/' << c.property << '=' << c.value;
  }
  // The last case ended at its first difference.
  EXPECT_EQ(header->reads, (std::map<tvstring, int>{{"MessageFormat", 1}, {"MessageVersion", 1}}));
}

// A header is what its fields say, also where a subclass answers otherwise.
TEST(MessageConfiguration, ReadsTheFieldsOfSubclassesToo) {
  struct Renamed : FIXHeader {
    tvstring getMessageType() override { return "renamed"; }
  };
  FIXHeader plain;
  Renamed renamed;
  for (FIXHeader *header : {&plain, static_cast<FIXHeader *>(&renamed)}) {
    header->setMsgType("D");
    MessageConfiguration configuration;
    configuration.setMessageType("D");
    EXPECT_TRUE(configuration.isMatch(header));
  }
}

}  // namespace
}  // namespace tavrone

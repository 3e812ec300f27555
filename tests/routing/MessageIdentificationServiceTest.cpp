#include "tavrone/context/Factory.h"
#include "tavrone/routing/MessageIdentificationService.h"

#include <gtest/gtest.h>

#include <memory>

#include "tavrone/routing/CartridgeMessageIdentifier.h"
#include "tests/routing/Routing.h"

namespace tavrone {
namespace {

TEST(MessageIdentificationService, AsksInOrderUpToTheFirstAnswerOrFailure) {
  struct Failing : MessageIdentifier {
    DataObject *identifyMessage(InputSource &input) override {
      int length = 0;
      input.getAsBytes(length);
      if (length == 1) raise<TransformException>("broken", "test");
      return nullptr;
    }
  };
  MessageIdentificationService service;
  ByteArrayInputSource one{Binary("1", 1)}, two{Binary("22", 2)};
  EXPECT_EQ(service.identifyMessage(two), nullptr);
  service.registerMessageIdentifer(new Failing);
  auto *behind = new TestIdentifier;
  service.registerMessageIdentifer(behind);
  EXPECT_THROW(service.identifyMessage(one), TransformException);
  EXPECT_EQ(behind->asked, 0);
  SmartPtr<DataObject> const header = service.identifyMessage(two);
  EXPECT_FALSE(header.isNull());
}

TEST(MessageIdentificationService, CopiesShareIdentifiersAndTheLastHearsOfProperties) {
  {
    MessageIdentificationService service, copy(service), assigned;
    assigned.registerMessageIdentifer(new TestIdentifier);
    assigned = copy;
    EXPECT_EQ(TestIdentifier::alive, 0);
    service.setMessageIdentiferProperty("name", "nobody listens");
    auto *first = new TestIdentifier, *last = new TestIdentifier;
    service.registerMessageIdentifer(first);
    for (int i = 0; i < 2; ++i) service.registerMessageIdentifer(last);
    auto const &self = assigned;
    assigned = self;
    assigned.setMessageIdentiferProperty("name", "value");
    EXPECT_EQ(first->properties.getProperty("name") + last->properties.getProperty("name"), "value");
  }
  EXPECT_EQ(TestIdentifier::alive, 0);
}

TEST(MessageIdentificationService, RefusesClassesThatAreNoIdentifiers) {
  struct NullFactory : ObjectFactory {
    Object *create() override { return nullptr; }
  };
  UserClassManager::registerClass("test.Null", new NullFactory);
  registerClass<TestFormat>("test.Format");
  registerClass<TestIdentifier>("test.Identifier");
  MessageIdentificationService service;
  auto const failure = [&](char const *name) {
    return failureOf<ClassCastException>([&] { service.registerMessageIdentifer(name); }).text;
  };
  std::string const target = typeid(MessageIdentifier).name();
  EXPECT_EQ(failure("test.Null"), "Cannot cast NULL to " + target);
  EXPECT_EQ(failure("test.Format"), "Cannot cast " + std::string(typeid(TestFormat).name()) + "* to " + target);
  EXPECT_FAILURE(TransformException, service.registerMessageIdentifer("test.Unknown"),
                 "cpp/UserClassManager:28:Class not found test.Unknown");
  EXPECT_EQ(TestIdentifier::alive, 0);
  service.registerMessageIdentifer("test.Identifier");
  EXPECT_EQ(TestIdentifier::alive, 1);
}

TEST(MessageIdentificationService, ParsesAHeaderThatItsCallerOwns) {
  MessageIdentificationService service;
  service.registerMessageIdentifer(new TestIdentifier);
  EXPECT_EQ(service.parseMessageHeader("", 0), nullptr);
  EXPECT_EQ(service.parseMessageHeader(nullptr, -1), nullptr);
  {
    std::unique_ptr<MessageHeader> const header(service.parseMessageHeader("D8", 1));
    EXPECT_EQ(header->stringform(), "MessageFormat = FIX, Message Version = , Message Type = D");
    EXPECT_EQ(TestHeader::alive, 1);
  }
  EXPECT_EQ(TestHeader::alive, 0);
}

TEST(CartridgeMessageIdentifier, RunsAFormatThatItLooksUpOnce) {
  BoundFormat<TestFormat> format("Cartridge");
  MessageIdentificationService service;
  service.registerMessageIdentifer("CartridgeMessageIdentifier");
  ByteArrayInputSource input{Binary("x", 1)}, bad{Binary("fail", 4)};
  auto const identify = [&] { SmartPtr<DataObject> const header = service.identifyMessage(input); };
  service.setMessageIdentiferProperty("Input.Format", "Cartridge");
  EXPECT_EQ(failureOf<TransformException>(identify),
            "cpp/CartridgeMessageIdentifier:34:The property 'input.format' not set for CartridgeMessageIdentifier");
  service.setMessageIdentiferProperty("input.format", "Nowhere");
  EXPECT_EQ(failureOf<NamingException>(identify), "cpp/LookupContextImpl:19:Unable to lookup 'Nowhere'");
  service.setMessageIdentiferProperty("input.format", "Cartridge");
  identify();
  service.setMessageIdentiferProperty("input.format", "Nowhere");
  SmartPtr<DataObject> const header = service.identifyMessage(input);
  EXPECT_EQ(MessageHeaderAdapter(header.get(), false).getMessageFormat(), "MessageID");
  EXPECT_THROW(service.identifyMessage(bad), TransformRuntimeException);
  EXPECT_EQ(format.made, 1);
}

}  // namespace
}  // namespace tavrone

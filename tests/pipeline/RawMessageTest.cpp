#include "tavrone/pipeline/RawMessage.h"

#include <gtest/gtest.h>

#include "tavrone/core/Parsing.h"
#include "tavrone/pipeline/InputSources.h"
#include "tests/Failure.h"
#include "tests/core/AllocationCount.h"

namespace tavrone {
namespace {

tvstring const ODD_NAME("a\0\xff", 3);

TEST(RawMessage, ShowsPropertiesThenPayloadThenAttachments) {
  StringInputSource message("payload");
  EXPECT_EQ(str(message.toString()), "payload");
  message.setIntProperty("size", 7);
  message.setStringProperty("by", "desk");
  EXPECT_EQ(str(message.toString()), "size:7\nby:desk\npayload");
  RawMessage const inner(new StringInputSource("inner"));
  inner->setStringProperty("hidden", "x");
  message.addAttachment("b", inner);
  message.getAttachment("a");
  EXPECT_EQ(str(message.toString()),
            "size:7\nby:desk\npayload\n-----=a\n-----=b\n" + str(static_cast<Object const &>(*inner).toString()));
  EXPECT_NE(str(message.toString()).find("StringInputSource"), std::string::npos);
}

TEST(RawMessage, KeepsAttachmentsInNameOrder) {
  StringInputSource message("");
  message.removeAttachment("none");
  EXPECT_TRUE(!message.hasAttachment("b") && message.getAttachment("b").isNull() && message.hasAttachment("b"));
  RawMessage const first(new StringInputSource("1")), second(new StringInputSource("2"));
  message.addAttachment("b", first);
  message.addAttachment("b", second);
  message.addAttachment(ODD_NAME, first);
  EXPECT_EQ(message.getAttachment(ODD_NAME), first);
  message.addAttachment("a", nullptr);
  TList<RawMessage> const list = message.getAttachments();
  EXPECT_EQ(str(list.toString()), "[null, 1, 2]");
  EXPECT_EQ(list.indexOf(first), 1);
  EXPECT_EQ(str(message.getAttachmentNames().toString()), "[a, " + str(ODD_NAME) + ", b]");
  EXPECT_EQ(first->getRefCount(), 3);
  message.removeAttachment(ODD_NAME);
  message.removeAllAttachments();
  EXPECT_TRUE(message.getAttachmentMap().empty());
}

// Copies share the maps that exist and have names of their own; the counts show that each map goes once.
TEST(RawMessage, CopiesShareWhatIsThere) {
  RawMessage const attachment(new StringInputSource("attached"));
  {
    StringInputSource message("payload"), assigned("other");
    StringInputSource const bare(message);
    message.setName("name");
    message.setEncoding("UTF-8");
    message.setProperty("key", new IntObject(1));
    message.addAttachment("it", attachment);
    StringInputSource copy(message);
    assigned = message;
    auto const &self = assigned;
    assigned = self;
    assigned = StringInputSource(copy);
    for (StringInputSource *each : {&copy, &assigned}) {
      EXPECT_EQ(str(each->getName() + each->getEncoding() + each->getAsString()), "nameUTF-8payload");
      EXPECT_EQ(each->getIntProperty("key", 0), 1);
      EXPECT_EQ(each->getAttachment("it"), attachment);
      EXPECT_EQ(each->getProperties().get(), message.getProperties().get());
      each->setName("own");
    }
    EXPECT_EQ(str(message.getName()), "name");
    EXPECT_FALSE(StringInputSource(bare).hasAttachment("it"));
    EXPECT_EQ(attachment->getRefCount(), 2);
  }
  EXPECT_EQ(attachment->getRefCount(), 1);
}

TEST(RawMessage, MayBeAttachedToItself) {
  {
    StringInputSource local("local");
    local.addAttachment("self", &local);
    EXPECT_EQ(str(local.getAttachment("self")->getAsString()), "local");
    EXPECT_NE(str(local.toString()).find("\n-----=self\n"), std::string::npos);
  }
  using Step = void (*)(AbstractRawMessage &);
  Step const steps[] = {[](AbstractRawMessage &m) { m.removeAttachment("self"); },
                        [](AbstractRawMessage &m) { m.addAttachment("self", nullptr); },
                        [](AbstractRawMessage &m) { m.removeAllAttachments(); }};
  // The attachment holds the last reference: the message goes with it, in the middle of the call.
  for (Step step : steps) {
    auto *const message = new StringInputSource("counted");
    message->addAttachment("self", message);
    step(*message);
  }
}

TEST(RawMessage, WithoutPropertiesAndAttachmentsAllocatesNoMap) {
  tvstring const text("payload");
  AllocationCount const allocations;
  StringInputSource message(text);
  StringInputSource copy(message);
  copy = message;
  Binary const value = copy.getAsBinary();
  EXPECT_EQ(allocations.soFar(), 0);
}

TEST(RawMessageObject, WrapsAMessageWithoutCopyingIt) {
  RawMessage const message(new StringInputSource("text")), other(new StringInputSource("other"));
  RawMessageObject object(message), target;
  EXPECT_EQ(str(target.toString()), "");
  target.setObject(&object);
  SmartPtr<Object> const clone = object.clone();
  EXPECT_EQ(clone->getRawMessage(), message);
  EXPECT_EQ(str(clone->toString() + clone->getObjectType()), "textRawMessage");
  object.setRawMessage(other);
  EXPECT_EQ(message->getRefCount(), 3);
  RawMessageObject only(new StringInputSource("only"));
  RawMessageObject const &itself = only;
  only.setObject(&itself);
  only = itself;
  TList<RawMessage> list;
  list.add(only.getValue());
  list.set(0, list[0]);
  EXPECT_EQ(str(only.toString() + list[0]->getAsString()), "onlyonly");
  IntObject const number(1);
  EXPECT_FAILURE(TransformException, target.setObject(&number), "Cannot convert Integer to RawMessage");
}

TEST(RawMessageObject, IsMadeOfBytesAndTexts) {
  BinaryObject bytes(Binary("b\0", 2));
  StringObject text("s");
  RawMessageObject raw;
  IntObject number(1);
  for (Object *value : {static_cast<Object *>(&bytes), static_cast<Object *>(&text)}) {
    SmartPtr<Object> const made = Parsing::toRawMessageTypeObject(value);
    EXPECT_EQ(made->getRawMessage()->getAsString(), value->toString());
  }
  for (Object *same : {static_cast<Object *>(&raw), static_cast<Object *>(&number), static_cast<Object *>(nullptr)})
    EXPECT_EQ(Parsing::toRawMessageTypeObject(same), same);
}

}  // namespace
}  // namespace tavrone

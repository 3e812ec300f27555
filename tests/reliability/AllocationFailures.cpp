// Each allocation of the road of a message fails once, alone and with all behind it: nothing is lost, nothing ends the
// program, and what comes next through the same objects is as if nothing had happened.

#include <gtest/gtest.h>

#include "examples/messages/MainframeOrder.h"
#include "examples/mixed/MixedOrders.h"
#include "tests/CountedHeap.h"
#include "tests/Text.h"

namespace tavrone {
namespace {

// Runs the body with its nth allocation, from 0, failing, and all behind it if memory `staysEmpty`. Whether that was
// past its last one. A failure may be swallowed on the way; what the body gives must then be right all the same.
template <class Body>
bool isPast(long nth, bool staysEmpty, Body const &body) {
  heap::failed = false;
  heap::staysEmpty = staysEmpty;
  heap::countdown = nth;
  try {
    body();
  } catch (std::bad_alloc const &) {
  }
  heap::countdown = -1;
  return !heap::failed;
}

// Each allocation within what `attempt` hands to its argument fails in turn. The attempt tells whether all was right,
// and nothing may be left behind.
template <class Attempt>
void failEachAllocation(std::string const &name, Attempt const &attempt) {
  for (bool staysEmpty : {false, true}) {
    bool isDone = false;
    for (long n = 0; !isDone; ++n) {
      long const before = heap::alive;
      bool const isRight = attempt([&](auto const &body) { isDone = isPast(n, staysEmpty, body); });
      ASSERT_EQ(heap::alive - before, 0) << name << ": allocation " << n << (staysEmpty ? " and all behind" : "");
      ASSERT_TRUE(isRight) << name << ": allocation " << n;
    }
  }
}

// The use gives a text that depends on nothing but its input, and leaves nothing behind.
template <class Use>
void expectSound(std::string const &name, Use const &use) {
  std::string const expected = use();
  EXPECT_EQ(use(), expected) << name;
  failEachAllocation(name, [&](auto const &failing) {
    bool isRight = true;
    failing([&] { isRight = use() == expected; });
    return isRight;
  });
}

class AllocationFailure : public testing::Test {
 protected:
  static void SetUpTestSuite() { bindMixedOrders(); }
};

// A host is made, takes the message and goes, all within what fails.
TEST_F(AllocationFailure, OfANewHostLosesNothing) {
  for (std::string const &message : mixedMessages(2))
    expectSound(message, [&] { return MixedOrders().outcome(message); });
}

// A host that has taken messages before fails at one, takes it again, and then another.
TEST_F(AllocationFailure, LeavesAHostThatTakesTheNextMessage) {
  std::vector<std::string> const messages = mixedMessages(12);
  std::vector<std::string> expected;
  for (std::string const &message : messages) expected.push_back(MixedOrders().outcome(message));
  for (size_t i = 0; i < messages.size(); ++i)
    failEachAllocation(messages[i], [&](auto const &failing) {
      size_t const other = (i + 5) % messages.size();
      bool isRight = true;
      MixedOrders host;
      host.outcome(messages[i]);
      failing([&] { isRight = host.outcome(messages[i]) == expected[i]; });
      return isRight && host.outcome(messages[i]) == expected[i] && host.outcome(messages[other]) == expected[other];
    });
}

template <class T>
std::string textsOf(Result<T> const &result) {
  std::string texts;
  for (ExceptionDataObject *record : result.exceptions) texts += str(record->toXMLString());
  return texts;
}

// What is wrong with a message, collected in one pass; what is not wrong in the stored form, and as XML.
template <class Message>
std::string readings(Message &message, Binary const &bytes) try {
  TransformContext context;
  auto const parsed = message.parse2(bytes, context);
  auto const copy = parsed;
  std::string texts = textsOf(copy) + textsOf(message.validate2(parsed.value, context));
  context.setProperty(IMessage::MESSAGE_FORMAT, IMessage::XML_FORM);
  texts += str(message.serialize(parsed.value, context).toString());
  context.setProperty(IMessage::MESSAGE_FORMAT, "tavrone");
  Binary const stored = message.serialize(parsed.value, context);
  return texts + str(message.serialize(message.parse(stored, context), context).toString());
} catch (TransformException const &failure) {
  return str(failure.getMessage());
}

TEST_F(AllocationFailure, WhileFailuresAreCollectedLosesNothing) {
  auto const read = [](char const *name) {
    return FileInputSource(tvstring(TAVRONE_EXAMPLE_DATA) + "/" + name).getAsBinary();
  };
  auto const expectReadings = [](char const *name, auto *made, Binary const &bytes) {
    SmartPtr<std::remove_pointer_t<decltype(made)>> const message(made);
    expectSound(name, [&] { return readings(*message, bytes); });
  };
  expectReadings("tagged", new TaggedOrderLayout("tagged"), read("tagged_orders_broken.txt"));
  expectReadings("trades", new TradeFileLayout("trades"), read("trades_broken.txt"));
  expectReadings("mainframe", new MainframeLayout("mainframe"), read("mainframe_orders_broken.bin"));
  for (std::string const &message : mixedMessages(6)) {
    Binary const bytes(message.data(), message.size());
    if (message[0] == '8') expectReadings("FIX", new NewOrderSingleMessage, bytes);
    if (message[0] == 'A') expectReadings("FCS", new FCSOrderMessage, bytes);
  }
}

// A text made on the way to a call may be what fails, behind the object that the call was to take over.
constinit tvstringliteral const ONE("one"), TWO("two"), MADE("Made"), SHARED("shared"), ATTACHED("attached");

// Lets the directory be as it was, however the scope is left.
struct Unbinding {
  ~Unbinding() {
    directory->unbind(ONE);
    directory->unbind(TWO);
    UserClassManager::registerClass(MADE, nullptr);
  }
  SmartPtr<ILookupContext> directory = LookupContextFactory::getLookupContext();
};

std::string useDirectory() {
  Unbinding scope;
  scope.directory->bind(ONE, new IntObject(1));
  scope.directory->bind(TWO, new ContextOutputProtocol);
  scope.directory->rebind(TWO, new ContextOutputProtocol);
  scope.directory->rebind(ONE, new IntObject(2));
  UserClassManager::registerClass(MADE, new FactoryOf<StringObject>);
  UserClassManager::registerClass(MADE, new FactoryOf<IntObject>);
  SmartPtr<Object> const made = UserClassManager::createInstance(MADE);
  return str(scope.directory->lookup(ONE)->toString() + made->toString());
}

std::string useProperties() {
  PropertyMapImpl map;
  map.setStringProperty("a.text", "text");
  map.setIntProperty("a.number", 1);
  map.setDateProperty("b.date", DateTime());
  map.setProperty(SHARED, new ContextOutputProtocol);
  for (int i = 0; i < 5; ++i) map.setIntProperty("i" + intToString(i), i);
  PropertyMapImpl copy(map);
  SmartPtr<PropertyMapImpl> const other(new PropertyMapImpl);
  other->putProperties(&copy);
  SmartPtr<IPropertyMap> const subset = other->getProperties("a");
  subset->setDoubleProperty("more", 1.5);
  other->removeProperty("b.date");
  StringInputSource source("payload");
  source.setName("name");
  source.setStringProperty("key", "value");
  source.addAttachment(ATTACHED, RawMessage(new StringInputSource("attachment")));
  return str(other->getPropertyNames().toString() + subset->getPropertyNames().toString() +
             source.getAttachmentNames().toString() + source.getStringProperty("key", ""));
}

std::string useContext() {
  TransformContext context;
  context.createOutputContext();
  context.setProperty("a", "1");
  SmartPtr<Object> const held(new ContextOutputProtocol);
  context.setObjectProperty("o", held.get());
  DeviceInfo info("device", "", "");
  context.getOutputContext()->createOutputDevice(info)->write("bytes", 5);
  TransformContext copy(context);
  copy.setProperty("b", "2");
  return str(copy.getProperty("a") + copy.getProperty("b") +
             copy.getOutputContext()->getOutputDevice("device")->getAsString());
}

void addElement(DataObjectSection &section, char const *text) {
  SmartPtr<DataObject> const element(section.createElement());
  element->setField("Text", StringObject(text));
  section.addElement(element.get());
}

std::string useGenericRecord() {
  char const *names[] = {"Text", "Legs", "Head"};
  char const *types[] = {"String", "Section", "DataObject"};
  DataObjectMetaInfo type("Generic", names, types, 3);
  DataObjectMetaInfo const copiedType(type);
  dynamic_cast<SectionMetaInfo &>(*type.getFieldMetaInfo(1)).init(&type, 0, 2);
  dynamic_cast<SectionMetaInfo &>(*type.getFieldMetaInfo(2)).init(&type, 0, 1);
  SmartPtr<GenericDataObject> const record(new GenericDataObject(&type, false));
  record->setField("Text", StringObject("text"));
  for (int i = 0; i < 3; ++i) addElement(*record->getSection(1), "leg");
  addElement(*record->getSection(2), "head");
  SmartPtr<GenericDataObject> const copy(new GenericDataObject(*record));
  std::string text = str(copy->toXMLString());
  try {
    record->getSection(1)->assertConstraints();
  } catch (SectionConstraintException const &failure) {
    text += str(failure.getMessage());
  }
  return text;
}

std::string useFailures() {
  TransformException inner("inner"), outer("outer");
  inner.setContextProperty("key", "value");
  outer.setDetail(inner);
  outer.setFFieldName("Field");
  outer.setDetail(inner);
  std::string text;
  try {
    throw TransformException(outer);
  } catch (TransformException const &caught) {
    SmartPtr<TransformException> const copy(checkedCast<TransformException>(caught.clone()));
    copy->addAll(inner);
    text = str(copy->toXMLString() + copy->getDetail()->getMessage());
  }
  CascadingExceptionHandler handler;
  Result<int> collected;
  handler.onException(&outer);
  collected.exceptions.swap(handler.getExceptions());
  return text + textsOf(collected);
}

std::string useLists() {
  ObjectList list;
  for (int i = 0; i < 25; ++i) list.add(new IntObject(i));
  list.add(StringObject("text"));
  SmartPtr<Object> const copy(list.clone());
  TList<tvstring> texts;
  for (int i = 0; i < 5; ++i) texts.add(intToString(i));
  SmallStringMap map;
  SmartPtr<ObjectRef> const held(new ContextOutputProtocol);
  for (int i = 0; i < 12; ++i) map.put(intToString(i), held.get());
  SmallStringMap const copied(map);
  tvstringbuffer buffer("text");
  for (int i = 0; i < 10; ++i) buffer.append(buffer.toString());
  return str(copy->toString() + texts.toString() + buffer.toString());
}

std::string useNumbers() {
  BigDecimal const third = BigDecimal(1).divide(BigDecimal(3), 40);
  BigDecimalObject const object(third * BigDecimal("123456789012345678901234567890.5"));
  return str(object.toString() + Binary(third.toString()).toBase64String() + DateTime().toString("yyyy-MM-dd"));
}

// The table keeps a name that it was once told, so that no second use is like the first.
TEST_F(AllocationFailure, OfTheNameOfAClassReleasesItsFactory) {
  long const before = heap::alive;
  EXPECT_FALSE(isPast(1, false, [] { UserClassManager::registerClass(ATTACHED, new FactoryOf<StringObject>); }));
  EXPECT_EQ(heap::alive, before);
}

struct SmallFlow : AbstractMessageFlow {
  SmallFlow() : AbstractMessageFlow("small") { addOutputPort("port", "memory", "memory"); }
  SmartPtr<DataObject> execute(SmartPtr<DataObject> const &object, TransformContext &context) override {
    SmartPtr<IInternalMessage> const message = lookupInternalMessage("Order");
    if (Result<SmartPtr<DataObject>> checked = message->validate2(object, context); !checked.exceptions.empty())
      getExceptionHandler()->onException(checked.exceptions.front());
    sendToDevice("port", "memory", Binary(object->toXMLString()), context);
    return object;
  }
  ObjectList execute(ObjectList const &inputs, TransformContext &) override { return inputs; }
  DataObject *getVariables() override { return nullptr; }
};

std::string useFlow() {
  SmartPtr<SmallFlow> const flow(new SmallFlow);
  SmartPtr<DataObject> const order(new Order);
  TransformContext context;
  context.createOutputContext();
  Result<SmartPtr<DataObject>> const result = flow->run2(order, context);
  StringInputSource input("payload");
  return textsOf(result) + str(flow->run(input, context).toString()) +
         context.getOutputContext()->getOutputDevice("memory")->getAsString();
}

TEST_F(AllocationFailure, OfWhatHostsUseLosesNothing) {
  struct {
    char const *name;
    std::string (*use)();
  } const uses[] = {
      {"directory", useDirectory}, {"properties", useProperties}, {"context", useContext}, {"record", useGenericRecord},
      {"failures", useFailures},   {"lists", useLists},           {"numbers", useNumbers}, {"flow", useFlow}};
  for (auto const &[name, use] : uses) expectSound(name, use);
}

}  // namespace
}  // namespace tavrone

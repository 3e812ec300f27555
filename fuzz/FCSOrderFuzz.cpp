// FCS messages of any bytes through the three example messages and the input format. What is read without a failure and
// written is read again to the same text, but for the trailer: a word of its text may be found as its number then, or
// nothing. Objects that are used again show nothing of the message before.
#include "examples/messages/FCSOrder.h"
#include "tests/FuzzInput.h"
#include "tests/Text.h"

namespace {

using namespace examples;

// Keeps what the format hands over.
struct Orders : AbstractInternalMessage {
  Orders() : AbstractInternalMessage("Order") {}
  ~Orders() noexcept(false) override = default;
  DataObject *createNormalizedObject() override { return new Order; }
  void handleNormalizedObject(DataObject *object, TransformContext &) override { text = str(object->toXMLString()); }
  static std::string text;
};
std::string Orders::text;

bool const BOUND = bindFactory<Orders>("Order");

std::string withoutTrailer(Binary const &written) {
  std::string const text = str(written.toString());
  return text.substr(0, text.rfind('\n'));
}

template <class Message>
void readAndWrite(Binary const &bytes) {
  static SmartPtr<Message> const message(new Message);
  TransformContext context;
  auto const parsed = message->parse2(bytes, context);
  for (ExceptionDataObject *record : parsed.exceptions) require(record->getLine() > 0 && record->getColumn() >= 0);
  if (!parsed.exceptions.empty()) return;
  message->validate2(parsed.value, context);
  Binary const written = message->serialize(parsed.value, context);
  if (bytes.toString().find('\r') != tvstring::npos) return;  // one before a written line feed is no text any more
  auto const again = message->parse2(written, context);
  if (again.exceptions.empty())
    require(withoutTrailer(message->serialize(again.value, context)) == withoutTrailer(written));
}

// By an input format and its kept objects.
std::string orderOf(IInputFormat &format, Binary const &bytes) {
  ByteArrayInputSource input(bytes);
  TransformContext context;
  Orders::text.clear();
  try {
    format.processInput(input, context);
  } catch (TransformException const &) {
  }
  return Orders::text;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(uint8_t const *data, size_t size) {
  Binary const bytes(reinterpret_cast<char const *>(data), size);
  readAndWrite<FCSOrderMessage>(bytes);
  readAndWrite<FCSCancelMessage>(bytes);
  readAndWrite<FCSReportMessage>(bytes);

  require(BOUND);
  static SmartPtr<FCSOrderFormat> const kept(new FCSOrderFormat);
  SmartPtr<FCSOrderFormat> const fresh(new FCSOrderFormat);
  require(orderOf(*kept, bytes) == orderOf(*fresh, bytes));
  ByteArrayInputSource input(bytes);
  SmartPtr<DataObject> const identity(FCSOrderIdentifier().identifyMessage(input));
  return 0;
}

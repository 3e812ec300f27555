// Files of the Universal format through the example messages: a real file of the layout that the first byte picks, with
// pieces of the input written over it, or, where nothing is picked, the input itself. Every failure of parsing has its
// place. What is read without a failure and written is read again, and then written as it was.

#include "examples/messages/MainframeOrder.h"
#include "examples/messages/PaymentFileParser.h"
#include "examples/messages/PaymentFileWriter.h"
#include "examples/messages/TaggedOrder.h"
#include "examples/messages/TradeFile.h"
#include "tests/FuzzInput.h"

namespace {

using namespace examples;

struct PaymentMessage : AbstractExternalMessage {
  PaymentMessage() : AbstractExternalMessage("PaymentFile") { addValidator("Default", new CodedRules); }
  ~PaymentMessage() noexcept(false) override = default;
  SmartPtr<ExternalObject> createExternalObject() override {
    SmartPtr<DataObject> const header(new PaymentFileHeader), data(new PaymentFile), trailer(new PaymentFileControl);
    return SmartPtr<ExternalObject>(new ExternalObject(header.get(), data.get(), trailer.get()));
  }
  InputParser *getInputParser() override { return &parser; }
  OutputWriter *getOutputWriter() override { return &writer; }

  PaymentFileParser parser;
  PaymentFileWriter writer;
};

int intProperty(ExceptionDataObject const &failure, tvstring const &name) {
  return Parsing::parseInt(failure.getContextProperty(name));
}

void readAndWrite(AbstractExternalMessage &message, std::string const &text) {
  Binary const bytes(text.data(), text.size());
  TransformContext context;
  auto const parsed = message.parse2(bytes, context);
  for (ExceptionDataObject *failure : parsed.exceptions) {
    int const index = intProperty(*failure, ExceptionObject::getINDEX());
    require(index >= 0 && index <= static_cast<int>(text.size()));
    require(intProperty(*failure, ExceptionObject::getLINE()) > 0);
    require(intProperty(*failure, ExceptionObject::getCOLUMN()) > 0);
  }
  if (!parsed.exceptions.empty()) return;
  message.validate2(parsed.value, context);
  Binary written;
  try {
    written = message.serialize(parsed.value, context);
  } catch (TransformException const &) {
    return;  // a value that no other than the odd form it was read from can hold
  }
  auto const again = message.parse2(written, context);
  if (again.exceptions.empty()) require(message.serialize(again.value, context) == written);
}

template <class Message, class... Name>
void run(std::string const &file, Name... name) {
  static SmartPtr<Message> const message(new Message(name...));
  readAndWrite(*message, file);
}

std::string const &realFile(size_t kind) {
  static auto const read = [](char const *name) {
    FileInputSource source(tvstring(TAVRONE_EXAMPLE_DATA) + "/" + name);
    Binary const bytes = source.getAsBinary();
    return std::string(bytes.data(), bytes.size());
  };
  static std::string const files[] = {read("trades.txt"), read("tagged_orders.txt"), read("mainframe_orders.bin"),
                                      read("payments.txt")};
  return files[kind];
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(uint8_t const *data, size_t size) {
  FuzzInput input(data, size);
  size_t const kind = input.below(4);
  bool const isReal = input.below(4) != 0;
  std::string const file = isReal ? mutated(realFile(kind), input, 24) : input.takeText(size);
  if (kind == 0) run<TradeFileLayout>(file, "delimited");
  if (kind == 1) run<TaggedOrderLayout>(file, "length-preceded");
  if (kind == 2) run<MainframeLayout>(file, "mainframe");
  if (kind == 3) run<PaymentMessage>(file);
  return 0;
}

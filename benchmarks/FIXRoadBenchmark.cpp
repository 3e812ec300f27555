// The whole road of a NewOrderSingle to a delimited line: identified by the default service, routed, parsed,
// BodyLength, CheckSum and fields checked, mapped to the internal order, checked again, mapped to the line, written by
// the Universal format, and delivered to a device in memory; the host uses its context again. Beside it QuickFIX, with
// a dictionary and typed getters, the same checks and the same line by one snprintf. Limits: 0.25 of its time, 10
// allocations a message (named below, where they happen). Messages are of many lengths, so that no branch can be
// learned; both must write the same lines.

#include <cmath>
#include <string>
#include <string_view>
#include <vector>

#include "benchmarks/Allocations.h"
#include "benchmarks/peers/QuickFIXPeer.h"
#include "examples/messages/NewOrderSingleMessage.h"
#include "examples/messages/OrderLayout.h"
#include "examples/orderdesk/DeskOrder.h"

namespace examples {
namespace {

constexpr size_t MESSAGES = 256;

// clang-format off
struct OrderLine : Record<"OrderLine",
                          Field<"OrderID", tvstring>,
                          Field<"Account", tvstring>,
                          Field<"Symbol", tvstring>,
                          Field<"Side", char>,
                          Field<"Quantity", int>,
                          Field<"Price", double>,
                          Field<"TradeDate", DateOnly>,
                          Field<"TransactTime", DateTime>,
                          Field<"AllOrNone", bool>,
                          Field<"Text", tvstring>> {};
// clang-format on

constinit tvstringliteral const LINE_FEED("\n");
constinit tvstringliteral const BAR("|");
constinit tvstringliteral const YES("Y");
constinit tvstringliteral const NO("N");
constinit tvstringliteral const DAY("yyyyMMdd");
constinit tvstringliteral const MEMORY("memory");
constinit tvstringliteral const TIME("yyyyMMdd-HH:mm:ss");

// What the sender of a message is asked for. Unlike the rules of the examples these make no text for a check that
// holds.
class WireRules : public FieldsValidationRules {
 public:
  using FieldsValidationRules::validateData;
  using FieldsValidationRules::validateHeader;
  using FieldsValidationRules::validateTrailer;
  void validateHeader(DataObject *header) override {
    bodyLength_ = FIXWire::bodyLengthOf(*checkedCast<FIXHeader>(header));
  }
  void validateData(DataObject *, DataObject *data) override {
    NewOrderSingle const &order = *checkedCast<NewOrderSingle>(data);
    char const side = order.get<"Side">();
    double const quantity = order.get<"OrderQty">();
    check(order.get<"OrdType">() == '2', "Limit", "OrdType");
    check(side == '1' || side == '2', "BuyOrSell", "Side");
    check(quantity > 0 && quantity == std::floor(quantity), "WholeShares", "OrderQty");
    check(order.get<"Price">() > 0, "PriceOfLimit", "Price");
  }
  void validateTrailer(DataObject *object) override {
    TagValueTrailer const &trailer = *checkedCast<TagValueTrailer>(object);
    check(trailer.get<"CountedBodyLength">() == bodyLength_, "BodyLength", "BodyLength");
    check(trailer.get<"CountedCheckSum">() == Parsing::parseInt(trailer.get<"CheckSum">()), "CheckSum", "CheckSum");
  }

 private:
  void check(bool holds, char const *rule, char const *field) {
    if (!holds) throwFieldInvalid(rule, field);
  }

  int bodyLength_ = -1;  // of the header that was checked last
};

class WireOrder : public AbstractExternalMessage {
 public:
  WireOrder() : AbstractExternalMessage("NewOrderSingle") { addValidator("Default", new WireRules); }
  SmartPtr<ExternalObject> createExternalObject() override { return SmartPtr<ExternalObject>(new ExternalObject); }
  InputParser *getInputParser() override { return &parser_; }
  OutputWriter *getOutputWriter() override { return nullptr; }

 private:
  NewOrderSingleParser parser_;
};

class WireOrderFormat : public AbstractInputFormat {
 public:
  WireOrderFormat() : AbstractInputFormat("Order"), external_(message_.createExternalObject()) {}
  void parseInput(InputSource &input, DataObject *order, TransformContext &context) override {
    message_.getInputParser()->parse(external_.get(), input, context);
    message_.validate(SmartPtr<DataObject>(external_.get()), context);
    rules_.mapFields(external_.get(), order, context);
  }
  DataObject *createInputObject() override { return new Order; }

 private:
  WireOrder message_;
  SmartPtr<ExternalObject> external_;
  NewOrderSingleToOrder rules_;
};

// Allocation 4: the message's text.
class OrderLineWriter : public OrderLayoutWriter {
 public:
  void writeData(DataObject *data, TransformContext &) override {
    OrderLine const &order = *checkedCast<OrderLine>(data);
    line_.restart(LINE_FEED, true, true);
    line_.startSequence();
    write<"OrderID">(order);
    write<"Account">(order);
    write<"Symbol">(order);
    write<"Side">(order);
    write<"Quantity">(order);
    write<"Price">(order, '.');
    write<"TradeDate">(order, DAY);
    write<"TransactTime">(order, TIME);
    write<"AllOrNone">(order);
    write<"Text">(order);
    line_.endSequence();
    appendRecord(line_);
  }

 private:
  // A null field is its delimiter alone. The notation is what the value's type asks for beside the delimiter.
  template <FixedText Name, class... Notation>
  void write(OrderLine const &order, Notation const &...notation) {
    if (order.isNull<Name>())
      line_.appendDelimitedNullField(BAR);
    else if constexpr (Name.view() == "AllOrNone")
      line_.appendDelimitedField(order.get<Name>(), BAR, YES, NO);
    else
      line_.appendDelimitedField(order.get<Name>(), notation..., BAR);
  }

  UniversalOutputRecord line_;  // serves one line after the other
};

class OrderToLine : public OutputMappingRules {
 protected:
  void mapDataFields0(DataObject *source, DataObject *data) override {
    copy<"OrderID", "Account", "Symbol", "Side", "Quantity", "Price", "TradeDate", "TransactTime", "AllOrNone", "Text">(
        *checkedCast<Order>(source), *checkedCast<OrderLine>(data));
  }

 private:
  template <FixedText... Fields>
  static void copy(Order const &from, OrderLine &to) {
    (copyField<Fields, Fields>(to, from), ...);
  }
};

// Allocation 3: the line's record.
class OrderLineOutputFormat : public AbstractOutputFormat {
 public:
  DataObject *createRecordData() override { return new OrderLine; }
  void mapData(DataObject *source, DataObject *data, TransformContext &context) override {
    rules_.mapDataFields(source, data, context);
  }
  OutputWriter *getOutputWriter() override { return &writer_; }

 private:
  OrderLineWriter writer_;
  OrderToLine rules_;
};

// A host as examples/orderdesk.cpp is one, with its internal order. Allocations 1 and 2: the header, and the bytes that
// its fields are views on. Allocations 5 and 6: the device, and its buffer. The payload is shared with the host, and
// parser and internal message fill their objects again.
class Road {
 public:
  Road() {
    static bool const bound = bindFactory<DeskOrder>("Order") && bindFactory<WireOrderFormat>("NewOrderSingle") &&
                              bindFactory<OrderLineOutputFormat>("desk.output");
    benchmark::DoNotOptimize(bound);
    LookupContextFactory::getLookupContext()->rebind(MEMORY, new ContextOutputProtocol);
    auto *const configuration = new MessageConfiguration;
    configuration->setMessageFormat("FIX");
    configuration->setMessageType("D");
    configuration->setContextProperty(TransformContext::INPUT_FORMAT_PROPERTY, "NewOrderSingle");
    router_.addMessageConfiguration(configuration);
  }

  void identify(tvstring const &message) {
    StringInputSource input(message);
    benchmark::DoNotOptimize(router_.getMessageConfiguration(input));
  }

  // The line, good until the next call.
  std::string_view take(tvstring const &message) {
    context_.createOutputContext();
    StringInputSource input(message);
    router_.processMessage(input, context_);
    int length = 0;
    char const *const line = context_.getOutputContext()->getOutputDevice(MEMORY)->getAsBytes(length);
    return {line, static_cast<size_t>(length)};
  }

 private:
  MessageRouter router_;  // with the default service
  TransformContext context_;
};

std::vector<std::string> messages() {
  FIXValues values;
  QuickFIXPeer peer;
  std::vector<std::string> made;
  for (size_t i = 0; i < MESSAGES; ++i) made.push_back(peer.write(NewOrderSingleValues<std::string>(values)));
  return made;
}

std::vector<tvstring> texts() {
  std::vector<tvstring> made;
  for (std::string const &message : messages()) made.emplace_back(message.data(), message.size());
  return made;
}

bool bothWriteTheSame() {
  Road road;
  QuickFIXPeer peer;
  for (std::string const &message : messages())
    if (road.take(tvstring(message.data(), message.size())) != peer.orderLine(message)) return false;
  return true;
}

// One message each time, in turn.
template <class Messages, class Take>
void takeInTurn(benchmark::State &state, Messages const &all, Take const &take) {
  for (auto const &message : all) take(message);
  size_t next = 0;
  run(state, [&] { take(all[next++ % MESSAGES]); });
}

void byRoad(benchmark::State &state) {
  if (!bothWriteTheSame()) return state.SkipWithError("The lines differ");
  Road road;
  takeInTurn(state, texts(), [&](tvstring const &text) { benchmark::DoNotOptimize(road.take(text).data()); });
}
// What of that passes before the message is parsed.
void identified(benchmark::State &state) {
  Road road;
  takeInTurn(state, texts(), [&](tvstring const &text) { road.identify(text); });
}
void byPeer(benchmark::State &state) {
  QuickFIXPeer peer;
  takeInTurn(state, messages(),
             [&](std::string const &text) { benchmark::DoNotOptimize(peer.orderLine(text).data()); });
}
BENCHMARK(byRoad)->Name("NewOrderSingle to a line/processMessage");
BENCHMARK(identified)->Name("NewOrderSingle to a line/of that identified");
BENCHMARK(byPeer)->Name("NewOrderSingle to a line/QuickFIX");

}  // namespace
}  // namespace examples

BENCHMARK_MAIN();

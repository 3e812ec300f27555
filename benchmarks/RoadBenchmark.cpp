// The whole road of a message: identified, parsed, checked, mapped to a second internal message, checked again, mapped
// to the parts of its output format, rendered, and delivered to a device in memory; the host uses its context again.
// Limits: 8 allocations a message (named below, where they happen), and 500 ns beside the format's own parser and
// writer. The other benchmarks are the stages of that road, so that their sum tells where its time goes.

#include "benchmarks/Allocations.h"
#include "benchmarks/Trade.h"
#include "tavrone/tavrone.h"

namespace tavrone {
namespace {

using Booking = TradeRecord<"Booking">;

// A header that answers for itself, as those of the wire formats do.
struct TradeHeader : Record<"TradeHeader", Field<"MessageType", tvstring>>, MessageHeader {
  tvstring getMessageFormat() override { return format; }
  tvstring getMessageType() override { return get<"MessageType">(); }
  tvstring getMessageVersion() override { return tvstring(); }
  tvstring getHeaderField(tvstring const &) override { return tvstring(); }
  bool tellsItsFields() const override { return true; }
  static inline tvstringliteral const format{"TRADE"};
};

// Knows a trade by its first field. Allocations 1 and 2: the header, and its text.
struct TradeIdentifier : MessageIdentifier {
  DataObject *identifyMessage(InputSource &input) override {
    int length = 0;
    char const *const bytes = input.getAsBytes(length);
    if (length < 4) return nullptr;
    auto *const header = new TradeHeader;
    header->set<"MessageType">(tvstring(bytes, 4));
    return header;
  }
};

// Allocation 3: the copy of the payload on which the fields are views.
struct TradeFormat : AbstractInputFormat {
  TradeFormat() : AbstractInputFormat("road.trade") {}
  void parseInput(InputSource &input, DataObject *object, TransformContext &) override {
    parseTrade(input, *static_cast<Trade *>(object));
  }
  DataObject *createInputObject() override { return new Trade; }
};

template <class From, class To>
void mapTrade(From const &from, To &to) {
  to.template set<"A">(from.template get<"A">());
  to.template set<"B">(from.template get<"B">());
  to.template set<"C">(from.template get<"C">());
  to.template set<"D">(from.template get<"D">());
  to.template set<"E">(from.template get<"E">());
  to.template set<"F">(from.template get<"F">());
  to.template set<"G">(from.template get<"G">());
  to.template set<"H">(from.template get<"H">());
  to.template set<"I">(from.template get<"I">());
  to.template set<"J">(from.template get<"J">());
}

// Allocation 4: the mapped object.
struct TradeToBooking : AbstractNormalizedObjectMappingFormat {
  TradeToBooking() : AbstractNormalizedObjectMappingFormat("road.trade", "road.booking") {}
  using AbstractNormalizedObjectMappingFormat::map;
  DataObject *map(DataObject *source, TransformContext &) override {
    auto *const booking = new Booking;
    mapTrade(*static_cast<Trade *>(source), *booking);
    return booking;
  }
};

// Allocation 6: the text.
struct BookingWriter : AbstractSimpleOutputWriter {
  void initMessage() override { end = line; }
  void writeHeader(DataObject *, TransformContext &) override {}
  void writeData(DataObject *data, TransformContext &) override {
    Trade const &booking = *static_cast<Trade *>(data);
    put(booking.get<"A">());
    put(booking.get<"B">());
    put(booking.get<"C">());
    put(booking.get<"D">());
    put(booking.get<"E">());
    put(booking.get<"F">());
    put(booking.get<"G">());
    put(booking.get<"H">());
    put(booking.get<"I">());
    put(booking.get<"J">());
  }
  void writeTrailer(DataObject *, TransformContext &) override {}
  tvstring endMessage() override { return tvstring(line, static_cast<size_t>(end - line)); }

  void put(tvstring const &text) {
    if (text.length() + 1 > static_cast<size_t>(line + sizeof line - end)) std::abort();
    end = std::copy(text.data(), text.data() + text.length(), end);
    *end++ = '|';
  }
  void put(int number) {
    char digits[16];
    t_itoa(number, digits);
    put(tvstringliteral(digits));
  }

  char line[1000];
  char *end = line;
};

// Allocation 5: the output format's own part.
struct BookingFormat : AbstractOutputFormat {
  DataObject *createRecordData() override { return new Trade; }
  void mapData(DataObject *source, DataObject *data, TransformContext &) override {
    mapTrade(*static_cast<Booking *>(source), *static_cast<Trade *>(data));
  }
  OutputWriter *getOutputWriter() override { return &writer; }
  BookingWriter writer;
};

template <class T>
struct QuantityIsPositive : ValidationRules {
  void validate(DataObject *object) override {
    if (static_cast<T *>(object)->template get<"B">() <= 0) throwFieldInvalid("Positive", "B");
  }
};

// What every internal message of the road has: a check, and one trigger.
struct RoadTriggers : Triggers {
  explicit RoadTriggers(IInternalMessage *message)
      : Triggers(SmartPtr<IInternalMessage>(new BusinessTransactionWrapper(message))) {}
  void handleNewMessage(DataObject *object, TransformContext &message) override {
    getTriggerObject(context)->onNewMessage(object, message);
  }
  void handleBatchStart(TransformContext &) override {}
  void handleBatchEnd(TransformContext &) override {}
  TriggerContextImpl context;
};
template <class T>
struct RoadMessage : AbstractInternalMessage {
  explicit RoadMessage(char const *trigger) : AbstractInternalMessage("road"), triggers(this) {
    addValidator("Default", new QuantityIsPositive<T>);
    triggers.context.init(triggers.getBusinessTransaction(), trigger, "road");
  }
  DataObject *createNormalizedObject() override { return new T; }
  Triggers *getTriggers() override { return &triggers; }
  RoadTriggers triggers;
};
struct TradeMessage : RoadMessage<Trade> {
  TradeMessage() : RoadMessage("InternalRouterTrigger") {
    triggers.context.addProperty("internalmapping.format", "road.mapping");
  }
};
// Allocations 7 and 8: the device, and its buffer.
struct BookingMessage : RoadMessage<Booking> {
  BookingMessage() : RoadMessage("RouterTrigger") {
    triggers.context.addProperty("output.format", "road.output");
    triggers.context.addProperty("output.device", "road.memory");
  }
};

// Everything that a stage needs, as the stages before it leave it.
struct Road {
  Road() {
    static bool const bound = bindFactory<TradeFormat>("road.input") && bindFactory<TradeMessage>("road.trade") &&
                              bindFactory<TradeToBooking>("road.mapping") &&
                              bindFactory<BookingMessage>("road.booking") && bindFactory<BookingFormat>("road.output");
    benchmark::DoNotOptimize(bound);
    directory->rebind("road.memory", new ContextOutputProtocol);
    router.addMessageConfiguration(configuration("FIX ", "never looked up"));
    router.addMessageConfiguration(configuration("ACME", "road.input"));
    context.createOutputContext();
    context.setProperty("output.device", "road.memory");
    parseTrade(*source, *trade);
    mapTrade(*trade, *booking);
  }

  static MessageIdentificationService *newService() {
    auto *const service = new MessageIdentificationService;
    service->registerMessageIdentifer(new TradeIdentifier);
    return service;
  }
  static MessageConfiguration *configuration(char const *type, char const *format) {
    auto *const made = new MessageConfiguration;
    made->setMessageFormat("TRADE");
    made->setMessageType(type);
    made->setContextProperty("input.format", format);
    return made;
  }

  SmartPtr<ILookupContext> directory = LookupContextFactory::getLookupContext();
  MessageRouter router{newService()};
  SmartPtr<IRawMessage> source{new ByteArrayInputSource(Binary(TRADE_LINE, sizeof TRADE_LINE - 1))};
  TransformContext context;
  SmartPtr<Trade> trade{new Trade};
  SmartPtr<Booking> booking{new Booking};
};

void BM_ProcessMessage(benchmark::State &state) {
  Road road;
  run(state, [&] {
    road.context.createOutputContext();
    road.router.processMessage(*road.source, road.context);
  });
  int length = 0;
  road.context.getOutputContext()->getOutputDevice("road.memory")->getAsBytes(length);
  if (length != sizeof TRADE_LINE - 1) state.SkipWithError("no output");
}
BENCHMARK(BM_ProcessMessage);

// The stages. Those of the format's own code are what the limit of the road stands beside.

void BM_Identify(benchmark::State &state) {
  Road road;
  run(state, [&] { benchmark::DoNotOptimize(road.router.getMessageConfiguration(*road.source)); });
}
BENCHMARK(BM_Identify);

void BM_FormatParses(benchmark::State &state) {
  Road road;
  run(state, [&] {
    road.trade->reset();
    parseTrade(*road.source, *road.trade);
  });
}
BENCHMARK(BM_FormatParses);

void BM_RulesOfTwoMessages(benchmark::State &state) {
  Road road;
  SmartPtr<AbstractInternalMessage> const first(new TradeMessage), second(new BookingMessage);
  run(state, [&] {
    first->processAll(road.trade.get(), road.context);
    second->processAll(road.booking.get(), road.context);
  });
}
BENCHMARK(BM_RulesOfTwoMessages);

void BM_MapToBooking(benchmark::State &state) {
  Road road;
  SmartPtr<INormalizedObjectMappingFormat> const mapping(new TradeToBooking);
  run(state, [&] { SmartPtr<DataObject> const mapped(mapping->map(road.trade.get(), road.context)); });
}
BENCHMARK(BM_MapToBooking);

// The second mapping, without its writer, and the device.
void BM_DeliverRenderedText(benchmark::State &state) {
  struct Writer : SimpleOutputWriter {
    tvstring writeExternal(ExternalObject &, TransformContext &) override { return text; }
    tvstring const text = TRADE_LINE;
  };
  struct Rendered : BookingFormat {
    OutputWriter *getOutputWriter() override { return &rendered; }
    Writer rendered;
  };
  Road road;
  SmartPtr<IOutputFormat> const format(new Rendered);
  run(state, [&] {
    road.context.createOutputContext();
    format->write(road.booking.get(), road.context);
  });
}
BENCHMARK(BM_DeliverRenderedText);

void BM_FormatWrites(benchmark::State &state) {
  Road road;
  BookingWriter writer;
  ExternalObject parts(nullptr, road.trade.get(), nullptr);
  run(state, [&] { benchmark::DoNotOptimize(writer.writeExternal(parts, road.context)); });
}
BENCHMARK(BM_FormatWrites);

// What is left of the road: two triggers, each with its context and the message's output.
void BM_TwoTriggersAlone(benchmark::State &state) {
  struct Nothing : IOutputFormat {
    void setOutputDevice(OutputDevice *) override {}
    void write(DataObject *, TransformContext &) override {}
  };
  static bool const bound = bindFactory<Nothing>("road.nothing");
  benchmark::DoNotOptimize(bound);
  Road road;
  RoadMessage<Trade> message("RouterTrigger");
  message.triggers.context.addProperty("output.format", "road.nothing");
  run(state, [&] {
    for (int i = 0; i < 2; ++i) message.triggers.onNewMessage(road.trade.get(), road.context);
  });
}
BENCHMARK(BM_TwoTriggersAlone);

}  // namespace
}  // namespace tavrone

BENCHMARK_MAIN();

#pragma once

// A host that takes orders of every wire format through one router and writes each in its own format again: what the
// proofs of reliability and the benchmark of threads run. A file of orders goes through a second internal message, by
// an InternalRouterTrigger. Included by the one source of a program.

#include <fstream>
#include <memory>
#include <string>
#include <vector>

#include "examples/messages/FCSOrderOutput.h"
#include "examples/messages/NewOrderSingleMessage.h"
#include "examples/messages/SIACOrder.h"
#include "examples/messages/TaggedOrder.h"
#include "examples/messages/TradeFile.h"
#include "examples/orderdesk/DeskOrder.h"

namespace tavrone {

using namespace examples;

constexpr char const *WIRE = "mixed.wire";

// The numbers that messages are sent with stay the same, so that an output depends on its input alone.
struct SameFIXNumber : OrderToNewOrderSingle {
  void mapHeaderFields0(DataObject *source, DataObject *header) override {
    OrderToNewOrderSingle::mapHeaderFields0(source, header);
    checkedCast<FIXHeader>(header)->setMsgSeqNum(1);
  }
};
struct SameSIACNumber : OrderToSIACOrder {
  void mapHeaderFields0(DataObject *source, DataObject *header) override {
    OrderToSIACOrder::mapHeaderFields0(source, header);
    checkedCast<SIACCanonicalHeader>(header)->setCFT_MsgSeqNo(1);
  }
};
struct SameFCSNumber : OrderToFCSOrder {
  void mapTrailerFields0(DataObject *, DataObject *, DataObject *trailer) override {
    checkedCast<FCSTrailer>(trailer)->set<"ISN">("000001");
  }
};

template <FixedText... Names, class To, class From>
void copySame(To &to, From const &from) {
  (copyField<Names, Names>(to, from), ...);
}

// A tagged order as the Universal format writes it, from the internal one.
struct OrderToTagged : OutputMappingRules {
  void mapDataFields0(DataObject *source, DataObject *target) override {
    auto const &order = *checkedCast<Order>(source);
    TaggedOrder &to = checkedCast<TaggedOrderFile>(target)->section<"Orders">().add();
    copySame<"OrderID", "Account", "Symbol", "Side", "Quantity", "Price", "TradeDate", "TransactTime", "AllOrNone",
             "Text">(to, order);
    for (Leg const &leg : order.section<"Legs">()) to.section<"Legs">().add() = leg;
  }
};

using MixedFIXOutput = OrderOutputFormat<FIXHeader, NewOrderSingle, NewOrderSingleWriter, SameFIXNumber>;
using MixedSIACOutput = OrderOutputFormat<SIACCanonicalHeader, SIACOrder, SIACOrderWriter, SameSIACNumber>;
struct MixedFCSOutput : OrderOutputFormat<FCSOrderHeader, FCSOrder, FCSOrderWriter, SameFCSNumber> {
  DataObject *createTrailer() override { return new FCSTrailer; }
};
struct MixedTaggedOutput : AbstractOutputFormat {
  DataObject *createRecordData() override { return new TaggedOrderFile; }
  void mapData(DataObject *source, DataObject *data, TransformContext &context) override {
    rules.mapDataFields(source, data, context);
  }
  OutputWriter *getOutputWriter() override { return &writer; }
  OrderToTagged rules;
  TaggedOrderWriter writer;
};

// The input channel of a layout of the Universal format: a whole file, for the internal message "OrderList".
template <class Layout, class Data>
struct LayoutFormat : AbstractInputFormat {
  LayoutFormat() : AbstractInputFormat("OrderList"), layout(new Layout(tvstringliteral("layout"))) {}
  void parseInput(InputSource &input, DataObject *object, TransformContext &context) override {
    SmartPtr<DataObject> const parsed = layout->parse(input, context);
    layout->validate(parsed, context);
    mapping.mapFields(checkedCast<ExternalObject>(parsed.get()), object, context);
  }
  DataObject *createInputObject() override { return new OrderList; }

  SmartPtr<Layout> layout;
  OrderMapping<Data> mapping;
};
using TaggedFormat = LayoutFormat<TaggedOrderLayout, TaggedOrderFile>;
using TradesFormat = LayoutFormat<TradeFileLayout, TradeFile>;

// Knows the two layouts by their first bytes.
struct LayoutIdentifier : MessageIdentifier {
  using Identity = Record<"LayoutIdentity", Field<"MessageFormat", tvstring>>;

  DataObject *identifyMessage(InputSource &input) override {
    tvstring const text = input.getAsBinary().toString();
    bool const isTagged = text.substr(0, 9).find("ORD:") == 5;
    if (!isTagged && text.find("H,") != 0) return nullptr;
    auto identity = std::make_unique<Identity>();
    identity->set<"MessageFormat">(isTagged ? "TAGGED" : "TRADES");
    return identity.release();
  }
};

// The first order of a file stands for it.
struct ListToOrder : AbstractNormalizedObjectMappingFormat {
  ListToOrder() : AbstractNormalizedObjectMappingFormat("OrderList", "Order") {}
  using AbstractNormalizedObjectMappingFormat::map;
  DataObject *map(DataObject *source, TransformContext &) override {
    auto &orders = checkedCast<OrderList>(source)->section<"Orders">();
    if (orders.isEmpty()) throw TransformException("No order left");
    return new Order(*orders.begin());
  }
};

struct MixedTriggers : Triggers {
  explicit MixedTriggers(IInternalMessage *message)
      : Triggers(SmartPtr<IInternalMessage>(new BusinessTransactionWrapper(message))) {}
  // A trigger that writes to memory in the format of that name.
  void init(TriggerContextImpl &trigger, char const *format) {
    trigger.init(getBusinessTransaction(), "RouterTrigger", format);
    trigger.addProperty(TransformContext::OUTPUT_FORMAT_PROPERTY, format);
    trigger.addProperty(TransformContext::OUTPUT_DEVICE_PROPERTY, "memory");
  }
  void handleBatchStart(TransformContext &) override {}
  void handleBatchEnd(TransformContext &) override {}
};

// Each order leaves in the format that the context names.
struct OutputTriggers : MixedTriggers {
  explicit OutputTriggers(IInternalMessage *message) : MixedTriggers(message) {
    for (int i = 0; i < COUNT; ++i) init(triggers[i], FORMATS[i]);
  }
  void handleNewMessage(DataObject *object, TransformContext &context) override {
    tvstring const wire = context.getProperty(WIRE);
    for (int i = 0; i < COUNT; ++i)
      if (wire == FORMATS[i]) getTriggerObject(triggers[i])->onNewMessage(object, context);
  }

  static constexpr int COUNT = 4;
  static constexpr char const *FORMATS[COUNT] = {"mixed.FIX", "mixed.SIAC", "mixed.FCS", "mixed.tagged"};
  TriggerContextImpl triggers[COUNT];
};
struct MixedOrder : DeskOrder {
  Triggers *getTriggers() override { return &triggers; }
  OutputTriggers triggers{this};
};

struct ListTriggers : MixedTriggers {
  explicit ListTriggers(IInternalMessage *message) : MixedTriggers(message) {
    trigger.init(getBusinessTransaction(), "InternalRouterTrigger", "ToOrder");
    trigger.addProperty("internalmapping.format", "ListToOrder");
    trigger.addProperty(WIRE, "mixed.tagged");
  }
  void handleNewMessage(DataObject *object, TransformContext &context) override {
    getTriggerObject(trigger)->onNewMessage(object, context);
  }
  TriggerContextImpl trigger;
};
struct OrderListMessage : AbstractInternalMessage {
  OrderListMessage() : AbstractInternalMessage("OrderList") { addValidator(DEFAULT_VALIDATOR, new NoChecks); }
  DataObject *createNormalizedObject() override { return new OrderList; }
  Triggers *getTriggers() override { return &triggers; }

  struct NoChecks : ValidationRules {
    using ValidationRules::validate;
    void validate(DataObject *) override {}
  };
  ListTriggers triggers{this};
};

// What all hosts share. Called once, before the first.
inline void bindMixedOrders() {
  SmartPtr<ILookupContext> const directory = LookupContextFactory::getLookupContext();
  if (directory->lookup("memory") != nullptr) return;  // by an earlier call
  bindFactory<MixedOrder>("Order");
  bindFactory<OrderListMessage>("OrderList");
  bindFactory<ListToOrder>("ListToOrder");
  bindFactory<NewOrderSingleFormat>("NewOrderSingle");
  bindFactory<SIACOrderFormat>("SIACOrder");
  bindFactory<FCSOrderFormat>("FCSOrder");
  bindFactory<TaggedFormat>("Tagged");
  bindFactory<TradesFormat>("Trades");
  bindFactory<MixedFIXOutput>("mixed.FIX");
  bindFactory<MixedSIACOutput>("mixed.SIAC");
  bindFactory<MixedFCSOutput>("mixed.FCS");
  bindFactory<MixedTaggedOutput>("mixed.tagged");
  directory->bind("memory", new ContextOutputProtocol);
}

// One router with its context. Belongs to one thread.
class MixedOrders {
 public:
  MixedOrders() : router_(newIdentification()) {
    struct Road {
      char const *format, *type, *inputFormat, *wire;
    };
    constexpr Road ROADS[] = {{"FIX", "D", "NewOrderSingle", "mixed.FIX"},
                              {"Canonical", "", "SIACOrder", "mixed.SIAC"},
                              {"TAGGED", "", "Tagged", "mixed.tagged"},
                              {"TRADES", "", "Trades", "mixed.tagged"},
                              {"FCS", "Order", "FCSOrder", "mixed.FCS"}};
    for (Road const &road : ROADS) {
      auto configuration = std::make_unique<MessageConfiguration>();
      configuration->setMessageFormat(road.format);
      configuration->setMessageType(road.type);
      configuration->setContextProperty(TransformContext::INPUT_FORMAT_PROPERTY, road.inputFormat);
      configuration->setContextProperty(WIRE, road.wire);
      router_.addMessageConfiguration(configuration.release());
    }
  }

  // Borrowed until the next message. A message that is refused leaves as a TransformException.
  std::string_view process(std::string_view message) {
    context_.createOutputContext();
    ByteArrayInputSource input(Binary(message.data(), message.size()));
    router_.processMessage(input, context_);
    int length = 0;
    char const *const bytes = context_.getOutputContext()->getOutputDevice("memory")->getAsBytes(length);
    return {bytes, static_cast<size_t>(length)};
  }
  // The output, or what was wrong with the message.
  std::string outcome(std::string_view message) {
    try {
      return std::string(process(message));
    } catch (TransformException const &failure) {
      tvstring const text = failure.getMessage();
      return "refused: " + std::string(text.data(), text.length());
    }
  }

 private:
  // FCS comes last: its identifier reads two lines of whatever it is asked for.
  static MessageIdentificationService *newIdentification() {
    auto service = std::make_unique<MessageIdentificationService>();
    service->registerMessageIdentifer("FIXMessageIdentifier");
    service->registerMessageIdentifer("SIACCanonicalMessageIdentifier");
    service->registerMessageIdentifer(new LayoutIdentifier);
    service->registerMessageIdentifer(new FCSOrderIdentifier);
    return service.release();
  }

  MessageRouter router_;
  TransformContext context_;
};

// The first messages of the example files, at most `count` of each: a line that tells its fields is a message, other
// lines are one up to a blank line. Good ones and broken ones.
inline std::vector<std::string> mixedMessages(size_t count) {
  std::vector<std::string> messages;
  for (char const *name : {"fix_session", "siac_orders", "fcs_messages", "tagged_orders", "tagged_orders_broken",
                           "trades", "trades_broken"}) {
    std::ifstream file(std::string(TAVRONE_EXAMPLE_DATA "/") + name + ".txt");
    std::string message;
    size_t taken = 0;
    for (std::string line; taken < count && std::getline(file, line);) {
      bool const isWhole = line.find('\x01') != std::string::npos || line.find("ORD:") == 5;
      if (!isWhole && !line.empty()) message += line + '\n';
      if (isWhole || (line.empty() && !message.empty())) {
        messages.push_back(isWhole ? line : message);
        message.clear();
        ++taken;
      }
    }
    if (!message.empty()) messages.push_back(message);
  }
  return messages;
}

}  // namespace tavrone

#include "examples/orderdesk/Formats.h"

#include "examples/messages/FCSOrderOutput.h"
#include "examples/messages/FixedOrder.h"
#include "examples/messages/NewOrderSingleMessage.h"
#include "examples/messages/OrderLineMessage.h"
#include "examples/messages/SIACOrder.h"
#include "examples/orderdesk/DeskOrder.h"

namespace examples {

namespace {

constexpr char const *OUTPUT = "desk.output";
constexpr char const *UNKNOWN = "unknown";

// Its messages end here.
class SessionFormat : public IInputFormat {
 public:
  DataObject *handleInput(InputSource &, TransformContext &) override { return nullptr; }
  void processInput(InputSource &, TransformContext &) override {}
};

class NoOutputFormat : public AbstractOutputFormat {
 public:
  void write(DataObject *, TransformContext &) override {}
  OutputWriter *getOutputWriter() override { return nullptr; }
};

[[maybe_unused]] bool const BOUND =
    bindFactory<DeskOrder>("Order") && bindFactory<NewOrderSingleFormat>("NewOrderSingle") &&
    bindFactory<SessionFormat>(SESSION_FORMAT) && bindFactory<SIACOrderFormat>("SIACOrder") &&
    bindFactory<FCSOrderFormat>("FCSOrder") && bindFactory<OrderLineFormat>("OrderLine") &&
    bindFactory<FixedOrderFormat>("FixedOrder");

// Gives every look-up the same object: the output's sequence numbers go on, whichever format an order came in.
template <class Format>
class OutputFactory : public ObjectFactory {
 public:
  Object *create() override {
    if (format_.isNull()) format_ = new Format;
    return format_.get();
  }

 private:
  SmartPtr<IOutputFormat> format_;
};

template <class Format>
void bindOutput() {
  LookupContextFactory::getLookupContext()->bind(OUTPUT, new OutputFactory<Format>);
}

// An FCS message ends with a trailer without a line feed, and a blank line parts it from the next.
constexpr Target TARGETS[] = {
    {"fix", bindOutput<NewOrderSingleOutputFormat>, "", "", "", true},
    {"siac", bindOutput<SIACOrderOutputFormat>, "", "", "", true},
    {"fcs", bindOutput<FCSOrderOutputFormat>, "", "\n\n", "", false},
    {"delimited", bindOutput<OrderLineOutputFormat>, "", "", "", false},
    {"fixed", bindOutput<FixedOrderOutputFormat>, "", "", "", false},
    {"xml", bindOutput<SimpleXMLOutputFormat>, "<Orders>\n", "", "</Orders>\n", false},
};

// One kind of message and what is done with it: the format and the type of its header, the input format, and the name
// in reports. FIX messages of other types are refused.
struct Road {
  char const *format, *type, *inputFormat, *name;
};
constexpr Road ROADS[] = {{"FIX", "D", "NewOrderSingle", "FIX"},        {"FIX", "0", SESSION_FORMAT, "FIX session"},
                          {"FIX", "1", SESSION_FORMAT, "FIX session"},  {"FIX", "2", SESSION_FORMAT, "FIX session"},
                          {"FIX", "3", SESSION_FORMAT, "FIX session"},  {"FIX", "4", SESSION_FORMAT, "FIX session"},
                          {"FIX", "5", SESSION_FORMAT, "FIX session"},  {"FIX", "A", SESSION_FORMAT, "FIX session"},
                          {"Canonical", "", "SIACOrder", "SIAC"},       {"FIXED-ORDER", "", "FixedOrder", "fixed"},
                          {"ORDER-LINE", "", "OrderLine", "delimited"}, {"FCS", "Order", "FCSOrder", "FCS"}};

}  // namespace

Target const *findTarget(std::string_view name) {
  for (Target const &target : TARGETS)
    if (name == target.name) return &target;
  return nullptr;
}

std::string targetNames() {
  std::string names;
  for (Target const &target : TARGETS) names.append(names.empty() ? "" : ", ").append(target.name);
  return names;
}

void bindNoTarget() {
  bindOutput<NoOutputFormat>();
}

// FCS comes last: it has no mark of its own, and its identifier reads two lines of whatever it is asked for.
MessageIdentificationService *newIdentificationService() {
  auto *service = new MessageIdentificationService;
  service->registerMessageIdentifer("FIXMessageIdentifier");
  service->registerMessageIdentifer("SIACCanonicalMessageIdentifier");
  service->registerMessageIdentifer(new FixedOrderIdentifier);
  service->registerMessageIdentifer(new OrderLineIdentifier);
  service->registerMessageIdentifer(new FCSOrderIdentifier);
  return service;
}

void addConfigurations(MessageRouter &router) {
  for (Road const &road : ROADS) {
    auto *configuration = new MessageConfiguration;
    configuration->setMessageFormat(road.format);
    configuration->setMessageType(road.type);
    configuration->setContextProperty(TransformContext::INPUT_FORMAT_PROPERTY, road.inputFormat);
    configuration->setContextProperty(FORMAT_NAME_PROPERTY, road.name);
    router.addMessageConfiguration(configuration);
  }
}

tvstring formatNameOf(DataObject *header) {
  if (header == nullptr) return UNKNOWN;
  tvstring const format = MessageHeaderAdapter(header, false).getMessageFormat();
  for (Road const &road : ROADS)
    if (format == road.format) return road.name;
  return UNKNOWN;
}

}  // namespace examples

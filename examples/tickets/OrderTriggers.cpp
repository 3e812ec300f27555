#include "examples/tickets/OrderTriggers.h"

#include "examples/tickets/Ticket.h"

namespace examples {

namespace {

// The library's trigger with one thing more. What stands behind a trigger sees the trigger's properties and none of the
// message's; here it is to know where the message came from.
template <class Router>
class SourceKeeping : public Router {
 public:
  SourceKeeping() = default;
  ~SourceKeeping() noexcept(false) override = default;

  void onNewMessage(DataObject *object, TransformContext &message) override {
    this->transformContext_.setProperty(TransformContext::INPUT_SOURCE_PROPERTY,
                                        message.getProperty(TransformContext::INPUT_SOURCE_PROPERTY));
    Router::onNewMessage(object, message);
  }
};

constexpr char const *TO_FORMAT = "SourceKeepingRouterTrigger";
constexpr char const *TO_MESSAGE = "SourceKeepingInternalRouterTrigger";

[[maybe_unused]] bool const REGISTERED = registerClass<SourceKeeping<RouterTrigger>>(TO_FORMAT) &&
                                         registerClass<SourceKeeping<InternalRouterTrigger>>(TO_MESSAGE);

void configureDelivery(TriggerContextImpl &context, SmartPtr<IInternalMessage> const &ticket, char const *name,
                       char const *device) {
  context.init(ticket, TO_FORMAT, name);
  context.addProperty(TransformContext::OUTPUT_FORMAT_PROPERTY, "TicketLine");
  context.addProperty(TransformContext::OUTPUT_FORMAT_SUFFIX, "ticket");
  context.addProperty(TransformContext::OUTPUT_DEVICE_PROPERTY, device);
}

}  // namespace

OrderTriggers::OrderTriggers(SmartPtr<IInternalMessage> const &order) : Triggers(order) {
  toTicket_.init(order, TO_MESSAGE, "ToTicket");
  toTicket_.addProperty("internalmapping.format", "OrderToTicket");
}

void OrderTriggers::handleNewMessage(DataObject *object, TransformContext &context) {
  getTriggerObject(toTicket_)->onNewMessage(object, context);
}
void OrderTriggers::handleBatchStart(TransformContext &context) {
  getTriggerObject(toTicket_)->onBatchStart(context);
}
void OrderTriggers::handleBatchEnd(TransformContext &context) {
  getTriggerObject(toTicket_)->onBatchEnd(context);
}

TicketTriggers::TicketTriggers(SmartPtr<IInternalMessage> const &ticket) : Triggers(ticket) {
  configureDelivery(blocks_, ticket, "Blocks", "file");
  configureDelivery(others_, ticket, "Others", "memory");
}

void TicketTriggers::handleNewMessage(DataObject *object, TransformContext &context) {
  TriggerContextImpl &chosen = isBlock(*checkedCast<Ticket>(object)) ? blocks_ : others_;
  getTriggerObject(chosen)->onNewMessage(object, context);
}
void TicketTriggers::handleBatchStart(TransformContext &context) {
  for (TriggerContextImpl *trigger : {&blocks_, &others_}) getTriggerObject(*trigger)->onBatchStart(context);
}
void TicketTriggers::handleBatchEnd(TransformContext &context) {
  for (TriggerContextImpl *trigger : {&blocks_, &others_}) getTriggerObject(*trigger)->onBatchEnd(context);
}

}  // namespace examples

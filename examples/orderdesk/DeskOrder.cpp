#include "examples/orderdesk/DeskOrder.h"

#include "examples/messages/Checks.h"

namespace examples {

namespace {

constexpr double MAX_PRICE = 100'000;

constexpr Check<Order> CHECKS[] = {
    {"DESK-01", "OrderNumber", "OrderID", [](Order const &o) { return !o.get<"OrderID">().empty(); }},
    {"DESK-02", "BuyOrSell", "Side", [](Order const &o) { return o.get<"Side">() == 'B' || o.get<"Side">() == 'S'; }},
    {"DESK-03", "QuantityAboveZero", "Quantity", [](Order const &o) { return o.get<"Quantity">() > 0; }},
    {"DESK-04", "PriceLimit", "Price",
     [](Order const &o) { return o.isNull<"Price">() || (o.get<"Price">() > 0 && o.get<"Price">() <= MAX_PRICE); }},
    {"DESK-05", "TradedThatDay", "TradeDate",
     [](Order const &o) { return o.get<"TradeDate">().getDatePortion() == o.get<"TransactTime">().getDatePortion(); }},
};

}  // namespace

void DeskDefaults::process(DataObject *object) {
  Order &order = *checkedCast<Order>(object);
  if (order.isNull<"TransactTime">())
    order.set<"TransactTime">(order.get<"TradeDate">());
  else if (order.isNull<"TradeDate">())
    order.set<"TradeDate">(DateTime(order.get<"TransactTime">().getDatePortion(), Time()));
  if (order.isNull<"AllOrNone">()) order.set<"AllOrNone">(false);
}

DeskTriggers::DeskTriggers(SmartPtr<IInternalMessage> const &order) : Triggers(order) {
  output_.init(order, "RouterTrigger", "Output");
  output_.addProperty(TransformContext::OUTPUT_FORMAT_PROPERTY, "desk.output");
  output_.addProperty(TransformContext::OUTPUT_DEVICE_PROPERTY, "memory");
}

void DeskTriggers::handleNewMessage(DataObject *object, TransformContext &context) {
  getTriggerObject(output_)->onNewMessage(object, context);
}
void DeskTriggers::handleBatchStart(TransformContext &context) {
  getTriggerObject(output_)->onBatchStart(context);
}
void DeskTriggers::handleBatchEnd(TransformContext &context) {
  getTriggerObject(output_)->onBatchEnd(context);
}

// The triggers hold a handle on the message that does not count: objects that count each other never go.
DeskOrder::DeskOrder()
    : AbstractInternalMessage("Order"), triggers_(SmartPtr<IInternalMessage>(new BusinessTransactionWrapper(this))) {
  addProcessing(PREPROCESSING_NODE_NAME, new DeskDefaults);
  addValidator(DEFAULT_VALIDATOR, new TableChecks<Order>(CHECKS));
}

}  // namespace examples

#include "examples/order_desk/OrderTriggers.h"

namespace examples {

namespace {

// From this amount on the middle office wants a file; what is smaller stays with the host, in memory.
BigDecimal const &blockTrade() {
  static BigDecimal const amount(250'000);
  return amount;
}

}  // namespace

// Without the message: it holds its triggers, and counted objects that hold each other never go.
OrderTriggers::OrderTriggers() : Triggers(SmartPtr<IInternalMessage>()) {}

void OrderTriggers::handleNewMessage(DataObject *object, TransformContext &context) {
  if (mapping_.isNull()) {
    SmartPtr<ILookupContext> const directory = LookupContextFactory::getLookupContext();
    mapping_ = directory->lookupNormalizedObjectMappingFormat("OrderToTicket");
    format_ = directory->lookupOutputFormat("Ticket");
  }
  SmartPtr<DataObject> const ticket(mapping_->map(object, context));
  bool const isBlock = checkedCast<Order>(object)->get<"Notional">() >= blockTrade();
  context.setProperty(TransformContext::OUTPUT_FORMAT_PROPERTY, "Ticket");
  context.setProperty(TransformContext::OUTPUT_FORMAT_SUFFIX, "ticket");
  context.setProperty(TransformContext::OUTPUT_DEVICE_PROPERTY, isBlock ? "file" : "memory");
  format_->write(ticket.get(), context);
}

}  // namespace examples

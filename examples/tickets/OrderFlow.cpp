#include "examples/tickets/OrderFlow.h"

#include "examples/messages/OrderLineParser.h"

namespace examples {

namespace {

[[maybe_unused]] bool const BOUND = bindFactory<OrderFlow>("OrderFlow");

}  // namespace

OrderFlow::OrderFlow() : AbstractMessageFlow("OrderFlow") {
  addOutputPort("blocks", "file", "file");
  addOutputPort("others", "memory", "memory");
}

ObjectList OrderFlow::execute(ObjectList const &inputs, TransformContext &context) {
  activityEnteredTrace("Parse", "order line");
  Result<SmartPtr<DataObject>> const order = OrderLineParser::parse2(inputs[0]->getBinary().toString(), context);
  ObjectList sent;
  if (reported(order.exceptions, ExceptionObject::INPUT_PHASE)) return sent;
  SmartPtr<DataObject> const ticket = execute(order.value, context);
  if (!ticket.isNull()) sent.add(ticket.get());
  return sent;
}

SmartPtr<DataObject> OrderFlow::execute(SmartPtr<DataObject> const &object, TransformContext &context) {
  if (!passes("Order", object, context)) return nullptr;
  SmartPtr<DataObject> const ticket = lookupMessageMapping("OrderToTicketMapping")->map(object, context);
  if (!passes("Ticket", ticket, context)) return nullptr;
  try {
    send(*checkedCast<Ticket>(ticket.get()), context);
  } catch (TransformException &failure) {
    failure.fillPhase(ExceptionObject::OUTPUT_PHASE);
    onException(failure);
    return nullptr;
  }
  return ticket;
}

bool OrderFlow::passes(tvstring const &messageName, SmartPtr<DataObject> const &object, TransformContext &context) {
  activityEnteredTrace("Process", messageName);
  SmartPtr<IInternalMessage> const message = lookupInternalMessage(messageName);
  tvstring const &phase = ExceptionObject::INTERNAL_MESSAGE_PHASE;
  return !reported(message->preprocess2(object, context).exceptions, phase) &&
         !reported(message->validate2(object, context).exceptions, phase) &&
         !reported(message->postprocess2(object, context).exceptions, phase);
}

bool OrderFlow::reported(std::vector<ExceptionDataObject *> const &failures, tvstring const &phase) {
  for (ExceptionDataObject *failure : failures) {
    failure->fillPhase(phase);
    getExceptionHandler()->onException(failure);
  }
  return !failures.empty();
}

void OrderFlow::send(Ticket &ticket, TransformContext &context) {
  activityEnteredTrace("Send", "ticket");
  SmartPtr<TicketHeader> const header(new TicketHeader);
  header->set<"Source">(context.getProperty(TransformContext::INPUT_SOURCE_PROPERTY));
  ExternalObject object(header.get(), &ticket, nullptr);
  tvstring const text = writer_.writeExternal(object, context);
  context.setProperty(TransformContext::OUTPUT_FORMAT_SUFFIX, "ticket");
  if (isBlock(ticket))
    sendToDevice("blocks", "file", text, context);
  else
    sendToDevice("others", "memory", text, context);
}

}  // namespace examples

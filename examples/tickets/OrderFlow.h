#pragma once

#include "examples/tickets/Ticket.h"

namespace examples {

// The road of an order once more, as a message flow: the activities of a generated flow call by hand what the router,
// the formats and the triggers otherwise call. Run collecting, it tells of all that is wrong with an order at once.
class OrderFlow : public AbstractMessageFlow {
 public:
  OrderFlow();
  ~OrderFlow() noexcept(false) override = default;

  // From an Order to the Ticket that was sent; null if a failure was collected.
  SmartPtr<DataObject> execute(SmartPtr<DataObject> const &object, TransformContext &context) override;
  // From a line of text; an empty list if a failure was collected.
  ObjectList execute(ObjectList const &inputs, TransformContext &context) override;
  // The flow needs none.
  DataObject *getVariables() override { return nullptr; }

 private:
  // Whether the object has passed the rules of the internal message.
  bool passes(tvstring const &messageName, SmartPtr<DataObject> const &object, TransformContext &context);
  // Whether there were failures; they go to the handler of the run.
  bool reported(std::vector<ExceptionDataObject *> const &failures, tvstring const &phase);
  void send(Ticket &ticket, TransformContext &context);

  TicketWriter writer_;
};

}  // namespace examples

#pragma once

#include "examples/tickets/OrderTriggers.h"

namespace examples {

// The internal message "Ticket", with rules of its own: whatever makes tickets, orders or something else, feeds it.

// "Preprocess": a ticket is settled two working days after its trade.
class TicketSettlement : public BusinessProcessingRules {
 public:
  using BusinessProcessingRules::process;
  void process(DataObject *object) override;
};

class TicketMessage : public AbstractInternalMessage {
 public:
  TicketMessage();
  ~TicketMessage() noexcept(false) override = default;

  DataObject *createNormalizedObject() override;
  Triggers *getTriggers() override { return &triggers_; }

 private:
  TicketTriggers triggers_;
};

}  // namespace examples

#pragma once

#include "examples/messages/Order.h"
#include "examples/tickets/OrderTriggers.h"

namespace examples {

// The internal message "Order" with its rules. Whatever reads orders feeds it, and it decides what an order is.

// "Preprocess": fills what the sender may leave out.
class OrderDefaults : public BusinessProcessingRules {
 public:
  using BusinessProcessingRules::process;
  void process(DataObject *object) override;
};

// "Postprocess": what follows from the fields of an order that is valid.
class OrderNotional : public BusinessProcessingRules {
 public:
  using BusinessProcessingRules::process;
  void process(DataObject *object) override;
};

class OrderMessage : public AbstractInternalMessage {
 public:
  OrderMessage();
  ~OrderMessage() noexcept(false) override = default;

  DataObject *createNormalizedObject() override { return new Order; }
  Triggers *getTriggers() override { return &triggers_; }

 private:
  OrderTriggers triggers_;
};

}  // namespace examples

#pragma once

#include "examples/messages/Order.h"

namespace examples {

// What happens to an order that passed its rules: it becomes a ticket, and the ticket goes to a device. "output.device"
// in the context of the message tells afterwards to which.
class OrderTriggers : public Triggers {
 public:
  OrderTriggers();
  ~OrderTriggers() noexcept(false) override = default;

  void handleNewMessage(DataObject *object, TransformContext &context) override;
  // Orders come one by one.
  void handleBatchStart(TransformContext &) override {}
  void handleBatchEnd(TransformContext &) override {}

 private:
  // Looked up at the first order.
  SmartPtr<INormalizedObjectMappingFormat> mapping_;
  SmartPtr<IOutputFormat> format_;
};

}  // namespace examples

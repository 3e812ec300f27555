#pragma once

#include "examples/messages/Order.h"

namespace examples {

// What the design tool generates for the triggers of the two internal messages: a context for each configured trigger,
// and the choice of those that fire. Orders and tickets come one by one, so batches matter to their triggers alone.

// An order that passed its rules becomes a ticket, which is an internal message, too.
class OrderTriggers : public Triggers {
 public:
  explicit OrderTriggers(SmartPtr<IInternalMessage> const &order);
  ~OrderTriggers() noexcept(false) override = default;

  void handleNewMessage(DataObject *object, TransformContext &context) override;
  void handleBatchStart(TransformContext &context) override;
  void handleBatchEnd(TransformContext &context) override;

 private:
  TriggerContextImpl toTicket_;
};

// A ticket goes to a device: a block to a file of its own, the rest to memory.
class TicketTriggers : public Triggers {
 public:
  explicit TicketTriggers(SmartPtr<IInternalMessage> const &ticket);
  ~TicketTriggers() noexcept(false) override = default;

  void handleNewMessage(DataObject *object, TransformContext &context) override;
  void handleBatchStart(TransformContext &context) override;
  void handleBatchEnd(TransformContext &context) override;

 private:
  TriggerContextImpl blocks_;
  TriggerContextImpl others_;
};

}  // namespace examples

#pragma once

#include "examples/messages/Order.h"

namespace examples {

// "Preprocess": fills what a wire format does not tell. The date and the time of an order follow from each other; one
// that is known by its date alone, as in FCS, is of that day's first moment.
class DeskDefaults : public BusinessProcessingRules {
 public:
  using BusinessProcessingRules::process;
  void process(DataObject *object) override;
};

// Every order that passed its rules goes to the output format "desk.output", and from there to memory.
class DeskTriggers : public Triggers {
 public:
  explicit DeskTriggers(SmartPtr<IInternalMessage> const &order);
  ~DeskTriggers() noexcept(false) override = default;

  void handleNewMessage(DataObject *object, TransformContext &context) override;
  void handleBatchStart(TransformContext &context) override;
  void handleBatchEnd(TransformContext &context) override;

 private:
  TriggerContextImpl output_;
};

// The internal message "Order" as the desk has it: whatever an order came in as is checked by the same rules.
class DeskOrder : public AbstractInternalMessage {
 public:
  DeskOrder();
  ~DeskOrder() noexcept(false) override = default;

  DataObject *createNormalizedObject() override { return new Order; }
  Triggers *getTriggers() override { return &triggers_; }

 private:
  DeskTriggers triggers_;
};

}  // namespace examples

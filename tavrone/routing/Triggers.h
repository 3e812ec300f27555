#pragma once

#include "tavrone/core/Properties.h"
#include "tavrone/pipeline/IMessage.h"
#include "tavrone/routing/TriggerContext.h"

namespace tavrone {

// What happens to the messages of one internal message type after validation. Generated code decides which of the
// configured triggers fire, and in which order. A failure in one leaves the event; those behind it don't run.
class TAVRONE_API Triggers {
 public:
  explicit Triggers(SmartPtr<IInternalMessage> businessTransaction);
  Triggers(Triggers const &) = default;
  Triggers &operator=(Triggers const &) = default;

  // Runs an on-demand trigger, which no event fires, and returns what it gives. Raises TransformException "No on-demand
  // trigger matching the condition specified" where there is none, as here.
  virtual Object *invokeTrigger(Properties &properties);

  void onNewMessage(DataObject *object, TransformContext &context) { handleNewMessage(object, context); }
  SmartPtr<IInternalMessage> getBusinessTransaction() const { return businessTransaction_; }

  // A new trigger, the caller's, by its class name. Raises TransformException, catalogue key SRT100, for a class that
  // is no trigger, and frees what was made.
  ITrigger *createTriggerInstance(tvstring const &className);
  // The trigger that the context keeps, borrowed: made, and told its context, at the first call. A trigger that fails
  // at its context is released and not kept.
  ITrigger *getTriggerObject(AbstractTriggerContext &context);

  // The generated choice: fires the triggers by getTriggerObject.
  virtual void handleNewMessage(DataObject *object, TransformContext &context) = 0;
  // For generated code; nothing in the library calls them.
  virtual void handleBatchStart(TransformContext &context) = 0;
  virtual void handleBatchEnd(TransformContext &context) = 0;

  virtual ~Triggers() noexcept(false);

 private:
  SmartPtr<IInternalMessage> businessTransaction_;
};

}  // namespace tavrone

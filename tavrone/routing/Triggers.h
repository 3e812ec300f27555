#pragma once

#include "tavrone/core/Properties.h"
#include "tavrone/pipeline/IMessage.h"

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

  virtual void handleNewMessage(DataObject *object, TransformContext &context) = 0;
  // For generated code; nothing in the library calls them.
  virtual void handleBatchStart(TransformContext &context) = 0;
  virtual void handleBatchEnd(TransformContext &context) = 0;

  virtual ~Triggers() noexcept(false);

 private:
  SmartPtr<IInternalMessage> businessTransaction_;
};

}  // namespace tavrone

#pragma once

#include "tavrone/context/IService.h"
#include "tavrone/context/TransformContext.h"
#include "tavrone/core/Properties.h"
#include "tavrone/dataobject/DataObject.h"

namespace tavrone {

class TriggerContext;

// What happens to a message after it has been validated: where mapping and output start. Made once for each trigger
// context and kept there; serves one message at a time.
class TAVRONE_API ITrigger : public IService {
 public:
  ~ITrigger() noexcept(false) override;

  // Borrows both for the event. Failures leave it and end the message's event.
  virtual void onNewMessage(DataObject *object, TransformContext &context) = 0;
  // Called once, before the first event. The context is borrowed: it outlives the trigger that it keeps.
  virtual void setContext(TriggerContext *context) = 0;
  virtual void onBatchStart(TransformContext &context) = 0;
  virtual void onBatchEnd(TransformContext &context) = 0;
  // Runs an on-demand trigger; the result is the caller's.
  virtual Object *execute(Properties &properties) = 0;
};

}  // namespace tavrone

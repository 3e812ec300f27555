#pragma once

#include "tavrone/pipeline/IMessageMapping.h"
#include "tavrone/routing/AbstractTrigger.h"

namespace tavrone {

// The two ways in which a message's life usually ends. Both triggers are known by their class names as soon as the
// library is loaded; neither catches anything.

// Writes the message to the output format that the property "output.format" names, with the trigger's own context: so
// "output.device" and "input.source" are the trigger's, too.
class TAVRONE_API RouterTrigger : public AbstractTrigger {
 public:
  RouterTrigger() = default;
  RouterTrigger(RouterTrigger const &other);
  RouterTrigger &operator=(RouterTrigger const &) = default;
  ~RouterTrigger() noexcept(false) override;

  void onNewMessage(DataObject *object, TransformContext &message) override;
  // Both look the output format up, so that a trigger that is configured wrongly fails before the first record.
  void onBatchStart(TransformContext &message) override;
  void onBatchEnd(TransformContext &message) override;

 private:
  SmartPtr<IOutputFormat> getConfiguredFormat();
};

// Maps the message to another internal message type, by the mapping format that the property "internalmapping.format"
// names, and feeds it in there: rules and triggers of that type run within this event.
class TAVRONE_API InternalRouterTrigger : public AbstractTrigger {
 public:
  InternalRouterTrigger() = default;
  InternalRouterTrigger(InternalRouterTrigger const &other);
  InternalRouterTrigger &operator=(InternalRouterTrigger const &) = default;
  ~InternalRouterTrigger() noexcept(false) override;

  // Raises what TriggerContext::getProperty and the look-ups raise.
  void setContext(TriggerContext *context) override;
  void onNewMessage(DataObject *object, TransformContext &message) override;
  void onBatchStart(TransformContext &message) override;
  void onBatchEnd(TransformContext &message) override;

  // Looks up the mapping format and its destination, both or none; nothing once that has been done.
  void initNormalizedObjectMappingFormat();

 private:
  SmartPtr<INormalizedObjectMappingFormat> normalizedObjectMappingFormat_;
  SmartPtr<IInternalMessage> destinationMessage_;
  tvstring mappingFormatName_;
};

}  // namespace tavrone

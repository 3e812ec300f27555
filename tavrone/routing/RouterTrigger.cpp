#include "tavrone/routing/RouterTrigger.h"

#include "tavrone/context/Factory.h"
#include "tavrone/pipeline/IMessage.h"

namespace tavrone {

namespace {

constinit tvstringliteral const MAPPING_FORMAT_PROPERTY("internalmapping.format");

[[maybe_unused]] bool const REGISTERED =
    registerClass<RouterTrigger>("RouterTrigger") && registerClass<InternalRouterTrigger>("InternalRouterTrigger");

}  // namespace

RouterTrigger::RouterTrigger(RouterTrigger const &other) : Object(), ObjectRef(), AbstractTrigger(other) {}
RouterTrigger::~RouterTrigger() noexcept(false) = default;

SmartPtr<IOutputFormat> RouterTrigger::getConfiguredFormat() {
  return getOutputFormat(transformContext_.getProperty(TransformContext::OUTPUT_FORMAT_PROPERTY));
}

void RouterTrigger::onNewMessage(DataObject *object, TransformContext &message) {
  Event const event(*this, message);
  getConfiguredFormat()->write(object, transformContext_);
}

void RouterTrigger::onBatchStart(TransformContext &message) {
  Event const event(*this, message);
  getConfiguredFormat();
}

void RouterTrigger::onBatchEnd(TransformContext &message) {
  RouterTrigger::onBatchStart(message);
}

InternalRouterTrigger::InternalRouterTrigger(InternalRouterTrigger const &other)
    : Object(),
      ObjectRef(),
      AbstractTrigger(other),
      normalizedObjectMappingFormat_(other.normalizedObjectMappingFormat_),
      destinationMessage_(other.destinationMessage_),
      mappingFormatName_(other.mappingFormatName_) {}
InternalRouterTrigger::~InternalRouterTrigger() noexcept(false) = default;

void InternalRouterTrigger::setContext(TriggerContext *context) {
  AbstractTrigger::setContext(context);
  mappingFormatName_ = context->getProperty(MAPPING_FORMAT_PROPERTY);
  initNormalizedObjectMappingFormat();
}

void InternalRouterTrigger::initNormalizedObjectMappingFormat() {
  if (!normalizedObjectMappingFormat_.isNull()) return;
  SmartPtr<INormalizedObjectMappingFormat> const format =
      context_->lookupNormalizedObjectMappingFormat(mappingFormatName_);
  destinationMessage_ = context_->lookupBusinessTransaction(format->getDestinationMessageName());
  normalizedObjectMappingFormat_ = format;
}

void InternalRouterTrigger::onNewMessage(DataObject *object, TransformContext &message) {
  Event const event(*this, message);
  SmartPtr<DataObject> const mapped = normalizedObjectMappingFormat_->map(object, transformContext_);
  destinationMessage_->handleNormalizedObject(mapped.get(), transformContext_);
}

// There is nothing to prepare: both look-ups were made with the context.
void InternalRouterTrigger::onBatchStart(TransformContext &message) {
  Event const event(*this, message);
}
void InternalRouterTrigger::onBatchEnd(TransformContext &message) {
  Event const event(*this, message);
}

}  // namespace tavrone

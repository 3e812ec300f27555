#include "tavrone/routing/AbstractTrigger.h"

#include <utility>

#include "tavrone/core/Raise.h"

namespace tavrone {

namespace {

constexpr char const *SOURCE = "cpp/RouterTrigger";

}  // namespace

AbstractTrigger::Event::Event(AbstractTrigger &trigger, TransformContext &message)
    : trigger_(trigger),
      messageBefore_(std::exchange(trigger.messageContext_, &message)),
      outputBefore_(trigger.transformContext_.exchangeOutputContext(message.findOutputContext())) {}

AbstractTrigger::Event::~Event() noexcept(false) {
  trigger_.messageContext_ = messageBefore_;
  trigger_.transformContext_.exchangeOutputContext(std::move(outputBefore_));
}

AbstractTrigger::AbstractTrigger(AbstractTrigger const &other)
    : Object(),
      ObjectRef(),
      ITrigger(),
      context_(other.context_),
      transformContext_(other.transformContext_),
      outputFormats_(other.outputFormats_) {
  transformContext_.exchangeOutputContext(nullptr);
}
AbstractTrigger &AbstractTrigger::operator=(AbstractTrigger const &other) {
  if (this == &other) return *this;
  context_ = other.context_;
  SmartPtr<IOutputContext> output = transformContext_.exchangeOutputContext(nullptr);
  transformContext_ = other.transformContext_;
  transformContext_.exchangeOutputContext(std::move(output));
  outputFormats_ = other.outputFormats_;
  return *this;
}
AbstractTrigger::~AbstractTrigger() noexcept(false) = default;

void AbstractTrigger::setContext(TriggerContext *context) {
  context_ = context;
  transformContext_.putAll(context->getProperties());
  transformContext_.setProperty(TransformContext::OUTPUT_DESTINATION_PROPERTY, context->getName());
}

Object *AbstractTrigger::execute(Properties &) {
  raise<TransformException>("Nothing to execute", SOURCE, 11);
}

TransformContext &AbstractTrigger::getTransformContext(TransformContext &message) {
  messageContext_ = &message;
  return transformContext_;
}

SmartPtr<IOutputFormat> AbstractTrigger::getOutputFormat(tvstring name) {
  if (name.empty()) raise<TransformException>("RouterTrigger: Output format is not configured (null)", SOURCE, 16);
  auto const known = outputFormats_.find(name);
  if (known != outputFormats_.end()) return known->second;
  SmartPtr<IOutputFormat> const format = context_->lookupOutputFormat(name);
  // Text of its own: the name may be a view on bytes that go.
  return outputFormats_.emplace(tvstring(name.data(), name.length()), format).first->second;
}

}  // namespace tavrone

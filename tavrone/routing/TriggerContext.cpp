#include "tavrone/routing/TriggerContext.h"

#include <utility>

#include "tavrone/core/Raise.h"
#include "tavrone/pipeline/IInputFormat.h"
#include "tavrone/pipeline/IMessageMapping.h"
#include "tavrone/pipeline/IOutputFormat.h"
#include "tavrone/routing/IMessageFlow.h"

namespace tavrone {

TriggerContext::~TriggerContext() noexcept(false) = default;
AbstractTriggerContext::~AbstractTriggerContext() noexcept(false) = default;
TriggerContextImpl::~TriggerContextImpl() noexcept(false) = default;

AbstractTriggerContext::AbstractTriggerContext(SmartPtr<IInternalMessage> businessTransaction,
                                               tvstring const &triggerClassName, tvstring const &name)
    : businessTransaction_(std::move(businessTransaction)), name_(name), triggerClassName_(triggerClassName) {}

AbstractTriggerContext::AbstractTriggerContext(AbstractTriggerContext const &other)
    : Object(),
      ObjectRef(),
      TriggerContext(),
      properties_(other.properties_),
      businessTransaction_(other.businessTransaction_),
      name_(other.name_),
      triggerClassName_(other.triggerClassName_) {}

AbstractTriggerContext &AbstractTriggerContext::operator=(AbstractTriggerContext const &other) {
  if (this == &other) return *this;
  properties_ = other.properties_;
  businessTransaction_ = other.businessTransaction_;
  name_ = other.name_;
  triggerClassName_ = other.triggerClassName_;
  triggerObject_.release();
  return *this;
}

void AbstractTriggerContext::init(SmartPtr<IInternalMessage> businessTransaction, tvstring const &triggerClassName,
                                  tvstring const &name) {
  businessTransaction_ = std::move(businessTransaction);
  triggerClassName_ = triggerClassName;
  name_ = name;
}

void AbstractTriggerContext::addProperty(tvstring name, tvstring value) {
  properties_.emplace(std::move(name), std::move(value));
}

bool AbstractTriggerContext::getProperty(tvstring const &name, tvstring &value) const {
  auto const entry = properties_.find(name);
  if (entry == properties_.end()) return false;
  value = entry->second;
  return true;
}

tvstring AbstractTriggerContext::getProperty(tvstring const &name) {
  tvstring value;
  if (AbstractTriggerContext::getProperty(name, value)) return value;
  raise<TransformException>("Property " + name + " not found", "cpp/AbstractTriggerContext");
}

void AbstractTriggerContext::setTriggerObject(ITrigger *trigger) {
  triggerObject_ = SmartPtr<ITrigger>(trigger);  // adds before it releases, should it be the same trigger
}

TriggerContextImpl::TriggerContextImpl(TriggerContextImpl const &other)
    : Object(), ObjectRef(), AbstractTriggerContext(other), lookupContext_(other.lookupContext_) {}

SmartPtr<ILookupContext> TriggerContextImpl::getLookupContext() {
  directory();
  return lookupContext_;
}

ILookupContext &TriggerContextImpl::directory() {
  if (lookupContext_.isNull()) lookupContext_ = LookupContextFactory::getLookupContext();
  return *lookupContext_;
}

// clang-format off
Object *TriggerContextImpl::lookupComponent(tvstring const &name) { return directory().lookupComponent(name); }
SmartPtr<INormalizedObjectMappingFormat> TriggerContextImpl::lookupNormalizedObjectMappingFormat(tvstring const &name) { return directory().lookupNormalizedObjectMappingFormat(name); }
SmartPtr<IMessage> TriggerContextImpl::lookupMessage(tvstring const &name) { return directory().lookupMessage(name); }
SmartPtr<IExternalMessage> TriggerContextImpl::lookupExternalMessage(tvstring const &name) { return directory().lookupExternalMessage(name); }
SmartPtr<IInternalMessage> TriggerContextImpl::lookupBusinessTransaction(tvstring const &name) { return directory().lookupBusinessTransaction(name); }
SmartPtr<IMessageMapping> TriggerContextImpl::lookupMessageMapping(tvstring const &name) { return directory().lookupMessageMapping(name); }
SmartPtr<IMessageFlow> TriggerContextImpl::lookupMessageFlow(tvstring const &name) { return directory().lookupMessageFlow(name); }
SmartPtr<IInternalMessage> TriggerContextImpl::lookupInternalMessage(tvstring const &name) { return directory().lookupInternalMessage(name); }
SmartPtr<IInputFormat> TriggerContextImpl::lookupInputFormat(tvstring const &name) { return directory().lookupInputFormat(name); }
SmartPtr<IOutputFormat> TriggerContextImpl::lookupOutputFormat(tvstring const &name) { return directory().lookupOutputFormat(name); }
IOutputProtocol *TriggerContextImpl::lookupOutputProtocol(tvstring const &name) { return directory().lookupOutputProtocol(name); }

TList<tvstring> TriggerContextImpl::getMessages() { return directory().getMessages(); }
TList<tvstring> TriggerContextImpl::getExternalMessages() { return directory().getExternalMessages(); }
TList<tvstring> TriggerContextImpl::getInternalMessages() { return directory().getInternalMessages(); }
TList<tvstring> TriggerContextImpl::getMessageMappings() { return directory().getMessageMappings(); }
TList<tvstring> TriggerContextImpl::getMessageFlows() { return directory().getMessageFlows(); }
TList<tvstring> TriggerContextImpl::getInputFormats() { return directory().getInputFormats(); }
TList<tvstring> TriggerContextImpl::getOutputFormats() { return directory().getOutputFormats(); }
TList<tvstring> TriggerContextImpl::getNormalizedObjectMappings() { return directory().getNormalizedObjectMappings(); }

void TriggerContextImpl::bind(tvstring const &name, Object *object) { directory().bind(name, object); }
void TriggerContextImpl::rebind(tvstring const &name, Object *object) { directory().rebind(name, object); }
Object *TriggerContextImpl::lookup(tvstring const &name) { return directory().lookup(name); }
void TriggerContextImpl::unbind(tvstring const &name) { directory().unbind(name); }
// clang-format on

}  // namespace tavrone

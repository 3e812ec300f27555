#include "tavrone/routing/Triggers.h"

#include <utility>

#include "tavrone/context/UserClassManager.h"
#include "tavrone/core/Raise.h"

namespace tavrone {

namespace {

constexpr char const *SOURCE = "cpp/Triggers";

}  // namespace

Triggers::Triggers(SmartPtr<IInternalMessage> businessTransaction)
    : businessTransaction_(std::move(businessTransaction)) {}
Triggers::~Triggers() noexcept(false) = default;

Object *Triggers::invokeTrigger(Properties &) {
  raise<TransformException>("No on-demand trigger matching the condition specified", SOURCE, 13);
}

ITrigger *Triggers::createTriggerInstance(tvstring const &className) {
  Object *const instance = UserClassManager::createInstance(className);
  if (auto *const trigger = dynamic_cast<ITrigger *>(instance)) return trigger;
  SmartPtr<Object> const refused(instance);
  raiseCatalogued<TransformException>("SRT100", className, SOURCE, 35);
}

ITrigger *Triggers::getTriggerObject(AbstractTriggerContext &context) {
  if (ITrigger *const made = context.getTriggerObject()) return made;
  SmartPtr<ITrigger> const trigger(createTriggerInstance(context.getTriggerClassName()));
  trigger->setContext(&context);
  context.setTriggerObject(trigger.get());
  return trigger.get();
}

}  // namespace tavrone

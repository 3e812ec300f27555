#include "tavrone/routing/Triggers.h"

#include <utility>

#include "tavrone/core/Raise.h"

namespace tavrone {

Triggers::Triggers(SmartPtr<IInternalMessage> businessTransaction)
    : businessTransaction_(std::move(businessTransaction)) {}
Triggers::~Triggers() noexcept(false) = default;

Object *Triggers::invokeTrigger(Properties &) {
  raise<TransformException>("No on-demand trigger matching the condition specified", "cpp/Triggers", 13);
}

}  // namespace tavrone

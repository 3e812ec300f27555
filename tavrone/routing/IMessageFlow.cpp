#include "tavrone/routing/IMessageFlow.h"

namespace tavrone {

IMessageFlow::~IMessageFlow() noexcept(false) = default;

}  // namespace tavrone

#include "tavrone/routing/ITrigger.h"

namespace tavrone {

ITrigger::~ITrigger() noexcept(false) = default;

}  // namespace tavrone

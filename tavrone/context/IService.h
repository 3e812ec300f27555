#pragma once

#include "tavrone/core/Object.h"

namespace tavrone {

// What the lookup context hands out.
class TAVRONE_API IService : public virtual ObjectRef {};

}  // namespace tavrone

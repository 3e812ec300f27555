#pragma once

#include "tavrone/fix/FIXHeader.h"
#include "tavrone/fix/TagValueIdentifier.h"

namespace tavrone {

// Knows FIX messages. Known by its class name as soon as the library is loaded.
class TAVRONE_API FIXMessageIdentifier : public TagValueIdentifier<FIXHeader, FIXHeaderLayout> {};

// Makes the class known by its name; done at load.
TAVRONE_API void registerClassFIXMessageIdentifier();

}  // namespace tavrone

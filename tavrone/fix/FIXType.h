#pragma once

#include "tavrone/fix/FIXFormat.h"
#include "tavrone/fix/TagValueType.h"

namespace tavrone {

extern template class TagValueType<FIXFormat>;

// Dates, times and booleans of FIX messages.
class TAVRONE_API FIXType : public TagValueType<FIXFormat> {};

}  // namespace tavrone

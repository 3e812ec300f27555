#pragma once

#include "tavrone/fix/TagValueType.h"
#include "tavrone/siaccanonical/SIACCanonicalFormat.h"

namespace tavrone {

extern template class TagValueType<SIACCanonicalFormat>;

// Dates, times and booleans of SIAC Canonical messages.
class TAVRONE_API SIACCanonicalType : public TagValueType<SIACCanonicalFormat> {};

}  // namespace tavrone

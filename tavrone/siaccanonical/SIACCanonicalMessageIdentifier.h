#pragma once

#include "tavrone/fix/TagValueIdentifier.h"
#include "tavrone/siaccanonical/SIACCanonicalHeader.h"

namespace tavrone {

// Knows SIAC Canonical messages. Known by its class name as soon as the library is loaded.
class TAVRONE_API SIACCanonicalMessageIdentifier
    : public TagValueIdentifier<SIACCanonicalHeader, SIACCanonicalHeaderLayout> {};

// Makes the class known by its name; done at load.
TAVRONE_API void registerClassSIACCanonicalMessageIdentifier();

}  // namespace tavrone

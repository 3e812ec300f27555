#pragma once

#include "tavrone/siaccanonical/SIACCanonicalHeader.h"
#include "tavrone/fix/TagValueIdentifier.h"

namespace tavrone {

struct SIACCanonicalIdentifierNames {
  using Header = SIACCanonicalHeader;
  static constexpr std::string_view PREFIX = "10001=Canonical";
  static constexpr char const *MESSAGE_FORMAT = SIACCanonicalHeaderLayout::MESSAGE_FORMAT;
};

// Knows SIAC Canonical messages. Known by its class name as soon as the library is loaded.
class TAVRONE_API SIACCanonicalMessageIdentifier : public TagValueIdentifier<SIACCanonicalIdentifierNames> {};

// Makes the class known by its name; done at load.
TAVRONE_API void registerClassSIACCanonicalMessageIdentifier();

}  // namespace tavrone

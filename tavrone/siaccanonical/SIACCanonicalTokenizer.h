#pragma once

#include "tavrone/fix/TagValueTokenizer.h"
#include "tavrone/siaccanonical/SIACCanonicalFormat.h"

namespace tavrone {

extern template class TagValueTokenizer<SIACCanonicalFormat>;

// The fields of a SIAC Canonical message. SIACCanonicalTokenizer::TagValuePair is one of them.
class TAVRONE_API SIACCanonicalTokenizer : public TagValueTokenizer<SIACCanonicalFormat> {
 public:
  using TagValueTokenizer::TagValueTokenizer;
};

}  // namespace tavrone

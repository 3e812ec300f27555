#pragma once

#include "tavrone/fix/FIXFormat.h"
#include "tavrone/fix/TagValueTokenizer.h"

namespace tavrone {

extern template class TagValueTokenizer<FIXFormat>;

// The fields of a FIX message. FIXTokenizer::TagValuePair is one of them.
class TAVRONE_API FIXTokenizer : public TagValueTokenizer<FIXFormat> {
 public:
  using TagValueTokenizer::TagValueTokenizer;
};

}  // namespace tavrone

#pragma once

#include "tavrone/fix/TagValueInputParser.h"
#include "tavrone/siaccanonical/SIACCanonicalFormat.h"

namespace tavrone {

extern template class TagValueInputParser<SIACCanonicalFormat>;

// The base of generated SIAC Canonical parsers, which implement the two Binary forms of InputParser.
class TAVRONE_API SIACCanonicalInputParser : public TagValueInputParser<SIACCanonicalFormat> {
 public:
  SIACCanonicalInputParser();
  SIACCanonicalInputParser(SIACCanonicalInputParser const &other);
  SIACCanonicalInputParser &operator=(SIACCanonicalInputParser const &) = default;
  ~SIACCanonicalInputParser() noexcept(false) override;
};

}  // namespace tavrone

#include "tavrone/siaccanonical/SIACCanonicalInputParser.h"

namespace tavrone {

SIACCanonicalInputParser::SIACCanonicalInputParser() = default;
SIACCanonicalInputParser::SIACCanonicalInputParser(SIACCanonicalInputParser const &other) = default;
SIACCanonicalInputParser::~SIACCanonicalInputParser() noexcept(false) = default;

}  // namespace tavrone

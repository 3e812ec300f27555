#include "tavrone/siaccanonical/SIACCanonicalOutputFormats.h"

namespace tavrone {

SIACCanonicalOutputFormat::~SIACCanonicalOutputFormat() noexcept(false) = default;
SIACCanonicalSIACOutputFormat::~SIACCanonicalSIACOutputFormat() noexcept(false) = default;

}  // namespace tavrone

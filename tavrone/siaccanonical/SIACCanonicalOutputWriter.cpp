#include "tavrone/siaccanonical/SIACCanonicalOutputWriter.h"

namespace tavrone {

template class TagValueWriter<SIACCanonicalFormat>;

SIACCanonicalOutputWriter::~SIACCanonicalOutputWriter() noexcept(false) = default;

tvstring SIACCanonicalOutputWriter::endMessage() {
  writeCheckSumIndicator();
  return TagValueWriter::endMessage();
}

}  // namespace tavrone

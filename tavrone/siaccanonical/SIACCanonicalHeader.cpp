#include "tavrone/siaccanonical/SIACCanonicalHeader.h"

#include "tavrone/siaccanonical/SIACCanonicalHeaderParser.h"

namespace tavrone {

SIACCanonicalHeader::SIACCanonicalHeader() = default;
SIACCanonicalHeader::SIACCanonicalHeader(SIACCanonicalHeader const &other)
    : Object(), ObjectRef(), TagValueHeader(other) {}
SIACCanonicalHeader &SIACCanonicalHeader::operator=(SIACCanonicalHeader const &other) = default;
SIACCanonicalHeader::~SIACCanonicalHeader() noexcept(false) = default;

Object *SIACCanonicalHeader::clone() const {
  return new SIACCanonicalHeader(*this);
}

void SIACCanonicalHeader::parseHeader(char const *bytes, int length) {
  SIACCanonicalHeaderParser::parseHeader(*this, bytes, length);
}

}  // namespace tavrone

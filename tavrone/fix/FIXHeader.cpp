#include "tavrone/fix/FIXHeader.h"

#include "tavrone/fix/FIXHeaderParser.h"

namespace tavrone {

FIXHeader::FIXHeader() = default;
FIXHeader::FIXHeader(FIXHeader const &other) : Object(), ObjectRef(), TagValueHeader(other) {}
FIXHeader &FIXHeader::operator=(FIXHeader const &other) = default;
FIXHeader::~FIXHeader() noexcept(false) = default;

Object *FIXHeader::clone() const {
  return new FIXHeader(*this);
}

void FIXHeader::parseHeader(char const *bytes, int length) {
  FIXHeaderParser::parseHeader(*this, bytes, length);
}

}  // namespace tavrone

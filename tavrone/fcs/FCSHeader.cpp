#include "tavrone/fcs/FCSHeader.h"

#include <typeinfo>

namespace tavrone {

namespace {

constinit tvstringliteral const FORMAT("FCS");

}  // namespace

FCSHeader::FCSHeader() {
  set<"MessageFormat">(FORMAT);
}
FCSHeader::FCSHeader(FCSHeader const &other) : Object(), ObjectRef(), RecordOf(other), MessageHeader(other) {}
FCSHeader::~FCSHeader() noexcept(false) = default;

tvstring FCSHeader::getMessageFormat() {
  return FORMAT;
}

tvstring FCSHeader::getHeaderField(tvstring const &name) {
  if (name != getFieldName(index<"MessageFormat">) || isNull(index<"MessageFormat">)) return tvstring();
  return get<"MessageFormat">();
}

bool FCSHeader::tellsItsFields() const {
  return typeid(*this) == typeid(FCSHeader) && !isNull(index<"MessageFormat">) && get<"MessageFormat">() == FORMAT;
}

}  // namespace tavrone

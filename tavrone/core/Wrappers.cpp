#include "tavrone/core/Wrappers.h"

#include "tavrone/core/Class.h"
#include "tavrone/core/Conversion.h"
#include "tavrone/dataobject/DataObjectSection.h"

namespace tavrone {

namespace {

constinit tvstringliteral const DATE_PATTERN("yyyy-MM-ddTHH:mm:ss.SSS");

}  // namespace

tvstring IntObject::toString() const {
  return intToString(value_);
}
tvstring LongObject::toString() const {
  return dlongToString(value_);
}
tvstring DoubleObject::toString() const {
  return doubleToString(value_);
}
tvstring FloatObject::toString() const {
  return floatToString(value_);
}
tvstring CharObject::toString() const {
  return charToString(value_);
}
tvstring BoolObject::toString() const {
  return boolToString(value_);
}
tvstring StringObject::toString() const {
  return value_;
}

tvstring BinaryObject::toString() const {
  return value_.toString();
}

tvstring DateObject::toString() const {
  return value_.toString(DATE_PATTERN);
}
tvstring ISODateObject::toString() const {
  return value_.toString(DATE_PATTERN);
}

tvstring BigIntegerObject::toString() const {
  return value_.toString();
}
tvstring BigDecimalObject::toString() const {
  return value_.toString();
}

SectionObject::~SectionObject() noexcept(false) {
  if (owns_) delete section_;
}

SectionObject &SectionObject::operator=(SectionObject const &other) {
  setSection(other.section_);
  return *this;
}

void SectionObject::setSection(DataObjectSection *section, bool owns) {
  if (section == section_) {
    owns_ = owns_ || owns;
    return;
  }
  DataObjectSection *const old = owns_ ? section_ : nullptr;
  section_ = section;
  owns_ = owns;
  delete old;
}

tvstring SectionObject::toString() const {
  return section_ == nullptr ? tvstring() : section_->toString();
}
tvstring const &SectionObject::getObjectType() const {
  return DesignerTypes::SECTION_TYPE;
}
void SectionObject::setObject(Object const *other) {
  setSection(checkedCast<SectionObject>(other)->getSection());
}

}  // namespace tavrone

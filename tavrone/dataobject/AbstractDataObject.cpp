#include "tavrone/dataobject/AbstractDataObject.h"

#include <algorithm>

#include "tavrone/core/Conversion.h"
#include "tavrone/core/Raise.h"
#include "tavrone/core/Wrappers.h"
#include "tavrone/dataobject/DataObjectSection.h"
#include "tavrone/dataobject/MetaInfo.h"

namespace tavrone {

namespace {

constexpr char const *SOURCE = "cpp/AbstractDataObject";

[[noreturn]] void raiseIndexOutOfBounds(int index, int line) {
  raise<FieldNotFoundException>("Field index out of bounds - " + intToString(index), SOURCE, line);
}

}  // namespace

AbstractDataObject::AbstractDataObject(DataObjectMetaInfo *meta, bool *flags, DataObjectSection *parent)
    : parentSection(parent), nullFlags(flags), metaInfo(meta) {
  if (nullFlags != nullptr) std::fill_n(nullFlags, metaInfo->getFieldCount(), false);
}

AbstractDataObject::AbstractDataObject(AbstractDataObject const &other, bool *flags, DataObjectSection *parent)
    : Object(), ObjectRef(), DataObjectBase(other), parentSection(parent), nullFlags(flags), metaInfo(other.metaInfo) {
  std::copy_n(other.nullFlags, metaInfo->getFieldCount(), nullFlags);
}

AbstractDataObject::AbstractDataObject(AbstractDataObject const &other)
    : Object(),
      ObjectRef(),
      DataObjectBase(other),
      parentSection(nullptr),
      nullFlags(nullptr),
      metaInfo(other.metaInfo) {}

AbstractDataObject &AbstractDataObject::operator=(AbstractDataObject const &other) {
  if (this != &other) std::copy_n(other.nullFlags, metaInfo->getFieldCount(), nullFlags);
  return *this;
}

AbstractDataObject::~AbstractDataObject() noexcept(false) = default;

// An index that has no flag goes straight to the hook, which fails for it.
bool AbstractDataObject::hasFlag(int index) const {
  return static_cast<unsigned>(index) < static_cast<unsigned>(metaInfo->getFieldCount());
}

bool AbstractDataObject::getField(int index, Object &out) const {
  if (hasFlag(index) && isNull(index)) return false;
  Object *const given = getField0(index, &out);
  SmartPtr<Object> const unasked(given == &out ? nullptr : given);  // a wrapper that the class has made all the same
  return true;
}

Object *AbstractDataObject::getField(int index) const {
  return hasFlag(index) && isNull(index) ? nullptr : getField0(index);
}

void AbstractDataObject::setField(int index, Object const *value) {
  if (value == nullptr) {
    setNull(index);
    return;
  }
  if (hasFlag(index)) nullFlags[index] = true;
  setField0(index, value);
}

bool AbstractDataObject::isEmpty() const {
  int const count = metaInfo->getFieldCount();
  for (int i = 0; i < count; ++i) {
    if (!nullFlags[i]) continue;
    if (!metaInfo->isSection(i)) return false;
    SmartPtr<Object> const value(getField(i));
    if (value.isNull()) continue;
    auto *section = dynamic_cast<SectionObject *>(value.get());
    if (section == nullptr || (section->getSection() != nullptr && !section->getSection()->isEmpty())) return false;
  }
  return true;
}

void AbstractDataObject::reset() {
  std::fill_n(nullFlags, metaInfo->getFieldCount(), false);
}

DataObject *AbstractDataObject::createSectionElement(tvstring const &name, DataObjectSection *) const {
  raiseCatalogued<TransformException>("SRT178", name, SOURCE);
}

void AbstractDataObject::assertNotNull(int index) const {
  if (!nullFlags[index])
    raiseCatalogued<FieldNullException>("SRT600", const_cast<AbstractDataObject *>(this)->getQualifiedName(index),
                                        SOURCE, 160);
}

void AbstractDataObject::throwNullValueException(int index) const {
  raiseCatalogued<FieldNullException>("SRT500", const_cast<AbstractDataObject *>(this)->getQualifiedName(index), SOURCE,
                                      167);
}

void AbstractDataObject::setField0(int index, Object const *) {
  raiseIndexOutOfBounds(index, 223);
}
Object *AbstractDataObject::getField0(int index, Object *) const {
  raiseIndexOutOfBounds(index, 219);
}
Object *AbstractDataObject::getField0(int index) const {
  return getField0(index, nullptr);
}

}  // namespace tavrone

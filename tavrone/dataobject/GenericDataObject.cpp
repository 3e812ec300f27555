#include "tavrone/dataobject/GenericDataObject.h"

#include <memory>
#include <new>

#include "tavrone/core/Class.h"
#include "tavrone/core/Conversion.h"
#include "tavrone/core/DesignerTypes.h"
#include "tavrone/core/Raise.h"
#include "tavrone/core/Wrappers.h"
#include "tavrone/dataobject/DataObjectSectionImpl.h"
#include "tavrone/dataobject/MetaInfo.h"

namespace tavrone {

namespace {

constexpr char const *SOURCE = "cpp/GenericDataObject";

[[noreturn]] void raiseNotASection(tvstring const &name, int line = __builtin_LINE()) {
  raise<FieldTypeMismatchException>(name + " is not a section", SOURCE, line);
}

// A record nested by a "DataObject" field is a section of at most one element.
AbstractDataObjectSection *newSection(FieldMetaInfo const &field) {
  if (field.getKind() == FieldKind::DATA_OBJECT) return new DataObjectSingleElementSectionImpl;
  return new DataObjectSectionImpl;
}

}  // namespace

GenericDataObject::GenericDataObject(DataObjectMetaInfo *metaInfo, bool ownsMetaInfo)
    : GenericDataObject(nullptr, metaInfo, ownsMetaInfo) {}

GenericDataObject::GenericDataObject(DataObjectSection *parentSection, DataObjectMetaInfo *metaInfo, bool ownsMetaInfo)
    : GenericDataObject(parentSection, metaInfo, ownsMetaInfo, metaInfo->getFieldCount()) {}

GenericDataObject::GenericDataObject(DataObjectSection *parentSection, DataObjectMetaInfo *metaInfo, bool ownsMetaInfo,
                                     int fieldCount)
    : parentSection_(parentSection), fieldCount_(fieldCount), metaInfo_(metaInfo), ownsMetaInfo_(ownsMetaInfo) {}

// Through another constructor, so that the destructor releases what was taken so far when a clone fails. Metadata is
// not looked at: the record that owns it may be gone.
GenericDataObject::GenericDataObject(GenericDataObject const &other)
    : GenericDataObject(nullptr, other.metaInfo_, false, other.fieldCount_) {
  for (int i = 0; i < fieldCount_; ++i) {
    Object const *value = other.valueAt(i);
    if (value == nullptr) continue;
    auto const *section = dynamic_cast<SectionObject const *>(value);
    if (section == nullptr || section->getSection() == nullptr) {
      store(i, value->clone());
      continue;
    }
    copiedSections_.push_back(std::unique_ptr<DataObjectSection>(section->getSection()->clone()));
    store(i, new SectionObject(copiedSections_.back().get(), false));
  }
}

GenericDataObject::~GenericDataObject() noexcept(false) {
  for (int i = 0; values_ != nullptr && i < fieldCount_; ++i) ObjectRef::releaseRef(values_[i]);
  delete[] values_;
  if (ownsMetaInfo_) delete metaInfo_;
}

Object *GenericDataObject::clone() const {
  return new GenericDataObject(*this);
}

void GenericDataObject::store(int index, Object *value) const {
  if (values_ == nullptr && value == nullptr) return;
  ObjectRef::addRef(value);
  if (values_ == nullptr) values_ = new (std::nothrow) Object *[static_cast<size_t>(fieldCount_)]();
  if (values_ == nullptr) {
    ObjectRef::releaseRef(value);
    throw std::bad_alloc();
  }
  Object *old = values_[index];
  values_[index] = value;
  ObjectRef::releaseRef(old);
}

DataObjectSection *GenericDataObject::getSection(int index) const {
  checkFieldIndex(index);
  if (valueAt(index) != nullptr) return checkedCast<SectionObject>(valueAt(index))->getSection();
  auto const *field = dynamic_cast<SectionMetaInfo const *>(metaInfo_->getFieldMetaInfo(index));
  if (field == nullptr) raiseNotASection(metaInfo_->getFieldName(index));
  std::unique_ptr<AbstractDataObjectSection> section(newSection(*field));
  section->initialize(const_cast<GenericDataObject *>(this), field->getName(), field->getMinOccurs(),
                      field->getMaxOccurs());
  auto *const value = new SectionObject(section.get(), true);
  AbstractDataObjectSection *const made = section.release();  // the value's now
  store(index, value);
  return made;
}

bool GenericDataObject::getField(int index, Object &out) const {
  checkFieldIndex(index);
  if (valueAt(index) == nullptr) return false;
  out.setObject(valueAt(index));
  return true;
}

Object *GenericDataObject::getField(int index) const {
  checkFieldIndex(index);
  return valueAt(index) == nullptr ? nullptr : valueAt(index)->clone();
}

Object *GenericDataObject::getFieldCheckNull(int index) const {
  checkFieldIndex(index);
  if (valueAt(index) == nullptr)
    raise<FieldNullException>("Attempt to access field '" +
                                  const_cast<GenericDataObject *>(this)->getQualifiedName(index) + "' with NULL value",
                              SOURCE, 87);
  return valueAt(index);
}

SmartPtr<Object> GenericDataObject::getFieldCheckNullVal(int index) {
  return SmartPtr<Object>(getFieldCheckNull(index)->clone());
}

bool GenericDataObject::isNull(int index) const {
  checkFieldIndex(index);
  return valueAt(index) == nullptr;
}

void GenericDataObject::setNull(int index) {
  checkFieldIndex(index);
  store(index, nullptr);
}

void GenericDataObject::setField(int index, Object const &value) {
  setField(index, &value);
}

void GenericDataObject::setField(int index, Object const *value) {
  checkFieldIndex(index);
  auto const *section = dynamic_cast<SectionObject const *>(value);
  auto const *held = section == nullptr ? nullptr : dynamic_cast<SectionObject const *>(valueAt(index));
  // The field may own that section: releasing it here would leave the new value dangling.
  if (held != nullptr && held->getSection() == section->getSection()) return;
  store(index, value == nullptr ? nullptr : value->clone());
}

bool GenericDataObject::isEmpty() const {
  for (int i = 0; i < fieldCount_; ++i) {
    if (valueAt(i) == nullptr) continue;
    auto const *section = dynamic_cast<SectionObject const *>(valueAt(i));
    DataObjectSection const *const elements = section == nullptr ? nullptr : section->getSection();
    bool const empty = section == nullptr ? metaInfo_->isSynthesized(i) : elements == nullptr || elements->isEmpty();
    if (!empty) return false;
  }
  return true;
}

void GenericDataObject::reset() {}

DataObject *GenericDataObject::createSectionElement(tvstring const &name, DataObjectSection *section) const {
  auto const *field = dynamic_cast<SectionMetaInfo const *>(metaInfo_->getFieldMetaInfo(name));
  if (field == nullptr || field->getDataObjectMetaInfo() == nullptr) raiseNotASection(name, 215);
  return new GenericDataObject(section, field->getDataObjectMetaInfo(), false);
}

FieldMetaInfo *GenericDataObject::getFieldMetaInfo(int index) const {
  return metaInfo_->getFieldMetaInfo(index);
}
bool GenericDataObject::isSynthesized(int index) const {
  return metaInfo_->isSynthesized(index);
}
tvstring GenericDataObject::getQualifiedName(tvstring const &name) {
  return getQualifiedName(getFieldIndex(name));
}

void GenericDataObject::checkFieldIndex(int index) const {
  if (static_cast<unsigned>(index) < static_cast<unsigned>(fieldCount_)) return;
  tvstring const owner = parentSection_ == nullptr ? tvstring("Root") : parentSection_->getName();
  raise<FieldNotFoundException>("No valid field at index " + intToString(index) + " for " + owner, SOURCE);
}

}  // namespace tavrone

#include "tavrone/dataobject/DataObjectBase.h"

#include "tavrone/core/Class.h"
#include "tavrone/core/Raise.h"
#include "tavrone/core/Wrappers.h"
#include "tavrone/dataobject/DataObjectSection.h"
#include "tavrone/dataobject/FieldAccess.h"
#include "tavrone/dataobject/MetaInfo.h"
#include "tavrone/pipeline/RawMessage.h"

namespace tavrone {

DataObject::~DataObject() noexcept(false) = default;
DataObjectBase::~DataObjectBase() noexcept(false) = default;

DataObjectSection *DataObjectBase::getSection(int index) const {
  SmartPtr<Object> const value(getField(index));
  return checkedCast<SectionObject>(value.get())->getSection();
}
DataObjectSection *DataObjectBase::getSection(tvstring const &name) const {
  return getSection(getFieldIndex(name));
}

bool DataObjectBase::getField(tvstring const &name, Object &out) const {
  return getField(getFieldIndex(name), out);
}
Object *DataObjectBase::getField(tvstring const &name) const {
  return getField(getFieldIndex(name));
}

Object *DataObjectBase::getFieldCheckNull(int index) const {
  Object *value = getField(index);
  // Names go up through the sections, which is a reading operation in all but its signature.
  if (value == nullptr)
    raiseCatalogued<FieldNullException>("SRT500", const_cast<DataObjectBase *>(this)->getQualifiedName(index),
                                        "cpp/DataObjectBase");
  return value;
}

SmartPtr<Object> DataObjectBase::getFieldVal(int index) {
  return SmartPtr<Object>(getField(index));
}
SmartPtr<Object> DataObjectBase::getFieldVal(tvstring const &name) {
  return SmartPtr<Object>(getField(name));
}
SmartPtr<Object> DataObjectBase::getFieldCheckNullVal(int index) {
  return SmartPtr<Object>(getFieldCheckNull(index));
}

bool DataObjectBase::isNull(tvstring const &name) const {
  return isNull(getFieldIndex(name));
}
void DataObjectBase::setNull(tvstring const &name) {
  setNull(getFieldIndex(name));
}
void DataObjectBase::setField(tvstring const &name, Object const &value) {
  setField(getFieldIndex(name), value);
}
void DataObjectBase::setField(tvstring const &name, Object const *value) {
  setField(getFieldIndex(name), value);
}

int DataObjectBase::getFieldIndex(tvstring const &name) const {
  return getMetaInfo()->getFieldIndex(name);
}
tvstring const &DataObjectBase::getFieldType(tvstring const &name) const {
  return getFieldType(getFieldIndex(name));
}
tvstring const &DataObjectBase::getFieldType(int index) const {
  return getMetaInfo()->getFieldType(index);
}
tvstring const &DataObjectBase::getFieldName(int index) const {
  return getMetaInfo()->getFieldName(index);
}
int DataObjectBase::getFieldCount() const {
  return getMetaInfo()->getFieldCount();
}

tvstring DataObjectBase::getQualifiedName(int index) {
  DataObjectSection *section = getParentSection();
  if (section == nullptr) return getFieldName(index);
  return section->getQualifiedName() + '.' + getFieldName(index);
}

DataObject *DataObjectBase::getRootDataObject() const {
  DataObjectSection *section = getParentSection();
  return section == nullptr ? const_cast<DataObjectBase *>(this) : section->getRootDataObject();
}

void DataObjectBase::write(std::ostream &) const {}
void DataObjectBase::read(std::istream &) {}
tvstring DataObjectBase::getRootXMLTag() {
  return getMetaInfo()->getName();
}

tvstring const &DataObjectBase::getMangledName(int index) const {
  return getMetaInfo()->getMangledName(index);
}
tvstring const &DataObjectBase::getMangledName(tvstring const &name) const {
  return getMetaInfo()->getMangledName(name);
}

void DataObjectBase::setField(int index, tvstring const &text) {
  setField(index, StringObject(text));
}
void DataObjectBase::setField(tvstring const &name, tvstring const &text) {
  setField(name, StringObject(text));
}

bool DataObjectBase::getField(int index, tvstring &out) const {
  StringObject value;
  if (!getField(index, value)) return false;
  out = value.getValue();
  return true;
}

namespace {

void copySection(DataObjectSection const &from, DataObjectSection &to) {
  if (&from == &to) return;
  to.clear();
  int const count = from.getElementCount();
  for (int i = 0; i < count; ++i) {
    SmartPtr<DataObject> const element(to.createElement());
    DataObjectBase::copy(from.getElement(i), element.get());
    to.addElement(element.get());
  }
}

// Both of one declared type: value by value, where they stand.
void copyStored(DataObject const &from, DataObject &to, DataObjectMetaInfo const &type) {
  int const count = type.getFieldCount();
  for (int i = 0; i < count; ++i) {
    if (from.isNull(i)) {
      to.setNull(i);
      continue;
    }
    FieldMetaInfo const &field = *type.getFieldMetaInfo(i);
    setStoredNotNull(to, i);
    visitStored(from, field, [&](auto const &value) {
      using Value = std::remove_cvref_t<decltype(value)>;
      auto &target = storedValue<Value>(to, field);
      if constexpr (std::is_base_of_v<DataObjectSection, Value>)
        copySection(value, target);
      else
        target = value;
    });
  }
}

}  // namespace

void DataObjectBase::copy(DataObject const *from, DataObject *to) {
  if (from == to) return;
  SmartPtr<DataObject> const kept = keepAlive(*from);  // it may be in a section of `to`
  if (from->hasFieldOffsets() && to->hasFieldOffsets() && from->getMetaInfo() == to->getMetaInfo()) {
    copyStored(*from, *to, *from->getMetaInfo());
    return;
  }
  int const count = from->getFieldCount();
  for (int i = 0; i < count; ++i) {
    SmartPtr<Object> const value(from->getField(i));
    auto *section = dynamic_cast<SectionObject *>(value.get());
    if (section == nullptr)
      to->setField(i, value.get());
    else if (section->getSection() != nullptr)
      copySection(*section->getSection(), *to->getSection(i));
  }
}

}  // namespace tavrone

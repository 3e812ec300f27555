#pragma once

#include <memory>
#include <vector>

#include "tavrone/dataobject/DataObjectBase.h"
#include "tavrone/dataobject/DataObjectSection.h"

namespace tavrone {

class FieldMetaInfo;

// A record that is driven by its metadata alone and keeps every value as a wrapper. Sections come into being on first
// access. Every operation that takes an index raises FieldNotFoundException "No valid field at index <i> for <owner>".
class TAVRONE_API GenericDataObject : public DataObjectBase {
 public:
  // Deletes the metadata in the end if it owns it.
  GenericDataObject(DataObjectMetaInfo *metaInfo, bool ownsMetaInfo);
  GenericDataObject(DataObjectSection *parentSection, DataObjectMetaInfo *metaInfo, bool ownsMetaInfo);
  // Values are cloned, sections with them; the copy has no parent, no references, and never owns the metadata.
  GenericDataObject(GenericDataObject const &other);
  GenericDataObject &operator=(GenericDataObject const &) = delete;
  ~GenericDataObject() noexcept(false) override;

  Object *clone() const override;

  // Makes the section on first access. Raises FieldTypeMismatchException "<field> is not a section".
  DataObjectSection *getSection(int index) const override;
  bool getField(int index, Object &out) const override;
  // A clone of the value, the caller's.
  Object *getField(int index) const override;
  // The value itself, borrowed.
  Object *getFieldCheckNull(int index) const override;
  // A clone, held.
  SmartPtr<Object> getFieldCheckNullVal(int index) override;
  bool isNull(int index) const override;
  void setNull(int index) override;
  void setField(int index, Object const &value) override;
  // Stores a clone and releases the old value; null acts as setNull.
  void setField(int index, Object const *value) override;
  DataObjectSection *getParentSection() const override { return parentSection_; }
  void setParentSection(DataObjectSection *section) override { parentSection_ = section; }
  bool isEmpty() const override;
  DataObjectMetaInfo *getMetaInfo() const override { return metaInfo_; }
  // Does nothing.
  void reset() override;
  DataObject *createSectionElement(tvstring const &name, DataObjectSection *section) const override;

  using DataObjectBase::getField;
  using DataObjectBase::getQualifiedName;
  using DataObjectBase::getSection;
  using DataObjectBase::isNull;
  using DataObjectBase::setField;
  using DataObjectBase::setNull;

  // What the metadata says, with its failures; borrowed.
  FieldMetaInfo *getFieldMetaInfo(int index) const;
  bool isSynthesized(int index) const;
  tvstring getQualifiedName(tvstring const &name);

 private:
  GenericDataObject(DataObjectSection *parentSection, DataObjectMetaInfo *metaInfo, bool ownsMetaInfo, int fieldCount);

  void checkFieldIndex(int index) const;
  // Null for a null field.
  Object *valueAt(int index) const { return values_ == nullptr ? nullptr : values_[index]; }
  // Takes over `value` with a reference and releases the old one.
  void store(int index, Object *value) const;

  DataObjectSection *parentSection_;
  int fieldCount_;
  mutable Object **values_ = nullptr;  // null until a value is stored
  DataObjectMetaInfo *metaInfo_;
  bool ownsMetaInfo_;
  // Behind the borrowing values that a copy starts with.
  std::vector<std::unique_ptr<DataObjectSection>> copiedSections_;
};

}  // namespace tavrone

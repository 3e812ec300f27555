#pragma once

#include "tavrone/dataobject/DataObjectBase.h"

namespace tavrone {

// The base of generated records: typed members in the subclass, and one flag for each field, in an array that the
// subclass owns. A flag of false is a null field. The subclass implements getField0 and setField0 as a switch over the
// index and lets the base fail for the rest.
class TAVRONE_API AbstractDataObject : public DataObjectBase {
 public:
  // Borrows all three; every field starts null. `nullFlags` has one flag for each field of the metadata.
  AbstractDataObject(DataObjectMetaInfo *metaInfo, bool *nullFlags, DataObjectSection *parentSection);
  // Takes the other's metadata and copies its flags into `nullFlags`.
  AbstractDataObject(AbstractDataObject const &other, bool *nullFlags, DataObjectSection *parentSection);
  // Takes the metadata only: no flags until the subclass points nullFlags at its own, no parent, no references.
  AbstractDataObject(AbstractDataObject const &other);
  // Copies the flags' values; parent, references and the array stay.
  AbstractDataObject &operator=(AbstractDataObject const &other);
  ~AbstractDataObject() noexcept(false) override;

  bool getField(int index, Object &out) const override;
  Object *getField(int index) const override;
  bool isNull(int index) const override { return !nullFlags[index]; }
  void setNull(int index) override { nullFlags[index] = false; }
  // Raises the flag before it stores: where the value is refused, the field is set and has the value from before.
  void setField(int index, Object const &value) override { setField(index, &value); }
  void setField(int index, Object const *value) override;
  DataObjectSection *getParentSection() const override { return parentSection; }
  void setParentSection(DataObjectSection *section) override { parentSection = section; }
  bool isEmpty() const override;
  DataObjectMetaInfo *getMetaInfo() const override { return metaInfo; }
  // Clears the flags; the members stay, unread.
  void reset() override;
  // Raises TransformException with catalogue key SRT178 and the name; generated classes with sections override it.
  DataObject *createSectionElement(tvstring const &name, DataObjectSection *section) const override;

  using DataObjectBase::getField;
  using DataObjectBase::isNull;
  using DataObjectBase::setField;
  using DataObjectBase::setNull;

  // None of these checks the index.
  bool isNotNull(int index) const { return nullFlags[index]; }
  bool isNullValue(int index) const { return !nullFlags[index]; }
  void setNotNull(int index) { nullFlags[index] = true; }
  void setNullValue(int index) { nullFlags[index] = false; }
  void setNull(int index, bool null) {
    if (null)
      setNull(index);
    else
      nullFlags[index] = true;
  }
  // Raise FieldNullException with the qualified name for a null field: catalogue key SRT500, and SRT600 for
  // assertNotNull.
  void ensureNotNull(int index) const {
    if (!nullFlags[index]) throwNullValueException(index);
  }
  void assertNotNull(int index) const;
  [[noreturn]] void throwNullValueException(int index) const;

 protected:
  // The hooks: store the value, which is not null, and hand out the value of a field that is not null. Here they raise
  // FieldNotFoundException "Field index out of bounds - <index>", which is what a subclass does for unknown indexes.
  virtual void setField0(int index, Object const *value);
  // A new wrapper, the caller's, when `out` is null; otherwise writes into it and returns it.
  virtual Object *getField0(int index, Object *out) const;
  virtual Object *getField0(int index) const;

  DataObjectSection *parentSection;  // borrowed; null for a root object
  bool *nullFlags;                   // false is null
  DataObjectMetaInfo *metaInfo;      // borrowed

 private:
  bool hasFlag(int index) const;
};

}  // namespace tavrone

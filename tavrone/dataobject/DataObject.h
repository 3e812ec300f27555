#pragma once

#include <iosfwd>

#include "tavrone/core/SmartPtr.h"

namespace tavrone {

class DataObjectMetaInfo;
class DataObjectSection;

// One structured record with a fixed list of typed fields, each reached by its 0-based index or, through the metadata,
// by its name. Counted; held by SmartPtr<DataObject>. An object and its sections belong to one thread at a time.
//
// What getField returns is a new wrapper, the caller's: hold it in a SmartPtr<Object>. A null field reads as null.
class TAVRONE_API DataObject : public virtual ObjectRef {
 public:
  ~DataObject() noexcept(false) override;

  // The section of a field, borrowed.
  virtual DataObjectSection *getSection(int index) const = 0;
  virtual DataObjectSection *getSection(tvstring const &name) const = 0;

  // The form with `out` writes the value into a wrapper of the caller's; false and untouched for a null field. Unknown
  // indexes and names raise FieldNotFoundException, here and below; isNull and setNull may leave an index unchecked.
  virtual bool getField(int index, Object &out) const = 0;
  virtual Object *getField(int index) const = 0;
  virtual bool getField(tvstring const &name, Object &out) const = 0;
  virtual Object *getField(tvstring const &name) const = 0;
  // The same, but raises FieldNullException for a null field.
  virtual Object *getFieldCheckNull(int index) const = 0;
  // The same, held.
  virtual SmartPtr<Object> getFieldVal(int index) = 0;
  virtual SmartPtr<Object> getFieldVal(tvstring const &name) = 0;
  virtual SmartPtr<Object> getFieldCheckNullVal(int index) = 0;

  virtual bool isNull(tvstring const &name) const = 0;
  virtual bool isNull(int index) const = 0;
  virtual void setNull(tvstring const &name) = 0;
  virtual void setNull(int index) = 0;

  // The value is read, not kept; a null pointer makes the field null. Records with typed members read it by the getter
  // of the field's type, which fails for a value of another kind.
  virtual void setField(int index, Object const &value) = 0;
  virtual void setField(int index, Object const *value) = 0;
  virtual void setField(tvstring const &name, Object const &value) = 0;
  virtual void setField(tvstring const &name, Object const *value) = 0;

  // Raise FieldNotFoundException for an unknown name or index.
  virtual int getFieldIndex(tvstring const &name) const = 0;
  virtual tvstring const &getFieldType(tvstring const &name) const = 0;
  virtual tvstring const &getFieldType(int index) const = 0;
  virtual tvstring const &getFieldName(int index) const = 0;
  // "Section.Field" for an element of a section, else "Field".
  virtual tvstring getQualifiedName(int index) = 0;
  virtual int getFieldCount() const = 0;

  // The section that holds this element, borrowed; null for a root object.
  virtual DataObjectSection *getParentSection() const = 0;
  // Borrows the section, and does not add the object to it.
  virtual void setParentSection(DataObjectSection *section) = 0;

  // The fields that are not null as XML, framed by getRootXMLTag(), without an XML declaration.
  virtual tvstring toXMLString() = 0;
  // The fields stand `level` tabs deep, the frame one less. Elements have no frame: their section writes it.
  virtual tvstring toXMLString(int level) = 0;

  // The record that holds this one, over as many sections as it takes, borrowed; this one if none does.
  virtual DataObject *getRootDataObject() const = 0;
  // Whether no field has a value. A section has none while all of its elements are empty.
  virtual bool isEmpty() const = 0;
  // Borrowed.
  virtual DataObjectMetaInfo *getMetaInfo() const = 0;

  // Do nothing; the stored form is DataObjectIO's.
  virtual void write(std::ostream &out) const = 0;
  virtual void read(std::istream &in) = 0;

  // Makes the object ready to be filled again: no field has a value.
  virtual void reset() = 0;
  virtual tvstring getRootXMLTag() = 0;
  // A new element for the named section, its parent section set, not yet added to it; the caller's.
  virtual DataObject *createSectionElement(tvstring const &name, DataObjectSection *section) const = 0;
  // The fields as XML, `level` tabs deep, without a frame.
  virtual tvstring toXMLStringImpl(int level) = 0;

  // Whether the values stand at the offsets that the metadata gives: true for declared records (Record.h) only.
  bool hasFieldOffsets() const { return hasFieldOffsets_; }

 protected:
  DataObject() = default;
  // Offsets are the layout of one class: a copy of another class must not take them over.
  DataObject(DataObject const &) : Object(), ObjectRef() {}
  DataObject &operator=(DataObject const &) { return *this; }

  void setHasFieldOffsets() { hasFieldOffsets_ = true; }

 private:
  bool hasFieldOffsets_ = false;
};

// Keeps an object alive through a change that may drop the last reference on it. Null for one that has no reference,
// such as one on the stack, which nobody can drop.
inline SmartPtr<DataObject> keepAlive(DataObject const &object) {
  return SmartPtr<DataObject>(object.getRefCount() > 0 ? const_cast<DataObject *>(&object) : nullptr);
}

}  // namespace tavrone

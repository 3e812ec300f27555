#pragma once

#include "tavrone/dataobject/DataObject.h"

namespace tavrone {

// What all records share: the name forms, which resolve the index through the metadata and call the virtual index form,
// the counted forms of getField, names, and XML.
class TAVRONE_API DataObjectBase : public DataObject {
 public:
  ~DataObjectBase() noexcept(false) override;

  // By the checked cast: a plain field fails with ClassCastException.
  DataObjectSection *getSection(int index) const override;
  DataObjectSection *getSection(tvstring const &name) const override;
  bool getField(tvstring const &name, Object &out) const override;
  Object *getField(tvstring const &name) const override;
  // Raises FieldNullException with catalogue key SRT500 and the qualified name.
  Object *getFieldCheckNull(int index) const override;
  SmartPtr<Object> getFieldVal(int index) override;
  SmartPtr<Object> getFieldVal(tvstring const &name) override;
  SmartPtr<Object> getFieldCheckNullVal(int index) override;
  bool isNull(tvstring const &name) const override;
  void setNull(tvstring const &name) override;
  void setField(tvstring const &name, Object const &value) override;
  void setField(tvstring const &name, Object const *value) override;
  int getFieldIndex(tvstring const &name) const override;
  tvstring const &getFieldType(tvstring const &name) const override;
  tvstring const &getFieldType(int index) const override;
  tvstring const &getFieldName(int index) const override;
  tvstring getQualifiedName(int index) override;
  int getFieldCount() const override;
  tvstring toXMLString() override;
  tvstring toXMLString(int level) override;
  DataObject *getRootDataObject() const override;
  void write(std::ostream &out) const override;
  void read(std::istream &in) override;
  // The metadata's name.
  tvstring getRootXMLTag() override;
  tvstring toXMLStringImpl(int level) override;

  using DataObject::getField;
  using DataObject::isNull;
  using DataObject::setField;
  using DataObject::setNull;

  // FieldMetaInfo's. Raise FieldNotFoundException for an unknown index or name.
  tvstring const &getMangledName(int index) const;
  tvstring const &getMangledName(tvstring const &name) const;

  // Texts go through a StringObject, so the field must be one of text.
  void setField(int index, tvstring const &text);
  void setField(tvstring const &name, tvstring const &text);
  bool getField(int index, tvstring &out) const;

  // Field by field, by index: both are of one type, or of types whose fields take each other's values. Sections go
  // element by element into cleared target sections; a null field becomes null in the target.
  static void copy(DataObject const *from, DataObject *to);

 protected:
  DataObjectBase() = default;
  DataObjectBase(DataObjectBase const &other) : Object(), ObjectRef(), DataObject(other) {}
  DataObjectBase &operator=(DataObjectBase const &) = default;
};

}  // namespace tavrone

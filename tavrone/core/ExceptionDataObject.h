#pragma once

#include "tavrone/core/ExceptionObject.h"
#include "tavrone/core/Properties.h"
#include "tavrone/dataobject/AbstractDataObject.h"

namespace tavrone {

// The record of one failure: seven fields, all null at first, and context properties such as its phase and its place in
// the input. A real data object, so that a failure can be queued, mapped like a message and rendered as XML.
//
// A getter of a null field raises FieldNullException (catalogue key SRT500); a setter makes the field not null.
class TAVRONE_API ExceptionDataObject : public AbstractDataObject, public ExceptionObject {
 public:
  static tvstringliteral const THIS_TYPE;  // "TransformException"

  ExceptionDataObject();
  ExceptionDataObject(ExceptionDataObject const &other);
  ExceptionDataObject &operator=(ExceptionDataObject const &other);
  ~ExceptionDataObject() noexcept(false) override;

  Object *clone() const override;
  tvstring getRootXMLTag() override;
  // The start tag, the non-null fields, the context properties in key order with raw values, the end tag; no XML
  // header.
  tvstring toXMLString() override;
  using AbstractDataObject::toXMLString;

  tvstring getType() const { return text(TYPE); }
  void setType(tvstring const &type) { setText(TYPE, type); }
  virtual tvstring getMessage() const;
  void setMessage(tvstring const &message) { setText(MESSAGE, message); }
  tvstring getErrorCode() const { return text(ERROR_CODE); }
  void setErrorCode(tvstring const &errorCode) { setText(ERROR_CODE, errorCode); }
  tvstring getSeverity() const { return text(SEVERITY); }
  void setSeverity(tvstring const &severity) { setText(SEVERITY, severity); }
  bool getCascadable() const {
    ensureNotNull(CASCADABLE);
    return cascadable_;
  }
  void setCascadable(bool cascadable) {
    cascadable_ = cascadable;
    setNotNull(CASCADABLE);
  }
  tvstring getFFieldName() const { return text(FIELD_NAME); }
  void setFFieldName(tvstring const &fieldName) { setText(FIELD_NAME, fieldName); }
  tvstring getFieldID() const { return text(FIELD_ID); }
  void setFieldID(tvstring const &fieldID) { setText(FIELD_ID, fieldID); }

  // An empty value removes the key; an absent key reads as empty.
  void setContextProperty(tvstring const &key, tvstring const &value);
  tvstring getContextProperty(tvstring const &key) const { return contextProperties_.getProperty(key); }
  Properties &getContextProperties() { return contextProperties_; }
  Properties const &getContextProperties() const { return contextProperties_; }

  // fill... writes only what is still empty.
  void setErrorType(tvstring const &type) { setContextProperty(ERROR_TYPE, type); }
  tvstring getErrorType() const { return getContextProperty(ERROR_TYPE); }
  void fillErrorType(tvstring const &type);
  void setErrorPhase(tvstring const &phase) { setContextProperty(ERROR_PHASE, phase); }
  tvstring getErrorPhase() const { return getContextProperty(ERROR_PHASE); }
  void setPhase(tvstring const &phase) { setErrorPhase(phase); }
  tvstring getPhase() const { return getErrorPhase(); }
  void fillPhase(tvstring const &phase);
  // The place in the input, as the wire format counts it; -1 when it is not known.
  void setLine(int line);
  int getLine() const { return placeOf(LINE); }
  void setColumn(int column);
  int getColumn() const { return placeOf(COLUMN); }

  // True for THIS_TYPE only.
  bool instanceOf(tvstring const &name) const { return name == THIS_TYPE; }

 protected:
  enum FieldIndex { TYPE, MESSAGE, ERROR_CODE, SEVERITY, CASCADABLE, FIELD_NAME, FIELD_ID, FIELD_COUNT };

  using AbstractDataObject::getField0;
  Object *getField0(int index, Object *out) const override;
  Object *getField0(int index) const override;
  // Takes the value's text, or its boolean for "Cascadable".
  void setField0(int index, Object const *value) override;

 private:
  using TextField = tvstring ExceptionDataObject::*;

  static DataObjectMetaInfo *typeMetaInfo();
  // The member of a text field; null for "Cascadable" and for an index that is no field's.
  static TextField textField(int index);
  tvstring const &text(int index) const {
    ensureNotNull(index);
    return this->*textField(index);
  }
  void setText(int index, tvstring const &value) {
    this->*textField(index) = value;
    setNotNull(index);
  }
  int placeOf(tvstring const &key) const;

  tvstring type_;
  tvstring message_;
  tvstring errorCode_;
  tvstring severity_;
  bool cascadable_ = false;
  tvstring fieldName_;
  tvstring fieldID_;
  Properties contextProperties_;
  bool flags_[FIELD_COUNT];
};

}  // namespace tavrone

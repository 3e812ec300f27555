#include "tavrone/core/ExceptionDataObject.h"

#include "tavrone/core/Conversion.h"
#include "tavrone/core/Wrappers.h"
#include "tavrone/core/tvstringbuffer.h"
#include "tavrone/dataobject/MetaInfo.h"

namespace tavrone {

#define TAVRONE_DEFINE(NAME, TEXT) constinit tvstringliteral const ExceptionObject::NAME(TEXT);
TAVRONE_EXCEPTION_VOCABULARY(TAVRONE_DEFINE)
#undef TAVRONE_DEFINE

ExceptionObject::~ExceptionObject() noexcept(false) = default;

constinit tvstringliteral const ExceptionDataObject::THIS_TYPE("TransformException");

// Never destroyed: failures are raised while libraries load and while the process ends.
DataObjectMetaInfo *ExceptionDataObject::typeMetaInfo() {
  static DataObjectMetaInfo *const metaInfo = [] {
    char const *names[] = {"Type", "Message", "ErrorCode", "Severity", "Cascadable", "FieldName", "FieldID"};
    char const *types[] = {"String", "String", "String", "String", "Boolean", "String", "String"};
    return new DataObjectMetaInfo(tvstringliteral("ExceptionDataObject2"), names, types, FIELD_COUNT);
  }();
  return metaInfo;
}

namespace {

// Builds the metadata while the library loads, unless a failure came earlier: threads find it made.
[[maybe_unused]] bool const loaded = ExceptionDataObject().isEmpty();

}  // namespace

ExceptionDataObject::TextField ExceptionDataObject::textField(int index) {
  static constexpr TextField FIELDS[FIELD_COUNT] = {&ExceptionDataObject::type_,
                                                    &ExceptionDataObject::message_,
                                                    &ExceptionDataObject::errorCode_,
                                                    &ExceptionDataObject::severity_,
                                                    nullptr,
                                                    &ExceptionDataObject::fieldName_,
                                                    &ExceptionDataObject::fieldID_};
  return index >= 0 && index < FIELD_COUNT ? FIELDS[index] : nullptr;
}

ExceptionDataObject::ExceptionDataObject() : AbstractDataObject(typeMetaInfo(), flags_, nullptr) {}

ExceptionDataObject::ExceptionDataObject(ExceptionDataObject const &other)
    : Object(),
      ObjectRef(),
      AbstractDataObject(other, flags_, nullptr),
      ExceptionObject(other),
      type_(other.type_),
      message_(other.message_),
      errorCode_(other.errorCode_),
      severity_(other.severity_),
      cascadable_(other.cascadable_),
      fieldName_(other.fieldName_),
      fieldID_(other.fieldID_),
      contextProperties_(other.contextProperties_) {}

ExceptionDataObject &ExceptionDataObject::operator=(ExceptionDataObject const &other) {
  AbstractDataObject::operator=(other);
  type_ = other.type_;
  message_ = other.message_;
  errorCode_ = other.errorCode_;
  severity_ = other.severity_;
  cascadable_ = other.cascadable_;
  fieldName_ = other.fieldName_;
  fieldID_ = other.fieldID_;
  contextProperties_ = other.contextProperties_;
  return *this;
}

ExceptionDataObject::~ExceptionDataObject() noexcept(false) = default;

Object *ExceptionDataObject::clone() const {
  return new ExceptionDataObject(*this);
}

tvstring ExceptionDataObject::getMessage() const {
  return text(MESSAGE);
}

tvstring ExceptionDataObject::getRootXMLTag() {
  return THIS_TYPE;
}

tvstring ExceptionDataObject::toXMLString() {
  tvstring const tag = getRootXMLTag();
  tvstringbuffer out;
  out.append('<' + tag + ">\n");
  out.append(toXMLStringImpl(1));
  for (auto const &[key, value] : contextProperties_) out.append("\t<" + key + '>' + value + "</" + key + ">\n");
  out.append("</" + tag + ">\n");
  return out;
}

void ExceptionDataObject::setContextProperty(tvstring const &key, tvstring const &value) {
  if (value.empty())
    contextProperties_.erase(key);
  else
    contextProperties_[key] = value;
}

void ExceptionDataObject::fillErrorType(tvstring const &type) {
  if (getErrorType().empty()) setErrorType(type);
}
void ExceptionDataObject::fillPhase(tvstring const &phase) {
  if (getErrorPhase().empty()) setErrorPhase(phase);
}

void ExceptionDataObject::setLine(int line) {
  setContextProperty(LINE, intToString(line));
}
void ExceptionDataObject::setColumn(int column) {
  setContextProperty(COLUMN, intToString(column));
}

int ExceptionDataObject::placeOf(tvstring const &key) const {
  tvstring const place = getContextProperty(key);
  return place.empty() ? -1 : t_atoi(place.data(), place.data() + place.length());
}

Object *ExceptionDataObject::getField0(int index, Object *out) const {
  if (index == CASCADABLE) {
    if (out == nullptr) return new BoolObject(cascadable_);
    out->setBoolean(cascadable_);
    return out;
  }
  TextField const field = textField(index);
  if (field == nullptr) return AbstractDataObject::getField0(index, out);
  if (out == nullptr) return new StringObject(this->*field);
  out->setString(this->*field);
  return out;
}

Object *ExceptionDataObject::getField0(int index) const {
  return getField0(index, nullptr);
}

void ExceptionDataObject::setField0(int index, Object const *value) {
  if (index == CASCADABLE)
    cascadable_ = value->getBoolean();
  else if (TextField const field = textField(index); field != nullptr)
    this->*field = value->getString();
  else
    AbstractDataObject::setField0(index, value);
}

}  // namespace tavrone

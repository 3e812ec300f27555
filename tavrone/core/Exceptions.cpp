#include "tavrone/core/Exceptions.h"

#include <memory>
#include <typeinfo>

#include "tavrone/core/Class.h"
#include "tavrone/core/Conversion.h"

namespace tavrone {

tvstring ExceptionTrace::getTraceString() const {
  if (!isValid()) return tvstring();
  return fileName_ + ':' + intToString(line_) + ':';
}

// One nested failure and the number of exceptions that share it. Holds on to the one that stood in its place before.
struct Exception::Detail {
  Exception *exception;
  Detail *earlier = nullptr;
  int holders = 1;

  static Detail *hold(Exception *exception) {
    if (exception == nullptr) return nullptr;
    std::unique_ptr<Exception> taken(exception);
    auto *const detail = new Detail{exception};
    static_cast<void>(taken.release());
    return detail;
  }
  static Detail *share(Detail *detail) {
    if (detail != nullptr) ++detail->holders;
    return detail;
  }
  static void drop(Detail *detail) {
    while (detail != nullptr && --detail->holders == 0) {
      Exception *const exception = detail->exception;
      Detail *const earlier = detail->earlier;
      delete detail;
      delete exception;
      detail = earlier;
    }
  }
};

Exception::Exception(tvstring const &message) : message_(message), detail_(nullptr) {}
Exception::Exception(tvstring const &message, Exception *detail) : message_(message), detail_(Detail::hold(detail)) {}
Exception::Exception(Exception const &other)
    : Object(other), message_(other.message_), detail_(Detail::share(other.detail_)), trace_(other.trace_) {}
Exception::~Exception() noexcept(false) {
  Detail::drop(detail_);
}

Exception &Exception::operator=(Exception const &other) {
  Detail *old = detail_;
  detail_ = Detail::share(other.detail_);
  message_ = other.message_;
  trace_ = other.trace_;
  Detail::drop(old);
  return *this;
}

tvstring Exception::getMessage() const {
  return message_;
}
void Exception::setMessage(tvstring const &message) {
  message_ = message;
}
Exception *Exception::getDetail() const {
  return detail_ == nullptr ? nullptr : detail_->exception;
}

void Exception::setDetail(Exception &detail) {
  Detail *const nested = Detail::hold(checkedCast<Exception>(detail.clone()));
  nested->earlier = detail_;
  detail_ = nested;
}

tvstring Exception::toString() const {
  return Class(typeid(*this)).getName() + ':' + getMessage();
}
Object *Exception::clone() const {
  return new Exception(*this);
}

#define TAVRONE_EXCEPTION(Name)                                      \
  Name::Name(tvstring const &message) : Exception(message) {}        \
  Name::Name(Name const &other) : Object(other), Exception(other) {} \
  Name::~Name() noexcept(false) = default;                           \
  Object *Name::clone() const {                                      \
    return new Name(*this);                                          \
  }

TAVRONE_EXCEPTION(IllegalArgumentException)
TAVRONE_EXCEPTION(ClassNotFoundException)
TAVRONE_EXCEPTION(ClassCastException)
TAVRONE_EXCEPTION(LocalInitializationException)
TAVRONE_EXCEPTION(InternalError)

#undef TAVRONE_EXCEPTION

TransformException::TransformException(tvstring const &message) : TransformException(message, nullptr) {}

TransformException::TransformException(tvstring const &message, Exception *detail) : Exception(message, detail) {
  ExceptionDataObject::setMessage(message);
  initFields();
}

TransformException::TransformException(TransformException const &other)
    : Object(), ObjectRef(), Exception(other), ExceptionDataObject(other) {}

TransformException::TransformException(ExceptionDataObject const &record)
    : Exception(record.isNotNull(MESSAGE) ? record.getMessage() : tvstring()), ExceptionDataObject(record) {}

TransformException::TransformException(std::vector<ExceptionDataObject *> &list) : TransformException("No message") {
  if (!list.empty()) TransformException::addAll(TransformException(*list.front()));
}

TransformException::~TransformException() noexcept(false) = default;

void TransformException::initFields() {
  setErrorCode(tvstring());
  setSeverity(EXCEPTION_SEVERITY_FATAL);
  setCascadable(true);
}

void TransformException::addRef() {
  ExceptionDataObject::addRef();
}
void TransformException::releaseRef() {
  ExceptionDataObject::releaseRef();
}

Object *TransformException::clone() const {
  return new TransformException(*this);
}

tvstring TransformException::getMessage() const {
  return ExceptionDataObject::getMessage();
}

void TransformException::setMessage(tvstring const &message) {
  Exception::setMessage(message);
  ExceptionDataObject::setMessage(message);
}

void TransformException::addAll(TransformException const &other) {
  setMessage(other.getMessage());
  ExceptionDataObject::operator=(other);
}
void TransformException::addAll(TransformException const *other) {
  addAll(*other);
}

void TransformException::getExceptionsAsList(std::vector<ExceptionDataObject *> &out) const {
  auto record = std::make_unique<ExceptionDataObject>(*this);
  out.push_back(record.get());
  static_cast<void>(record.release());
}

void TransformException::setInternalCode(tvstring const &code) {
  setContextProperty(INTERNAL_CODE, code);
}

// Rendering reads the record only.
tvstring TransformException::toString() const {
  return const_cast<TransformException *>(this)->toXMLString();
}
tvstring TransformException::toXMLString() {
  return ExceptionDataObject::toXMLString();
}
tvstring TransformException::toXMLString(int) {
  return toXMLString();
}
tvstring TransformException::toXMLString(bool) {
  return toXMLString();
}

#define TAVRONE_EXCEPTION(Name, Base)                                   \
  Name::Name(tvstring const &message) : Base(message) {}                \
  Name::Name(Name const &other) : Object(), ObjectRef(), Base(other) {} \
  Name::~Name() noexcept(false) = default;                              \
  Object *Name::clone() const {                                         \
    return new Name(*this);                                             \
  }

TAVRONE_EXCEPTION(UnhandledMessageException, TransformException)
TAVRONE_EXCEPTION(UnrecognizedMessageException, UnhandledMessageException)
TAVRONE_EXCEPTION(TransformRuntimeException, TransformException)
TAVRONE_EXCEPTION(TransformNullValueException, TransformRuntimeException)
TAVRONE_EXCEPTION(FieldNotFoundException, TransformException)
TAVRONE_EXCEPTION(FieldTypeMismatchException, TransformException)
TAVRONE_EXCEPTION(FieldNullException, TransformException)
TAVRONE_EXCEPTION(NamingException, TransformException)
TAVRONE_EXCEPTION(SectionConstraintException, TransformException)
TAVRONE_EXCEPTION(FIXParsingException, TransformException)
TAVRONE_EXCEPTION(FIXWriterException, TransformException)
TAVRONE_EXCEPTION(SIACCanonicalParsingException, TransformException)
TAVRONE_EXCEPTION(SIACCanonicalWriterException, TransformException)
TAVRONE_EXCEPTION(FieldParsingException, TransformException)

#undef TAVRONE_EXCEPTION

FIXParsingException::FIXParsingException(TransformException const &other) : TransformException(other) {}
FIXWriterException::FIXWriterException(TransformException const &other) : TransformException(other) {}
SIACCanonicalParsingException::SIACCanonicalParsingException(TransformException const &other)
    : TransformException(other) {}
SIACCanonicalWriterException::SIACCanonicalWriterException(TransformException const &other)
    : TransformException(other) {}

FieldParsingException::FieldParsingException(tvstring const &message, tvstring const &) : TransformException(message) {}

FieldValidationException::FieldValidationException(tvstring const &message, tvstring const &fieldName)
    : TransformException(message) {
  setFFieldName(fieldName);
}
FieldValidationException::FieldValidationException(FieldValidationException const &other)
    : Object(), ObjectRef(), TransformException(other) {}
FieldValidationException::~FieldValidationException() noexcept(false) = default;
Object *FieldValidationException::clone() const {
  return new FieldValidationException(*this);
}

FCSParseException::FCSParseException(tvstring const &message) : TransformException(message) {}
FCSParseException::FCSParseException(FCSParseException const &other)
    : Object(), ObjectRef(), TransformException(other), failedLine_(other.failedLine_) {}
FCSParseException::~FCSParseException() noexcept(false) = default;
Object *FCSParseException::clone() const {
  return new FCSParseException(*this);
}

}  // namespace tavrone

#include "tavrone/core/Exceptions.h"

#include <typeinfo>

#include "tavrone/core/Class.h"
#include "tavrone/core/Conversion.h"

namespace tavrone {

tvstring ExceptionTrace::getTraceString() const {
  if (!isValid()) return tvstring();
  return fileName_ + ':' + intToString(line_) + ':';
}

// One nested failure and the number of exceptions that share it.
struct Exception::Detail {
  Exception *exception;
  int holders = 1;

  static Detail *hold(Exception *exception) { return exception == nullptr ? nullptr : new Detail{exception}; }
  static Detail *share(Detail *detail) {
    if (detail != nullptr) ++detail->holders;
    return detail;
  }
  static void drop(Detail *detail) {
    if (detail == nullptr || --detail->holders != 0) return;
    Exception *exception = detail->exception;
    delete detail;
    delete exception;
  }
};

Exception::Exception(tvstring const &message) : message_(message), detail_(nullptr) {}
Exception::Exception(tvstring const &message, Exception *detail) : message_(message), detail_(Detail::hold(detail)) {}
Exception::Exception(Exception const &other)
    : Object(other), message_(other.message_), detail_(Detail::share(other.detail_)), trace_(other.trace_) {}
Exception::~Exception() noexcept(false) { Detail::drop(detail_); }

Exception &Exception::operator=(Exception const &other) {
  Detail *old = detail_;
  detail_ = Detail::share(other.detail_);
  message_ = other.message_;
  trace_ = other.trace_;
  Detail::drop(old);
  return *this;
}

tvstring Exception::getMessage() const { return message_; }
void Exception::setMessage(tvstring const &message) { message_ = message; }
Exception *Exception::getDetail() const { return detail_ == nullptr ? nullptr : detail_->exception; }

void Exception::setDetail(Exception &detail) {
  Detail *old = detail_;
  detail_ = Detail::hold(checkedCast<Exception>(detail.clone()));
  Detail::drop(old);
}

tvstring Exception::toString() const { return Class(typeid(*this)).getName() + ':' + getMessage(); }
Object *Exception::clone() const { return new Exception(*this); }

TransformException::TransformException(tvstring const &message) : Exception(message) {}
TransformException::TransformException(tvstring const &message, Exception *detail) : Exception(message, detail) {}
TransformException::TransformException(TransformException const &other) : Object(other), Exception(other) {}
TransformException::~TransformException() noexcept(false) = default;
Object *TransformException::clone() const { return new TransformException(*this); }

#define TAVRONE_EXCEPTION(Name, Base)                                   \
  Name::Name(tvstring const &message) : Base(message) {}                \
  Name::Name(Name const &other) : Object(other), Base(other) {}         \
  Name::~Name() noexcept(false) = default;                              \
  Object *Name::clone() const { return new Name(*this); }

TAVRONE_EXCEPTION(IllegalArgumentException, Exception)
TAVRONE_EXCEPTION(ClassNotFoundException, Exception)
TAVRONE_EXCEPTION(ClassCastException, Exception)
TAVRONE_EXCEPTION(LocalInitializationException, Exception)
TAVRONE_EXCEPTION(InternalError, Exception)
TAVRONE_EXCEPTION(UnhandledMessageException, TransformException)
TAVRONE_EXCEPTION(UnrecognizedMessageException, UnhandledMessageException)
TAVRONE_EXCEPTION(TransformRuntimeException, TransformException)
TAVRONE_EXCEPTION(TransformNullValueException, TransformRuntimeException)
TAVRONE_EXCEPTION(FieldNotFoundException, TransformException)
TAVRONE_EXCEPTION(FieldTypeMismatchException, TransformException)
TAVRONE_EXCEPTION(FieldNullException, TransformException)
TAVRONE_EXCEPTION(NamingException, TransformException)
TAVRONE_EXCEPTION(SectionConstraintException, TransformException)
TAVRONE_EXCEPTION(FieldParsingException, TransformException)
TAVRONE_EXCEPTION(FieldValidationException, TransformException)

#undef TAVRONE_EXCEPTION

}  // namespace tavrone

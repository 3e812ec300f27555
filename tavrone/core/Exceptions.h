#pragma once

#include "tavrone/core/ExceptionTrace.h"
#include "tavrone/core/Object.h"

namespace tavrone {

// The root of every failure: thrown by value, with a text, perhaps a nested failure, and the place where it was raised.
// Raise sites use the helpers of Raise.h.
class TAVRONE_API Exception : public virtual Object {
 public:
  Exception(tvstring const &message);
  // Takes over `detail`, which may be null.
  Exception(tvstring const &message, Exception *detail);
  // Copies share the nested failure; it lives as long as one of them.
  Exception(Exception const &other);
  Exception &operator=(Exception const &other);
  ~Exception() noexcept(false) override;

  virtual tvstring getMessage() const;
  virtual void setMessage(tvstring const &message);

  // The nested failure, borrowed, or null.
  Exception *getDetail() const;
  // Nests a clone of the failure.
  void setDetail(Exception &detail);
  ExceptionTrace &getTrace() { return trace_; }
  ExceptionTrace const &getTrace() const { return trace_; }
  tvstring getTraceString() const { return trace_.getTraceString(); }

  // The run-time type's name, ":" and the message.
  tvstring toString() const override;
  Object *clone() const override;

 private:
  struct Detail;

  tvstring message_;
  Detail *detail_;
  ExceptionTrace trace_;
};

// What a subclass without data of its own consists of: its constructor from a text, and a clone of its own type.
#define TAVRONE_EXCEPTION(Name, Base)                            \
  class TAVRONE_API Name : public Base {                         \
   public:                                                       \
    Name(tvstring const &message);                               \
    Name(Name const &other);                                     \
    Name &operator=(Name const &) = default;                     \
    ~Name() noexcept(false) override;                            \
    Object *clone() const override;                              \
  };

TAVRONE_EXCEPTION(IllegalArgumentException, Exception)
TAVRONE_EXCEPTION(ClassNotFoundException, Exception)
TAVRONE_EXCEPTION(ClassCastException, Exception)
TAVRONE_EXCEPTION(LocalInitializationException, Exception)
TAVRONE_EXCEPTION(InternalError, Exception)

// A failure of a message that is being transformed.
class TAVRONE_API TransformException : public Exception {
 public:
  TransformException(tvstring const &message);
  // Takes over `detail`, which may be null.
  TransformException(tvstring const &message, Exception *detail);
  TransformException(TransformException const &other);
  TransformException &operator=(TransformException const &) = default;
  ~TransformException() noexcept(false) override;

  Object *clone() const override;
};

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

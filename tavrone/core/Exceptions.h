#pragma once

#include <vector>

#include "tavrone/core/ExceptionDataObject.h"
#include "tavrone/core/ExceptionTrace.h"

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
  // Nests a clone of the failure. The one before it stays alive for whoever borrowed it, until this exception goes.
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
  Detail *detail_;  // the nested failure with the number of exceptions that share it
  ExceptionTrace trace_;
};

// The plain failures: a text and no record.
#define TAVRONE_EXCEPTION(Name)               \
  class TAVRONE_API Name : public Exception { \
   public:                                    \
    Name(tvstring const &message);            \
    Name(Name const &other);                  \
    Name &operator=(Name const &) = default;  \
    ~Name() noexcept(false) override;         \
    Object *clone() const override;           \
  };

// An argument that contradicts its object, such as an element of another section.
TAVRONE_EXCEPTION(IllegalArgumentException)
// For hosts and generated code: the library reports an unknown class as a TransformException.
TAVRONE_EXCEPTION(ClassNotFoundException)
// An object of another class than the one needed; see checkedCast.
TAVRONE_EXCEPTION(ClassCastException)
// A value that nothing has set.
TAVRONE_EXCEPTION(LocalInitializationException)
// For hosts and generated code; the library raises none.
TAVRONE_EXCEPTION(InternalError)

#undef TAVRONE_EXCEPTION

// A failure of a message that is being transformed: an exception and the record of it at once, with one Object and one
// count, so that it can be thrown, queued by a handler, routed as a message or rendered as XML as it stands. A new one
// is "fatal" and cascadable with an empty code; its Type, FieldName and FieldID are null.
class TAVRONE_API TransformException : public Exception, public ExceptionDataObject {
 public:
  TransformException(tvstring const &message);
  // Takes over `detail`, which may be null.
  TransformException(tvstring const &message, Exception *detail);
  TransformException(TransformException const &other);
  // A copy of the record as it stands; a null message stays null.
  TransformException(ExceptionDataObject const &record);
  // The list's first record, whose message must not be null, or "No message" for an empty list: one exception carries
  // one record. Borrows the list.
  TransformException(std::vector<ExceptionDataObject *> &list);
  TransformException &operator=(TransformException const &) = default;
  ~TransformException() noexcept(false) override;

  // The record's count is that of the whole exception.
  using ExceptionDataObject::addRef;
  using ExceptionDataObject::releaseRef;
  void addRef() override;
  void releaseRef() override;
  // The same as toXMLString().
  tvstring toString() const override;
  Object *clone() const override;

  // The record's Message; raises FieldNullException if that is null.
  tvstring getMessage() const override;
  void setMessage(tvstring const &message) override;

  // Copies the other's message, which must not be null, and its record; nothing accumulates, in spite of the name.
  virtual void addAll(TransformException const &other);
  virtual void addAll(TransformException const *other);

  // Appends a clone of the record alone; the caller owns it.
  void getExceptionsAsList(std::vector<ExceptionDataObject *> &out) const;
  // The context property "Internal-Code"; an empty code removes it.
  void setInternalCode(tvstring const &code);

  // The record's XML whatever the argument.
  tvstring toXMLString() override;
  tvstring toXMLString(int level) override;
  tvstring toXMLString(bool header);

 private:
  void initFields();
};

// The failures that add no data: each a constructor from a text and a clone of its own type. Those of the wire formats
// can also re-type a failure that a parser caught, copying it whole.
#define TAVRONE_EXCEPTION(Name, Base, ...)   \
  class TAVRONE_API Name : public Base {     \
   public:                                   \
    Name(tvstring const &message);           \
    Name(Name const &other);                 \
    __VA_ARGS__                              \
    Name &operator=(Name const &) = default; \
    ~Name() noexcept(false) override;        \
    Object *clone() const override;          \
  };

// The router has no configuration for an identified message.
TAVRONE_EXCEPTION(UnhandledMessageException, TransformException)
// No identifier knows the input.
TAVRONE_EXCEPTION(UnrecognizedMessageException, UnhandledMessageException)
// What a rule, a formula or their use got wrong, and dates that don't fit their pattern.
TAVRONE_EXCEPTION(TransformRuntimeException, TransformException)
// For generated code; the library raises none.
TAVRONE_EXCEPTION(TransformNullValueException, TransformRuntimeException)
// A name or an index that a record, or a section, doesn't have.
TAVRONE_EXCEPTION(FieldNotFoundException, TransformException)
// A plain field where a section is needed.
TAVRONE_EXCEPTION(FieldTypeMismatchException, TransformException)
// A null field that has to have a value.
TAVRONE_EXCEPTION(FieldNullException, TransformException)
// A name that the lookup directory has nothing fitting for, or has something for already.
TAVRONE_EXCEPTION(NamingException, TransformException)
// A section with too few or too many elements.
TAVRONE_EXCEPTION(SectionConstraintException, TransformException)
// What is wrong with a FIX message that is read. The Universal format has plain TransformExceptions.
TAVRONE_EXCEPTION(FIXParsingException, TransformException, FIXParsingException(TransformException const &other);)
// What keeps a FIX message from being written.
TAVRONE_EXCEPTION(FIXWriterException, TransformException, FIXWriterException(TransformException const &other);)
// What is wrong with a SIAC Canonical message that is read.
TAVRONE_EXCEPTION(SIACCanonicalParsingException, TransformException,
                  SIACCanonicalParsingException(TransformException const &other);)
// What keeps a SIAC Canonical message from being written.
TAVRONE_EXCEPTION(SIACCanonicalWriterException, TransformException,
                  SIACCanonicalWriterException(TransformException const &other);)
// A field without the value that its message needs. Drops the field's name: FieldName stays null, which is meant.
TAVRONE_EXCEPTION(FieldParsingException, TransformException,
                  FieldParsingException(tvstring const &message, tvstring const &fieldName);)

#undef TAVRONE_EXCEPTION

// Names the field that is not valid in FieldName.
class TAVRONE_API FieldValidationException : public TransformException {
 public:
  FieldValidationException(tvstring const &message, tvstring const &fieldName);
  FieldValidationException(FieldValidationException const &other);
  FieldValidationException &operator=(FieldValidationException const &) = default;
  ~FieldValidationException() noexcept(false) override;
  Object *clone() const override;
};

// A failure of an FCS line, with its number and column as the record's place; see FCSInputParser.
class TAVRONE_API FCSParseException : public TransformException {
 public:
  FCSParseException(tvstring const &message);
  FCSParseException(FCSParseException const &other);
  FCSParseException &operator=(FCSParseException const &) = default;
  ~FCSParseException() noexcept(false) override;
  Object *clone() const override;

  // The text of the input line that failed; empty at first.
  void setFailedLine(tvstring const &line) { failedLine_ = line; }
  tvstring const &getFailedLine() const { return failedLine_; }
  // The line from 1, the column from 0.
  void setLocation(int line, int column) {
    setLine(line);
    setColumn(column);
  }

 private:
  tvstring failedLine_;
};

}  // namespace tavrone

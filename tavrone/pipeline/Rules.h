#pragma once

#include "tavrone/core/ExceptionHandler.h"
#include "tavrone/pipeline/CustomClassSupport.h"

namespace tavrone {

// The bases of the rules that the design tool generates. The public operations with a context store it for the length
// of the call and run the generated body of the same name, which takes the data alone; a failure that leaves the call
// leaves the context stored until the next call. So a rule object serves one call at a time. Handlers and contexts are
// borrowed.
//
// Nothing is caught but to classify it: what passes is raised again as it is.

// What the generated bodies of validation rules call.
class TAVRONE_API AbstractValidationRules {
 public:
  virtual ~AbstractValidationRules() noexcept(false);

  // The draconian handler unless set.
  void setExceptionHandler(ExceptionHandler *handler) { exceptionHandler = handler; }

  // The context around a series of calls.
  void setup(TransformContext &context) { transformContext = &context; }
  void teardown() { transformContext = nullptr; }

  // Asks the user's IFieldValidation of that name, made once for this object. Raises ClassCastException for a class of
  // another kind.
  bool customValidation(tvstring const &className, Object const *value, tvstring const &fieldName, DataObject *object);
  // Raises FieldValidationException "Validation '<rule>' failed. Field '<field>' is not valid".
  [[noreturn]] static void throwFieldInvalid(tvstring const &rule, tvstring const &field);

 protected:
  // Raises TransformRuntimeException outside of a call.
  TransformContext &getTransformContext();
  // Calls the user's IInvokable of that name, made once for this object. The result is the caller's.
  Object *invokeCustomExternalClass(tvstring const &className, ObjectList const &arguments, TransformContext &context);

  TransformContext *transformContext = nullptr;  // null outside of a call
  ExceptionHandler *exceptionHandler = ExceptionHandler::DRACONIAN_EXCEPTION_HANDLER;

 private:
  CustomClassSupport customClasses_;
};

// The rules of an internal message.
class TAVRONE_API ValidationRules : public AbstractValidationRules {
 public:
  ~ValidationRules() noexcept(false) override;

  // The generated body: gives each failure to the exception handler, which throws it or collects it.
  virtual void validate(DataObject *object) = 0;

  void validate(DataObject *object, TransformContext &context);
};

// The rules of an external message, one set for each part. Part and header may be null where a format has none.
// Failures that have no error type yet get "Validation".
class TAVRONE_API FieldsValidationRules : public AbstractValidationRules {
 public:
  ~FieldsValidationRules() noexcept(false) override;

  // The generated bodies.
  virtual void validateData(DataObject *header, DataObject *data) = 0;
  virtual void validateHeader(DataObject *header) = 0;
  virtual void validateTrailer(DataObject *trailer) = 0;

  void validateData(DataObject *header, DataObject *data, TransformContext &context);
  void validateHeader(DataObject *header, TransformContext &context);
  void validateTrailer(DataObject *trailer, TransformContext &context);

  // Raises FieldValidationException with the text above, as the full forms do.
  [[noreturn]] static void throwFieldInvalid(tvstring const &rule, tvstring const &field);

 protected:
  // The code becomes the internal code, the flag the field Cascadable, the index the property "index"; message and
  // object are not used. Without a code it is empty.
  [[noreturn]] static void throwFieldInvalid(tvstring const &rule, tvstring const &field, bool cascadable,
                                             DataObject *object, int index);
  [[noreturn]] static void throwFieldInvalid(tvstring const &rule, tvstring const &field, tvstring const &message,
                                             bool cascadable, DataObject *object, int index);
  [[noreturn]] static void throwFieldInvalid(tvstring const &rule, tvstring const &field, tvstring const &code,
                                             tvstring const &message, bool cascadable, DataObject *object, int index);

 private:
  template <class Body>
  void validatePart(TransformContext &context, Body const &body);
};

// The rules of a normalized object, without context and handler.
class TAVRONE_API NormalizedObjectValidationRules {
 public:
  virtual ~NormalizedObjectValidationRules() noexcept(false);

  virtual void validate(DataObject *object) = 0;

  // Raises FieldValidationException "Validation '<rule>' failed. Field '<field>' is not valid".
  [[noreturn]] static void throwFieldInvalid(tvstring const &rule, tvstring const &field);
};

// The processing of an internal message. The bodies do nothing unless generated.
class TAVRONE_API ProcessingRules {
 public:
  virtual ~ProcessingRules() noexcept(false);

  // preprocess, validate, postprocess, checkNotNull, in this order; validate before postprocess is meant.
  virtual void process0(DataObject *object, TransformContext &context);
  virtual void preprocess(DataObject *object);
  virtual void postprocess(DataObject *object);
  virtual void validate(DataObject *object);
  virtual void checkNotNull(DataObject *object);

  void setExceptionHandler(ExceptionHandler *handler) { exceptionHandler = handler; }

  // By process0. Failures that have no error type yet get "Processing".
  void process(DataObject *object, TransformContext &context);
  void preprocess(DataObject *object, TransformContext &context);
  void postprocess(DataObject *object, TransformContext &context);
  void validate(DataObject *object, TransformContext &context);
  void checkNotNull(DataObject *object, TransformContext &context);

 protected:
  TransformContext *transformContext = nullptr;  // null outside of a call
  ExceptionHandler *exceptionHandler = ExceptionHandler::DRACONIAN_EXCEPTION_HANDLER;
};

// A processing rule of a single step.
class TAVRONE_API BusinessProcessingRules : public ProcessingRules {
 public:
  ~BusinessProcessingRules() noexcept(false) override;

  using ProcessingRules::process;
  virtual void process(DataObject *object);
  void process0(DataObject *object, TransformContext &context) override;
};

// What the generated bodies of mappings call.
class TAVRONE_API MappingRules {
 public:
  virtual ~MappingRules() noexcept(false);

  // The context around a series of calls.
  void setup(TransformContext &context) { transformContext = &context; }
  void teardown() { transformContext = nullptr; }

 protected:
  // Raises TransformRuntimeException outside of a call.
  TransformContext &getTransformContext();
  // Calls the user's IInvokable of that name, made once for this object. The result is the caller's.
  Object *invokeCustomExternalClass(tvstring const &className, ObjectList const &arguments, TransformContext &context);

  TransformContext *transformContext = nullptr;  // null outside of a call

 private:
  CustomClassSupport customClasses_;
};

}  // namespace tavrone

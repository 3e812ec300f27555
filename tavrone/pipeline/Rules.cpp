#include "tavrone/pipeline/Rules.h"

#include "tavrone/core/Conversion.h"
#include "tavrone/core/Raise.h"
#include "tavrone/pipeline/StoredContext.h"

namespace tavrone {

namespace {

constexpr char const *FIELDS_SOURCE = "cpp/FieldsValidationRules";

FieldValidationException fieldInvalid(tvstring const &rule, tvstring const &field, char const *source,
                                      int line = __builtin_LINE()) {
  FieldValidationException failure("Validation '" + rule + "' failed. Field '" + field + "' is not valid", field);
  failure.getTrace().setFileName(tvstringliteral(source));
  failure.getTrace().setLine(line);
  return failure;
}

// Runs a call; a failure that passes and has no error type yet gets this one.
template <class Body>
void fillingErrorType(tvstring const &type, Body const &body) {
  try {
    body();
  } catch (TransformException &e) {
    e.fillErrorType(type);
    throw;
  }
}

}  // namespace

AbstractValidationRules::~AbstractValidationRules() noexcept(false) = default;
ValidationRules::~ValidationRules() noexcept(false) = default;
FieldsValidationRules::~FieldsValidationRules() noexcept(false) = default;
NormalizedObjectValidationRules::~NormalizedObjectValidationRules() noexcept(false) = default;
ProcessingRules::~ProcessingRules() noexcept(false) = default;
BusinessProcessingRules::~BusinessProcessingRules() noexcept(false) = default;
MappingRules::~MappingRules() noexcept(false) = default;

bool AbstractValidationRules::customValidation(tvstring const &className, Object const *value,
                                               tvstring const &fieldName, DataObject *object) {
  return customClasses_.validate(className, fieldName, value, object);
}

TransformContext &AbstractValidationRules::getTransformContext() {
  return storedContext(transformContext, "cpp/AbstractValidationRules");
}

Object *AbstractValidationRules::invokeCustomExternalClass(tvstring const &className, ObjectList const &arguments,
                                                           TransformContext &context) {
  return customClasses_.invoke(className, arguments, context);
}

void AbstractValidationRules::throwFieldInvalid(tvstring const &rule, tvstring const &field) {
  throw fieldInvalid(rule, field, "cpp/AbstractValidationRules");
}

void ValidationRules::validate(DataObject *object, TransformContext &context) {
  withStoredContext(transformContext, context, [&] { validate(object); });
}

template <class Body>
void FieldsValidationRules::validatePart(TransformContext &context, Body const &body) {
  fillingErrorType(ExceptionObject::ERROR_TYPE_VALIDATION, [&] { withStoredContext(transformContext, context, body); });
}

void FieldsValidationRules::validateData(DataObject *header, DataObject *data, TransformContext &context) {
  validatePart(context, [&] { validateData(header, data); });
}
void FieldsValidationRules::validateHeader(DataObject *header, TransformContext &context) {
  validatePart(context, [&] { validateHeader(header); });
}
void FieldsValidationRules::validateTrailer(DataObject *trailer, TransformContext &context) {
  validatePart(context, [&] { validateTrailer(trailer); });
}

void FieldsValidationRules::throwFieldInvalid(tvstring const &rule, tvstring const &field) {
  throw fieldInvalid(rule, field, FIELDS_SOURCE);
}

void FieldsValidationRules::throwFieldInvalid(tvstring const &rule, tvstring const &field, bool cascadable,
                                              DataObject *object, int index) {
  throwFieldInvalid(rule, field, tvstring(), tvstring(), cascadable, object, index);
}

void FieldsValidationRules::throwFieldInvalid(tvstring const &rule, tvstring const &field, tvstring const &message,
                                              bool cascadable, DataObject *object, int index) {
  throwFieldInvalid(rule, field, tvstring(), message, cascadable, object, index);
}

void FieldsValidationRules::throwFieldInvalid(tvstring const &rule, tvstring const &field, tvstring const &code,
                                              tvstring const &, bool cascadable, DataObject *, int index) {
  FieldValidationException failure = fieldInvalid(rule, field, FIELDS_SOURCE);
  failure.setInternalCode(code);
  failure.setCascadable(cascadable);
  failure.setContextProperty(ExceptionObject::INDEX, intToString(index));
  throw failure;
}

void NormalizedObjectValidationRules::throwFieldInvalid(tvstring const &rule, tvstring const &field) {
  throw fieldInvalid(rule, field, "cpp/NormalizedObjectValidationRules");
}

void ProcessingRules::process0(DataObject *object, TransformContext &context) {
  preprocess(object, context);
  validate(object, context);
  postprocess(object, context);
  checkNotNull(object, context);
}

void ProcessingRules::preprocess(DataObject *) {}
void ProcessingRules::postprocess(DataObject *) {}
void ProcessingRules::validate(DataObject *) {}
void ProcessingRules::checkNotNull(DataObject *) {}

void ProcessingRules::process(DataObject *object, TransformContext &context) {
  fillingErrorType(ExceptionObject::ERROR_TYPE_PROCESSING,
                   [&] { withStoredContext(transformContext, context, [&] { process0(object, context); }); });
}
void ProcessingRules::preprocess(DataObject *object, TransformContext &context) {
  withStoredContext(transformContext, context, [&] { preprocess(object); });
}
void ProcessingRules::postprocess(DataObject *object, TransformContext &context) {
  withStoredContext(transformContext, context, [&] { postprocess(object); });
}
void ProcessingRules::validate(DataObject *object, TransformContext &context) {
  withStoredContext(transformContext, context, [&] { validate(object); });
}
void ProcessingRules::checkNotNull(DataObject *object, TransformContext &context) {
  withStoredContext(transformContext, context, [&] { checkNotNull(object); });
}

void BusinessProcessingRules::process(DataObject *) {}

void BusinessProcessingRules::process0(DataObject *object, TransformContext &context) {
  withStoredContext(transformContext, context, [&] { process(object); });
}

TransformContext &MappingRules::getTransformContext() {
  return storedContext(transformContext, "cpp/MappingRules");
}

Object *MappingRules::invokeCustomExternalClass(tvstring const &className, ObjectList const &arguments,
                                                TransformContext &context) {
  return customClasses_.invoke(className, arguments, context);
}

}  // namespace tavrone

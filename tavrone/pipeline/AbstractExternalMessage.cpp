#include "tavrone/pipeline/AbstractExternalMessage.h"

#include "tavrone/core/Class.h"
#include "tavrone/core/Raise.h"
#include "tavrone/dataobject/DataObjectIO.h"
#include "tavrone/pipeline/CallHandler.h"
#include "tavrone/pipeline/ExternalObject.h"
#include "tavrone/pipeline/InputParser.h"
#include "tavrone/pipeline/InputSources.h"
#include "tavrone/pipeline/OutputWriter.h"
#include "tavrone/pipeline/Rules.h"

namespace tavrone {

namespace {

constexpr char const *SOURCE = "cpp/AbstractExternalMessage";

ExternalObject &externalObject(SmartPtr<DataObject> const &object) {
  DataObject *const any = object.get();
  if (any == nullptr) raise<TransformRuntimeException>("Unexpected null object. Expected external object", SOURCE);
  if (auto *const external = quickCast<ExternalObject>(any)) return *external;
  raise<TransformRuntimeException>(
      "Unexpected object of type " + Class(typeid(*any)).getName() + ". Expected external object", SOURCE);
}

// Renders one of the two generic forms. False, and nothing done, where the context asks for the wire format.
bool renderGeneric(ExternalObject &object, TransformContext &context, Binary &out) {
  tvstring const form = context.getProperty(IMessage::MESSAGE_FORMAT);
  if (form == IMessage::XML_FORM)
    out = object.toXMLString();
  else if (IMessage::isTavroneFormat(form))
    out = DataObjectIO::serialize(&object);
  else
    return false;
  return true;
}

}  // namespace

AbstractExternalMessage::AbstractExternalMessage(tvstring const &name)
    : lookupContext_(LookupContextFactory::getLookupContext()), name_(name) {}
AbstractExternalMessage::~AbstractExternalMessage() noexcept(false) = default;

void AbstractExternalMessage::addValidator(tvstring const &name, FieldsValidationRules *validator) {
  validators_.add(name, validator);
}

FieldsValidationRules *AbstractExternalMessage::getValidatorByName(tvstring const &name) {
  if (FieldsValidationRules *const validator = validators_.find(name)) return validator;
  raise<TransformRuntimeException>("Validator by name '" + name + "' is not defined for the message", SOURCE, 210);
}

SmartPtr<DataObject> AbstractExternalMessage::createObject() {
  SmartPtr<ExternalObject> const object = createExternalObject();
  return object.get();
}

SmartPtr<DataObject> AbstractExternalMessage::parse0(Binary const &bytes, CallHandler const &call,
                                                     TransformContext &context) {
  tvstring const form = context.getProperty(MESSAGE_FORMAT);
  if (form == XML_FORM) raise<TransformException>("XML parsing is not supported", SOURCE, 129);
  if (isTavroneFormat(form)) {
    SmartPtr<ExternalObject> const object = createExternalObject();
    DataObjectIO::parse(object.get(), bytes);
    return object.get();
  }
  auto *const parser = checkedCast<InputParser>(getInputParser());
  StoredHandler const stored(*parser, call);
  SmartPtr<ExternalObject> const object = createExternalObject();
  parser->parse(object.get(), bytes, context);
  return object.get();
}

SmartPtr<DataObject> AbstractExternalMessage::parse(Binary const &bytes, ExceptionHandler *handler,
                                                    TransformContext &context) {
  return parse0(bytes, {handler}, context);
}

SmartPtr<DataObject> AbstractExternalMessage::parse(Binary const &bytes, TransformContext &context) {
  return parse0(bytes, {}, context);
}

Result<SmartPtr<DataObject>> AbstractExternalMessage::parse2(Binary const &bytes, TransformContext &context) {
  return collecting([&](CallHandler const &call) { return parse0(bytes, call, context); });
}

SmartPtr<DataObject> AbstractExternalMessage::parse(RawMessage const &message, TransformContext &context) {
  if (message.isNull()) raise<TransformRuntimeException>("Unexpected null raw message", SOURCE);
  SmartPtr<ExternalObject> const object = createExternalObject();
  auto *const parser = checkedCast<InputParser>(getInputParser());
  StoredHandler const stored(*parser, {});
  parser->parse(object.get(), static_cast<InputSource &>(*message), context);
  return object.get();
}

SmartPtr<DataObject> AbstractExternalMessage::parse(InputSource &input, TransformContext &context) {
  return parse(input.getAsBinary(), context);
}

Result<SmartPtr<DataObject>> AbstractExternalMessage::parse2(InputSource &input, TransformContext &context) {
  return parse2(input.getAsBinary(), context);
}

void AbstractExternalMessage::validate0(tvstring const &validatorName, SmartPtr<DataObject> const &object,
                                        CallHandler const &call, TransformContext &context) {
  FieldsValidationRules *const validator = getValidatorByName(validatorName);
  ExternalObject const &external = externalObject(object);
  StoredHandler const stored(*validator, call);
  validator->validateHeader(external.getHeader(), context);
  validator->validateData(external.getHeader(), external.getData(), context);
  validator->validateTrailer(external.getTrailer(), context);
}

void AbstractExternalMessage::validate(tvstring const &validatorName, SmartPtr<DataObject> const &object,
                                       ExceptionHandler *handler, TransformContext &context) {
  validate0(validatorName, object, {handler}, context);
}

void AbstractExternalMessage::validate(SmartPtr<DataObject> const &object, ExceptionHandler *handler,
                                       TransformContext &context) {
  validate0(DEFAULT_VALIDATOR, object, {handler}, context);
}

void AbstractExternalMessage::validate(tvstring const &validatorName, SmartPtr<DataObject> const &object,
                                       TransformContext &context) {
  validate0(validatorName, object, {}, context);
}

void AbstractExternalMessage::validate(SmartPtr<DataObject> const &object, TransformContext &context) {
  validate0(DEFAULT_VALIDATOR, object, {}, context);
}

Result<SmartPtr<DataObject>> AbstractExternalMessage::validate2(tvstring const &validatorName,
                                                                SmartPtr<DataObject> const &object,
                                                                TransformContext &context) {
  return collecting([&](CallHandler const &call) {
    validate0(validatorName, object, call, context);
    return SmartPtr<DataObject>();
  });
}

Result<SmartPtr<DataObject>> AbstractExternalMessage::validate2(SmartPtr<DataObject> const &object,
                                                                TransformContext &context) {
  return validate2(DEFAULT_VALIDATOR, object, context);
}

Binary AbstractExternalMessage::serialize0(SmartPtr<DataObject> const &object, CallHandler const &call,
                                           TransformContext &context) {
  ExternalObject &external = externalObject(object);
  Binary generic;
  if (renderGeneric(external, context, generic)) return generic;
  auto *const writer = checkedCast<SimpleOutputWriter>(getOutputWriter());
  StoredHandler const stored(*writer, call);
  return writer->write(external, call.handler, context);
}

Binary AbstractExternalMessage::serialize(SmartPtr<DataObject> const &object, ExceptionHandler *handler,
                                          TransformContext &context) {
  return serialize0(object, {handler}, context);
}

Binary AbstractExternalMessage::serialize(SmartPtr<DataObject> const &object, TransformContext &context) {
  return serialize0(object, {}, context);
}

Result<Binary> AbstractExternalMessage::serialize2(SmartPtr<DataObject> const &object, TransformContext &context) {
  return collecting([&](CallHandler const &call) { return serialize0(object, call, context); });
}

RawMessage AbstractExternalMessage::serializeMessage0(SmartPtr<DataObject> const &object, CallHandler const &call,
                                                      TransformContext &context) {
  ExternalObject &external = externalObject(object);
  Binary generic;
  if (renderGeneric(external, context, generic)) return new ByteArrayInputSource(generic);
  auto *const writer = checkedCast<SimpleOutputWriter>(getOutputWriter());
  StoredHandler const stored(*writer, call);
  return writer->writeMessage(external, call.handler, context);
}

RawMessage AbstractExternalMessage::serializeMessage(SmartPtr<DataObject> const &object, ExceptionHandler *handler,
                                                     TransformContext &context) {
  return serializeMessage0(object, {handler}, context);
}

RawMessage AbstractExternalMessage::serializeMessage(SmartPtr<DataObject> const &object, TransformContext &context) {
  return serializeMessage0(object, {}, context);
}

Result<RawMessage> AbstractExternalMessage::serializeMessage2(SmartPtr<DataObject> const &object,
                                                              TransformContext &context) {
  return collecting([&](CallHandler const &call) { return serializeMessage0(object, call, context); });
}

}  // namespace tavrone

#include "tavrone/pipeline/AbstractInternalMessage.h"

#include "tavrone/core/Raise.h"
#include "tavrone/dataobject/DataObjectIO.h"
#include "tavrone/pipeline/CallHandler.h"
#include "tavrone/pipeline/InputSources.h"
#include "tavrone/pipeline/Rules.h"
#include "tavrone/pipeline/WriteAll.h"
#include "tavrone/routing/Triggers.h"

namespace tavrone {

namespace {

constexpr char const *SOURCE = "cpp/AbstractInternalMessage";

[[noreturn]] void parseUnsupported(int line = __builtin_LINE()) {
  raise<TransformException>("unsupported operation parse for internal messages", SOURCE, line);
}

}  // namespace

constinit tvstringliteral const AbstractInternalMessage::PREPROCESSING_NODE_NAME("Preprocess");
constinit tvstringliteral const AbstractInternalMessage::POSTPROCESSING_NODE_NAME("Postprocess");

AbstractInternalMessage::AbstractInternalMessage(tvstring const &name) : name_(name) {}
AbstractInternalMessage::~AbstractInternalMessage() noexcept(false) = default;

void AbstractInternalMessage::addValidator(tvstring const &name, ValidationRules *validator) {
  validators_.add(name, validator);
  defaultValidator_ = validators_.find(DEFAULT_VALIDATOR);
}

void AbstractInternalMessage::addProcessing(tvstring const &name, BusinessProcessingRules *rule) {
  processingRules_.add(name, rule);
  preprocessing_ = processingRules_.find(PREPROCESSING_NODE_NAME);
  postprocessing_ = processingRules_.find(POSTPROCESSING_NODE_NAME);
}

ValidationRules *AbstractInternalMessage::getValidatorByName(tvstring const &name) {
  if (ValidationRules *const validator = validators_.find(name)) return validator;
  raise<TransformRuntimeException>("Validator by name '" + name + "' is not defined for the message", SOURCE, 60);
}

BusinessProcessingRules *AbstractInternalMessage::getProcessingRuleByName(tvstring const &name) {
  if (BusinessProcessingRules *const rule = processingRules_.find(name)) return rule;
  raise<TransformRuntimeException>("Processing by name '" + name + "' is not defined for the message", SOURCE);
}

SmartPtr<DataObject> AbstractInternalMessage::createObject() {
  return createNormalizedObject();
}

void AbstractInternalMessage::handleNormalizedObject(DataObject *object, TransformContext &context) {
  SmartPtr<DataObject> const held(object);
  try {
    processHeld(held, context);
    if (Triggers *const triggers = getTriggers()) triggers->onNewMessage(object, context);
  } catch (TransformException &e) {
    e.fillPhase(ExceptionObject::INTERNAL_MESSAGE_PHASE);
    throw;
  }
}

void AbstractInternalMessage::processAll(DataObject *object, TransformContext &context) {
  SmartPtr<DataObject> const held(object);
  processHeld(held, context);
}

// By the virtual operations, so that a message type may replace each step.
void AbstractInternalMessage::processHeld(SmartPtr<DataObject> const &object, TransformContext &context) {
  if (preprocessing_ != nullptr) preprocess(object, context);
  validate(object, context);
  if (postprocessing_ != nullptr) postprocess(object, context);
}

SmartPtr<DataObject> AbstractInternalMessage::parse(Binary const &, TransformContext &) {
  parseUnsupported();
}
SmartPtr<DataObject> AbstractInternalMessage::parse(RawMessage const &, TransformContext &) {
  parseUnsupported();
}
SmartPtr<DataObject> AbstractInternalMessage::parse(InputSource &, TransformContext &) {
  parseUnsupported();
}
Result<SmartPtr<DataObject>> AbstractInternalMessage::parse2(Binary const &, TransformContext &) {
  parseUnsupported();
}
Result<SmartPtr<DataObject>> AbstractInternalMessage::parse2(InputSource &, TransformContext &) {
  parseUnsupported();
}

ValidationRules &AbstractInternalMessage::defaultValidator() {
  return defaultValidator_ != nullptr ? *defaultValidator_ : *getValidatorByName(DEFAULT_VALIDATOR);
}

void AbstractInternalMessage::validate0(ValidationRules &validator, SmartPtr<DataObject> const &object,
                                        CallHandler const &call, TransformContext &context) {
  StoredHandler const stored(validator, call);
  validator.validate(object.get(), context);
}

void AbstractInternalMessage::validate(tvstring const &validatorName, SmartPtr<DataObject> const &object,
                                       ExceptionHandler *handler, TransformContext &context) {
  validate0(*getValidatorByName(validatorName), object, {handler}, context);
}

void AbstractInternalMessage::validate(tvstring const &validatorName, SmartPtr<DataObject> const &object,
                                       TransformContext &context) {
  validate0(*getValidatorByName(validatorName), object, {}, context);
}

void AbstractInternalMessage::validate(SmartPtr<DataObject> const &object, TransformContext &context) {
  validate0(defaultValidator(), object, {}, context);
}

Result<SmartPtr<DataObject>> AbstractInternalMessage::validate2(tvstring const &validatorName,
                                                                SmartPtr<DataObject> const &object,
                                                                TransformContext &context) {
  return collecting([&](CallHandler const &call) {
    validate0(*getValidatorByName(validatorName), object, call, context);
    return SmartPtr<DataObject>();
  });
}

Result<SmartPtr<DataObject>> AbstractInternalMessage::validate2(SmartPtr<DataObject> const &object,
                                                                TransformContext &context) {
  return validate2(DEFAULT_VALIDATOR, object, context);
}

// An absent rule leaves the object as it is.
SmartPtr<DataObject> AbstractInternalMessage::process0(BusinessProcessingRules *rule,
                                                       SmartPtr<DataObject> const &object, CallHandler const &call,
                                                       TransformContext &context) {
  if (rule == nullptr) return object;
  StoredHandler const stored(*rule, call);
  rule->process(object.get(), context);
  return object;
}

void AbstractInternalMessage::process(tvstring const &ruleName, SmartPtr<DataObject> const &object,
                                      ExceptionHandler *handler, TransformContext &context) {
  process0(getProcessingRuleByName(ruleName), object, {handler}, context);
}

SmartPtr<DataObject> AbstractInternalMessage::process(tvstring const &ruleName, SmartPtr<DataObject> const &object,
                                                      TransformContext &context) {
  return process0(getProcessingRuleByName(ruleName), object, {}, context);
}

Result<SmartPtr<DataObject>> AbstractInternalMessage::process2(tvstring const &ruleName,
                                                               SmartPtr<DataObject> const &object,
                                                               TransformContext &context) {
  return collecting(
      [&](CallHandler const &call) { return process0(getProcessingRuleByName(ruleName), object, call, context); });
}

void AbstractInternalMessage::preprocess(SmartPtr<DataObject> const &object, ExceptionHandler *handler,
                                         TransformContext &context) {
  process0(preprocessing_, object, {handler}, context);
}

SmartPtr<DataObject> AbstractInternalMessage::preprocess(SmartPtr<DataObject> const &object,
                                                         TransformContext &context) {
  return process0(preprocessing_, object, {}, context);
}

Result<SmartPtr<DataObject>> AbstractInternalMessage::preprocess2(SmartPtr<DataObject> const &object,
                                                                  TransformContext &context) {
  return collecting([&](CallHandler const &call) { return process0(preprocessing_, object, call, context); });
}

void AbstractInternalMessage::postprocess(SmartPtr<DataObject> const &object, ExceptionHandler *handler,
                                          TransformContext &context) {
  process0(postprocessing_, object, {handler}, context);
}

SmartPtr<DataObject> AbstractInternalMessage::postprocess(SmartPtr<DataObject> const &object,
                                                          TransformContext &context) {
  return process0(postprocessing_, object, {}, context);
}

Result<SmartPtr<DataObject>> AbstractInternalMessage::postprocess2(SmartPtr<DataObject> const &object,
                                                                   TransformContext &context) {
  return collecting([&](CallHandler const &call) { return process0(postprocessing_, object, call, context); });
}

Binary AbstractInternalMessage::serialize(SmartPtr<DataObject> const &object, TransformContext &context) {
  if (isTavroneFormat(context.getProperty(MESSAGE_FORMAT))) return DataObjectIO::serialize(object.get());
  return object->toXMLString();
}

void AbstractInternalMessage::serialize(SmartPtr<DataObject> const &object, OutputDevice &device,
                                        TransformContext &context) {
  writeAll(device, serialize(object, context));
}

Result<Binary> AbstractInternalMessage::serialize2(SmartPtr<DataObject> const &object, TransformContext &context) {
  return {serialize(object, context), {}};
}

RawMessage AbstractInternalMessage::serializeMessage(SmartPtr<DataObject> const &object, TransformContext &context) {
  return new ByteArrayInputSource(serialize(object, context));
}

Result<RawMessage> AbstractInternalMessage::serializeMessage2(SmartPtr<DataObject> const &object,
                                                              TransformContext &context) {
  return {serializeMessage(object, context), {}};
}

TransformExceptionInternalMessage::TransformExceptionInternalMessage()
    : AbstractInternalMessage("TransformException") {}
TransformExceptionInternalMessage::~TransformExceptionInternalMessage() noexcept(false) = default;

DataObject *TransformExceptionInternalMessage::createNormalizedObject() {
  return new TransformException("");
}

DataObject *TransformExceptionInternalMessage::processNormalizedObject(DataObject *object, ExceptionHandler *,
                                                                       TransformContext &) {
  return object;
}

}  // namespace tavrone

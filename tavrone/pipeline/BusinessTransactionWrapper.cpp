#include "tavrone/pipeline/BusinessTransactionWrapper.h"

namespace tavrone {

BusinessTransactionWrapper::~BusinessTransactionWrapper() noexcept(false) = default;

SmartPtr<DataObject> BusinessTransactionWrapper::createObject() {
  return target_->createObject();
}

SmartPtr<DataObject> BusinessTransactionWrapper::parse(Binary const &bytes, TransformContext &context) {
  return target_->parse(bytes, context);
}

SmartPtr<DataObject> BusinessTransactionWrapper::parse(RawMessage const &message, TransformContext &context) {
  return target_->parse(message, context);
}

SmartPtr<DataObject> BusinessTransactionWrapper::parse(InputSource &input, TransformContext &context) {
  return target_->parse(input, context);
}

Result<SmartPtr<DataObject>> BusinessTransactionWrapper::parse2(Binary const &bytes, TransformContext &context) {
  return target_->parse2(bytes, context);
}

Result<SmartPtr<DataObject>> BusinessTransactionWrapper::parse2(InputSource &input, TransformContext &context) {
  return target_->parse2(input, context);
}

void BusinessTransactionWrapper::validate(tvstring const &validatorName, SmartPtr<DataObject> const &object,
                                          TransformContext &context) {
  target_->validate(validatorName, object, context);
}

void BusinessTransactionWrapper::validate(SmartPtr<DataObject> const &object, TransformContext &context) {
  target_->validate(object, context);
}

Result<SmartPtr<DataObject>> BusinessTransactionWrapper::validate2(tvstring const &validatorName,
                                                                   SmartPtr<DataObject> const &object,
                                                                   TransformContext &context) {
  return target_->validate2(validatorName, object, context);
}

Result<SmartPtr<DataObject>> BusinessTransactionWrapper::validate2(SmartPtr<DataObject> const &object,
                                                                   TransformContext &context) {
  return target_->validate2(object, context);
}

Binary BusinessTransactionWrapper::serialize(SmartPtr<DataObject> const &object, TransformContext &context) {
  return target_->serialize(object, context);
}

Result<Binary> BusinessTransactionWrapper::serialize2(SmartPtr<DataObject> const &object, TransformContext &context) {
  return target_->serialize2(object, context);
}

RawMessage BusinessTransactionWrapper::serializeMessage(SmartPtr<DataObject> const &object, TransformContext &context) {
  return target_->serializeMessage(object, context);
}

Result<RawMessage> BusinessTransactionWrapper::serializeMessage2(SmartPtr<DataObject> const &object,
                                                                 TransformContext &context) {
  return target_->serializeMessage2(object, context);
}

DataObject *BusinessTransactionWrapper::createNormalizedObject() {
  return target_->createNormalizedObject();
}

void BusinessTransactionWrapper::handleNormalizedObject(DataObject *object, TransformContext &context) {
  target_->handleNormalizedObject(object, context);
}

SmartPtr<DataObject> BusinessTransactionWrapper::preprocess(SmartPtr<DataObject> const &object,
                                                            TransformContext &context) {
  return target_->preprocess(object, context);
}

Result<SmartPtr<DataObject>> BusinessTransactionWrapper::preprocess2(SmartPtr<DataObject> const &object,
                                                                     TransformContext &context) {
  return target_->preprocess2(object, context);
}

Result<SmartPtr<DataObject>> BusinessTransactionWrapper::process2(tvstring const &ruleName,
                                                                  SmartPtr<DataObject> const &object,
                                                                  TransformContext &context) {
  return target_->process2(ruleName, object, context);
}

SmartPtr<DataObject> BusinessTransactionWrapper::postprocess(SmartPtr<DataObject> const &object,
                                                             TransformContext &context) {
  return target_->postprocess(object, context);
}

SmartPtr<DataObject> BusinessTransactionWrapper::process(tvstring const &ruleName, SmartPtr<DataObject> const &object,
                                                         TransformContext &context) {
  return target_->process(ruleName, object, context);
}

Result<SmartPtr<DataObject>> BusinessTransactionWrapper::postprocess2(SmartPtr<DataObject> const &object,
                                                                      TransformContext &context) {
  return target_->postprocess2(object, context);
}

}  // namespace tavrone

#pragma once

#include "tavrone/pipeline/IMessage.h"

namespace tavrone {

// Forwards every operation unchanged to an internal message that it borrows, so that a message from the lookup context
// can be held under a count of its own.
class TAVRONE_API BusinessTransactionWrapper : public IInternalMessage {
 public:
  // REQUIRES: target is not null and outlives the wrapper
  explicit BusinessTransactionWrapper(IInternalMessage *target) : target_(target) {}
  BusinessTransactionWrapper(BusinessTransactionWrapper const &other)
      : Object(), ObjectRef(), IInternalMessage(), target_(other.target_) {}
  BusinessTransactionWrapper &operator=(BusinessTransactionWrapper const &) = default;
  ~BusinessTransactionWrapper() noexcept(false) override;

  SmartPtr<DataObject> createObject() override;
  SmartPtr<DataObject> parse(Binary const &bytes, TransformContext &context) override;
  SmartPtr<DataObject> parse(RawMessage const &message, TransformContext &context) override;
  SmartPtr<DataObject> parse(InputSource &input, TransformContext &context) override;
  Result<SmartPtr<DataObject>> parse2(Binary const &bytes, TransformContext &context) override;
  Result<SmartPtr<DataObject>> parse2(InputSource &input, TransformContext &context) override;
  void validate(tvstring const &validatorName, SmartPtr<DataObject> const &object, TransformContext &context) override;
  void validate(SmartPtr<DataObject> const &object, TransformContext &context) override;
  Result<SmartPtr<DataObject>> validate2(tvstring const &validatorName, SmartPtr<DataObject> const &object,
                                         TransformContext &context) override;
  Result<SmartPtr<DataObject>> validate2(SmartPtr<DataObject> const &object, TransformContext &context) override;
  Binary serialize(SmartPtr<DataObject> const &object, TransformContext &context) override;
  Result<Binary> serialize2(SmartPtr<DataObject> const &object, TransformContext &context) override;
  RawMessage serializeMessage(SmartPtr<DataObject> const &object, TransformContext &context) override;
  Result<RawMessage> serializeMessage2(SmartPtr<DataObject> const &object, TransformContext &context) override;
  DataObject *createNormalizedObject() override;
  void handleNormalizedObject(DataObject *object, TransformContext &context) override;
  SmartPtr<DataObject> preprocess(SmartPtr<DataObject> const &object, TransformContext &context) override;
  Result<SmartPtr<DataObject>> preprocess2(SmartPtr<DataObject> const &object, TransformContext &context) override;
  Result<SmartPtr<DataObject>> process2(tvstring const &ruleName, SmartPtr<DataObject> const &object,
                                        TransformContext &context) override;
  SmartPtr<DataObject> postprocess(SmartPtr<DataObject> const &object, TransformContext &context) override;
  SmartPtr<DataObject> process(tvstring const &ruleName, SmartPtr<DataObject> const &object,
                               TransformContext &context) override;
  Result<SmartPtr<DataObject>> postprocess2(SmartPtr<DataObject> const &object, TransformContext &context) override;

 private:
  IInternalMessage *target_;
};

}  // namespace tavrone

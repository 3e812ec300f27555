#pragma once

#include "tavrone/pipeline/IMessage.h"
#include "tavrone/pipeline/NamedRules.h"

namespace tavrone {

class BusinessProcessingRules;
class ExceptionHandler;
class OutputDevice;
class Triggers;
class ValidationRules;
struct CallHandler;

// A normalized message type as generated code describes it, with its validators and processing rules. Fixes the order
// of a message's life: the rule "Preprocess", the validator "Default", the rule "Postprocess", then the triggers. The
// two rules are optional, the validator is not.
//
// The forms with a handler are the bodies of the plain ones (draconian) and of the `2` forms (collecting). A handler
// stays in the rule that it was given to; a `2` form puts the draconian one back. So a message serves one call at a
// time.
//
// Every parse raises TransformException "unsupported operation parse for internal messages". Objects are written as XML
// unless "message.format" asks for the "tavrone" form.
class TAVRONE_API AbstractInternalMessage : public IInternalMessage {
 public:
  static tvstringliteral const PREPROCESSING_NODE_NAME;   // "Preprocess"
  static tvstringliteral const POSTPROCESSING_NODE_NAME;  // "Postprocess"

  ~AbstractInternalMessage() noexcept(false) override;

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
  // Nothing is collected: the list is empty.
  Result<Binary> serialize2(SmartPtr<DataObject> const &object, TransformContext &context) override;
  RawMessage serializeMessage(SmartPtr<DataObject> const &object, TransformContext &context) override;
  Result<RawMessage> serializeMessage2(SmartPtr<DataObject> const &object, TransformContext &context) override;

  // Holds the object throughout. A failure that has no phase yet gets "Internal Message".
  void handleNormalizedObject(DataObject *object, TransformContext &context) override;
  SmartPtr<DataObject> preprocess(SmartPtr<DataObject> const &object, TransformContext &context) override;
  Result<SmartPtr<DataObject>> preprocess2(SmartPtr<DataObject> const &object, TransformContext &context) override;
  Result<SmartPtr<DataObject>> process2(tvstring const &ruleName, SmartPtr<DataObject> const &object,
                                        TransformContext &context) override;
  SmartPtr<DataObject> postprocess(SmartPtr<DataObject> const &object, TransformContext &context) override;
  SmartPtr<DataObject> process(tvstring const &ruleName, SmartPtr<DataObject> const &object,
                               TransformContext &context) override;
  Result<SmartPtr<DataObject>> postprocess2(SmartPtr<DataObject> const &object, TransformContext &context) override;

  // The message's own, kept by generated code; null where it has no triggers.
  virtual Triggers *getTriggers() { return nullptr; }

  // Take the rule over. The first one under a name stays; a later one is refused and remains the caller's.
  void addValidator(tvstring const &name, ValidationRules *validator);
  void addProcessing(tvstring const &name, BusinessProcessingRules *rule);
  // Raise TransformRuntimeException "Validator by name '<name>' is not defined for the message" and "Processing by name
  // '<name>' is not defined for the message".
  ValidationRules *getValidatorByName(tvstring const &name);
  BusinessProcessingRules *getProcessingRuleByName(tvstring const &name);
  bool processingRuleExists(tvstring const &name) { return processingRules_.find(name) != nullptr; }

  // The order above without the triggers. Holds the object throughout.
  void processAll(DataObject *object, TransformContext &context);
  void validate(tvstring const &validatorName, SmartPtr<DataObject> const &object, ExceptionHandler *handler,
                TransformContext &context);
  void process(tvstring const &ruleName, SmartPtr<DataObject> const &object, ExceptionHandler *handler,
               TransformContext &context);
  // Nothing where the rule is absent.
  void preprocess(SmartPtr<DataObject> const &object, ExceptionHandler *handler, TransformContext &context);
  void postprocess(SmartPtr<DataObject> const &object, ExceptionHandler *handler, TransformContext &context);
  // One write to the device, which is not closed.
  void serialize(SmartPtr<DataObject> const &object, OutputDevice &device, TransformContext &context);

 protected:
  explicit AbstractInternalMessage(tvstring const &name);

  tvstring name_;

 private:
  void processHeld(SmartPtr<DataObject> const &object, TransformContext &context);
  ValidationRules &defaultValidator();
  static void validate0(ValidationRules &validator, SmartPtr<DataObject> const &object, CallHandler const &call,
                        TransformContext &context);
  static SmartPtr<DataObject> process0(BusinessProcessingRules *rule, SmartPtr<DataObject> const &object,
                                       CallHandler const &call, TransformContext &context);

  NamedRules<ValidationRules> validators_;
  NamedRules<BusinessProcessingRules> processingRules_;
  // What every message asks for, without a look-up; null where it is absent.
  ValidationRules *defaultValidator_ = nullptr;
  BusinessProcessingRules *preprocessing_ = nullptr;
  BusinessProcessingRules *postprocessing_ = nullptr;
};

// The message type of failures: its normalized object is a TransformException with an empty text.
class TAVRONE_API TransformExceptionInternalMessage : public AbstractInternalMessage {
 public:
  TransformExceptionInternalMessage();
  ~TransformExceptionInternalMessage() noexcept(false) override;

  DataObject *createNormalizedObject() override;
  // The object unchanged.
  DataObject *processNormalizedObject(DataObject *object, ExceptionHandler *handler, TransformContext &context);
};

}  // namespace tavrone

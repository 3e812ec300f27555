#pragma once

#include "tavrone/context/LookupContext.h"
#include "tavrone/pipeline/IMessage.h"
#include "tavrone/pipeline/NamedRules.h"

namespace tavrone {

class ExceptionHandler;
class FieldsValidationRules;
class InputParser;
class OutputWriter;
struct CallHandler;

// One wire format as generated code describes it. The forms with a handler are the bodies of the plain ones (draconian)
// and of the `2` forms (collecting). A handler stays in the parser, writer or validator that it was given to; a `2`
// form puts the draconian one back. So a message serves one call at a time.
//
// Operations on an object raise TransformRuntimeException for a null one ("Unexpected null object. Expected external
// object") and for any that is not an ExternalObject, in every form.
class TAVRONE_API AbstractExternalMessage : public IExternalMessage {
 public:
  ~AbstractExternalMessage() noexcept(false) override;

  SmartPtr<DataObject> createObject() override;
  SmartPtr<DataObject> parse(Binary const &bytes, TransformContext &context) override;
  // By the wire format whatever the context says. Raises TransformRuntimeException for a null handle.
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

  // The message's own, kept by generated code. The writer must be a SimpleOutputWriter.
  virtual InputParser *getInputParser() = 0;
  virtual OutputWriter *getOutputWriter() = 0;

  // "xml" raises TransformException "XML parsing is not supported"; "tavrone" does not use the handler.
  SmartPtr<DataObject> parse(Binary const &bytes, ExceptionHandler *handler, TransformContext &context);
  // Header, body with the header, trailer, in this order. Raises TransformRuntimeException for an unknown validator.
  void validate(tvstring const &validatorName, SmartPtr<DataObject> const &object, ExceptionHandler *handler,
                TransformContext &context);
  void validate(SmartPtr<DataObject> const &object, ExceptionHandler *handler, TransformContext &context);
  Binary serialize(SmartPtr<DataObject> const &object, ExceptionHandler *handler, TransformContext &context);
  RawMessage serializeMessage(SmartPtr<DataObject> const &object, ExceptionHandler *handler, TransformContext &context);

 protected:
  explicit AbstractExternalMessage(tvstring const &name);

  // Takes the validator over. The first one under a name stays; a later one is refused and remains the caller's.
  void addValidator(tvstring const &name, FieldsValidationRules *validator);
  // Raises TransformRuntimeException "Validator by name '<name>' is not defined for the message".
  FieldsValidationRules *getValidatorByName(tvstring const &name);

  SmartPtr<ILookupContext> lookupContext_;  // a handle of its own
  tvstring name_;

 private:
  SmartPtr<DataObject> parse0(Binary const &bytes, CallHandler const &call, TransformContext &context);
  void validate0(tvstring const &validatorName, SmartPtr<DataObject> const &object, CallHandler const &call,
                 TransformContext &context);
  Binary serialize0(SmartPtr<DataObject> const &object, CallHandler const &call, TransformContext &context);
  RawMessage serializeMessage0(SmartPtr<DataObject> const &object, CallHandler const &call, TransformContext &context);

  NamedRules<FieldsValidationRules> validators_;
};

}  // namespace tavrone

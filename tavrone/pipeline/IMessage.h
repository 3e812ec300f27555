#pragma once

#include "tavrone/context/IService.h"
#include "tavrone/context/TransformContext.h"
#include "tavrone/core/Result.h"
#include "tavrone/core/SmartPtr.h"
#include "tavrone/dataobject/DataObject.h"
#include "tavrone/pipeline/RawMessage.h"

namespace tavrone {

class ExternalObject;

// One message type: how to make, parse, validate and write its objects. The plain forms stop at the first failure; the
// `2` forms collect what their rules report and go on, and raise only what no rule can report (an unknown validator, a
// wrong object). "message.format" in the context selects "xml" (write only), "tavrone" (DataObjectIO), or the wire
// format.
class TAVRONE_API IMessage : public IService {
 public:
  static tvstringliteral const MESSAGE_FORMAT;  // "message.format"
  static tvstringliteral const XML_FORM;        // "xml"
  static tvstringliteral const TAVRONE_FORM;    // "tavrone"

  static bool isTavroneFormat(tvstring const &form) { return form == TAVRONE_FORM; }

  ~IMessage() noexcept(false) override;

  // A new, empty object of this type.
  virtual SmartPtr<DataObject> createObject() = 0;
  // A new object of what the bytes say.
  virtual SmartPtr<DataObject> parse(Binary const &bytes, TransformContext &context) = 0;
  virtual SmartPtr<DataObject> parse(RawMessage const &message, TransformContext &context) = 0;
  virtual SmartPtr<DataObject> parse(InputSource &input, TransformContext &context) = 0;
  virtual Result<SmartPtr<DataObject>> parse2(Binary const &bytes, TransformContext &context) = 0;
  virtual Result<SmartPtr<DataObject>> parse2(InputSource &input, TransformContext &context) = 0;
  // Raises TransformRuntimeException for a validator that the message doesn't have.
  virtual void validate(tvstring const &validatorName, SmartPtr<DataObject> const &object,
                        TransformContext &context) = 0;
  // By the validator "Default".
  virtual void validate(SmartPtr<DataObject> const &object, TransformContext &context) = 0;
  // The value of the result is null: the object isn't handed back.
  virtual Result<SmartPtr<DataObject>> validate2(tvstring const &validatorName, SmartPtr<DataObject> const &object,
                                                 TransformContext &context) = 0;
  virtual Result<SmartPtr<DataObject>> validate2(SmartPtr<DataObject> const &object, TransformContext &context) = 0;
  // The object's bytes, in the form that the context selects; the object is only read.
  virtual Binary serialize(SmartPtr<DataObject> const &object, TransformContext &context) = 0;
  virtual Result<Binary> serialize2(SmartPtr<DataObject> const &object, TransformContext &context) = 0;
  virtual RawMessage serializeMessage(SmartPtr<DataObject> const &object, TransformContext &context) = 0;
  virtual Result<RawMessage> serializeMessage2(SmartPtr<DataObject> const &object, TransformContext &context) = 0;

 protected:
  IMessage() = default;
  IMessage(IMessage const &) : Object(), ObjectRef(), IService() {}
  IMessage &operator=(IMessage const &) = default;
};

// A wire format's message type.
class TAVRONE_API IExternalMessage : public IMessage {
 public:
  ~IExternalMessage() noexcept(false) override;

  // A new, empty parsed form with its header, body and trailer.
  virtual SmartPtr<ExternalObject> createExternalObject() = 0;
};

// A normalized message type, independent of any wire format; also called a business transaction.
class TAVRONE_API IInternalMessage : public IMessage {
 public:
  ~IInternalMessage() noexcept(false) override;

  // A new, empty object, the caller's.
  virtual DataObject *createNormalizedObject() = 0;
  // The entry from an input format: preprocess, validate, postprocess, then the triggers. Borrows the object.
  virtual void handleNormalizedObject(DataObject *object, TransformContext &context) = 0;
  // These work in place and return the object that they were given.
  virtual SmartPtr<DataObject> preprocess(SmartPtr<DataObject> const &object, TransformContext &context) = 0;
  virtual Result<SmartPtr<DataObject>> preprocess2(SmartPtr<DataObject> const &object, TransformContext &context) = 0;
  virtual Result<SmartPtr<DataObject>> process2(tvstring const &ruleName, SmartPtr<DataObject> const &object,
                                                TransformContext &context) = 0;
  virtual SmartPtr<DataObject> postprocess(SmartPtr<DataObject> const &object, TransformContext &context) = 0;
  virtual SmartPtr<DataObject> process(tvstring const &ruleName, SmartPtr<DataObject> const &object,
                                       TransformContext &context) = 0;
  virtual Result<SmartPtr<DataObject>> postprocess2(SmartPtr<DataObject> const &object, TransformContext &context) = 0;
};

}  // namespace tavrone

#pragma once

#include <vector>

#include "tavrone/context/LookupContext.h"
#include "tavrone/core/ExceptionHandler.h"
#include "tavrone/core/Exceptions.h"
#include "tavrone/core/SmallStringMap.h"
#include "tavrone/pipeline/CustomClassSupport.h"
#include "tavrone/pipeline/IMessage.h"
#include "tavrone/pipeline/IMessageMapping.h"
#include "tavrone/routing/IMessageFlow.h"

namespace tavrone {

// A message flow without its body, which generated code writes: the entries, the context and handler of the run in
// progress, the services that the flow looked up, and what activities call.
//
// Context and handler are borrowed, and go when the run ends, however it ends. So a flow runs one message at a time.
class TAVRONE_API AbstractMessageFlow : public IMessageFlow {
 public:
  ~AbstractMessageFlow() noexcept(false) override;

  SmartPtr<DataObject> run(SmartPtr<DataObject> const &object, TransformContext &context) override;
  ObjectList run(InputSource &input, TransformContext &context) override;
  ObjectList run(ObjectList const &inputs, TransformContext &context) override;
  Result<SmartPtr<DataObject>> run2(SmartPtr<DataObject> const &object, TransformContext &context) override;
  Result<ObjectList> run2(ObjectList const &inputs, TransformContext &context) override;
  std::vector<OutputPortDef> getOutputPorts() override { return outputPorts_; }

  // The body, for a single object and for a list of inputs.
  virtual SmartPtr<DataObject> execute(SmartPtr<DataObject> const &object, TransformContext &context) = 0;
  virtual ObjectList execute(ObjectList const &inputs, TransformContext &context) = 0;
  // What holds the flow's variables, borrowed.
  virtual DataObject *getVariables() = 0;

  // Takes a handle on the directory, once. The look-ups do so, too.
  void init();

  // Draconian outside of a run. A run replaces what was set, and doesn't bring it back.
  ExceptionHandler *getExceptionHandler() const { return exceptionHandler_; }
  void setExceptionHandler(ExceptionHandler *handler) { exceptionHandler_ = handler; }

  // Each name is looked up once. Services of all kinds share one cache: a name that was looked up as another kind
  // raises ClassCastException.
  SmartPtr<IMessage> lookupMessage(tvstring const &name);
  SmartPtr<IExternalMessage> lookupExternalMessage(tvstring const &name);
  SmartPtr<IInternalMessage> lookupInternalMessage(tvstring const &name);
  SmartPtr<IMessageMapping> lookupMessageMapping(tvstring const &name);
  SmartPtr<IMessageFlow> lookupMessageFlow(tvstring const &name);
  SmartPtr<IOutputProtocol> lookupOutputProtocol(tvstring const &name);

  // For a message that came from where the context's "input.source" says.
  DeviceInfo createDeviceInfo(tvstring const &deviceName, TransformContext &context);
  // One write to a new device of the protocol that is bound under the device's name. The port does not matter.
  void sendToDevice(tvstring const &portName, tvstring const &deviceName, Binary const &bytes,
                    TransformContext &context);

  // Generated code tells of each activity here. Nobody listens.
  void trace(tvstring const &text);
  void activityEnteredTrace(tvstring const &activity, tvstring const &kind);
  void activityEnteredTrace(char const *activity, char const *kind);

 protected:
  explicit AbstractMessageFlow(tvstring const &name);
  // Copies are in no run, and look their services up themselves.
  AbstractMessageFlow(AbstractMessageFlow const &other);
  AbstractMessageFlow &operator=(AbstractMessageFlow const &other);

  // For constructors of generated flows.
  void addOutputPort(tvstring const &name, tvstring const &protocol, tvstring const &outputDevice);

  // The context of the run in progress. Raises TransformRuntimeException outside of a run.
  TransformContext &getTransformContext();
  // The same; null outside of a run.
  TransformContext *getDefaultTransformContext() const { return transformContext_; }

  // Around the body of each run: store the context and the handler, and forget them.
  void onStartMesageFlow(TransformContext &context, ExceptionHandler *handler);
  void onEndMesageFlow();

  // Raises FieldParsingException "Variable '<qualified name>' cannot be null."
  void ensureVariableNotNull(int index);

  // Give a failure to the handler of the run: `run` stops at it, `run2` collects it and goes on. An Exception that is
  // no TransformException cannot be collected, and is thrown again as a plain Exception.
  void onException(TransformException &failure);
  void handleException(Exception &failure);
  // Throws the first of the failures that a nested `2` form collected, if there are any. Borrows the list.
  void handleExceptionResult(std::vector<ExceptionDataObject *> &failures);

  // Calls the user's IInvokable of that name, made once for this flow. The result is the caller's.
  Object *invokeCustomExternalClass(tvstring const &className, ObjectList const &arguments, TransformContext &context);

 private:
  template <class Body>
  auto runBody(TransformContext &context, ExceptionHandler *handler, Body const &body);
  template <class T, class Found>
  SmartPtr<T> lookupCached(tvstring const &name, Found (ILookupContext::*lookUp)(tvstring const &));

  SmartPtr<ILookupContext> lookupContext_;  // null before init
  std::vector<OutputPortDef> outputPorts_;
  ExceptionHandler *exceptionHandler_ = ExceptionHandler::DRACONIAN_EXCEPTION_HANDLER;
  SmallStringMap serviceCache_;
  tvstring name_;
  bool traceEnabled_ = false;
  TransformContext *transformContext_ = nullptr;  // null outside of a run
  CustomClassSupport customClasses_;
};

}  // namespace tavrone

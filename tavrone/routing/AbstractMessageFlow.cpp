#include "tavrone/routing/AbstractMessageFlow.h"

#include "tavrone/core/Class.h"
#include "tavrone/core/Raise.h"
#include "tavrone/core/Wrappers.h"
#include "tavrone/pipeline/CallHandler.h"
#include "tavrone/pipeline/StoredContext.h"
#include "tavrone/pipeline/WriteAll.h"

namespace tavrone {

namespace {

constexpr char const *SOURCE = "cpp/AbstractMessageFlow";

}  // namespace

AbstractMessageFlow::AbstractMessageFlow(tvstring const &name) : name_(name) {}
AbstractMessageFlow::AbstractMessageFlow(AbstractMessageFlow const &other)
    : Object(), ObjectRef(), IMessageFlow(), outputPorts_(other.outputPorts_), name_(other.name_) {}
AbstractMessageFlow &AbstractMessageFlow::operator=(AbstractMessageFlow const &other) {
  outputPorts_ = other.outputPorts_;
  name_ = other.name_;
  return *this;
}
AbstractMessageFlow::~AbstractMessageFlow() noexcept(false) = default;

template <class Body>
auto AbstractMessageFlow::runBody(TransformContext &context, ExceptionHandler *handler, Body const &body) {
  struct Run {
    ~Run() { flow.onEndMesageFlow(); }
    AbstractMessageFlow &flow;
  };
  onStartMesageFlow(context, handler);
  Run const inProgress{*this};
  return body();
}

SmartPtr<DataObject> AbstractMessageFlow::run(SmartPtr<DataObject> const &object, TransformContext &context) {
  return runBody(context, ExceptionHandler::DRACONIAN_EXCEPTION_HANDLER, [&] { return execute(object, context); });
}

ObjectList AbstractMessageFlow::run(ObjectList const &inputs, TransformContext &context) {
  return runBody(context, ExceptionHandler::DRACONIAN_EXCEPTION_HANDLER, [&] { return execute(inputs, context); });
}

ObjectList AbstractMessageFlow::run(InputSource &input, TransformContext &context) {
  int length = 0;
  char const *bytes = input.getAsBytes(length);
  ObjectList inputs;
  inputs.add(new BinaryObject(Binary(bytes, length < 0 ? 0 : static_cast<size_t>(length))));
  return run(inputs, context);
}

Result<SmartPtr<DataObject>> AbstractMessageFlow::run2(SmartPtr<DataObject> const &object, TransformContext &context) {
  return collecting([&](CallHandler const &call) {
    return runBody(context, call.handler, [&] { return execute(object, context); });
  });
}

Result<ObjectList> AbstractMessageFlow::run2(ObjectList const &inputs, TransformContext &context) {
  return collecting([&](CallHandler const &call) {
    return runBody(context, call.handler, [&] { return execute(inputs, context); });
  });
}

void AbstractMessageFlow::onStartMesageFlow(TransformContext &context, ExceptionHandler *handler) {
  if (traceEnabled_) trace("Message Flow " + name_ + " started");
  transformContext_ = &context;
  exceptionHandler_ = handler;
}

void AbstractMessageFlow::onEndMesageFlow() {
  transformContext_ = nullptr;
  exceptionHandler_ = ExceptionHandler::DRACONIAN_EXCEPTION_HANDLER;
  if (traceEnabled_) trace("Message Flow " + name_ + " completed");
}

TransformContext &AbstractMessageFlow::getTransformContext() {
  return storedContext(transformContext_, SOURCE);
}

void AbstractMessageFlow::init() {
  if (lookupContext_.isNull()) lookupContext_ = LookupContextFactory::getLookupContext();
}

void AbstractMessageFlow::addOutputPort(tvstring const &name, tvstring const &protocol, tvstring const &outputDevice) {
  outputPorts_.emplace_back(name, protocol, outputDevice);
}

template <class T, class Found>
SmartPtr<T> AbstractMessageFlow::lookupCached(tvstring const &name, Found (ILookupContext::*lookUp)(tvstring const &)) {
  if (ObjectRef *const kept = serviceCache_.get(name)) return checkedCast<T>(kept);
  init();
  SmartPtr<T> found = (lookupContext_.get()->*lookUp)(name);
  // Text of its own: the name may be a view on bytes that go.
  serviceCache_.put(tvstring(name.data(), name.length()), found.get());
  return found;
}

SmartPtr<IMessage> AbstractMessageFlow::lookupMessage(tvstring const &name) {
  return lookupCached<IMessage>(name, &ILookupContext::lookupMessage);
}
SmartPtr<IExternalMessage> AbstractMessageFlow::lookupExternalMessage(tvstring const &name) {
  return lookupCached<IExternalMessage>(name, &ILookupContext::lookupExternalMessage);
}
SmartPtr<IInternalMessage> AbstractMessageFlow::lookupInternalMessage(tvstring const &name) {
  return lookupCached<IInternalMessage>(name, &ILookupContext::lookupInternalMessage);
}
SmartPtr<IMessageMapping> AbstractMessageFlow::lookupMessageMapping(tvstring const &name) {
  return lookupCached<IMessageMapping>(name, &ILookupContext::lookupMessageMapping);
}
SmartPtr<IMessageFlow> AbstractMessageFlow::lookupMessageFlow(tvstring const &name) {
  return lookupCached<IMessageFlow>(name, &ILookupContext::lookupMessageFlow);
}
SmartPtr<IOutputProtocol> AbstractMessageFlow::lookupOutputProtocol(tvstring const &name) {
  return lookupCached<IOutputProtocol>(name, &ILookupContext::lookupOutputProtocol);
}

DeviceInfo AbstractMessageFlow::createDeviceInfo(tvstring const &deviceName, TransformContext &context) {
  return {deviceName, context.getProperty(TransformContext::INPUT_SOURCE_PROPERTY), tvstring()};
}

void AbstractMessageFlow::sendToDevice(tvstring const & /*portName*/, tvstring const &deviceName, Binary const &bytes,
                                       TransformContext &context) {
  SmartPtr<IOutputProtocol> const protocol = lookupOutputProtocol(deviceName);
  DeviceInfo info = createDeviceInfo(deviceName, context);
  OutputDevice *const device = protocol->createDevice(info, context);
  writeAll(*device, bytes);
  device->close();
}

void AbstractMessageFlow::ensureVariableNotNull(int index) {
  DataObject &variables = *getVariables();
  if (variables.isNull(index))
    raise<FieldParsingException>("Variable '" + variables.getQualifiedName(index) + "' cannot be null.", SOURCE);
}

void AbstractMessageFlow::onException(TransformException &failure) {
  exceptionHandler_->onException(&failure);
}

void AbstractMessageFlow::handleException(Exception &failure) {
  auto *const collectable = dynamic_cast<TransformException *>(&failure);
  if (collectable == nullptr) throw Exception(failure);
  onException(*collectable);
}

void AbstractMessageFlow::handleExceptionResult(std::vector<ExceptionDataObject *> &failures) {
  if (!failures.empty()) ExceptionHandler::DRACONIAN_EXCEPTION_HANDLER->onException(failures.front());
}

Object *AbstractMessageFlow::invokeCustomExternalClass(tvstring const &className, ObjectList const &arguments,
                                                       TransformContext &context) {
  return customClasses_.invoke(className, arguments, context);
}

void AbstractMessageFlow::trace(tvstring const &) {}
void AbstractMessageFlow::activityEnteredTrace(tvstring const &, tvstring const &) {}
void AbstractMessageFlow::activityEnteredTrace(char const *, char const *) {}

}  // namespace tavrone

#include "tavrone/routing/MessageRouter.h"

#include <memory>
#include <utility>

#include "tavrone/core/OwnedPointers.h"
#include "tavrone/core/Raise.h"

namespace tavrone {

namespace {

constexpr char SOURCE[] = "cpp/MessageRouter";

// A handle on the directory. A service that a router is about to own goes when there is no memory for it.
SmartPtr<ILookupContext> directoryBeside(MessageIdentificationService *service) {
  std::unique_ptr<MessageIdentificationService> owned(service);
  SmartPtr<ILookupContext> directory = LookupContextFactory::getLookupContext();
  static_cast<void>(owned.release());
  return directory;
}

}  // namespace

MessageRouter::MessageRouter(MessageIdentificationService *service)
    : identificationService_(service != nullptr ? service : MessageIdentificationService::getDefault()),
      lookupContext_(directoryBeside(service)),
      ownsIdentificationService_(service != nullptr) {}

MessageRouter::~MessageRouter() noexcept(false) {
  clear();
  deleteOwnedService();
}

bool MessageRouter::onInit() {
  return !std::exchange(initialized_, true);
}

void MessageRouter::setMessageIdentificationService(MessageIdentificationService *service) {
  if (service == identificationService_ && ownsIdentificationService_) return;
  deleteOwnedService();
  identificationService_ = service;
  ownsIdentificationService_ = true;
}

void MessageRouter::clearMessageIdentificationService() {
  deleteOwnedService();
}

void MessageRouter::deleteOwnedService() {
  MessageIdentificationService *const service = std::exchange(identificationService_, nullptr);
  if (service != nullptr && ownsIdentificationService_ && !service->isDefault()) delete service;
}

void MessageRouter::addMessageConfiguration(MessageConfiguration *configuration) {
  if (configuration != nullptr) pushOwned(messageConfigurations_, configuration);
}

void MessageRouter::clear() {
  deleteOwned(messageConfigurations_);
}

MessageConfiguration *MessageRouter::getMessageConfiguration(InputSource &input) const {
  if (identificationService_ == nullptr) raise<TransformException>("No message identification service is set", SOURCE);
  SmartPtr<DataObject> const header = identificationService_->identifyMessage(input);
  if (header.isNull()) raise<UnrecognizedMessageException>("Unrecognized message format", SOURCE, 81);
  if (auto *match = MessageConfiguration::firstMatch(messageConfigurations_, header.get(), headerCast_)) return match;
  raise<UnhandledMessageException>("Cannot handle message " + header->toXMLString(), SOURCE, 89);
}

void MessageRouter::processMessage(InputSource &input, TransformContext &context) const {
  try {
    process(input, context);
  } catch (TransformException &failure) {
    failure.setSeverity(ExceptionObject::EXCEPTION_SEVERITY_FATAL);
    throw;
  }
}

void MessageRouter::process(InputSource &input, TransformContext &context) const {
  Properties const &properties = getMessageConfiguration(input)->getContextProperties();
  tvstring const formatName = properties.getProperty(TransformContext::INPUT_FORMAT_PROPERTY);
  if (formatName.empty())
    raise<TransformException>(
        TransformContext::INPUT_FORMAT_PROPERTY + " property cannot be empty in the message configuration", SOURCE, 55);
  for (auto const &[name, value] : properties) context.setProperty(name, value);
  // A look-up that failed leaves the name of the format before it beside a null format.
  if (formatName != currentFormatName_ || currentFormat_.isNull()) selectFormat(formatName);
  currentFormat_->processInput(input, context);
}

void MessageRouter::processMessage(InputSource &input) const {
  TransformContext context;
  processMessage(input, context);
}

void MessageRouter::selectFormat(tvstring const &name) const {
  auto known = formatCache_.find(name);
  if (known == formatCache_.end()) {
    currentFormat_.release();
    known = formatCache_.emplace(name, lookupContext_->lookupInputFormat(name)).first;
  }
  currentFormat_ = known->second;
  currentFormatName_ = name;
}

}  // namespace tavrone

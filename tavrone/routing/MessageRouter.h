#pragma once

#include <map>
#include <vector>

#include "tavrone/context/LookupContext.h"
#include "tavrone/core/SmartPtr.h"
#include "tavrone/pipeline/IInputFormat.h"
#include "tavrone/routing/MessageConfiguration.h"
#include "tavrone/routing/MessageIdentificationService.h"

namespace tavrone {

// The host's front door: identifies a message, picks the first configuration that matches, and hands the message to the
// input format which that configuration names. It owns its configurations and a service that it was given.
// A router, and the formats that it keeps, serve one message at a time; a host with several threads gives each its own.
class TAVRONE_API MessageRouter : public Object {
 public:
  // Owns the service; without one it uses the default service.
  MessageRouter(MessageIdentificationService *service = nullptr);
  MessageRouter(MessageRouter const &) = delete;
  MessageRouter &operator=(MessageRouter const &) = delete;
  ~MessageRouter() noexcept(false) override;

  // True on the first call only: a latch for the host, which the router itself does not read.
  bool onInit();

  // Owns the service from now on, and deletes the one before if it was owned. The service that is already owned stays.
  void setMessageIdentificationService(MessageIdentificationService *service);
  // Until another service is set, messages fail with TransformException "No message identification service is set".
  void clearMessageIdentificationService();

  // Takes over the configuration; null is ignored. Those added first are asked first.
  void addMessageConfiguration(MessageConfiguration *configuration);
  // Destroys all configurations; the service and the formats stay.
  void clear();

  // The configuration for a message, borrowed. Raises UnrecognizedMessageException if no identifier knows the input,
  // and UnhandledMessageException, with the header's XML, if no configuration matches.
  MessageConfiguration *getMessageConfiguration(InputSource &input) const;

  // Copies the properties of the message's configuration into the context and runs its input format. Failures reach
  // the caller as they are, a TransformException with the severity "fatal"; the format is kept all the same. Raises
  // what getMessageConfiguration raises, and TransformException "input.format property cannot be empty in the message
  // configuration", before the context is touched; after that NamingException for a format that is not bound. Borrows
  // input and context.
  void processMessage(InputSource &input, TransformContext &context) const;
  // With a context of its own for this message.
  void processMessage(InputSource &input) const;

 private:
  void deleteOwnedService();
  void process(InputSource &input, TransformContext &context) const;
  void selectFormat(tvstring const &name) const;

  MessageIdentificationService *identificationService_;
  std::vector<MessageConfiguration *> messageConfigurations_;
  bool initialized_ = false;
  SmartPtr<ILookupContext> lookupContext_;
  mutable tvstring currentFormatName_;
  mutable SmartPtr<IInputFormat> currentFormat_;  // null after a failed look-up, whatever currentFormatName_ says
  mutable std::map<tvstring, SmartPtr<IInputFormat>> formatCache_;
  bool ownsIdentificationService_;
  mutable MessageConfiguration::HeaderCast headerCast_;
};

}  // namespace tavrone

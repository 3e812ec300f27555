#pragma once

#include "tavrone/core/SmartPtr.h"
#include "tavrone/pipeline/MessageHeader.h"
#include "tavrone/routing/MessageIdentifier.h"

namespace tavrone {

// The message identifiers, asked in the order of their registration. Copies of a service share one list, which owns the
// identifiers. (The name `Identifer` is meant so.)
class TAVRONE_API MessageIdentificationService {
 public:
  // The process-wide service, made on first call with the identifiers of the wire formats; it lives until the process
  // exits and belongs to nobody else, whoever is given it.
  static MessageIdentificationService *getDefault();

  MessageIdentificationService();
  MessageIdentificationService(MessageIdentificationService const &other);
  MessageIdentificationService &operator=(MessageIdentificationService const &other);
  ~MessageIdentificationService() noexcept(false);

  // Takes over the identifier.
  void registerMessageIdentifer(MessageIdentifier *identifier);
  // Makes one by its class name. Raises ClassCastException if that gives anything else, and adds nothing then.
  void registerMessageIdentifer(tvstring const &className);
  // Tells the identifier registered last, and no other.
  void setMessageIdentiferProperty(tvstring const &name, tvstring const &value);

  // The first header that an identifier gives, or null. The caller adds its reference. A failure of an identifier ends
  // the walk.
  DataObject *identifyMessage(InputSource &input);
  // The header of bytes[0, length) as a new object, the caller's, or null. The bytes are not copied.
  MessageHeader *parseMessageHeader(char const *bytes, int length);

 private:
  friend class MessageRouter;
  class Identifiers;

  bool isDefault() const;

  SmartPtr<Identifiers> identifiers_;
};

}  // namespace tavrone

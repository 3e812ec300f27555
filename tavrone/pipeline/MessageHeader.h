#pragma once

#include "tavrone/dataobject/DataObject.h"

namespace tavrone {

// What routing reads of an identified message.
class TAVRONE_API MessageHeader {
 public:
  // Empty where the message doesn't tell.
  virtual tvstring getMessageFormat() = 0;
  virtual tvstring getMessageType() = 0;
  virtual tvstring getMessageVersion() = 0;
  // Empty for an unknown name and for a null field.
  virtual tvstring getHeaderField(tvstring const &name) = 0;
  virtual ~MessageHeader() noexcept(false);
  // Whether the four operations tell, as the header is now, what a MessageHeaderAdapter would read of its fields:
  // routing, which reads fields, then asks them instead, without a wrapper for each. False unless overridden.
  virtual bool tellsItsFields() const { return false; }

  // "MessageFormat = <format>, Message Version = <version>, Message Type = <type>".
  tvstring stringform();
};

// A data object read as a header, through its fields "MessageFormat", "MessageType" and "MessageVersion". A live view:
// each call reads the object.
class TAVRONE_API MessageHeaderAdapter : public MessageHeader {
 public:
  // An owning adapter holds a reference and drops it when it goes; the other kind borrows.
  MessageHeaderAdapter(DataObject *header, bool owns);
  MessageHeaderAdapter(MessageHeaderAdapter const &) = delete;
  MessageHeaderAdapter &operator=(MessageHeaderAdapter const &) = delete;
  ~MessageHeaderAdapter() noexcept(false) override;

  tvstring getMessageFormat() override;
  tvstring getMessageType() override;
  tvstring getMessageVersion() override;
  tvstring getHeaderField(tvstring const &name) override;

 private:
  DataObject *header_;
  bool ownsHeader_;
};

}  // namespace tavrone

#pragma once

#include <functional>

#include "tavrone/context/PropertyMap.h"
#include "tavrone/core/Wrappers.h"
#include "tavrone/pipeline/InputSource.h"

namespace tavrone {

class IRawMessage;

// A counted handle on a raw message; may be null. A SmartPtr in every way, the self-assignment of the only reference
// included.
class TAVRONE_API RawMessage : public SmartPtr<IRawMessage> {
 public:
  using SmartPtr::SmartPtr;
  using SmartPtr::operator=;
  RawMessage() = default;
  RawMessage(SmartPtr const &message) : SmartPtr(message) {}

  // The same message, not the same payload.
  bool operator==(RawMessage const &other) const { return get() == other.get(); }
  bool operator!=(RawMessage const &other) const { return get() != other.get(); }
  // An order for containers, without a meaning.
  bool operator<(RawMessage const &other) const { return std::less<>()(get(), other.get()); }
  bool operator>(RawMessage const &other) const { return other < *this; }

  // The payload as text; "null" for a null handle.
  tvstring toString() const;
};

// A payload with what a transport knows about it: a name, an encoding (a label that nothing converts by), properties
// and named attachments. Even reading may make what it reads, so a raw message belongs to one thread at a time.
class TAVRONE_API IRawMessage : public IPropertyMap, public InputSource {
 public:
  // For hosts and transports; the library reads none of them.
  static tvstringliteral const REPLY_TO_PROPERTY;                // "replyTo"
  static tvstringliteral const CORRELATION_ID_PROPERTY;          // "correlationId"
  static tvstringliteral const CORRELATION_GROUP_SIZE_PROPERTY;  // empty, which is meant
  static tvstringliteral const CORRELATION_SEQUENCE_PROPERTY;    // empty, which is meant

  ~IRawMessage() noexcept(false) override;

  virtual void setName(tvstring const &name) = 0;
  virtual tvstring getName() = 0;
  virtual tvstring getAsString() = 0;
  // The exact bytes whatever the encoding.
  virtual tvstring getAsString(tvstring const &encoding) = 0;
  // Replaces an attachment of that name. A message that is attached to itself, also by way of others, lives until that
  // attachment is removed.
  virtual void addAttachment(tvstring const &name, RawMessage attachment) = 0;
  virtual void removeAttachment(tvstring const &name) = 0;
  // An unknown name gets an entry with a null handle, and that is returned; hasAttachment is true from then on.
  virtual RawMessage getAttachment(tvstring const &name) = 0;
  virtual bool hasAttachment(tvstring const &name) = 0;
  virtual TList<tvstring> getAttachmentNames() = 0;  // in name order
  virtual tvstring getEncoding() = 0;
  virtual void setEncoding(tvstring const &encoding) = 0;

 protected:
  IRawMessage() = default;
  IRawMessage(IRawMessage const &) : Object(), ObjectRef(), IPropertyMap(), InputSource() {}
  IRawMessage &operator=(IRawMessage const &) = default;
};

// A raw message as a field value.
class TAVRONE_API RawMessageObject : public WrapperObject {
 public:
  RawMessageObject() = default;
  RawMessageObject(RawMessage const &value) : value_(value) {}
  RawMessageObject(RawMessageObject const &) = default;
  RawMessageObject &operator=(RawMessageObject const &other) {
    setRawMessage(other.value_);
    return *this;
  }
  ~RawMessageObject() noexcept(false) override;

  RawMessage const &getValue() const { return value_; }
  RawMessage const &getRawMessage() const override { return value_; }
  // The value may be the one that is already held.
  void setRawMessage(RawMessage const &value) override { value_ = RawMessage(value); }
  tvstring const &getObjectType() const override { return DesignerTypes::RAW_MESSAGE_TYPE; }
  void setObject(Object const *other) override { setRawMessage(other->getRawMessage()); }
  // The payload as text.
  tvstring toString() const override;
  // A new wrapper around the same message.
  Object *clone() const override { return new RawMessageObject(*this); }

 private:
  RawMessage value_;
};

}  // namespace tavrone

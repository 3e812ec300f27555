#pragma once

#include <map>
#include <memory>

#include "tavrone/context/PropertyMapForwarder.h"
#include "tavrone/pipeline/RawMessage.h"

namespace tavrone {

// A raw message but for its payload. A message without properties and attachments has neither map: the first operation
// on properties, or on attachments, makes the one it needs, even if it only reads.
//
// A copy has its own name and encoding, and shares those maps that exist when it is made.
class TAVRONE_API AbstractRawMessage : public PropertyMapForwarder<AbstractRawMessage, IRawMessage> {
 public:
  ~AbstractRawMessage() noexcept(false) override;

  void setName(tvstring const &name) override { name_ = name; }
  tvstring getName() override { return name_; }
  tvstring getAsString() override { return getAsString(getEncoding()); }
  tvstring getAsString(tvstring const &encoding) override;
  void addAttachment(tvstring const &name, RawMessage attachment) override;
  void removeAttachment(tvstring const &name) override;
  RawMessage getAttachment(tvstring const &name) override;
  bool hasAttachment(tvstring const &name) override;
  TList<tvstring> getAttachmentNames() override;
  tvstring getEncoding() override { return encoding_; }
  void setEncoding(tvstring const &encoding) override { encoding_ = encoding; }

  // The map that the operations on properties work on.
  SmartPtr<IPropertyMap> getProperties();
  using PropertyMapForwarder::getProperties;
  // The live map.
  std::map<tvstring, RawMessage> &getAttachmentMap();
  void removeAllAttachments();
  TList<RawMessage> getAttachments();  // in name order

  // "<name>:<property>" a line, then the payload, then each attachment behind a line "-----=<name>". An attachment is
  // shown by the virtual toString(), which this one deliberately is not: never with properties and attachments.
  tvstring toString();
  using Object::toString;

 protected:
  AbstractRawMessage() = default;
  AbstractRawMessage(AbstractRawMessage const &other);
  AbstractRawMessage &operator=(AbstractRawMessage const &other);

 private:
  friend PropertyMapForwarder;
  IPropertyMap &target();

  std::shared_ptr<std::map<tvstring, RawMessage>> attachments_;
  tvstring encoding_;
  tvstring name_;
  SmartPtr<IPropertyMap> properties_;
};

}  // namespace tavrone

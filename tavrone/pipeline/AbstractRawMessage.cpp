#include "tavrone/pipeline/AbstractRawMessage.h"

#include "tavrone/context/PropertyMapImpl.h"
#include "tavrone/core/tvstringbuffer.h"

namespace tavrone {

AbstractRawMessage::AbstractRawMessage(AbstractRawMessage const &other)
    : Object(),
      ObjectRef(),
      PropertyMapForwarder(other),
      attachments_(other.attachments_),
      encoding_(other.encoding_),
      name_(other.name_),
      properties_(other.properties_) {}

AbstractRawMessage &AbstractRawMessage::operator=(AbstractRawMessage const &other) {
  if (this == &other) return *this;
  attachments_ = other.attachments_;
  encoding_ = other.encoding_;
  name_ = other.name_;
  properties_ = other.properties_;
  return *this;
}

AbstractRawMessage::~AbstractRawMessage() noexcept(false) {
  // An attachment that is this very message would otherwise drop the last reference and delete it a second time.
  addRef();
  attachments_.reset();
  decRef();
}

tvstring AbstractRawMessage::getAsString(tvstring const &) {
  int length = 0;
  char const *bytes = getAsBytes(length);
  return tvstring(bytes, length < 0 ? 0 : static_cast<size_t>(length));
}

// What leaves the map may hold the last reference to this message: it goes when nothing here is looked at any more.

void AbstractRawMessage::addAttachment(tvstring const &name, RawMessage attachment) {
  std::swap(getAttachmentMap()[name], attachment);
}

void AbstractRawMessage::removeAttachment(tvstring const &name) {
  auto const removed = getAttachmentMap().extract(name);
}

void AbstractRawMessage::removeAllAttachments() {
  std::map<tvstring, RawMessage> removed;
  removed.swap(getAttachmentMap());
}

RawMessage AbstractRawMessage::getAttachment(tvstring const &name) {
  return getAttachmentMap()[name];
}

bool AbstractRawMessage::hasAttachment(tvstring const &name) {
  return getAttachmentMap().contains(name);
}

TList<tvstring> AbstractRawMessage::getAttachmentNames() {
  TList<tvstring> names;
  for (auto const &[name, attachment] : getAttachmentMap()) names.add(name);
  return names;
}

TList<RawMessage> AbstractRawMessage::getAttachments() {
  TList<RawMessage> attachments;
  for (auto const &[name, attachment] : getAttachmentMap()) attachments.add(attachment);
  return attachments;
}

std::map<tvstring, RawMessage> &AbstractRawMessage::getAttachmentMap() {
  if (attachments_ == nullptr) attachments_ = std::make_shared<std::map<tvstring, RawMessage>>();
  return *attachments_;
}

SmartPtr<IPropertyMap> AbstractRawMessage::getProperties() {
  target();
  return properties_;
}

IPropertyMap &AbstractRawMessage::target() {
  if (properties_.isNull()) properties_ = new PropertyMapImpl;
  return *properties_;
}

tvstring AbstractRawMessage::toString() {
  tvstringbuffer text;
  if (!properties_.isNull()) {
    for (tvstring const &name : properties_->getPropertyNames()) {
      text.append(name).append(':');
      if (Object const *value = properties_->getProperty(name)) text.append(value->toString());
      text.append('\n');
    }
  }
  text.append(getAsString());
  if (attachments_ != nullptr) {
    text.append('\n');
    for (auto const &[name, attachment] : *attachments_) {
      text.append("-----=").append(name).append('\n');
      if (!attachment.isNull()) text.append(static_cast<Object const &>(*attachment).toString());
    }
  }
  return text;
}

}  // namespace tavrone

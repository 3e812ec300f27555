#include "tavrone/pipeline/MessageHeader.h"

#include "tavrone/core/Exceptions.h"
#include "tavrone/core/SmartPtr.h"

namespace tavrone {

namespace {

constinit tvstringliteral const FORMAT_FIELD("MessageFormat");
constinit tvstringliteral const TYPE_FIELD("MessageType");
constinit tvstringliteral const VERSION_FIELD("MessageVersion");

}  // namespace

MessageHeader::~MessageHeader() noexcept(false) = default;

tvstring MessageHeader::stringform() {
  return "MessageFormat = " + getMessageFormat() + ", Message Version = " + getMessageVersion() +
         ", Message Type = " + getMessageType();
}

MessageHeaderAdapter::MessageHeaderAdapter(DataObject *header, bool owns) : header_(header), ownsHeader_(owns) {
  if (ownsHeader_) ObjectRef::addRef(header_);
}

MessageHeaderAdapter::~MessageHeaderAdapter() noexcept(false) {
  if (ownsHeader_) ObjectRef::releaseRef(header_);
}

tvstring MessageHeaderAdapter::getMessageFormat() {
  return getHeaderField(FORMAT_FIELD);
}
tvstring MessageHeaderAdapter::getMessageType() {
  return getHeaderField(TYPE_FIELD);
}
tvstring MessageHeaderAdapter::getMessageVersion() {
  return getHeaderField(VERSION_FIELD);
}

tvstring MessageHeaderAdapter::getHeaderField(tvstring const &name) {
  try {
    SmartPtr<Object> const field = header_->getField(name);
    return field.isNull() ? tvstring() : field->toString();
  } catch (FieldNotFoundException const &) {
    return tvstring();
  }
}

}  // namespace tavrone

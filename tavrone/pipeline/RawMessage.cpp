#include "tavrone/pipeline/RawMessage.h"

#include "tavrone/formula/MessageFunctions.h"

namespace tavrone {

constinit tvstringliteral const IRawMessage::REPLY_TO_PROPERTY("replyTo");
constinit tvstringliteral const IRawMessage::CORRELATION_ID_PROPERTY("correlationId");
constinit tvstringliteral const IRawMessage::CORRELATION_GROUP_SIZE_PROPERTY("");
constinit tvstringliteral const IRawMessage::CORRELATION_SEQUENCE_PROPERTY("");

IRawMessage::~IRawMessage() noexcept(false) = default;

tvstring RawMessage::toString() const {
  return isNull() ? tvstringliteral("null") : MessageFunctions::toText(*this);
}

RawMessageObject::~RawMessageObject() noexcept(false) = default;

tvstring RawMessageObject::toString() const {
  return MessageFunctions::toText(value_);
}

}  // namespace tavrone

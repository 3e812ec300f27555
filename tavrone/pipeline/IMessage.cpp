#include "tavrone/pipeline/IMessage.h"

namespace tavrone {

constinit tvstringliteral const IMessage::MESSAGE_FORMAT("message.format");
constinit tvstringliteral const IMessage::XML_FORM("xml");
constinit tvstringliteral const IMessage::TAVRONE_FORM("tavrone");

IMessage::~IMessage() noexcept(false) = default;
IExternalMessage::~IExternalMessage() noexcept(false) = default;
IInternalMessage::~IInternalMessage() noexcept(false) = default;

}  // namespace tavrone

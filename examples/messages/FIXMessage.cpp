#include "examples/messages/FIXMessage.h"

namespace examples {

FIXMessageWriter::~FIXMessageWriter() noexcept(false) = default;

void FIXMessageWriter::writeHeader(DataObject *object, TransformContext &) {
  using Layout = FIXHeaderLayout;
  auto &header = *checkedCast<FIXHeader>(object);
  auto const require = [&](int field, bool isThere) {
    if (isThere && !header.isNull(field)) return;
    raise<FIXWriterException>(header.getFieldName(field) + " is a mandatory field.", "examples/FIXMessageWriter");
  };
  require(Layout::BEGIN_STRING, !header.getBeginString().empty());
  require(Layout::MSG_TYPE, !header.getMsgType().empty());
  require(Layout::MSG_SEQ_NUM, true);
  auto const text = [&](char const *tag, int field, tvstring const &value) {
    if (!header.isNull(field)) append(Layout::FIELDS[static_cast<size_t>(field)].name, tag, value);
  };
  text("8", Layout::BEGIN_STRING, header.getBeginString());
  text("35", Layout::MSG_TYPE, header.getMsgType());
  text("49", Layout::SENDER_COMP_ID, header.getSenderCompID());
  text("56", Layout::TARGET_COMP_ID, header.getTargetCompID());
  text("115", Layout::ON_BEHALF_OF_COMP_ID, header.getOnBehalfOfCompID());
  text("128", Layout::DELIVER_TO_COMP_ID, header.getDeliverToCompID());
  appendField("34", header.getMsgSeqNum());
  text("50", Layout::SENDER_SUB_ID, header.getSenderSubID());
  text("57", Layout::TARGET_SUB_ID, header.getTargetSubID());
  text("52", Layout::SENDING_TIME, header.getSendingTime());
}

}  // namespace examples

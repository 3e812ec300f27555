#pragma once

#include "tavrone/fix/FIXFormat.h"
#include "tavrone/fix/TagValueHeader.h"

namespace tavrone {

class FIXHeader;

// The fields of the standard header by their indexes, and their tags.
struct TAVRONE_API FIXHeaderLayout {
  using Format = FIXFormat;
  using Header = FIXHeader;

  enum Field {
    BEGIN_STRING = 3,
    BODY_LENGTH,
    MSG_TYPE,
    SENDER_COMP_ID,
    TARGET_COMP_ID,
    ON_BEHALF_OF_COMP_ID,
    DELIVER_TO_COMP_ID,
    MSG_SEQ_NUM,
    SENDER_SUB_ID,
    TARGET_SUB_ID,
    SENDING_TIME,
    FIELD_COUNT
  };

  static constexpr char const *NAME = "FIXHeader";
  static constexpr char const *MESSAGE_FORMAT = "FIX";
  // The version is what follows "FIX." in BeginString.
  static constexpr std::array<TagValueHeaderField, FIELD_COUNT> FIELDS{{
      {"MessageFormat", false, TagValueHeaderField::NO_TAG},
      {"MessageType", false, TagValueHeaderField::NO_TAG},
      {"MessageVersion", false, TagValueHeaderField::NO_TAG},
      {"BeginString", false, 8, 2, 4},
      {"BodyLength", true, 9},
      {"MsgType", false, 35, 1},
      {"SenderCompID", false, 49},
      {"TargetCompID", false, 56},
      {"OnBehalfOfCompID", false, 115},
      {"DeliverToCompID", false, 128},
      {"MsgSeqNum", true, 34},
      {"SenderSubID", false, 50},
      {"TargetSubID", false, 57},
      {"SendingTime", false, TagValueHeaderField::NO_TAG},
  }};
  // SendingTime, 52, is among them: that is meant.
  static constexpr std::array SKIPPED_TAGS{43,  52,  90,  91,  97,  116, 122, 129, 142,
                                           143, 144, 145, 212, 213, 347, 369, 370};
};

extern template class TagValueHeader<FIXHeaderLayout>;

// The standard header of a FIX message. A parsed one never holds SendingTime.
class TAVRONE_API FIXHeader : public TagValueHeader<FIXHeaderLayout> {
  using Layout = FIXHeaderLayout;

 public:
  FIXHeader();
  FIXHeader(FIXHeader const &other);
  FIXHeader &operator=(FIXHeader const &other);
  ~FIXHeader() noexcept(false) override;

  Object *clone() const override;

  // Fills the header from the start of a message; see FIXHeaderParser.
  void parseHeader(char const *bytes, int length);

  tvstring const &getBeginString() const { return text<Layout::BEGIN_STRING>(); }
  // Sets MessageVersion too, to the text from its fifth byte on: "4.2" for "FIX.4.2". Raises FIXParsingException
  // "Illegal BeginString '<text>'" for fewer than four bytes, the header unchanged.
  void setBeginString(tvstring const &value) { setText(Layout::BEGIN_STRING, value); }
  int getBodyLength() const { return number<Layout::BODY_LENGTH>(); }
  void setBodyLength(int value) { setNumber(Layout::BODY_LENGTH, value); }
  tvstring const &getMsgType() const { return text<Layout::MSG_TYPE>(); }
  // Sets MessageType alike.
  void setMsgType(tvstring const &value) { setText(Layout::MSG_TYPE, value); }
  tvstring const &getSenderCompID() const { return text<Layout::SENDER_COMP_ID>(); }
  void setSenderCompID(tvstring const &value) { setText(Layout::SENDER_COMP_ID, value); }
  tvstring const &getTargetCompID() const { return text<Layout::TARGET_COMP_ID>(); }
  void setTargetCompID(tvstring const &value) { setText(Layout::TARGET_COMP_ID, value); }
  tvstring const &getOnBehalfOfCompID() const { return text<Layout::ON_BEHALF_OF_COMP_ID>(); }
  void setOnBehalfOfCompID(tvstring const &value) { setText(Layout::ON_BEHALF_OF_COMP_ID, value); }
  tvstring const &getDeliverToCompID() const { return text<Layout::DELIVER_TO_COMP_ID>(); }
  void setDeliverToCompID(tvstring const &value) { setText(Layout::DELIVER_TO_COMP_ID, value); }
  int getMsgSeqNum() const { return number<Layout::MSG_SEQ_NUM>(); }
  void setMsgSeqNum(int value) { setNumber(Layout::MSG_SEQ_NUM, value); }
  tvstring const &getSenderSubID() const { return text<Layout::SENDER_SUB_ID>(); }
  void setSenderSubID(tvstring const &value) { setText(Layout::SENDER_SUB_ID, value); }
  tvstring const &getTargetSubID() const { return text<Layout::TARGET_SUB_ID>(); }
  void setTargetSubID(tvstring const &value) { setText(Layout::TARGET_SUB_ID, value); }
  tvstring const &getSendingTime() const { return text<Layout::SENDING_TIME>(); }
  void setSendingTime(tvstring const &value) { setText(Layout::SENDING_TIME, value); }
};

}  // namespace tavrone

#pragma once

#include "tavrone/fix/TagValueHeader.h"
#include "tavrone/siaccanonical/SIACCanonicalFormat.h"

namespace tavrone {

class SIACCanonicalHeader;

// The fields of the header by their indexes, and their tags.
struct TAVRONE_API SIACCanonicalHeaderLayout {
  using Format = SIACCanonicalFormat;
  using Header = SIACCanonicalHeader;

  enum Field {
    CANONICAL_VERSION = 3,
    BODY_LENGTH,
    SIAC_MSG_TYPE,
    MSG_SUB_TYPE,
    MSG_ORIGIN,
    MSG_DEST,
    MSG_SEQ_NO,
    FIELD_COUNT
  };

  static constexpr char const *NAME = "SIACCanonicalHeader";
  static constexpr char const *MESSAGE_FORMAT = "Canonical";
  static constexpr std::array<TagValueHeaderField, FIELD_COUNT> FIELDS{{
      {"MessageFormat", false, TagValueHeaderField::NO_TAG},
      {"MessageType", false, TagValueHeaderField::NO_TAG},
      {"MessageVersion", false, TagValueHeaderField::NO_TAG},
      {"CFT_CanonicalVersion", false, 10001},
      {"CFT_BodyLength", false, 10002},
      {"CFT_SIACMsgType", false, 10003},
      {"CFT_MsgSubType", false, 10004},
      {"CFT_MsgOrigin", false, 10005},
      {"CFT_MsgDest", false, 10006},
      {"CFT_MsgSeqNo", true, 10007},
  }};
  static constexpr std::array SKIPPED_TAGS{25001};
};

extern template class TagValueHeader<SIACCanonicalHeaderLayout>;

// The header of a SIAC Canonical message. Its type and version are never parsed; a host may set them.
class TAVRONE_API SIACCanonicalHeader : public TagValueHeader<SIACCanonicalHeaderLayout> {
  using Layout = SIACCanonicalHeaderLayout;

 public:
  SIACCanonicalHeader();
  SIACCanonicalHeader(SIACCanonicalHeader const &other);
  SIACCanonicalHeader &operator=(SIACCanonicalHeader const &other);
  ~SIACCanonicalHeader() noexcept(false) override;

  Object *clone() const override;

  // Fills the header from the start of a message; see SIACCanonicalHeaderParser.
  void parseHeader(char const *bytes, int length);

  tvstring const &getCFT_CanonicalVersion() const { return text<Layout::CANONICAL_VERSION>(); }
  void setCFT_CanonicalVersion(tvstring const &value) { setText(Layout::CANONICAL_VERSION, value); }
  tvstring const &getCFT_BodyLength() const { return text<Layout::BODY_LENGTH>(); }
  void setCFT_BodyLength(tvstring const &value) { setText(Layout::BODY_LENGTH, value); }
  tvstring const &getCFT_SIACMsgType() const { return text<Layout::SIAC_MSG_TYPE>(); }
  void setCFT_SIACMsgType(tvstring const &value) { setText(Layout::SIAC_MSG_TYPE, value); }
  tvstring const &getCFT_MsgSubType() const { return text<Layout::MSG_SUB_TYPE>(); }
  void setCFT_MsgSubType(tvstring const &value) { setText(Layout::MSG_SUB_TYPE, value); }
  tvstring const &getCFT_MsgOrigin() const { return text<Layout::MSG_ORIGIN>(); }
  void setCFT_MsgOrigin(tvstring const &value) { setText(Layout::MSG_ORIGIN, value); }
  tvstring const &getCFT_MsgDest() const { return text<Layout::MSG_DEST>(); }
  void setCFT_MsgDest(tvstring const &value) { setText(Layout::MSG_DEST, value); }
  int getCFT_MsgSeqNo() const { return number<Layout::MSG_SEQ_NO>(); }
  void setCFT_MsgSeqNo(int value) { setNumber(Layout::MSG_SEQ_NO, value); }
};

}  // namespace tavrone

#include "tavrone/routing/MessageConfiguration.h"

#include <algorithm>

#include "tavrone/pipeline/MessageHeader.h"

namespace tavrone {

namespace {

constexpr size_t KEY_BYTES = 7;

}  // namespace

// The length and the first bytes of a text. Different keys mean different texts; equal keys of at most KEY_BYTES bytes
// mean equal ones. 0 is the empty text.
uint64_t MessageConfiguration::keyOf(tvstring const &text) {
  uint64_t key = std::min<uint64_t>(text.length(), 255) << 8 * KEY_BYTES;
  for (size_t i = 0; i < std::min(text.length(), KEY_BYTES); ++i)
    key |= uint64_t{static_cast<unsigned char>(text[i])} << 8 * i;
  return key;
}

// The header of one message while configurations are compared with it: a field is read when the first configuration
// asks for it, and never again. Fields are read through an adapter; a MessageHeader that tells what its fields hold is
// asked itself, which costs no wrapper for each.
class MessageConfiguration::HeaderFields {
 public:
  HeaderFields(DataObject *header, HeaderCast &cast) : object_(header), cast_(cast), adapter_(header, false) {}

  bool hasFormat(uint64_t key, tvstring const &wanted) {
    return format_.equals(key, wanted, [this] { return header().getMessageFormat(); });
  }
  bool hasVersion(uint64_t key, tvstring const &wanted) {
    return version_.equals(key, wanted, [this] { return header().getMessageVersion(); });
  }
  bool hasType(uint64_t key, tvstring const &wanted) {
    return type_.equals(key, wanted, [this] { return header().getMessageType(); });
  }
  bool hasField(tvstring const &name, tvstring const &wanted) {
    auto const known = others_.find(name);
    if (known != others_.end()) return known->second == wanted;
    return others_.emplace(name, header().getHeaderField(name)).first->second == wanted;
  }

 private:
  class Field {
   public:
    template <class Read>
    bool equals(uint64_t wantedKey, tvstring const &wanted, Read read) {
      if (!known_) {
        text_ = read();
        key_ = keyOf(text_);
        known_ = true;
      }
      return key_ == wantedKey && (key_ >> 8 * KEY_BYTES <= KEY_BYTES || text_ == wanted);
    }

   private:
    tvstring text_;
    uint64_t key_ = 0;
    bool known_ = false;
  };

  MessageHeader &header() {
    if (header_ != nullptr) return *header_;
    auto *const own = cast_(object_);
    header_ = own != nullptr && own->tellsItsFields() ? own : &adapter_;
    return *header_;
  }

  DataObject *object_;
  HeaderCast &cast_;
  MessageHeaderAdapter adapter_;
  MessageHeader *header_ = nullptr;  // null until a field is read
  Field format_;
  Field version_;
  Field type_;
  Properties others_;
};

MessageConfiguration *MessageConfiguration::firstMatch(std::vector<MessageConfiguration *> const &configurations,
                                                       DataObject *header, HeaderCast &cast) {
  HeaderFields fields(header, cast);
  for (MessageConfiguration *configuration : configurations)
    if (configuration->matches(fields)) return configuration;
  return nullptr;
}

bool MessageConfiguration::isMatch(DataObject *header) const {
  HeaderCast cast;
  HeaderFields fields(header, cast);
  return matches(fields);
}

bool MessageConfiguration::matches(HeaderFields &header) const {
  if (formatKey_ != 0 && !header.hasFormat(formatKey_, messageFormat_)) return false;
  if (versionKey_ != 0 && !header.hasVersion(versionKey_, messageVersion_)) return false;
  if (typeKey_ != 0 && !header.hasType(typeKey_, messageType_)) return false;
  for (auto const &[name, value] : matchProperties_)
    if (!header.hasField(name, value)) return false;
  return true;
}

}  // namespace tavrone

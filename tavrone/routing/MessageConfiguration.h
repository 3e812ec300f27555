#pragma once

#include <cstdint>
#include <vector>

#include "tavrone/core/Properties.h"
#include "tavrone/core/RememberedCast.h"
#include "tavrone/dataobject/DataObject.h"

namespace tavrone {

class MessageHeader;

// Which messages are meant, and what their transformation is told. A configuration with nothing set matches every
// header.
class TAVRONE_API MessageConfiguration {
 public:
  // An empty format, version or type means any.
  void setMessageFormat(tvstring const &format) {
    messageFormat_ = format;
    formatKey_ = keyOf(format);
  }
  void setMessageVersion(tvstring const &version) {
    messageVersion_ = version;
    versionKey_ = keyOf(version);
  }
  void setMessageType(tvstring const &type) {
    messageType_ = type;
    typeKey_ = keyOf(type);
  }
  // Goes into the TransformContext of each message that this configuration takes. "input.format" must be among them.
  void setContextProperty(tvstring const &name, tvstring const &value) { contextProperties_[name] = value; }
  // A further header field that must hold exactly this value. Stricter than the three above: an empty value matches
  // only a field that is absent or empty.
  void setProperty(tvstring const &name, tvstring const &value) { matchProperties_[name] = value; }
  // The live map.
  Properties &getContextProperties() { return contextProperties_; }

  // Exact comparisons, in the order format, version, type, properties by name, up to the first that fails.
  bool isMatch(DataObject *header) const;

 private:
  friend class MessageRouter;
  class HeaderFields;
  using HeaderCast = RememberedCast<MessageHeader, DataObject>;

  // The first that matches, or null. Reads each header field at most once, however many configurations ask for it.
  static MessageConfiguration *firstMatch(std::vector<MessageConfiguration *> const &configurations, DataObject *header,
                                          HeaderCast &cast);
  bool matches(HeaderFields &header) const;
  static uint64_t keyOf(tvstring const &text);

  tvstring messageFormat_;
  tvstring messageVersion_;
  tvstring messageType_;
  Properties contextProperties_;
  Properties matchProperties_;
  // Keys of the three texts: one word tells most texts apart, without a look at their bytes.
  uint64_t formatKey_ = 0;
  uint64_t versionKey_ = 0;
  uint64_t typeKey_ = 0;
};

}  // namespace tavrone

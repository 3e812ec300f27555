#pragma once

#include "tavrone/core/Properties.h"
#include "tavrone/dataobject/DataObject.h"

namespace tavrone {

class HeaderFields;

// Which messages are meant, and what their transformation is told. A configuration with nothing set matches every
// header.
class TAVRONE_API MessageConfiguration {
 public:
  // An empty format, version or type means any.
  void setMessageFormat(tvstring const &format) { messageFormat_ = format; }
  void setMessageVersion(tvstring const &version) { messageVersion_ = version; }
  void setMessageType(tvstring const &type) { messageType_ = type; }
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
  bool matches(HeaderFields &header) const;

  tvstring messageFormat_;
  tvstring messageVersion_;
  tvstring messageType_;
  Properties contextProperties_;
  Properties matchProperties_;
};

}  // namespace tavrone

#pragma once

#include <map>
#include <optional>

#include "tavrone/pipeline/MessageHeader.h"

namespace tavrone {

// The header of one message while configurations are compared with it: each field is read when the first configuration
// asks for it, and never again. The three fixed fields cost no allocation.
class HeaderFields {
 public:
  explicit HeaderFields(DataObject *header) : header_(header, false) {}

  tvstring const &format() { return format_ ? *format_ : format_.emplace(header_.getMessageFormat()); }
  tvstring const &version() { return version_ ? *version_ : version_.emplace(header_.getMessageVersion()); }
  tvstring const &type() { return type_ ? *type_ : type_.emplace(header_.getMessageType()); }
  tvstring const &field(tvstring const &name) {
    auto const known = others_.find(name);
    return known != others_.end() ? known->second : others_.emplace(name, header_.getHeaderField(name)).first->second;
  }

 private:
  MessageHeaderAdapter header_;
  std::optional<tvstring> format_;
  std::optional<tvstring> version_;
  std::optional<tvstring> type_;
  std::map<tvstring, tvstring> others_;
};

}  // namespace tavrone

#include "tavrone/routing/MessageConfiguration.h"

#include "tavrone/routing/HeaderFields.h"

namespace tavrone {

bool MessageConfiguration::isMatch(DataObject *header) const {
  HeaderFields fields(header);
  return matches(fields);
}

bool MessageConfiguration::matches(HeaderFields &header) const {
  if (!messageFormat_.empty() && header.format() != messageFormat_) return false;
  if (!messageVersion_.empty() && header.version() != messageVersion_) return false;
  if (!messageType_.empty() && header.type() != messageType_) return false;
  for (auto const &[name, value] : matchProperties_)
    if (header.field(name) != value) return false;
  return true;
}

}  // namespace tavrone

#pragma once

#include <map>

#include "tavrone/core/tvstring.h"

namespace tavrone {

// Texts by name, in the order of tvstring's comparison.
class Properties : public std::map<tvstring, tvstring> {
 public:
  using std::map<tvstring, tvstring>::map;

  // Empty for a missing key, which stays missing.
  tvstring getProperty(tvstring const &key) const {
    auto const entry = find(key);
    return entry == end() ? tvstring() : entry->second;
  }
};

}  // namespace tavrone

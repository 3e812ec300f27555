#pragma once

#include <utility>
#include <vector>

#include "tavrone/core/tvstring.h"

namespace tavrone {

// What this library is, for a host's log and its operators: the stamp also stands as text in the library file.
class TAVRONE_API Version {
 public:
  // "3.5.0".
  static tvstring getImplementationVersion();

  // "Implementation-Version=" and the version.
  static tvstring getStamp();

  // Name and version of each wire format's runtime, which have versions of their own: Universal, FIX, SIAC Canonical,
  // FCS.
  static std::vector<std::pair<tvstring, tvstring>> getFormatVersions();
};

}  // namespace tavrone

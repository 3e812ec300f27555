#include "tavrone/core/Version.h"

namespace tavrone {

namespace {

// One text for both operations, so that they cannot disagree.
constexpr char STAMP[] = "Implementation-Version=3.5.0";
constexpr size_t VERSION_AT = std::char_traits<char>::length("Implementation-Version=");

}  // namespace

tvstring Version::getImplementationVersion() {
  return tvstringliteral(STAMP + VERSION_AT);
}

tvstring Version::getStamp() {
  return tvstringliteral(STAMP);
}

std::vector<std::pair<tvstring, tvstring>> Version::getFormatVersions() {
  return {{tvstringliteral("Universal Plugin Runtime"), tvstringliteral("3.5.0")},
          {tvstringliteral("FIX Plugin Runtime"), tvstringliteral("3.5.0")},
          {tvstringliteral("SIAC Canonical Plugin Runtime"), tvstringliteral("3.5.0")},
          {tvstringliteral("FCS Plugin Runtime"), tvstringliteral("1.1.0")}};
}

}  // namespace tavrone

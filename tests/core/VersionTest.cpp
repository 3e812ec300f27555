#include "tavrone/core/Version.h"

#include <gtest/gtest.h>

#include "tests/Text.h"

namespace tavrone {
namespace {

TEST(Version, TellsTheLibraryAndEachFormatInOrder) {
  EXPECT_STREQ(Version::getImplementationVersion().c_str(), "3.5.0");
  EXPECT_STREQ(Version::getStamp().c_str(), "Implementation-Version=3.5.0");
  std::string formats;
  for (auto const &[name, version] : Version::getFormatVersions()) formats += str(name + " " + version + "\n");
  EXPECT_EQ(formats,
            "Universal Plugin Runtime 3.5.0\nFIX Plugin Runtime 3.5.0\nSIAC Canonical Plugin Runtime 3.5.0\n"
            "FCS Plugin Runtime 1.1.0\n");
}

}  // namespace
}  // namespace tavrone

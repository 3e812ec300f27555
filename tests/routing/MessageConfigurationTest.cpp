#include "tavrone/routing/MessageConfiguration.h"

#include <gtest/gtest.h>

#include "tests/routing/Routing.h"

namespace tavrone {
namespace {

TEST(MessageConfiguration, ComparesExactlyAndOnlyWhatIsSet) {
  SmartPtr<TestHeader> const header =
      new TestHeader({{"MessageFormat", "FIX"}, {"MessageType", "D"}, {"Desk", "7"}, {"Null", "null"}});
  struct {
    char const *format, *version, *type, *property, *value;
    bool match;
  } const cases[] = {{"", "", "", "", "", true},           {"FIX", "", "D", "", "", true},
                     {"fix", "", "", "", "", false},       {"FI", "", "", "", "", false},
                     {"FIX.", "", "", "", "", false},      {"*", "", "", "", "", false},
                     {"", "4.2", "", "", "", false},       {"", "", "8", "", "", false},
                     {"", "", "", "Desk", "7", true},      {"", "", "", "Desk", "7 ", false},
                     {"", "", "", "Desk", "", false},      {"", "", "", "Null", "", true},
                     {"", "", "", "Absent", "", true},     {"", "", "", "Absent", "7", false},
                     {"FIX", "", "D", "Desk", "8", false}, {"FIX", "4.2", "D", "Desk", "7", false}};
  for (auto const &c : cases) {
    MessageConfiguration configuration;
    configuration.setMessageFormat(c.format);
    configuration.setMessageVersion(c.version);
    configuration.setMessageType(c.type);
    if (*c.property != '\0') {
      configuration.setProperty(c.property, "replaced");
      configuration.setProperty(c.property, c.value);
    }
    header->reads.clear();
    EXPECT_EQ(MessageConfiguration(configuration).isMatch(header.get()), c.match)
        << c.format << '/' << c.version << '/' << c.type << '/' << c.property << '=' << c.value;
  }
  // The last case ended at its first difference.
  EXPECT_EQ(header->reads, (std::map<tvstring, int>{{"MessageFormat", 1}, {"MessageVersion", 1}}));
}

}  // namespace
}  // namespace tavrone

#include <gmock/gmock.h>

#include <fstream>
#include <set>

#include "tavrone/core/Catalogues.h"
#include "tavrone/core/ObjectList.h"
#include "tavrone/core/ResourceBundle.h"
#include "tests/Text.h"

namespace tavrone {
namespace {

// A row of the page's tables begins with a key, a code and the text as users see it.
TEST(FailuresPage, HasARowForEachCodeOfTheCataloguesAndForNoOther) {
  std::multiset<std::string> missing;
  for (Catalogue const *catalogue : {&RuntimeResources, &UniversalResources})
    for (CatalogueRow const &row : catalogue->rows)
      missing.insert(std::string("| ") + row.key + " | " + row.code + " | `" +
                     str(formatMessage(row.message, ObjectList())) + "` | ");
  std::ifstream page(TAVRONE_FAILURES_PAGE);
  for (std::string line; std::getline(page, line);)
    if (line.starts_with("| SRT") || line.starts_with("| UNV")) {
      size_t const meaning = line.find("` | ") + 4;
      EXPECT_TRUE(missing.erase(line.substr(0, meaning)) == 1 && line[meaning] != '|') << line;
    }
  EXPECT_THAT(missing, testing::IsEmpty());
}

}  // namespace
}  // namespace tavrone

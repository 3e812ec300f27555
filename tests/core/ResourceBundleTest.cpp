#include "tavrone/core/ResourceBundle.h"

#include <gtest/gtest.h>

#include <set>

#include "tavrone/core/Catalogues.h"
#include "tavrone/core/Conversion.h"
#include "tavrone/core/InternedText.h"
#include "tavrone/core/ObjectList.h"
#include "tavrone/core/Raise.h"
#include "tavrone/core/Wrappers.h"
#include "tests/Failure.h"

namespace tavrone {
namespace {

using std::string_literals::operator""s;

// Read the way other libraries do while they load, perhaps before the catalogues' own file has been initialised.
tvstring const readWhileLoading = Resources::getProperty("SRT600.code");

TEST(Catalogues, HoldEveryRowInOrder) {
  EXPECT_EQ(readWhileLoading, "SRT121");
  std::tuple<Catalogue const &, size_t, char const *> const cases[] = {{RuntimeResources, 122, "SRT100-SRT600"},
                                                                       {UniversalResources, 32, "UNV100-UNV131"}};
  std::set<std::string> codes;
  for (auto const &[catalogue, count, keys] : cases) {
    ASSERT_EQ(catalogue.rows.size(), count);
    EXPECT_EQ(catalogue.rows.front().key + "-"s + catalogue.rows.back().key, keys);
    std::string previous;
    for (CatalogueRow const &row : catalogue.rows) {
      EXPECT_LT(previous, row.key);
      EXPECT_EQ(Resources::getProperty(catalogue.name, (row.key + ".code"s).c_str()), row.code);
      EXPECT_EQ(Resources::getProperty((row.key + ".message"s).c_str()), row.message);
      previous = row.key;
      codes.insert(row.code);
    }
  }
  EXPECT_EQ(codes.size(), 153u);  // two rows share one
}

TEST(Resources, AskBundlesInAscendingOrderAndSkipEmptyValues) {
  // Bundles of the default resources are borrowed for good.
  auto &first = *new PropertyResourceBundle;
  auto &second = *new PropertyResourceBundle;
  char key[] = "test.both", value[] = "first";
  first.addProperty(key, value);
  value[0] = key[0] = '?';  // both are copied
  first.addProperty("test.both", "late");
  first.addProperty("test.empty", "");
  second.addProperty("test.both", "second");
  second.addProperty("test.empty", "filled");
  Resources &resources = Resources::getDefaultResources();
  resources.addResourceBundle("TestB", second);
  resources.addResourceBundle("TestA", first);
  resources.addResourceBundle("TestA", second);

  EXPECT_EQ(resources.getBundle("TestA"), &first);
  EXPECT_EQ(resources.getBundle("TestC"), nullptr);
  EXPECT_EQ(Resources::getProperty("test.both"), "first");
  EXPECT_EQ(Resources::getProperty("test.empty"), "filled");
  EXPECT_EQ(Resources::getProperty("TestB", "test.both"), "second");
  EXPECT_EQ(Resources::getProperty("TestC", "test.both"), "");
  EXPECT_EQ(Resources::getProperty(nullptr) + Resources::getProperty("TestB", nullptr), "");
  EXPECT_EQ(Resources::getProperty("TestB", "unknown"), "");
}

TEST(InternedText, IsKeptOnceAndSurvivesItsSource) {
  tvstring const once = internText(tvstring("a\0b", 3));
  EXPECT_EQ(internText(tvstring("xa\0b", 4).substr(1)).data(), once.data());
  EXPECT_EQ(str(once), std::string("a\0b", 3));
}

// Braces that name no argument stay, apostrophes quote nothing, and indexes have the leniencies of t_atoi: signs, a
// sign alone, wrap-around.
TEST(formatMessage, ReplacesWhatNamesAnArgument) {
  ObjectList args;
  args.add(IntObject(7));
  args.add(StringObject("two"));
  args.add(static_cast<Object *>(nullptr));
  std::pair<char const *, char const *> const cases[] = {
      {"", ""},
      {"{0}{0} {1}-{0}. [{2}] }{0}", "77 two-7. [] }7"},
      {"{3} {x} {} {-1} {0 } { 0} a{b", "{3} {x} {} {-1} {0 } { 0} a{b"},
      {"{{0}} {x{1} {0} {1", "{7} {xtwo 7 {1"},
      {"it''s it's ''' ''{0}'' '{0}' {''0} '", "it's it's '' '7' '7' {'0} '"},
      {"{+1}{-0}{+}{-}{4294967297}{-4294967295}", "two777twotwo"},
      {"{2147483648}{9999999999}", "{2147483648}{9999999999}"}};
  for (auto const &[pattern, text] : cases) EXPECT_EQ(str(formatMessage(pattern, args)), text) << pattern;
  EXPECT_EQ(formatMessage("{0}", ObjectList()), "{0}");
  std::string const open(200000, '{');  // takes linear time
  EXPECT_EQ(str(formatMessage((open + "0}").c_str(), args)), open.substr(1) + "7");
}

TEST(raiseCatalogued, FormatsTheRowAndStampsThePlace) {
  EXPECT_EQ(failureOf<FieldNotFoundException>(
                [] { raiseCatalogued<FieldNotFoundException>("SRT165", "F1", "cpp/Somewhere", 12); }),
            "cpp/Somewhere:12:Field with name 'F1' not defined.");
  EXPECT_EQ(catalogueMessage("NONE", "F1"), "");
}

}  // namespace
}  // namespace tavrone

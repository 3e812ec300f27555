#include "tavrone/core/ResourceBundle.h"

#include <gtest/gtest.h>

#include <set>
#include <string>

#include "tavrone/core/Catalogues.h"
#include "tavrone/core/Conversion.h"
#include "tavrone/core/InternedText.h"
#include "tavrone/core/ObjectList.h"
#include "tavrone/core/Raise.h"
#include "tavrone/core/Wrappers.h"
#include "tests/Failure.h"

namespace tavrone {
namespace {

std::string textOf(tvstring const &text) {
  return std::string(text.data(), text.length());
}
std::string property(std::string const &key) {
  return textOf(Resources::getProperty(key.c_str()));
}
std::string message(char const *key) {
  return property(std::string(key) + ".message");
}
std::string code(char const *key) {
  return property(std::string(key) + ".code");
}

// Set up the way other libraries do while they load, perhaps before the catalogues' own file has been initialised.
tvstring const readWhileLoading = Resources::getProperty("SRT600.code");

TEST(Catalogues, HoldEveryRowInOrder) {
  EXPECT_EQ(readWhileLoading, "SRT121");
  struct {
    Catalogue const &catalogue;
    size_t count;
    char const *first, *last, *prefix;
  } const cases[] = {{RuntimeResources, 122, "SRT100", "SRT600", "SRT"},
                     {UniversalResources, 32, "UNV100", "UNV131", "UNV"}};
  for (auto const &c : cases) {
    ASSERT_EQ(c.catalogue.rows.size(), c.count);
    EXPECT_STREQ(c.catalogue.rows.front().key, c.first);
    EXPECT_STREQ(c.catalogue.rows.back().key, c.last);
    std::string previous;
    for (CatalogueRow const &row : c.catalogue.rows) {
      EXPECT_LT(previous, row.key);
      EXPECT_EQ(std::string(row.code).substr(0, 3), c.prefix);
      EXPECT_EQ(textOf(Resources::getProperty(c.catalogue.name, row.codeKey.data())), row.code);
      EXPECT_EQ(message(row.key), row.message);
      previous = row.key;
    }
  }
}

TEST(Catalogues, KeepTheirIrregularities) {
  EXPECT_EQ(code("SRT276"), "SRT62");
  EXPECT_EQ(code("SRT277"), "SRT62");
  EXPECT_EQ(message("SRT579"), "");
  std::set<std::string> codes;
  for (CatalogueRow const &row : RuntimeResources.rows) codes.insert(row.code);
  EXPECT_EQ(codes.size(), 121u);
  EXPECT_EQ(codes.count("SRT112"), 0u);
  struct {
    char const *key, *text;
  } const cases[] = {{"SRT104", "Error creating  batch context"},
                     {"SRT130", "Unrecoginized input format data ''{0}''."},
                     {"SRT552", "'{0}'"},
                     {"SRT559", "Error moving result set "},
                     {"SRT577", "No field with name {0} defined in collection/section "},
                     {"UNV100", "Not enough characters. Required ''{0}'' , available ''{1}''."},
                     {"UNV105", "The sign byte in a packed decimal should be one of 'D', 'C' or 'F'. Found ''{0}''."},
                     {"UNV121", "Duplicate field ''{0}'' [''{1}'']."}};
  for (auto const &c : cases) EXPECT_EQ(message(c.key), c.text) << c.key;
}

TEST(Resources, AskBundlesInAscendingOrderAndSkipEmptyValues) {
  // Bundles of the default resources are borrowed for good.
  auto &first = *new PropertyResourceBundle;
  auto &second = *new PropertyResourceBundle;
  first.addProperty("test.both", "first");
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
  EXPECT_EQ(property("test.both"), "first");
  EXPECT_EQ(property("test.empty"), "filled");
  EXPECT_EQ(Resources::getProperty(tvstring("test.both")), "first");
  EXPECT_EQ(Resources::getProperty("TestB", "test.both"), "second");
  EXPECT_EQ(Resources::getProperty("TestC", "test.both"), "");
  EXPECT_EQ(Resources::getProperty("TestB", "unknown"), "");
}

TEST(PropertyResourceBundle, KeepsCopiesOfItsTexts) {
  PropertyResourceBundle bundle;
  char key[] = "key", value[] = "value";
  bundle.addProperty(key, value);
  value[0] = key[0] = '?';
  EXPECT_EQ(bundle.getProperty("key"), "value");
}

TEST(InternedText, IsKeptOnceAndSurvivesItsSource) {
  tvstring const once = internText(tvstring("a\0b", 3));
  EXPECT_EQ(internText(tvstring("xa\0b", 4).substr(1)).data(), once.data());
  EXPECT_EQ(textOf(once), std::string("a\0b", 3));
}

TEST(formatMessage, ReplacesWhatNamesAnArgument) {
  ObjectList args;
  args.add(IntObject(7));
  args.add(StringObject("two"));
  args.add(static_cast<Object *>(nullptr));
  struct {
    char const *pattern, *text;
  } const cases[] = {
      {"", ""},
      {"a{b", "a{b"},
      {"{0}{0}", "77"},
      {"{1}-{0}.", "two-7."},
      {"[{2}]", "[]"},
      {"{3}", "{3}"},
      {"{x}", "{x}"},
      {"{}", "{}"},
      {"{{0}}", "{7}"},
      {"{x{1}", "{xtwo"},
      {"}{0}", "}7"},
      {"{0} {1", "7 {1"},
      {"it''s", "it's"},
      {"it's", "it's"},
      {"'", "'"},
      {"'''", "''"},
      {"''{0}''", "'7'"},
      {"'{0}'", "'7'"},
      {"{''0}", "{'0}"},
      // The leniencies of t_atoi: signs, a sign alone, wrap-around.
      {"{+1}{-0}{+}{-}", "two777"},
      {"{4294967297}{-4294967295}", "twotwo"},
      {"{-1}", "{-1}"},
      {"{2147483648}{9999999999}{3000000000}", "{2147483648}{9999999999}{3000000000}"},
      {"{ 0}{0 }{0x}", "{ 0}{0 }{0x}"},
  };
  for (auto const &c : cases) EXPECT_EQ(textOf(formatMessage(c.pattern, args)), c.text) << c.pattern;
  EXPECT_EQ(formatMessage("{0}", ObjectList()), "{0}");
}

TEST(formatMessage, StaysLinearOnBraces) {
  ObjectList args;
  args.add(IntObject(7));
  std::string const open(200000, '{');
  EXPECT_EQ(textOf(formatMessage(open.c_str(), args)), open);
  EXPECT_EQ(textOf(formatMessage((open + "0}").c_str(), args)), open.substr(1) + "7");
}

TEST(raiseCatalogued, FormatsTheRowAndStampsThePlace) {
  Failure const byText = failureOf<FieldNotFoundException>(
      [] { raiseCatalogued<FieldNotFoundException>("SRT165", "F1", "cpp/Somewhere", 12); });
  EXPECT_EQ(byText.text, "Field with name 'F1' not defined.");
  EXPECT_EQ(byText.source, "cpp/Somewhere");
  EXPECT_EQ(byText.line, 12);

  ObjectList args;
  args.add(StringObject("12"));
  args.add(IntObject(8));
  auto const raised = [&](char const *key) {
    return failureOf<TransformException>([&] { raiseCatalogued<TransformException>(key, args, "cpp/Somewhere"); }).text;
  };
  EXPECT_EQ(raised("UNV127"), "Cannot represent '12' in '8' characters.");
  EXPECT_EQ(raised("NONE"), "");
}

}  // namespace
}  // namespace tavrone

#include "tavrone/fcs/LineReader.h"

#include <gtest/gtest.h>

#include "tavrone/pipeline/InputSources.h"
#include "tests/Failure.h"

namespace tavrone {
namespace {

// All lines, each ended by '|', then the trailer.
std::string linesOf(std::string const &text, bool hasTrailer) {
  LineReader reader(text.data(), static_cast<int>(text.size()), hasTrailer);
  std::string lines;
  while (reader.hasMoreLines()) lines += str(reader.getNextLine()) + '|';
  return lines + str(reader.getNextLine()) + str(reader.getTrailerLine());
}

TEST(LineReader, EndsLinesAtLfAndCrLfOnlyAndSetsTheTrailerApart) {
  std::string const wide(32767, 'x');
  std::string const cases[][3] = {{"", "", ""},
                                  {"a", "a|", "a"},
                                  {"a\n", "a|", "a"},
                                  {"a\n\nb", "a||b|", "a||b"},
                                  {"\r\n\r\n", "||", "|"},
                                  {"a\r\nb\r\n", "a|b|", "a|b"},
                                  {"a\rb", "a\rb|", "a\rb"},
                                  {"a\r\r\nb", "a\r|b|", "a\r|b"},
                                  {"a\nb\r", "a|b\r|", "a|b\r"},
                                  {wide + "\r\n" + wide, wide + '|' + wide + '|', wide + '|' + wide},
                                  {std::string(100000, '\n'), std::string(100000, '|'), std::string(99999, '|')}};
  for (auto const &[text, lines, linesAndTrailer] : cases) {
    EXPECT_EQ(linesOf(text, false), lines);
    EXPECT_EQ(linesOf(text, true), linesAndTrailer);
  }
}

TEST(LineReader, GoesBackAndForthAndKeepsLinesAlive) {
  ByteArrayInputSource input(tvstring("one\ntwo\n"));
  auto reader = std::make_unique<LineReader>(input, false);
  reader->pushBackLine();
  tvstring const kept = reader->getNextLine();
  for (int i = 0; i < 2; ++i) reader->getNextLine();
  reader->pushBackLine();
  EXPECT_FALSE(reader->hasMoreLines());
  reader->pushBackLine();
  EXPECT_EQ(reader->getNextLine(), "two");
  EXPECT_EQ(reader->getLineNumber(), 2);
  reader->reset();
  EXPECT_EQ(reader->getNextLine(), kept);
  reader.reset();
  EXPECT_EQ(kept, "one");
  EXPECT_EQ(failureOf<FCSParseException>([] { LineReader("", -1, false); }).text, "Out of bounds");
}

}  // namespace
}  // namespace tavrone

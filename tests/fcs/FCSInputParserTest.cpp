#include "tavrone/fcs/FCSInputParser.h"

#include <gtest/gtest.h>

#include "tests/Cases.h"
#include "tests/pipeline/Walk.h"

namespace tavrone {
namespace {

using Trailer = Record<"Trailer", Field<"ISN", tvstring>, Field<"Text", tvstring>>;

// One line of header, one of body.
struct Parser : FCSInputParser {
  using FCSInputParser::additionalLinesAtEndError;
  void parse(ExternalObject *, Binary const &, TransformContext &) override {}
  ExternalObject *parse(Binary const &, TransformContext &) override { return nullptr; }
  void parseHeader(DataObject *header, LineReader &reader, TransformContext &) override { take(header, reader); }
  void parseData(DataObject *data, LineReader &reader, TransformContext &) override { take(data, reader); }
  static void take(DataObject *part, LineReader &reader) { part->setField(0, StringObject(reader.getNextLine())); }
};

// The lines are parted by '|'. What became of the message, or what it failed for, with the location.
std::string parsed(std::istringstream &in) {
  std::string text = in.str();
  std::replace(text.begin(), text.end(), '|', '\n');
  SmartPtr<ExternalObject> const object(new ExternalObject(new Line, new Line, new Trailer));
  TransformContext context;
  auto const &trailer = *static_cast<Trailer *>(object->getTrailer());
  try {
    Parser().parseInternal(object.get(), text.data(), static_cast<int>(text.size()), context);
  } catch (FCSParseException const &failure) {
    EXPECT_EQ(failure.getTrace().getFileName(), "cpp/fcs/FCSInputParser");
    EXPECT_TRUE(trailer.isEmpty() || text.find("more") != text.npos);
    return words(str(failure.getMessage()), failure.getLine(), failure.getColumn(), str(failure.getFailedLine()));
  }
  return words(textOf(object->getHeader()), textOf(object->getData()), str(trailer.get<"ISN">()),
               trailer.isNull<"Text">() ? "-" : str(trailer.get<"Text">()));
}

TEST(FCSInputParser, FindsTheISNInTheTrailer) {
  expectEach(
      {"H|B|OL 000123 -> H B 000123 -", "H|B|OL000123 -> H B 000123 -", "H|B|SOME TEXT 123456 -> H B 123456 SOME TEXT",
       "H|B|7 ABCD X -> H B 7 ABCD X", "H|B|A  OL 12  B OL 13 -> H B 12 A B OL 13", "H|B|12345678 -> H B 12345678 -",
       "H|B|7 ABCDE 1234 -> H B 1234 7 ABCDE", "H|B|OL 1234567 -> Invalid Input Sequence Number (ISN) 3 3 OL 1234567",
       "H|B|A OLD X -> Invalid Input Sequence Number (ISN) 3 2 A OLD X",
       "H|B|A OL -> The token 'OL' should be followed by a token representing Input Sequence Number (ISN) 3 5 A OL",
       "H|B|A 123 -> Input Sequence Number (ISN) is not found in trailer 3 6 A 123",
       "H|B|| -> Trailer is not present in Input 3 0 "},
      parsed);
}

TEST(FCSInputParser, WalksHeaderBodyTrailerAndLeftoverLinesInThisOrder) {
  expectEach({"OL 1 ->   1 -", "H|B|more|OL 1 -> Unrecognized lines at the end 3 0 more",
              "H|B|more|1 -> Input Sequence Number (ISN) is not found in trailer 4 2 1",
              " -> Trailer is not present in Input 1 0 "},
             parsed);
  EXPECT_EQ(failureOf<FCSParseException>([] { Parser::additionalLinesAtEndError(); }).text,
            "Unrecognized lines at the end");
}

}  // namespace
}  // namespace tavrone

#include <gtest/gtest.h>

#include "tests/Cases.h"
#include "tests/core/AllocationCount.h"
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
  EXPECT_FAILURE(FCSParseException, Parser::additionalLinesAtEndError(), "Unrecognized lines at the end");
}

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
  EXPECT_FAILURE(FCSParseException, LineReader("", -1, false), "Out of bounds");
}

std::string joined(std::initializer_list<tvstring> const &texts) {
  std::string all;
  for (tvstring const &text : texts) all += str(text) + '|';
  return all;
}

TEST(FCSLineTokenizer, CutsAtSpacesOnly) {
  std::string const wide(70, 'x');
  expectEach({"A B -> A|B|", "  A   B  -> A|B|", "A\tB -> A\tB|", " -> ", "   -> ",
              wide + ' ' + wide + " -> " + wide + '|' + wide + '|', wide.substr(6) + " -> " + wide.substr(6) + '|'},
             [](std::istringstream &in) {
               std::string tokens;
               for (FCSLineTokenizer t(in.str().c_str()); t.hasMoreTokens();) tokens += joined({t.getNextToken()});
               return tokens;
             });
}

TEST(FCSLineTokenizer, TakesFortySevenTokensAndKeepsTheFormerLineOtherwise) {
  auto const repeated = [](size_t count) {
    std::string text;
    while (count-- > 0) text += "Token ";
    return text;
  };
  tvstring line((repeated(46) + "LAST").c_str()), shorter("A");
  FCSLineTokenizer tokenizer(line);
  for (size_t const count : {47u, 48u, 10000u}) {
    tvstring const broken(repeated(count).c_str());
    try {
      tokenizer.setString(broken);
      ADD_FAILURE();
    } catch (FCSParseException const &failure) {
      EXPECT_EQ(failure.getMessage() + failure.getFailedLine(), "Too many tokens in line" + broken);
    }
    EXPECT_EQ(joined({tokenizer.peekToken(46), tokenizer.peekToken(47)}), "LAST||");
  }
  char const *const array = line.data();
  AllocationCount const allocations;
  tokenizer.setString(shorter);
  line.getBuffer(1);  // makes a new array if a token still held this one
  EXPECT_TRUE(line.data() == array && allocations.soFar() == 0);
}

TEST(FCSLineTokenizer, MovesByTokens) {
  FCSLineTokenizer t("BUY 100  IBM AT 12 ");
  EXPECT_EQ(joined({t.previousToken(1), t.getNextToken(), t.previousToken(1), t.peekToken(1), t.previousToken(5)}),
            "|BUY|BUY|IBM||");
  EXPECT_EQ(t.getColumn(), 4);
  EXPECT_EQ(joined({t.peekTokenList(2), t.getTillToken(3), t.getTillToken(2), t.peekNextToken()}),
            "100  IBM|100  IBM||AT|");
  EXPECT_TRUE(t.matchTokens("AT") && t.matchTokens("AT 12") && !t.matchTokens("AT 1") && !t.matchTokens("AT 12  "));
  EXPECT_EQ(joined({t.peekRest(), t.getRest(), t.getRest(), t.getNextToken()}), "AT 12 |AT 12 |||");
  t.pushback("unused");
  EXPECT_EQ(t.mark(), 5);
  t.reset(1);
  EXPECT_EQ(joined({t.getNextToken(1), t.peekNextToken()}), "IBM|AT|");
  t.skip(100);
  EXPECT_EQ(joined({t.previousToken(1), t.peekToken(INT_MAX), t.getNextToken(INT_MIN), t.peekNextToken()}), "12||||");
  t.reset();
  t.pushback("unused");
  EXPECT_EQ(words(t.mark(), t.hasFullLine(), t.getColumn()), "-1 0 0");
  EXPECT_EQ(joined({t.peekRest(), t.peekTokenList(2), t.getNextToken(), t.getNextToken()}),
            "BUY 100  IBM AT 12 |BUY||BUY|");
  t.reset(INT_MIN);
  t.pushback("unused");
  EXPECT_EQ(joined({t.getTillToken(1), t.peekNextToken()}), "BUY|100|");
  FCSLineTokenizer none(" ");
  none.pushback("unused");
  EXPECT_EQ(joined({none.peekRest(), none.getTillToken(3), none.getNextToken()}), "|||");
  EXPECT_EQ(t.getLine(), "BUY 100  IBM AT 12 ");
  EXPECT_FALSE(t.hasFullLine() || t.isEmpty() || t.hasMoreTokens());
  t.setString(t.previousToken(3));
  FCSLineTokenizer copy(t);
  EXPECT_TRUE(t.hasFullLine() && t.getTokenCount() == 1 && t.getLine() == "IBM");
  t.setString("BUY 100");
  EXPECT_EQ(joined({copy.getNextToken(), copy.getNextToken()}), "IBM||");
}

TEST(FCSLineTokenizer, TellsTheKindOfTheNextToken) {
  FCSLineTokenizer t("12 AB a% \xE9");
  EXPECT_EQ(joined({t.getNumberType(1, false), t.getNumberType(3, true), t.getCharType(9, false)}), "|||");
  EXPECT_TRUE(t.isPrice() && t.isAlphaNumericType(2, true) && t.isTextType(5, false) && !t.isCharType(5, false));
  EXPECT_EQ(joined({t.getNumberType(2, true), t.getCharType(1, false), t.getCharType(3, false)}), "12||AB|");
  EXPECT_TRUE(t.isAlphaNumericType(2, false) && t.isTextType(2, false) && !t.isPrice());
  t.skip(1);
  EXPECT_TRUE(!t.isTextType(1, false) && FCSLineTokenizer::isAlphaNumericType("%\xE9", 2));
  EXPECT_FALSE(FCSLineTokenizer::isAlphaNumericType("", 2) || FCSLineTokenizer::isNumberType("123", 2) ||
               FCSLineTokenizer::isNumberType("", -1) || FCSLineTokenizer::isAlphaNumericType('%'));
}

TEST(FCSLineTokenizer, ReadsPricesAndStaysBehindTheWholePartOfThoseThatItCannotRead) {
  std::string const illegal = " -> Illegal fraction part of price at 1";
  std::string const unexpected = " -> Unexpected character in fraction part of price at 1";
  expectEach(
      {"12.5 3/8 -> 12.5 at 1", "12 3/8 X -> 12.375 at 2", "12 X -> 12 at 1", "12 /8 -> 12 at 1", "-1 1/2 -> -0.5 at 2",
       "0 2147483647/2147483647 -> 1 at 2", "12 0/8" + illegal, "12 3/" + illegal, "100 200" + illegal,
       "1 1/2147483648" + illegal, "1 99999999999999999999999999/1" + illegal, "12 3/8/" + unexpected,
       "12 3x" + unexpected, "1x 1/2 -> Cannot convert '1x' to int at 1", "1.x -> Cannot convert '1.x' to double at 1",
       " -> Cannot convert '' to int at 1", "2147483648 -> Integer overflow. Cannot convert '2147483648' to int at 1"},
      [](std::istringstream &in) {
        FCSLineTokenizer t(in.str().c_str());
        std::string text;
        try {
          text = words(t.parsePrice());
        } catch (FCSParseException const &failure) {
          text = str(failure.getMessage());
        }
        return text + " at " + std::to_string(t.mark());
      });
}

TEST(FCSLineTokenizer, RaisesTheFailuresOfGeneratedParsers) {
  struct {
    char const *text;
    void (*call)();
  } const cases[] = {{"Error parsing line 'Side', unexpected tokens at the end of line. Remaining 'A B'",
                      [] { FCSLineTokenizer("A B").assertEmpty("Side"); }},
                     {"Empty line expected", &FCSLineTokenizer::emptyLineError},
                     {"Unrecognized lines at the end", &FCSLineTokenizer::additionalLinesAtEndError},
                     {"The length of line 'Side' exceeds the allowed length - 9",
                      [] { FCSLineTokenizer::lineLengthError("Side", 9); }},
                     {"Expected field 'Price' in line 3", [] { FCSLineTokenizer::missingFieldError("Price", "3"); }},
                     {"Expected field '' in line 3", [] { FCSLineTokenizer::missingFieldError(nullptr, "3"); }}};
  for (auto const &c : cases) {
    Failure const failure = failureOf<FCSParseException>(c.call);
    EXPECT_EQ(words(failure.source, failure.text), words("cpp/fcs/FCSLineTokenizer", c.text));
  }
  FCSLineTokenizer(" ").assertEmpty("Side");
}

}  // namespace
}  // namespace tavrone

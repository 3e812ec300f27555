#include "tavrone/universal/UniversalInputParser.h"

#include <gtest/gtest.h>

#include "tavrone/core/SmartPtr.h"
#include "tavrone/dataobject/Record.h"
#include "tavrone/universal/UniversalFieldParser.h"
#include "tests/Cases.h"
#include "tests/Failure.h"

namespace tavrone {
namespace {

struct Leg : Record<"Leg", Field<"Symbol", tvstring>, Field<"Price", int>> {};
struct Order : Record<"Order", Field<"ID", tvstring>, Section<"Legs", Leg, 2, 3>> {};

struct Parser : UniversalInputParser {
  void parse(ExternalObject *, Binary const &, TransformContext &) override {}
  ExternalObject *parse(Binary const &, TransformContext &) override { return nullptr; }
  using UniversalInputParser::assertConstraints, UniversalInputParser::assertFieldNew,
      UniversalInputParser::assertLength, UniversalInputParser::assertNotNull, UniversalInputParser::checkFillerValue,
      UniversalInputParser::checkNull, UniversalInputParser::createInputRecord,
      UniversalInputParser::getDelimitedRecord, UniversalInputParser::handleException,
      UniversalInputParser::missingChoice;
};

using RecordPtr = SmartPtr<UniversalInputRecord>;

TEST(UniversalInputParser, HandsOutRecordsThatNobodyHolds) {
  Parser parser;
  RecordPtr outlives;
  {
    RecordPtr const top(parser.createInputRecord(Binary("a,b;c", 5)));
    RecordPtr const child(parser.getDelimitedRecord(top.get(), ";", true, false));
    UniversalInputRecord *const inner = parser.getDelimitedRecord(child.get(), ",", true, false);
    EXPECT_EQ(words(str(inner->peekRest()), str(child->peekRest()), str(top->peekRest())), "a b c");
    EXPECT_EQ(parser.getDelimitedRecord(top.get(), ";", true, false), inner);
    Parser const copy(parser);  // holds them all, so that none is free
    EXPECT_NE(parser.createInputRecord(Binary("x", 1)), inner);
  }
  UniversalInputRecord *const top = parser.createInputRecord(Binary("d;e", 3));
  UniversalInputRecord *const child = parser.getDelimitedRecord(top, ";", true, false);
  EXPECT_EQ(words(str(child->peekRest()), str(top->peekRest()), child->isTrailingField()), "d e 0");
  Parser other;
  outlives = other.createInputRecord(Binary("z", 1));
  other = parser;
  EXPECT_NE(other.createInputRecord(Binary("y", 1)), outlives.get());
}

TEST(UniversalInputParser, SaysWhatAFieldLacks) {
  Order order;
  order.set<"ID">("7");
  SmartPtr<DataObject> const leg(order.getSection(1)->createElement());
  AbstractDataObject *const element = dynamic_cast<AbstractDataObject *>(leg.get());
  std::pair<std::function<void()>, char const *> const cases[] = {
      {[&] { Parser::assertNotNull(&order, 0), Parser::assertFieldNew(element, 0); }, ""},
      {[&] { Parser::assertNotNull(element, 1); }, "Mandatory field 'Price' missing."},
      {[&] { Parser::assertFieldNew(&order, 0); }, "Duplicate field 'ID'."},
      {[&] { Parser::missingChoice(element); }, "Missing choice element Legs. None of choices match with the message"},
      {[&] { Parser::missingChoice(&order); }, "Missing choice element . None of choices match with the message"},
      {[&] { Parser::checkFillerValue("a", "a"); }, ""},
      {[&] { Parser::checkFillerValue("a", "b"); }, "Incorrect filler value. Expected 'b' , found 'a'"},
      {[&] { Parser::assertLength(5, 5, 5), Parser::assertLength(0, 0, 0), Parser::assertLength(99, 0, -1); }, ""},
      {[&] { Parser::assertLength(-1, 0, 5); },
       "The length of the length preceded field (-1) is less than the minimum length (0)"},
      {[&] { Parser::assertLength(6, 5, 5); },
       "The length of the length preceded field (6) exceeds the maximum length (5) allowed."}};
  for (auto const &[check, expected] : cases) EXPECT_EQ(failureOf<TransformException>(check).text, expected);
  EXPECT_THROW(Parser::assertConstraints(&order, 1), SectionConstraintException);
  EXPECT_TRUE(Parser::checkNull("") && !Parser::checkNull(" "));
}

// Each level of a walk passes the failure on; the innermost one writes where it happened.
TEST(UniversalInputParser, LocatesAFailureOnce) {
  Order order;
  UniversalInputRecord record, outer;
  record.init(Binary("ab\r\ncd", 6));
  outer.init(Binary("x", 1));
  auto const located = [&](AbstractDataObject *object) {
    try {
      try {
        Parser::handleException(*std::make_unique<FieldParsingException>("bad"), &record, object);
      } catch (TransformException &e) {
        Parser::handleException(e, &outer, object);
      }
    } catch (TransformException const &e) {
      EXPECT_EQ(typeid(e), typeid(TransformException));
      return str(e.getContextProperty("index")) + words("", e.getLine(), e.getColumn(), str(e.getMessage()) + ' ') +
             (e.isNull("FieldName") ? "" : str(e.getFFieldName()));
    }
    return std::string();
  };
  EXPECT_EQ(located(&order), "0 1 1 bad ");
  record.startSequence();
  record.onField();
  record.skip(4);
  record.skip(1);
  EXPECT_EQ(located(&order), "4 2 3 bad ID");
  EXPECT_EQ(located(nullptr), "4 2 3 bad ");
  record.setCurrentFieldIndex(2);
  EXPECT_EQ(located(&order), "4 2 3 bad ");
}

tvstring text(std::string const &value) {
  return value == "-" ? tvstring() : tvstring(value.data(), value.size());
}

TEST(UniversalFieldParser, ReadsTwoTextsAsABool) {
  auto const parse = [](std::istream &input) {
    std::string value, trueText, falseText;
    input >> value >> trueText >> falseText;
    bool result = false;
    Failure const failure = failureOf<TransformException>(
        [&] { result = UniversalFieldParser::parseBoolean(text(value), text(trueText), text(falseText)); });
    return failure.text.empty() ? words(result) : failure.text;
  };
  expectEach({"Y Y N -> 1", "N Y N -> 0", "X X X -> 1", "y Y N -> Illegal bool value y",
              "- - N -> Illegal bool value, it can't be empty"},
             parse);
  EXPECT_EQ(str(UniversalFieldParser::formatbool(true, "Y", "N") + UniversalFieldParser::formatbool(false, "Y", "N")),
            "YN");
}

TEST(UniversalFieldParser, ReadsNumbersByTheirPointAndTheirPlaces) {
  // value, point (0 for none), then the places before and behind it
  auto const parse = [](std::istream &input) {
    std::string value;
    char point = 0;
    int whole = 0, fraction = 0;
    input >> value >> point;
    bool const hasPlaces = static_cast<bool>(input >> whole >> fraction);
    point = point == '0' ? '\0' : point;
    double result = 0;
    Failure const failure = failureOf<TransformException>([&] {
      result = hasPlaces ? UniversalFieldParser::parseDouble(text(value), whole, fraction, point)
                         : UniversalFieldParser::parseDouble(text(value), point);
      float const narrowed = hasPlaces ? UniversalFieldParser::parseFloat(text(value), whole, fraction, point)
                                       : UniversalFieldParser::parseFloat(text(value), point);
      EXPECT_EQ(narrowed, static_cast<float>(result));
    });
    return failure.text.empty() ? words(result) : failure.text;
  };
  std::string const zeros(80, '0');
  expectEach({"1.5 . -> 1.5", "-1,25 , -> -1.25", zeros + "7,5 , -> 7.5",
              "1.5 , -> Unexpected '.' character while parsing floating point field",
              "1x5 , -> Cannot convert '1x5' to double", "12,5 , 2 9 -> 12.5", "-2.5 . 2 1 -> -2.5",
              "12,5 , 3 1 -> Float field's value '12,5' is not in specified format '3.1'",
              "125 . -1 1 -> Float field's value '125' is not in specified format '-1.1'", "12345 0 3 2 -> 123.45",
              "-345 0 9 2 -> -3.45", "-012 0 9 2 -> 0.12", "1-5 0 9 2 -> 0.95", "5 0 9 2 -> 0.5", "-5 0 9 2 -> -0.05",
              "- 0 9 2 -> Cannot convert '' to long", "12 0 9 -3 -> Cannot convert '' to long",
              "1234567890123456789 0 0 18 -> 1.23457",
              "1234567890123456789 0 0 19 -> Cannot convert '1234567890123456789' to double"},
             parse);
}

}  // namespace
}  // namespace tavrone

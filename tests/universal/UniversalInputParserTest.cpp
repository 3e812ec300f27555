#include "tavrone/universal/UniversalInputParser.h"

#include <gtest/gtest.h>

#include "tavrone/core/SmartPtr.h"
#include "tavrone/dataobject/Record.h"
#include "tests/Cases.h"
#include "tests/Failure.h"

namespace tavrone {
namespace {

struct Leg : Record<"Leg", Field<"Symbol", tvstring>, Field<"Price", int>> {};
struct Order : Record<"Order", Field<"ID", tvstring>, Section<"Legs", Leg, 2, 3>> {};

struct Parser : UniversalInputParser {
  void parse(ExternalObject *, Binary const &, TransformContext &) override {}
  ExternalObject *parse(Binary const &, TransformContext &) override { return nullptr; }
  using UniversalInputParser::assertConstraints;
  using UniversalInputParser::assertFieldNew;
  using UniversalInputParser::assertLength;
  using UniversalInputParser::assertNotNull;
  using UniversalInputParser::checkFillerValue;
  using UniversalInputParser::checkNull;
  using UniversalInputParser::createInputRecord;
  using UniversalInputParser::getDelimitedRecord;
  using UniversalInputParser::handleException;
  using UniversalInputParser::missingChoice;
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

}  // namespace
}  // namespace tavrone

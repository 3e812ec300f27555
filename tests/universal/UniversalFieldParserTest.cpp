#include "tavrone/universal/UniversalFieldParser.h"

#include <gtest/gtest.h>

#include "tests/Cases.h"
#include "tests/Failure.h"

namespace tavrone {
namespace {

using Parser = UniversalFieldParser;

tvstring text(std::string const &value) {
  return value == "-" ? tvstring() : tvstring(value.data(), value.size());
}

TEST(UniversalFieldParser, ReadsTwoTextsAsABool) {
  auto const parse = [](std::istream &input) {
    std::string value, trueText, falseText;
    input >> value >> trueText >> falseText;
    bool result = false;
    Failure const failure = failureOf<TransformException>(
        [&] { result = Parser::parseBoolean(text(value), text(trueText), text(falseText)); });
    return failure.text.empty() ? words(result) : failure.text;
  };
  expectEach({"Y Y N -> 1", "N Y N -> 0", "X X X -> 1", "y Y N -> Illegal bool value y",
              "- - N -> Illegal bool value, it can't be empty"},
             parse);
  EXPECT_EQ(str(Parser::formatbool(true, "Y", "N") + Parser::formatbool(false, "Y", "N")), "YN");
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
      result = hasPlaces ? Parser::parseDouble(text(value), whole, fraction, point)
                         : Parser::parseDouble(text(value), point);
      float const narrowed =
          hasPlaces ? Parser::parseFloat(text(value), whole, fraction, point) : Parser::parseFloat(text(value), point);
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

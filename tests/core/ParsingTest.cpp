#include "tavrone/core/Parsing.h"

#include <gtest/gtest.h>

#include <memory>
#include <sstream>

#include "tests/Cases.h"
#include "tests/Failure.h"
#include "tests/core/NumberTextReference.h"

namespace tavrone {
namespace {

TEST(Parsing, ReadsDoublesAsTheCLibraryDoes) {
  std::string const texts[] = {
      "", "-", "+", "--", "+-5", "-.", ".", "..", "1e5", "1e", "1e+", "-1e-", "+.5", "5.", "-0", "1.2.3", "1-2", "e5",
      // Every length of both runs of digits around the price's word size, and the limits of the exact arithmetic.
      "1.5", "12.25", "1234567.12345678", "1234567.123456789", "12345678.12345678", ".12345678", "12345678",
      "123456789", "9007199254740992", "9007199254740993", "9007199254740993e22", "1e22", "1e23", "1e-22", "1e-23",
      "8.5e-7", "1234567890123456789", "12345678901234567890", "0.1234567890123456789",
      // The ends of the range.
      "1.7976931348623157e308", "1.7976931348623159e308", "-1e999", "4.9e-324", "2.4703282292062327e-324",
      "2.4703282292062328e-324", "-1e-999", "0e99999999999999999999", "1e99999999999999999999",
      "1e-99999999999999999999",
      // What only very long texts can say.
      "0." + std::string(70000, '0') + "1e70001", "1" + std::string(70000, '0') + "e-70000",
      "9007199254740993" + std::string(1000, '0') + "e-1000", "9007199254740993." + std::string(1000, '0') + "1"};
  for (std::string const &text : texts) EXPECT_TRUE(readsDoubleAsTheCLibraryDoes(text)) << text.substr(0, 40);
  EXPECT_EQ(Parsing::parseDouble(tvstring("12.3456").substr(0, 4)), 12.3);
  EXPECT_EQ(Parsing::parseFloat("0.1"), 0.1F);
  for (char const *text : {"1x", " 1", "1,5", "0x10", "inf", "nan", "1.5\n"})
    EXPECT_FAILURE(TransformException, Parsing::parseDouble(text),
                   "Cannot convert '" + std::string(text) + "' to double");
}

TEST(Parsing, ReadsTruthAndCharactersExactly) {
  EXPECT_TRUE(Parsing::parseBool("TRUE") && !Parsing::parseBoolean("False"));
  for (char const *text : {"", "tru", "true ", "1"})
    EXPECT_FAILURE(TransformException, Parsing::parseBool(text), "Cannot convert " + std::string(text) + " to boolean");
  EXPECT_EQ(Parsing::parseChar("\xE9"), '\xE9');
  for (char const *text : {"", "ab"})
    EXPECT_FAILURE(TransformException, Parsing::parseChar(text), "Cannot convert " + std::string(text) + " to char");
}

TEST(Parsing, MakesTheObjectOfATypeOrSaysWhyNot) {
  auto const read = [](auto &in) {
    std::string type, shown = "null";
    std::getline(in, type, ':');
    std::string const text = in.str().substr(type.size() + 1);
    Failure const failure = failureOf<TransformException>([&] {
      std::unique_ptr<Object> const object(Parsing::toRuntimeObject(text.c_str(), type.c_str()));
      if (object != nullptr) shown = str(object->getObjectType() + " " + object->toString());
    });
    return failure.text.empty() ? shown : failure.text;
  };
  expectEach({"String:a b -> String a b", "Integer:-7 -> Integer -7", "Long:9999999999 -> Long 9999999999",
              "BigInteger:12.9 -> BigInteger 12", "BigDecimal:1e2 -> BigDecimal 100", "Binary:01 -> Binary 01",
              "Float:1.25 -> Float 1.25", "Double:1e5 -> Double 100000.0", "Boolean:tRUE -> Boolean true",
              "Character:x -> Character x", "DateTime:20260131 -> DateTime 2026-01-31T00:00:00.000",
              "DateTime:23:59:58.007 -> DateTime 1970-01-01T23:59:58.007",
              "DateTime:20260131-23:59:58.007 -> DateTime 2026-01-31T23:59:58.007",
              "DateOnly:20260131 -> DateTime 2026-01-31T00:00:00.000",
              "TimeOnly:23:59:58.007 -> DateTime 1970-01-01T23:59:58.007"},
             read);
  expectEach({"DateTime: -> null", "DateOnly: -> null", "TimeOnly: -> null", "Character: -> null",
              "ISODate:x -> Cannot convert 'x' to ISODate", "string:x -> Cannot convert 'x' to string",
              "Character:ab -> Cannot convert 'ab' to Character", "Integer: -> Cannot convert '' to int",
              "Float:1.5x -> Cannot convert '1.5x' to double", "Boolean:yes -> Cannot convert yes to boolean"},
             read);
  // No ':' means a date, whatever else stands there.
  EXPECT_FAILURE(TransformRuntimeException, Parsing::toRuntimeObject("2026-01", "DateTime"), "Illegal date 2026-00-01");
}

TEST(Parsing, WritesDatesWithTheirMillisecondsOnlyIfTheyHaveSome) {
  DateObject const whole(DateTime(2026, 1, 31, 23, 59, 58, 0)), split(DateTime(2026, 1, 31, 23, 59, 58, 7));
  BinaryObject const bytes(Binary("\x01\xFE", 2));
  std::tuple<Object const &, char const *, char const *> const cases[] = {
      {whole, "DateTime", "2026-01-31T23:59:58"},
      {split, "DateTime", "2026-01-31T23:59:58.007"},
      {whole, "DateOnly", "2026-01-31"},
      {split, "DateOnly", "2026-01-31"},
      {whole, "TimeOnly", "23:59:58"},
      {split, "TimeOnly", "23:59:58.007"},
      {whole, "", "2026-01-31T23:59:58.000"},
      {bytes, "Binary", "01FE"}};
  for (auto const &[object, type, text] : cases) EXPECT_EQ(Parsing::runtimeObjectToString(&object, type), text);
  EXPECT_FAILURE(TransformException, Parsing::runtimeObjectToString(&bytes, "DateOnly"),
                 "Cannot convert Binary to DateTime");
  tvstring out("yyyy");
  EXPECT_EQ(Parsing::formatDate(whole.getDate(), out, out), "2026");
}

TEST(Parsing, FramesTextByItsLength) {
  std::stringstream stream;
  std::string const longest(65535, 'x');
  Parsing::writeUTF(stream, tvstring("a\0\xE9", 3));
  Parsing::writeUTF(stream, longest.c_str());
  Parsing::writeUTF(stream, "");
  EXPECT_EQ(stream.str().substr(0, 7), std::string("\0\3a\0\xE9\xFF\xFF", 7));
  EXPECT_EQ(str(Parsing::readUTF(stream)), std::string("a\0\xE9", 3));
  EXPECT_EQ(str(Parsing::readUTF(stream)), longest);
  EXPECT_EQ(Parsing::readUTF(stream), "");

  std::ostringstream untouched;
  EXPECT_FAILURE(TransformException, Parsing::writeUTF(untouched, (longest + 'x').c_str()), "Out of bounds");
  EXPECT_EQ(untouched.str(), "");
  for (std::string const &bytes : {std::string(), std::string("\0", 1), std::string("\0\2a", 3)}) {
    std::istringstream cut(bytes);
    EXPECT_FAILURE(TransformException, Parsing::readUTF(cut), "Out of bounds");
  }
}

TEST(Parsing, ReadsWrappersStrictlyOrNot) {
  DoubleObject const number(2.5);
  EXPECT_EQ(Parsing::intValue(&number), 2);
  EXPECT_EQ(Parsing::doubleValueWithNull(&number), 2.5);
  EXPECT_EQ(Parsing::intValueWithNull(nullptr), 0);
  EXPECT_EQ(Parsing::stringValueWithNull(nullptr), "");
  EXPECT_EQ(Parsing::dateValueWithNull(nullptr), DateTime());
  EXPECT_EQ(Parsing::bigDecimalValueWithNull(nullptr), BigDecimal());
  Failure const failure = failureOf<TransformRuntimeException>([] { Parsing::boolValue(nullptr); });
  EXPECT_EQ(failure.source + ":" + failure.text, "cpp/Parsing:Null value");
}

}  // namespace
}  // namespace tavrone

#include <gtest/gtest.h>

#include <climits>
#include <functional>

#include "tavrone/tavrone.h"
#include "tests/Cases.h"
#include "tests/Failure.h"
#include "tests/TagValueText.h"
#include "tests/core/AllocationCount.h"
#include "tests/fix/TagValueReference.h"

// What the formats of tag=value text have in common.
namespace tavrone {
namespace {

struct FIX {
  using Failure = FIXParsingException;
  using HeaderFailure = TransformException;
  using Tokenizer = FIXTokenizer;
  using Type = FIXType;
  using Header = FIXHeader;
  using HeaderParser = FIXHeaderParser;
  using Parser = FIXInputParser;
  static constexpr char const *path = "cpp/fix/FIX";
  static constexpr char const *classification = " ";
  static constexpr char const *version = "FIX.4.2";
  static constexpr char const *header = "8=FIX.4.2|0000000000000052=x|34=7|";
  static constexpr char const *brokenNumber = "8=FIX.4.2|34=x7|";
  static constexpr int number = 10;
};
struct SIACCanonical {
  using Failure = SIACCanonicalParsingException;
  using HeaderFailure = SIACCanonicalParsingException;
  using Tokenizer = SIACCanonicalTokenizer;
  using Type = SIACCanonicalType;
  using Header = SIACCanonicalHeader;
  using HeaderParser = SIACCanonicalHeaderParser;
  using Parser = SIACCanonicalInputParser;
  static constexpr char const *path = "cpp/siaccanonical/SIACCanonical";
  static constexpr char const *classification = "Input Parsing";
  static constexpr char const *version = "Ca";
  static constexpr char const *header = "10001=Ca|0000000000025001=32|10007=7|";
  static constexpr char const *brokenNumber = "10001=Ca|10007=x7|";
  static constexpr int number = 9;
};

template <class Format>
struct TagValue : testing::Test {
  template <class Call>
  static void expectFailure(std::string const &text, char const *of, Call const &call) {
    Failure const failure = failureOf<typename Format::Failure>(call);
    EXPECT_EQ(failure.text, text);
    EXPECT_EQ(failure.source, std::string(Format::path) + of);
  }
};
using Formats = testing::Types<FIX, SIACCanonical>;
TYPED_TEST_SUITE(TagValue, Formats);

TYPED_TEST(TagValue, ReadsEveryFormOfFieldByTheRules) {
  std::string const wide(70, 'w');
  for (std::string const &text :
       {std::string("35=D|"), std::string("35=|"), std::string("35="), std::string("35=D"), std::string("3"),
        std::string("|=X|35=D|"),
        "-5=a|+7=b|0000000000035=c|2147483647=d|-2147483648=e|2147483648=f|" + wide + "=g|1=0|",
        "x35=" + wide + "|1=" + wide + "|2=a=b=|3=" + wide + "|44=1.5|12345678=x|1234567=y|9999999999=z|10=123|",
        "35D|8:=1|8/=1|8<=1|8 =1|3\x80=1|\xB5=1|-=0|+=0|--1=0|49=SENDER|10=1|" + wide, "35=D|49=" + wide})
    for (size_t cut = 0; cut < text.size(); ++cut)
      for (char delimiter : {'|', '=', '5', 'c'}) {
        std::string const rest = text.substr(cut);
        typename TypeParam::Tokenizer tokens(UnownedText(rest), delimiter);
        TagValueReference reference{rest, delimiter};
        std::string step;
        do {
          step = reference.next();
          ASSERT_EQ(shownStep(tokens, [&](auto &pair) { return tokens.next(pair); }), step) << rest << delimiter;
        } while (step[0] != '@');
      }
}

TYPED_TEST(TagValue, ReadsDataByItsLength) {
  std::string const text = "95=3|96=a|=|10=1|";
  typename TypeParam::Tokenizer tokens(UnownedText(text), '|');
  TagValueReference reference{text, '|'};
  // A wrong length that is possible leaves the position behind the '='.
  for (int length : {1, -1, INT_MIN, INT_MAX, 3, 1, 13, 1, 1}) {
    EXPECT_EQ(shownStep(tokens, [&](auto &pair) { return tokens.nextDataTag(pair, length); }),
              reference.nextData(length));
  }
  std::string const start = text.substr(0, 9);
  for (auto const &[length, position] : {std::pair(-1, 0), {2, 3}, {20, 8}}) {
    typename TypeParam::Tokenizer from(UnownedText(start), '|');
    TagValuePair pair;
    if (position == 8) from.next(pair);
    EXPECT_THROW(from.nextDataTag(pair, length), TransformException);
    EXPECT_EQ(from.getCurrentIndex(), position);
  }
  tokens.pushBack({1, "x"});
  TestFixture::expectFailure("Length based tag not supported here", "Tokenizer", [&] {
    typename TypeParam::Tokenizer::TagValuePair pair;
    tokens.nextDataTag(pair, 3);
  });
}

TYPED_TEST(TagValue, GivesTheLastFieldHandedBackAndTellsWhatIsLeft) {
  std::string const text = "35=D|" + std::string(40, '1') + "x=|58=ok|";
  typename TypeParam::Tokenizer tokens(tvstring(text.data(), text.size()), '|');
  typename TypeParam::Tokenizer::TagValuePair first, pair;
  ASSERT_TRUE(tokens.next(first));
  tokens.pushBack({7, "seven"});
  tokens.pushBack(first);
  EXPECT_EQ(tokens.getNextTokenIndex(), 0);
  auto copy = tokens;
  for (int i = 0; i < 2; ++i)
    TestFixture::expectFailure("Unexpected tag 35", "Tokenizer", [&] { tokens.assertEmpty(); });
  ASSERT_TRUE(tokens.next(pair) && copy.next(pair));
  EXPECT_EQ(words(pair.tag, str(pair.value), tokens.getTokenIndex(pair), tokens.getNextTokenIndex()), "35 D 0 5");
  EXPECT_THROW(tokens.next(pair), TransformException);
  EXPECT_EQ(words(pair.tag, tokens.getCurrentIndex()), "35 48");
  ASSERT_TRUE(tokens.next(pair));
  EXPECT_FAILURE(TransformException, pair.toInt(), "Cannot convert 'ok' to int");
  tokens.assertEmpty();
  typename TypeParam::Tokenizer("", '|').assertEmpty();
}

TYPED_TEST(TagValue, WalksOverViewsWithoutAllocating) {
  tvstring const text("8=FIX.4.4|35=D|49=SENDER|56=TARGET|34=2|38=100|123456789=1|54=1|10=128|");
  AllocationCount const allocations;
  typename TypeParam::Tokenizer tokens(text, '|');
  typename TypeParam::Tokenizer::TagValuePair pair;
  while (tokens.next(pair)) EXPECT_LT(static_cast<size_t>(pair.value.data() - text.data()), text.length());
  EXPECT_EQ(allocations.soFar(), 0);
}

TYPED_TEST(TagValue, ReadsAndWritesDatesAndBooleans) {
  using Type = typename TypeParam::Type;
  DateTime const plain(2026, 1, 5, 9, 30, 15, 0);
  DateTime const precise(2026, 1, 5, 9, 30, 15, 250);
  tvstring out;
  struct {
    DateTime (*parse)(tvstring const &);
    tvstring &(*format)(DateTime const &, tvstring &);
    char const *plain, *precise;
  } const cases[] = {
      {Type::parseUTCTimestamp, Type::formatUTCTimestamp, "20260105-09:30:15", "20260105-09:30:15.250"},
      {Type::parseUTCTimeOnly, Type::formatUTCTimeOnly, "09:30:15", "09:30:15.250"},
      {Type::parseLocalMktTimeOnly, Type::formatLocalMktTimeOnly, "09:30:15", "09:30:15.250"},
      {Type::parseUTCDate, Type::formatUTCDate, "20260105", "20260105"},
      {Type::parseLocalMktDate, Type::formatLocalMktDate, "20260105", "20260105"},
      {Type::parseLocalMktTimestamp, Type::formatLocalMktTimestamp, "20260105-09:30:15", "20260105-09:30:15"},
      {Type::parsemonth_year, Type::formatmonth_year, "202601", "202601"},
      {Type::parseUTCTimestamp_int64, Type::formatUTCTimestamp_int64, "1767605415000", "1767605415250"}};
  for (auto const &c : cases) {
    EXPECT_EQ(&c.format(plain, out), &out);
    EXPECT_EQ(str(out), c.plain);
    EXPECT_EQ(str(c.format(c.parse(c.plain), out)), c.plain);
    EXPECT_EQ(str(c.format(precise, out)), c.precise);
    EXPECT_EQ(str(c.format(c.parse(c.precise), out)), c.precise);
  }
  EXPECT_TRUE(Type::parseUTCTimestamp_int64(1767605415250) == precise);
  EXPECT_THROW(Type::parseLocalMktTimestamp("20260105-09:30:15.250"), TransformException);
  EXPECT_EQ(words(Type::parseBoolean("Yes"), Type::parseBoolean_4_1("N"), str(Type::formatBoolean(true, out)),
                  str(Type::formatBoolean_4_1(false, out))),
            "1 0 Y N");
  TestFixture::expectFailure("Illegal boolean value, it can't be empty", "Type", [] { Type::parseBoolean(""); });
  TestFixture::expectFailure("Illegal boolean value y", "Type", [] { Type::parseBoolean("y"); });
}

TYPED_TEST(TagValue, ReadsAHeaderUpToTheFirstFieldOfTheBody) {
  typename TypeParam::Tokenizer tokens(tvstring((TypeParam::header + std::string("58=a|34=8|10007=8|")).c_str()), '|');
  typename TypeParam::Header header;
  TypeParam::HeaderParser::parseHeader(&header, tokens);
  typename TypeParam::Tokenizer::TagValuePair pair;
  ASSERT_TRUE(tokens.next(pair));
  EXPECT_EQ(pair.tag, 58);
  SmartPtr<Object> const number(header.getField(TypeParam::number));
  EXPECT_EQ(number->getInt(), 7);
}

TYPED_TEST(TagValue, KeepsOnlyTheHeadersPartOfTheBytes) {
  for (std::string const &end :
       {std::string(), std::string("58=") + std::string(1 << 20, 'x'), std::string("30000=x|10=1|")}) {
    typename TypeParam::Header header;
    {
      std::string const bytes = withSOH(TypeParam::header + end);
      header.parseHeader(bytes.data(), static_cast<int>(bytes.size()));
    }
    EXPECT_EQ(str(header.getHeaderField(header.getFieldName(3))), TypeParam::version);
    EXPECT_EQ(str(header.getHeaderField(header.getFieldName(TypeParam::number))), "7");
  }
  typename TypeParam::Header untouched;
  untouched.parseHeader("8=", -1);
  untouched.parseHeader("58=1\x01", 5);
  EXPECT_TRUE(untouched.isNull(3));
}

TYPED_TEST(TagValue, NamesTheColumnOfAFailureInAHeader) {
  std::string const broken = TypeParam::brokenNumber;
  std::string const cases[][2] = {
      {broken + "35=D|", "[col " + std::to_string(broken.size()) + "] Cannot convert 'x7' to int"},
      {"58|", "[col 3] 'Name or value' can't be empty. Unable to parse tag=value of form 58"},
      {"58=", "[col 3] 'Name or value' can't be empty. Unable to parse tag=value of form 58"},
      {"5x=1|58=1|", "[col 5] Cannot convert '5x' to int"},
      {TypeParam::header + std::string("2147483648=|"), "[col " + std::to_string(std::strlen(TypeParam::header) + 12) +
                                                            "] Integer overflow. Cannot convert '2147483648' to int"}};
  for (auto const &[text, message] : cases) {
    std::string const bytes = withSOH(text);
    typename TypeParam::Header header;
    try {
      TypeParam::HeaderParser::parseHeader(header, bytes.data(), static_cast<int>(bytes.size()));
      ADD_FAILURE() << text;
    } catch (typename TypeParam::HeaderFailure const &failure) {
      EXPECT_EQ(str(failure.getMessage()), message);
      EXPECT_EQ(str(failure.getTrace().getFileName()), std::string(TypeParam::path) + "HeaderParser");
      EXPECT_EQ(words(str(failure.getErrorPhase()), str(failure.getErrorType())), TypeParam::classification);
    }
  }
}

TYPED_TEST(TagValue, ReachesHeaderFieldsByIndexWithoutCoupling) {
  typename TypeParam::Header header;
  int const number = TypeParam::number;
  EXPECT_FALSE(header.isNull(0) || header.isEmpty());
  header.setField(3, StringObject("ab"));
  header.setField(number, IntObject(5));
  EXPECT_TRUE(header.isNull(2));
  StringObject text;
  IntObject value;
  EXPECT_TRUE(header.getField(3, text) && header.getField(header.getFieldName(number), value));
  EXPECT_EQ(words(str(text.getString()), value.getInt()), "ab 5");
  SmartPtr<Object> const clone(header.clone());
  auto &copy = dynamic_cast<typename TypeParam::Header &>(*clone);
  typename TypeParam::Header assigned;
  assigned = header;
  EXPECT_EQ(str(assigned.toXMLString()), str(header.toXMLString()));
  header.setField(number, nullptr);
  EXPECT_THROW(header.setField(number, StringObject("5")), TransformException);
  EXPECT_TRUE(header.isNull(number) && header.getField(number) == nullptr && !header.getField(number, value));
  EXPECT_FAILURE(FieldNullException, header.getFieldCheckNull(number),
                 "Attempt to access field '" + str(header.getFieldName(number)) + "' with NULL value");
  DataObjectSectionImpl section(nullptr, "s", 0, -1);
  header.setParentSection(&section);
  EXPECT_FAILURE(FieldNullException, header.getFieldCheckNull(number),
                 "Attempt to access field 's." + str(header.getFieldName(number)) + "' with NULL value");
  header.setParentSection(nullptr);
  EXPECT_EQ(copy.getFieldCheckNullVal(number)->getInt(), 5);
  EXPECT_EQ(str(header.getHeaderField("Unknown")), "");
  for (int index : {-1, number + 5, INT_MAX})
    for (auto const &access : std::initializer_list<std::function<void()>>{
             [&] { header.getField(index); }, [&] { header.getField(index, text); }, [&] { header.isNull(index); },
             [&] { header.setNull(index); }, [&] { header.setField(index, text); }, [&] { header.getSection(index); },
             [&] { header.getField0(index); }, [&] { header.setField0(index, &text); }})
      EXPECT_EQ(failureOf<FieldNotFoundException>(access).text, "Field index out of bounds");
  EXPECT_THROW(header.getSection(3), FieldTypeMismatchException);
}

struct Leg : Record<"Leg", Field<"Ratio", int>> {};
struct Order : Record<"Order", Field<"Symbol", tvstring>, Section<"Legs", Leg, 1, 2>> {};

template <class Format>
struct Walk : Format::Parser {
  using Base = typename Format::Parser;
  void parse(ExternalObject *, Binary const &, TransformContext &) override {}
  ExternalObject *parse(Binary const &, TransformContext &) override { return nullptr; }
  using Base::assertConstraints, Base::assertNotNull, Base::assertSectionEmpty, Base::assertTagNew, Base::ensureNotNull,
      Base::missingTag;
};

struct FIXWalk : Walk<FIX> {
  using FIXInputParser::throwDuplicateTagException;
};

TEST(FIXInputParser, LetsGeneratedParsersTellADuplicateTag) {
  Order order;
  EXPECT_FAILURE(FIXParsingException, FIXWalk().throwDuplicateTagException(&order, 0, 55),
                 "Duplicate Tag '55[Symbol]'.");
}

TYPED_TEST(TagValue, RaisesTheFailuresOfAWalk) {
  Walk<TypeParam> walk;
  SmartPtr<Order> const order(new Order);
  auto const expect = [](std::string const &text, auto const &call) {
    TestFixture::expectFailure(text, "InputParser", call);
  };
  expect("Tag '55' expected.", [&] { walk.missingTag(55); });
  expect("Tag '55' expected.", [&] { walk.missingTag("", 55); });
  expect("Tag '55[Symbol]' expected.", [&] { walk.assertNotNull(order.get(), 0, 55); });
  expect("Tag '555[Legs]' expected. " +
             failureOf<SectionConstraintException>([&] { order->getSection(1)->assertConstraints(); }).text,
         [&] { walk.assertConstraints(order.get(), 1, 555); });
  expect("Field 'Symbol' cannot be null.", [&] { walk.ensureNotNull("", order.get(), 0); });
  expect("Null value error while parsing a field", [&] { walk.ensureNotNull("", order.get(), 2); });
  expect("Field 'Name' cannot be null.", [&] { walk.ensureNotNull("", tvstring("Name")); });
  walk.assertTagNew(order.get(), 0, 55);
  walk.assertSectionEmpty(order->getSection(1), 555);
  order->set<"Symbol">("ACME");
  order->section<"Legs">().add();
  expect("Duplicate Tag '55[Symbol]'.", [&] { walk.assertTagNew(order.get(), 0, 55); });
  expect("Duplicate section Tag '555'.", [&] { walk.assertSectionEmpty(order->getSection(1), 555); });
  walk.missingTag("x", 55);
  walk.assertNotNull(order.get(), 0, 55);
  walk.assertConstraints(order.get(), 1, 555);
  walk.ensureNotNull("x", order.get(), 2);
  walk.ensureNotNull("x", tvstring("Name"));
}

}  // namespace
}  // namespace tavrone

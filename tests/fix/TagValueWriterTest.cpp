#include <gtest/gtest.h>

#include <algorithm>
#include <limits>

#include "examples/messages/Order.h"
#include "tavrone/fix/FIXOutputWriter.h"
#include "tavrone/siaccanonical/SIACCanonicalOutputWriter.h"
#include "tests/Failure.h"
#include "tests/TagValueText.h"

namespace tavrone {
namespace {

// What generated code does, with everything in reach.
template <class Base>
struct Writer : Base {
  using Base::appendField, Base::requiredFieldMissing;
  void writeHeader(DataObject *, TransformContext &) override {}
  void writeData(DataObject *, TransformContext &) override {}
  void writeTrailer(DataObject *, TransformContext &) override {}
  // The finished message, delimiters as '|'.
  std::string end() {
    std::string shown = str(this->endMessage());
    std::replace(shown.begin(), shown.end(), '\x01', '|');
    return shown;
  }
};

struct FIXWriter : Writer<FIXOutputWriter> {};
struct SIACWriter : Writer<SIACCanonicalOutputWriter> {
  using SIACCanonicalOutputWriter::appendBeginGroup, SIACCanonicalOutputWriter::appendEndGroup,
      SIACCanonicalOutputWriter::appendEndGroupInstance;
};

TEST(FIXOutputWriter, WritesEachKindOfValueAndLeavesEmptyTextsOut) {
  FIXWriter writer;
  writer.setChecksum(false);
  writer.appendField("8", "FIX.4.2");
  writer.appendField("58", "");
  writer.appendField("58", static_cast<char const *>(nullptr));
  writer.appendField("58", tvstring());
  writer.appendField("34", 0);
  writer.appendField("38", -9000000000LL);
  writer.appendField("44", 1.5f);
  writer.appendField("31", 100.25);
  writer.appendField("43", true);
  writer.appendField("54", '1');
  writer.appendField("1", tvstring("a\x01z"));
  EXPECT_EQ(writer.end(), "8=FIX.4.2|9=56|34=0|38=-9000000000|44=1.5|31=100.25|43=true|54=1|1=a|z|");
}

TEST(FIXOutputWriter, PutsLengthAndSumWhereTheStandardWantsThem) {
  FIXWriter writer;
  EXPECT_EQ(writer.end(), "9=0|10=167|");
  writer.initMessage();
  // A well-known logon.
  std::pair<char const *, char const *> const fields[] = {{"8", "FIX.4.2"}, {"35", "A"},   {"49", "SERVER"},
                                                          {"56", "CLIENT"}, {"34", "177"}, {"52", "20090107-18:15:16"},
                                                          {"98", "0"},      {"108", "30"}};
  for (auto const &[tag, value] : fields) writer.appendField(tag, value);
  tvstring const text = writer.endMessage();
  writer.initMessage();  // leaves alone what was handed out
  EXPECT_EQ(str(text),
            withSOH("8=FIX.4.2|9=65|35=A|49=SERVER|56=CLIENT|34=177|52=20090107-18:15:16|98=0|108=30|10=062|"));
}

TEST(FIXOutputWriter, WritesValuesOfAnyLengthWhole) {
  FIXWriter writer;
  writer.setChecksum(false);
  std::string value, body;
  writer.appendField("8", "FIX");
  for (size_t n = 1; n < 60; ++n) {
    value += static_cast<char>('A' + n % 26);
    body += "58=" + value + "|";
    writer.appendField("58", tvstring(value.data(), n));
  }
  for (double const number : {-999999999999999.9, -1e15, 1e300, -std::numeric_limits<double>::infinity()}) {
    body += "44=" + str(doubleToString(number)) + "|";
    writer.appendField("44", number);
  }
  EXPECT_EQ(writer.end(), "8=FIX|9=" + std::to_string(body.size()) + "|" + body);
}

TEST(FIXOutputWriter, SumsBytesOfAnyLengthAsTheirPlainSum) {
  std::string bytes;
  unsigned int sum = 0;
  for (unsigned int n = 0; n < 300; ++n) {
    ASSERT_EQ(FIXOutputWriter::generateCheckSum(bytes.data(), n), static_cast<int>(sum & 255)) << n;
    bytes += static_cast<char>(n * 151 + 128);
    sum += static_cast<unsigned char>(bytes.back());
  }
}

TEST(FIXOutputWriter, CopiesGoOnApart) {
  FIXWriter writer;
  writer.setChecksum(false);
  writer.appendField("8", "FIX");
  FIXWriter copy(writer), assigned;
  assigned = writer;
  writer.appendField("1", 'x');
  EXPECT_EQ(copy.end() + assigned.end() + writer.end(), "8=FIX|9=0|8=FIX|9=0|8=FIX|9=4|1=x|");
}

TEST(TagValueWriter, NamesTheMandatoryFieldThatIsMissing) {
  examples::Order order;
  auto const fix = failureOf<FIXWriterException>([&] { FIXWriter().requiredFieldMissing(&order, 0, 11); });
  std::string const name = str(order.getFieldName(0));
  EXPECT_EQ(fix.text, name + " is a mandatory field. Tag '11[" + name + "]' cannot be null.");
  EXPECT_EQ(fix.source, "cpp/fix/FIXOutputWriter");
  auto const siac = failureOf<SIACCanonicalWriterException>([&] { SIACWriter().requiredFieldMissing(&order, 0, 11); });
  EXPECT_EQ(siac.text, fix.text);
  EXPECT_EQ(siac.source, "cpp/siaccanonical/SIACCanonicalOutputWriter");
}

TEST(SIACCanonicalOutputWriter, CountsItsIndicatorAndBracketsGroups) {
  SIACWriter writer;
  writer.setChecksum(false);
  writer.appendField("10001", "Canonical1.0");
  writer.appendBeginGroup("26100");
  writer.appendField("55", "IBM");
  writer.appendEndGroupInstance();
  writer.appendEndGroup();
  EXPECT_EQ(writer.end(), "10001=Canonical1.0|10002=40|25001=33|26100={|55=IBM|26999= |26000=}|");
  writer.initMessage();
  writer.setChecksum(true);
  writer.appendField("10001", "C");
  EXPECT_EQ(writer.end(), "10001=C|10002=9|25001=32|10=120|");
}

}  // namespace
}  // namespace tavrone

#include <gtest/gtest.h>

#include <algorithm>

#include "examples/messages/NewOrderSingleParser.h"
#include "tests/Failure.h"

namespace examples {
namespace {

Binary message(std::string body) {
  body = "8=FIX.4.4|35=D|34=7|" + body;
  std::replace(body.begin(), body.end(), '|', '\x01');
  return Binary(body.data(), body.size());
}

TEST(NewOrderSingleParser, FillsHeaderGroupsAndDataAndFillsThemAgain) {
  NewOrderSingleParser parser;
  TransformContext context;
  std::string const required = "11=ID|55=IBM|54=1|60=20260105-09:30:00|40=2|";
  SmartPtr<ExternalObject> const object(
      parser.parse(message(required + "453=2|448=P|452=3|448=Q|354=3|355=a|b|44=12.5|10=000|"), context));
  auto &order = dynamic_cast<NewOrderSingle &>(*object->getData());
  EXPECT_EQ(dynamic_cast<FIXHeader &>(*object->getHeader()).getMsgSeqNum(), 7);
  EXPECT_EQ(str(order.get<"EncodedText">()),
            "a\x01"
            "b");
  EXPECT_EQ(order.section<"PartyIDs">()[0].get<"PartyRole">(), 3);
  EXPECT_EQ(order.section<"PartyIDs">()[1].get<"PartyID">(), "Q");
  parser.parse(object.get(), message(required + "38=1|10=000|"), context);
  EXPECT_EQ(object->getData(), &order);
  EXPECT_TRUE(order.isNull<"Price">() && order.section<"PartyIDs">().isEmpty() && !order.isNull<"OrderQty">());

  std::string const cases[][2] = {{"11=ID|11=ID|", "Duplicate Tag '11[ClOrdID]'."},
                                  {"453=2|448=P|55=IBM|", "Tag '453' counts 2 elements, found 1."},
                                  {"11=ID|77=x|", "Unexpected tag 77"},
                                  {"11=ID|10=0|", "Tag '55[Symbol]' expected."},
                                  {"354=3|11=abc|", "Tag '355' expected."},
                                  {required, "Tag '10' expected."}};
  for (auto const &[body, text] : cases)
    EXPECT_EQ(failureOf<FIXParsingException>([&] { parser.parse(object.get(), message(body), context); }).text, text);
}

}  // namespace
}  // namespace examples

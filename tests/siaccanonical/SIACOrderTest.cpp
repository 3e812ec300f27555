#include "examples/messages/SIACOrder.h"

#include <gtest/gtest.h>

#include "tests/Failure.h"
#include "tests/TagValueText.h"

namespace examples {
namespace {

std::string const FIELDS = "10003=ORD|10007=7|11001=AB-1|11002=F|11003=B|11004=300|11006=20240315-14:30:00|";

TEST(SIACOrder, WritesWhatWasReadWithItsLegs) {
  SmartPtr<SIACOrderMessage> const message(new SIACOrderMessage);
  TransformContext context;
  std::string const legs = "11020={|11021=F|11022=1|11023=12.125|26999= |11021=KO|11022=-2|11023=59.5|26999= |26000=}|";
  Binary const wire = bytes("10001=Canonical|10002=178|25001=32|" + FIELDS + legs + "10=226|");
  SmartPtr<DataObject> const object = message->parse(wire, context);
  EXPECT_TRUE(message->validate2("Integrity", object, context).exceptions.empty());
  auto &order = dynamic_cast<SIACOrder &>(*dynamic_cast<ExternalObject &>(*object).getData());
  EXPECT_EQ(order.section<"CFT_Legs">()[1].get<"CFT_LegRatio">(), -2);
  EXPECT_EQ(str(message->serialize(object, context)), str(wire));
}

TEST(SIACOrderParser, TellsGroupsThatAreNotBracketed) {
  SIACOrderParser parser;
  TransformContext context;
  std::string const start = "10001=Canonical|10002=1|25001=33|" + FIELDS;
  std::string const cases[][2] = {{"", ""},
                                  {"11020={|26000=}|", ""},
                                  {"11020=2|", "Tag '11020' opens no group."},
                                  {"11020={|11021=F|", "Tag '26000' expected."},
                                  {"11020={|26999= |", "Unexpected tag 26999 in the group of tag '11020'."},
                                  {"11020={|11021=F|26000=}|", "Unexpected tag 26000 in the group of tag '11020'."},
                                  {"11020={|11021=F|26999= |26000=}|", "Tag '11022[CFT_LegRatio]' expected."},
                                  {"26000=}|", "Unexpected tag 26000"}};
  for (auto const &[rest, text] : cases) {
    auto const parse = [&, &body = rest] { SmartPtr<ExternalObject>(parser.parse(bytes(start + body), context)); };
    EXPECT_EQ(failureOf<SIACCanonicalParsingException>(parse).text, text) << rest;
  }
  auto const parse = [&] { parser.parse(bytes("10001=Canonical|25001=32|" + FIELDS), context); };
  EXPECT_EQ(failureOf<SIACCanonicalParsingException>(parse).text, "Tag '10' expected.");
}

}  // namespace
}  // namespace examples

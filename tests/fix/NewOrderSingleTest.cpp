#include <gtest/gtest.h>

#include "examples/messages/NewOrderSingleMessage.h"
#include "tests/Failure.h"
#include "tests/TagValueText.h"

namespace examples {
namespace {

Binary message(std::string const &body) {
  return bytes("8=FIX.4.4|35=D|34=7|" + body);
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
    EXPECT_EQ(
        failureOf<FIXParsingException>([&, &rest = body] { parser.parse(object.get(), message(rest), context); }).text,
        text);
}

// The codes of what a validator reports for the bytes.
std::string codesOf(NewOrderSingleMessage &message, char const *validator, std::string const &text) {
  TransformContext context;
  SmartPtr<DataObject> const object = message.parse(Binary(text.data(), text.size()), context);
  std::string codes;
  for (ExceptionDataObject *failure : message.validate2(validator, object, context).exceptions)
    codes += str(failure->getContextProperty(ExceptionObject::INTERNAL_CODE)) + ' ';
  return codes;
}

std::string const ORDER =
    "35=D|49=A|56=B|34=7|52=20260105-09:30:00.125|11=ID|453=2|448=P|447=D|452=3|448=Q|1=ACC|78=1|79=X|80=12.5|21=1|"
    "18=G|55=IBM|54=1|60=20260105-09:30:00|38=100|40=2|44=191.5|15=USD|59=0|58=T|354=3|355=a|b|";

TEST(NewOrderSingleWriter, WritesWhatWasRead) {
  SmartPtr<NewOrderSingleMessage> const message(new NewOrderSingleMessage);
  TransformContext context;
  std::string const text = sealed(ORDER);
  SmartPtr<DataObject> const object = message->parse(Binary(text.data(), text.size()), context);
  EXPECT_EQ(str(message->serialize(object, context)), text);

  auto &order = dynamic_cast<NewOrderSingle &>(*dynamic_cast<ExternalObject &>(*object).getData());
  order.set<"Text">(
      "a\x01"
      "44=1");
  EXPECT_EQ(failureOf<FIXWriterException>([&] { message->serialize(object, context); }).text,
            "Field 'Text' holds a delimiter");
  order.setNull<"Side">();
  EXPECT_EQ(failureOf<FIXWriterException>([&] { message->serialize(object, context); }).text,
            "Side is a mandatory field. Tag '54[Side]' cannot be null.");
}

TEST(NewOrderSingleMessage, CatchesBytesThatAreNotThoseSent) {
  SmartPtr<NewOrderSingleMessage> const message(new NewOrderSingleMessage);
  std::string const text = sealed(ORDER);
  auto const integrity = [&](std::string const &bytes) { return codesOf(*message, "Integrity", bytes); };
  auto const with = [&](char const *from, char const *to) {
    return std::string(text).replace(text.find(from), std::string(from).size(), to);
  };
  EXPECT_EQ(integrity(text), "");
  EXPECT_EQ(integrity(with("38=100", "38=900")), "FIX-02 ");
  EXPECT_EQ(integrity(with("38=100", "38=1000")), "FIX-01 FIX-02 ");
  EXPECT_EQ(integrity(with("38=100", "38=001")), "");  // the sum does not see what changes places
  EXPECT_EQ(integrity(text.substr(0, text.size() - 1)), "FIX-02 ");
  EXPECT_EQ(integrity(with("9=", "97=")), "FIX-01 FIX-02 ");
}

TEST(NewOrderSingleMessage, AsksForThePricesOfItsType) {
  SmartPtr<NewOrderSingleMessage> const message(new NewOrderSingleMessage);
  std::string const cases[][2] = {{"54=1|38=1|40=1|", ""},
                                  {"54=1|38=1|40=1|44=5|", "NOS-04 "},
                                  {"54=2|38=1|40=2|", "NOS-04 "},
                                  {"54=2|38=1|40=4|44=5|", "NOS-05 "},
                                  {"54=9|38=1.5|40=9|", "NOS-01 NOS-02 NOS-03 "}};
  for (auto const &[body, codes] : cases)
    EXPECT_EQ(codesOf(*message, "Default", sealed("35=D|34=1|11=A|55=B|60=20260105-09:30:00|" + body)), codes) << body;
}

}  // namespace
}  // namespace examples

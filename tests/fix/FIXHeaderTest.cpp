#include <gtest/gtest.h>

#include "tavrone/tavrone.h"
#include "tests/Failure.h"
#include "tests/TagValueText.h"

namespace tavrone {
namespace {

TEST(FIXHeader, SplitsBeginStringAndCouplesTypes) {
  FIXHeader header;
  header.setBeginString("FIX.4.2");
  header.setMsgType("D");
  EXPECT_EQ(header.stringform(), "MessageFormat = FIX, Message Version = 4.2, Message Type = D");
  EXPECT_FAILURE(FIXParsingException, header.setBeginString("FIX"), "Illegal BeginString 'FIX'");
  EXPECT_EQ(header.getBeginString(), "FIX.4.2");
  header.setField("BeginString", StringObject("FIX"));
  EXPECT_EQ(header.getMessageVersion(), "4.2");
  header.reset();
  EXPECT_EQ(header.stringform(), "MessageFormat = FIX, Message Version = , Message Type = ");
}

TEST(FIXHeader, IsMatchedByItsFieldsAndTheirFlags) {
  FIXHeader header;
  header.setMsgType("D");
  MessageConfiguration orders;
  orders.setMessageFormat("FIX");
  orders.setMessageType("D");
  EXPECT_TRUE(orders.isMatch(&header));
  header.setNull("MessageType");
  EXPECT_EQ(header.getMessageType(), "D");
  EXPECT_FALSE(orders.isMatch(&header));
}

TEST(FIXHeader, KeepsEachParsedFieldButSendingTime) {
  FIXHeader header;
  {
    std::string const text = withSOH(
        "8=FIX.4.4|9=12|35=8|35=D|49=S|56=T|115=O|128=V|34=9|50=s|57=t|52=20260105-09:30:15|43=Y|370=x|60=x|50=no|");
    header.parseHeader(text.data(), static_cast<int>(text.size()));
  }
  std::string shown;
  for (int i = 0; i < header.getFieldCount(); ++i) {
    SmartPtr<Object> const value(header.getField(i));
    shown += str(header.getFieldName(i)) + '=' + (value.isNull() ? "null" : str(value->toString())) + ' ';
  }
  EXPECT_EQ(shown,
            "MessageFormat=FIX MessageType=D MessageVersion=4.4 BeginString=FIX.4.4 BodyLength=12 MsgType=D "
            "SenderCompID=S TargetCompID=T OnBehalfOfCompID=O DeliverToCompID=V MsgSeqNum=9 SenderSubID=s "
            "TargetSubID=t SendingTime=null ");
}

TEST(FIXHeader, ReadsATextOfItsOwn) {
  FIXHeader header;
  header.setSenderCompID(
      tvstring("49=S\x01"
               "56=T\x01"
               "50=s\x01",
               15));
  header.parseHeader(header.getSenderCompID().data(), 15);
  EXPECT_EQ(header.getSenderCompID() + header.getTargetCompID() + header.getSenderSubID(), "STs");
}

TEST(FIXHeader, OwnsWhatItReadBeforeAFailure) {
  FIXHeader header;
  {
    std::string const text = withSOH("8=FIX.4.4|35=D|34=x|58=text|");
    EXPECT_FAILURE(TransformException, header.parseHeader(text.data(), static_cast<int>(text.size())),
                   "[col 20] Cannot convert 'x' to int");
  }
  EXPECT_EQ(header.stringform(), "MessageFormat = FIX, Message Version = 4.4, Message Type = D");
}

TEST(TagValueIdentifier, TheDefaultServiceKnowsBothFormatsByTheirFirstBytes) {
  // The type is null for a message that nobody knows.
  std::pair<char const *, char const *> const cases[] = {{"8=FIX.4.2|9=5|35=D|10=000|", "D"},
                                                         {"8=FIX.|", ""},
                                                         {"8=FI", nullptr},
                                                         {"9=FIX.4.2|", nullptr},
                                                         {"10001=Canonical1.0|10003=N|55=X|", ""},
                                                         {"10001=Canonica", nullptr},
                                                         {"", nullptr}};
  for (auto const &[message, type] : cases) {
    ByteArrayInputSource input(bytes(message));
    SmartPtr<DataObject> const header(MessageIdentificationService::getDefault()->identifyMessage(input));
    ASSERT_EQ(header.isNull(), type == nullptr) << message;
    if (type != nullptr) {
      EXPECT_EQ(dynamic_cast<MessageHeader &>(*header).getMessageType(), type);
    }
  }
}

TEST(TagValueIdentifier, NamesItsFormatAndLetsABadHeaderFail) {
  EXPECT_EQ(FIXMessageIdentifier::getMessageFormat(), "FIX");
  EXPECT_EQ(SIACCanonicalMessageIdentifier::getMessageFormat(), "Canonical");
  ByteArrayInputSource number(bytes("8=FIX.4.2|9=five|")), tag(bytes("8=FIX.4.2|nine=5|"));
  Failure failure = failureOf<TransformException>([&] { FIXMessageIdentifier().identifyMessage(number); });
  EXPECT_EQ(failure.source + ':' + failure.text, "cpp/fix/FIXHeaderParser:[col 17] Cannot convert 'five' to int");
  failure = failureOf<FIXParsingException>([&] { FIXMessageIdentifier().identifyMessage(tag); });
  EXPECT_EQ(failure.source + ':' + failure.text, "cpp/fix/FIXHeaderParser:[col 17] Cannot convert 'nine' to int");
}

}  // namespace
}  // namespace tavrone

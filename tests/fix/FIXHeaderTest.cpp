#include "tavrone/fix/FIXHeader.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <iterator>

#include "tavrone/core/Wrappers.h"
#include "tavrone/routing/MessageConfiguration.h"
#include "tests/Failure.h"

namespace tavrone {
namespace {

TEST(FIXHeader, SplitsBeginStringAndCouplesTypes) {
  FIXHeader header;
  header.setBeginString("FIX.4.2");
  header.setMsgType("D");
  EXPECT_EQ(header.stringform(), "MessageFormat = FIX, Message Version = 4.2, Message Type = D");
  EXPECT_EQ(failureOf<FIXParsingException>([&] { header.setBeginString("FIX"); }).text, "Illegal BeginString 'FIX'");
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
  char bytes[] =
      "8=FIX.4.4\x01"
      "9=12\x01"
      "35=8\x01"
      "35=D\x01"
      "49=S\x01"
      "56=T\x01"
      "115=O\x01"
      "128=V\x01"
      "34=9\x01"
      "50=s\x01"
      "57=t\x01"
      "52=20260105-09:30:15\x01"
      "43=Y\x01"
      "370=x\x01"
      "60=x\x01"
      "50=no\x01";
  FIXHeader header;
  header.parseHeader(bytes, sizeof bytes - 1);
  std::fill(std::begin(bytes), std::end(bytes), '#');
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

TEST(FIXHeader, OwnsWhatItReadBeforeAFailure) {
  char bytes[] =
      "8=FIX.4.4\x01"
      "35=D\x01"
      "34=x\x01"
      "58=text\x01";
  FIXHeader header;
  EXPECT_EQ(failureOf<TransformException>([&] { header.parseHeader(bytes, sizeof bytes - 1); }).text,
            "[col 20] Cannot convert 'x' to int");
  std::fill(std::begin(bytes), std::end(bytes), '#');
  EXPECT_EQ(header.stringform(), "MessageFormat = FIX, Message Version = 4.4, Message Type = D");
}

}  // namespace
}  // namespace tavrone

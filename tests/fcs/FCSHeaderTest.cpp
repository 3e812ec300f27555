#include "tavrone/fcs/FCSHeader.h"

#include <gtest/gtest.h>

#include "tavrone/tavrone.h"
#include "tests/Text.h"

namespace tavrone {
namespace {

TEST(FCSMessageIdentifier, IsKnownByNameAndIdentifiesNothing) {
  SmartPtr<Object> const made(UserClassManager::createInstance("FCSMessageIdentifier"));
  auto &identifier = dynamic_cast<FCSMessageIdentifier &>(*made);
  ByteArrayInputSource input(tvstring("BUY\nOL 1\n"));
  EXPECT_EQ(identifier.identifyMessage(input), nullptr);
  EXPECT_TRUE(identifier.getMessageFormat() == "FCS" && identifier.isMatch("", 0) && identifier.checkFCS("x", 1));
}

TEST(FCSHeader, IsARecordThatRoutingReads) {
  SmartPtr<FCSHeader> const header(new FCSHeader);
  SmartPtr<DataObject> const copy(checkedCast<DataObject>(header->clone()));
  EXPECT_EQ(header->stringform(), "MessageFormat = FCS, Message Version = , Message Type = ");
  EXPECT_EQ(header->getHeaderField("MessageFormat") + header->getHeaderField("Other"), "FCS");
  MessageConfiguration configuration;
  configuration.setMessageFormat("FCS");
  EXPECT_TRUE(configuration.isMatch(header.get()));
  header->setNull(0);
  EXPECT_EQ(header->getHeaderField("MessageFormat") + header->getMessageFormat(), "FCS");
  EXPECT_FALSE(configuration.isMatch(header.get())) << "routing reads the field";
  EXPECT_EQ(copy->getMetaInfo()->getName() + str(copy->toXMLStringImpl(0)).c_str(),
            "FCSHeader<MessageFormat>FCS</MessageFormat>\n");
}

TEST(FCSFunctions, AppendTheExclusiveOrOfAllWords) {
  short words[] = {0x0102, 0x1020, 0x0F0F};
  FCSFunctions::store_checksum(words, 3);
  EXPECT_EQ(words[2], 0x1122);
  EXPECT_EQ(FCSFunctions::storePSSChecksum(Binary()).toHexString(), "0000");
  EXPECT_EQ(FCSFunctions::storePSSChecksum(Binary("ab", 2), Binary("c", 1)).toHexString(), "616263000262");
  EXPECT_EQ(FCSFunctions::storePSSChecksum(Binary(70001, 'x')).sub(70000, 4).toHexString(), "78007800");
}

}  // namespace
}  // namespace tavrone

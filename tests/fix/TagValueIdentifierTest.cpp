#include <gtest/gtest.h>

#include "tavrone/fix/FIXMessageIdentifier.h"
#include "tavrone/pipeline/InputSources.h"
#include "tavrone/routing/MessageIdentificationService.h"
#include "tavrone/siaccanonical/SIACCanonicalMessageIdentifier.h"
#include "tests/Failure.h"

namespace tavrone {
namespace {

TEST(TagValueIdentifier, TheDefaultServiceKnowsBothFormatsByTheirFirstBytes) {
  struct {
    tvstring message;
    char const *type;  // null for a message that nobody knows
  } const cases[] = {{"8=FIX.4.2\x01"
                      "9=5\x01"
                      "35=D\x01"
                      "10=000\x01",
                      "D"},
                     {"8=FIX.\x01", ""},
                     {"8=FI", nullptr},
                     {"9=FIX.4.2\x01", nullptr},
                     {"10001=Canonical1.0\x01"
                      "10003=N\x01"
                      "55=X\x01",
                      ""},
                     {"10001=Canonica", nullptr},
                     {"", nullptr}};
  for (auto const &c : cases) {
    ByteArrayInputSource input(c.message);
    SmartPtr<DataObject> const header(MessageIdentificationService::getDefault()->identifyMessage(input));
    ASSERT_EQ(header.isNull(), c.type == nullptr) << c.message.c_str();
    if (!header.isNull()) {
      EXPECT_EQ(dynamic_cast<MessageHeader &>(*header).getMessageType(), c.type);
    }
  }
}

TEST(TagValueIdentifier, NamesItsFormatAndLetsABadHeaderFail) {
  EXPECT_EQ(FIXMessageIdentifier::getMessageFormat(), "FIX");
  EXPECT_EQ(SIACCanonicalMessageIdentifier::getMessageFormat(), "Canonical");
  ByteArrayInputSource number(
      tvstring("8=FIX.4.2\x01"
               "9=five\x01"));
  Failure failure = failureOf<TransformException>([&] { FIXMessageIdentifier().identifyMessage(number); });
  EXPECT_EQ(failure.source + ':' + failure.text, "cpp/fix/FIXHeaderParser:[col 17] Cannot convert 'five' to int");
  ByteArrayInputSource tag(
      tvstring("8=FIX.4.2\x01"
               "nine=5\x01"));
  failure = failureOf<FIXParsingException>([&] { FIXMessageIdentifier().identifyMessage(tag); });
  EXPECT_EQ(failure.source + ':' + failure.text, "cpp/fix/FIXHeaderParser:[col 17] Cannot convert 'nine' to int");
}

}  // namespace
}  // namespace tavrone

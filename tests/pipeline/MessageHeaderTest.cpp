#include "tavrone/pipeline/MessageHeader.h"

#include <gtest/gtest.h>

#include "tests/Cases.h"
#include "tests/routing/Routing.h"

namespace tavrone {
namespace {

TEST(MessageHeaderAdapter, ReadsMissingAndNullFieldsAsEmpty) {
  struct Broken : TestHeader {
    using TestHeader::TestHeader;
    Object *getField(tvstring const &) const override { raise<FieldTypeMismatchException>("broken", "test"); }
  };
  SmartPtr<DataObject> const header = new TestHeader({{"MessageVersion", "4.4"}, {"Null", "null"}, {"Desk", "7"}});
  MessageHeaderAdapter adapter(header.get(), false);
  EXPECT_EQ(adapter.stringform(), "MessageFormat = , Message Version = 4.4, Message Type = ");
  EXPECT_EQ(adapter.getHeaderField("Desk"), "7");
  EXPECT_EQ(adapter.getHeaderField("Null"), "");
  MessageHeaderAdapter broken(new Broken(Properties()), true);
  EXPECT_THROW(broken.getHeaderField("Desk"), FieldTypeMismatchException);
}

TEST(MessageHeaderAdapter, OwnsItsObjectOnlyIfToldSo) {
  SmartPtr<DataObject> const held = new TestHeader(Properties());
  { MessageHeaderAdapter const borrowing(held.get(), false); }
  { MessageHeaderAdapter const owning(new TestHeader(Properties()), true); }
  EXPECT_EQ(words(TestHeader::alive, held->getRefCount()), "1 1");
}

}  // namespace
}  // namespace tavrone

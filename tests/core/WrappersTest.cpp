#include "tavrone/core/Wrappers.h"

#include <gtest/gtest.h>

namespace tavrone {
namespace {

TEST(Wrappers, NumbersTruncateAndNarrow) {
  EXPECT_EQ(DoubleObject(2.9).getInt(), 2);
  EXPECT_EQ(LongObject(0x100000005LL).getInt(), 5);
}

}  // namespace
}  // namespace tavrone

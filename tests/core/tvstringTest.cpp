#include "tavrone/core/tvstring.h"

#include <gtest/gtest.h>

namespace tavrone {
namespace {

TEST(tvstring, ViewsShareTheArrayAndTerminateInOneOfTheirOwn) {
  tvstring const whole("abcdef");
  tvstring const view = whole.substr(1, 3);
  EXPECT_EQ(view.data(), whole.data() + 1);
  EXPECT_STREQ(view.c_str(), "bcd");
  EXPECT_NE(view.data(), whole.data() + 1);
  EXPECT_STREQ(whole.c_str(), "abcdef");
}

}  // namespace
}  // namespace tavrone

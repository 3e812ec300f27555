#include "tavrone/formula/TextFunctions.h"

#include <gtest/gtest.h>

#include <functional>

#include "tests/Failure.h"
#include "tests/core/AllocationCount.h"

// What the examples of docs/FORMULAS.md can't show; they are tests, too.

namespace tavrone {
namespace {

TEST(TextFunctions, AllocatesForNewTextsOnly) {
  tvstring const text("  The quick brown fox jumped.   "), fox("fox"), cat("tomcat");
  auto const f = [](auto work) { return std::function<tvstring()>(work); };
  std::pair<int, std::function<tvstring()>> const cases[] = {
      {0, f([&] { return TextFunctions::trim(text); })},
      {0, f([&] { return TextFunctions::left(text, 7); })},
      {0, f([&] { return TextFunctions::mid(text, 7, 9); })},
      {0, f([&] { return TextFunctions::right(text, 7); })},
      {0, f([&] { return TextFunctions::leftStr(text, fox); })},
      {0, f([&] { return TextFunctions::replace(text, cat, fox); })},
      {0, f([&] { return TextFunctions::deleteCharAt(text, 99); })},
      {0, f([&] { return TextFunctions::lpad(text, '*', 7); })},
      {1, f([&] { return TextFunctions::upper(text); })},
      {1, f([&] { return TextFunctions::lower(text); })},
      {1, f([&] { return TextFunctions::replace(text, fox, cat); })},
      {1, f([&] { return TextFunctions::replace(text, ' ', cat); })},
      {1, f([&] { return TextFunctions::insert(text, 7, 1234.5); })},
      {1, f([&] { return TextFunctions::rpad(text, '*', 99); })},
      {1, f([&] { return TextFunctions::repeat(fox, 99); })},
  };
  for (auto const &[expected, call] : cases) {
    AllocationCount const count;
    tvstring const result = call();
    if (expected == 1) result.c_str();
    EXPECT_EQ(count.soFar(), expected) << result.c_str();
  }
}

TEST(TextFunctions, NeverMeasuresAViewByItsTerminator) {
  tvstring const order = tvstring("side=Buy;price=412.35").substr(5, 3);
  EXPECT_EQ(TextFunctions::upper(order) + TextFunctions::reverse(order) + TextFunctions::repeat(order, 2),
            "BUYyuBBuyBuy");
  EXPECT_TRUE(TextFunctions::endsWith(order, "y") && TextFunctions::findFirst(order, '4') == -1);
  EXPECT_EQ(TextFunctions::trim(tvstring("\0 a\0", 4)), "a");
}

TEST(TextFunctions, RefusesTextsThatNoArrayHolds) {
  tvstring const text(1 << 16, 'x');
  EXPECT_THROW(TextFunctions::repeat(text, 1 << 30), std::bad_array_new_length);
  EXPECT_THROW(TextFunctions::replace(text, 'x', text), std::bad_array_new_length);
}

TEST(TextFunctions, CharAtSaysWhereItFailed) {
  Failure const failure = failureOf<TransformRuntimeException>([] { TextFunctions::charAt("", 0); });
  EXPECT_EQ(failure.source, "cpp/formula/TextFunctions");
}

}  // namespace
}  // namespace tavrone

#include "tavrone/core/BigDecimal.h"

#include <gtest/gtest.h>

#include <climits>
#include <type_traits>

#include "tests/Failure.h"

namespace tavrone {
namespace {

// Both forms of the numbers' texts, which are alike.
template <class Number>
std::string textsOf(std::initializer_list<Number> numbers) {
  std::string all;
  for (Number const &number : numbers) {
    char text[64];
    number.toString(text);
    EXPECT_EQ(number.toString(), text);
    all += (all.empty() ? "" : " ") + std::string(text);
  }
  return all;
}

TEST(BigDecimal, TextHasEveryDigitAndNoExponent) {
  EXPECT_EQ(textsOf<BigDecimal>({{},
                                 BigDecimal(123.45),
                                 BigDecimal(0.1F),
                                 BigDecimal(-5),
                                 BigDecimal(LLONG_MIN),
                                 BigDecimal(1000000000000000000LL),
                                 BigDecimal("1500.00"),
                                 BigDecimal("1.5E-7"),
                                 BigDecimal(BigInteger("12")),
                                 BigDecimal(tvstring("price=412.35;").substr(6, 6))}),
            "0 123.45 0.100000001490116 -5 -9223372036854775808 1000000000000000000 1500 0.00000015 12 412.35");
}

TEST(BigDecimal, ComputesInItsOwnType) {
  BigDecimal const price("412.35");
  EXPECT_EQ((price * 1500).toString(), "618525");
  EXPECT_EQ((-price + 2.5 - BigInteger(1)).abs().toString(), "410.85");
  EXPECT_EQ((price / 8).toString(), "51.54375");
  EXPECT_EQ(price.divide(7, 3).toString(), "58.9");
  EXPECT_EQ(price.rem(100).toString(), "12.35");
  EXPECT_EQ(price.roundDecimals(1).toString(), "412.4");
  static_assert(std::is_same_v<decltype(price == price), bool> && std::is_same_v<decltype(price.neg()), BigDecimal>);
  static_assert(std::is_nothrow_destructible_v<BigDecimal> && std::is_nothrow_move_constructible_v<BigDecimal> &&
                std::is_nothrow_move_assignable_v<BigInteger> && sizeof(BigInteger) == sizeof(void *));
}

TEST(BigDecimal, StandsOnEitherSideOfWhatBecomesOne) {
  BigDecimal const price("412.35");
  BigInteger const whole(412);
  EXPECT_TRUE(whole < price && whole <= price && price > whole && whole != price && whole == BigDecimal(412));
  EXPECT_TRUE(price > 412L && price >= "412.35" && price < 412.36 && "412.4" > price && tvstring("412.350") == price);
  EXPECT_TRUE(price == price && price <= price && !(price < price) && whole < 413 && 411 < whole);
  EXPECT_EQ((whole + price).toString() + " " + (whole - price).toString(), "824.35 -0.35");
  EXPECT_EQ((2 * price).toString() + " " + (whole / BigDecimal(8)).toString(), "824.7 51.5");
}

TEST(BigDecimal, ToLongFailsAsTheNumberTextDoes) {
  EXPECT_FAILURE(TransformException, BigDecimal("9223372036854775808.5").toLong(),
                 "Long overflow. Cannot convert '9223372036854775808' to long");
}

TEST(BigInteger, IsAlwaysWhole) {
  EXPECT_EQ(textsOf<BigInteger>({{},
                                 BigInteger(-5000000000LL),
                                 BigInteger(-1e20),
                                 BigInteger("12.99"),
                                 BigInteger(tvstring("-0.5")),
                                 BigInteger(BigDecimal("-12.99")),
                                 BigInteger("1E20"),
                                 BigInteger(-7) / 2,
                                 BigInteger(-7).rem(2),
                                 BigInteger(-7).abs() * 3,
                                 ++BigInteger(9)}),
            "0 -5000000000 -100000000000000000000 12 0 -12 100000000000000000000 -3 -1 21 10");
}

}  // namespace
}  // namespace tavrone

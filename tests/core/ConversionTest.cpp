#include "tavrone/core/Conversion.h"

#include <gtest/gtest.h>

#include <bit>
#include <climits>
#include <cmath>
#include <limits>
#include <random>

#include "tests/Cases.h"
#include "tests/Failure.h"
#include "tests/core/CommaLocale.h"
#include "tests/core/NumberTextReference.h"

namespace tavrone {
namespace {

TEST(Conversion, ReadsIntegersAndNamesWhatItCannotRead) {
  auto const asInt = [](auto &in) { return readingOf(t_atoi, in.str()); };
  auto const asLong = [](auto &in) { return readingOf(t_atol, in.str()); };
  // "9999999999" wraps past the sign test unnoticed. After the tenth digit the wrapped value is positive: a further
  // digit overflows, a letter is a bad character.
  expectEach(
      {"- -> 0", "+7 -> 7", "00000000000000000000007 -> 7", "-2147483648 -> -2147483648", "9999999999 -> 1410065407",
       " -> Cannot convert '' to int", "12a -> Cannot convert '12a' to int", "--1 -> Cannot convert '--1' to int",
       "2147483648 -> Integer overflow. Cannot convert '2147483648' to int",
       "30000000000x -> Integer overflow. Cannot convert '30000000000x' to int",
       "3000000000x -> Cannot convert '3000000000x' to int"},
      asInt);
  expectEach({"- -> 0", "+7 -> 7", "00000000000000000000007 -> 7", "-9223372036854775808 -> -9223372036854775808",
              "20000000000000000000 -> 1553255926290448384",
              "9223372036854775808 -> Long overflow. Cannot convert '9223372036854775808' to long",
              " -> Cannot convert '' to long", "12a -> Cannot convert '12a' to long",
              "30000000000x -> Cannot convert '30000000000x' to long"},
             asLong);
  EXPECT_EQ(failureOf<TransformException>([] { t_atoi(nullptr, nullptr); }).source, "cpp/Conversion");
}

// Every count of digits, with each kind of character that is just no digit.
TEST(Conversion, ReadsTextsOfEveryLengthByTheRules) {
  std::minstd_rand random(1);
  for (size_t n = 0; n <= 24; ++n)
    for (int round = 0; round < 200; ++round) {
      std::string text(n, '0');
      for (char &c : text) c = static_cast<char>('0' + random() % 10);
      if (round % 3 == 0) text.insert(0, 1, round % 2 == 0 ? '-' : '+');
      EXPECT_TRUE(readsByTheRules(text)) << text;
      if (n != 0) text[random() % n] = "/:x \xB2"[round % 5];
      EXPECT_TRUE(readsByTheRules(text)) << text;
    }
}

TEST(Conversion, WritesIntegersOfEveryLengthAndNoByteMore) {
  auto const check = [](auto value, auto write) {
    std::string const expected = std::to_string(value);
    char text[32];
    std::memset(text, '#', sizeof text);
    write(value, text);
    EXPECT_EQ(std::string(text, expected.size() + 2), expected + std::string("\0#", 2));
  };
  auto const checkBoth = [&](long long value) {
    check(value, t_ltoa);
    if (static_cast<int>(value) == value) check(static_cast<int>(value), t_itoa);
  };
  for (long long value = -130; value <= 10100; ++value) checkBoth(value);
  for (long long power = 10; power < 1000000000000000000; power *= 10)
    for (long long value : {power - 1, power, power + 1, 9 * power + 7}) {
      checkBoth(value);
      checkBoth(-value);
    }
  for (long long bound : {LLONG_MIN, LLONG_MAX, 1LL * INT_MIN, 1LL * INT_MAX}) checkBoth(bound);
}

std::string written(double value) {
  char text[352];
  return doubleToString(value, text);
}

TEST(Conversion, WritesDoublesAsTheCLibraryDoesLessTrailingZeros) {
  double const infinity = std::numeric_limits<double>::infinity();
  double const nan = std::numeric_limits<double>::quiet_NaN();
  EXPECT_EQ(written(100), "100.0");
  EXPECT_EQ(written(1.5), "1.5");
  EXPECT_EQ(written(1e20), "100000000000000000000.0");
  EXPECT_EQ(written(-nan), "-nan");
  for (double value : {0.0, -0.0, -1e-10, 0.999999999, 99999999.999999999, 0x1p-9, 3 * 0x1p-9, 5e-324, 0x1p53, 0x1p63,
                       0x1p64, -0x1p64, 1.7976931348623157e308, infinity, -infinity, nan})
    EXPECT_EQ(written(value), referenceDoubleText(value));

  std::mt19937_64 random(1);
  for (int i = 0; i < 20000; ++i) {
    uint64_t const bits = random();
    double const price = static_cast<double>(bits % 100000000000) / 1e8;
    double const tie = std::ldexp(static_cast<double>(bits >> 11), -static_cast<int>(bits % 100));
    for (double value : {std::bit_cast<double>(bits), price, tie})
      ASSERT_EQ(written(value), referenceDoubleText(value));
  }
}

TEST(Conversion, OffersEachFormOfEveryType) {
  char text[64];
  tvstring out("before");
  EXPECT_STREQ(intToString(-12, text), "-12");
  EXPECT_STREQ(charToString('x', text), "x");
  EXPECT_STREQ(boolToString(false, text), "false");
  EXPECT_STREQ(floatToString(-std::numeric_limits<float>::max(), text), "-340282346638528859811704183484516925440.0");
  EXPECT_EQ(intToString(59) + dlongToString(-1) + floatToString(0.1f) + boolToString(true), "59-10.1true");
  EXPECT_EQ(charToString('\0'), tvstring(1, '\0'));
  EXPECT_EQ(charToString('y', out), "y");
  EXPECT_EQ(floatToString(2.5f, out), "2.5");
  EXPECT_EQ(intToString(-12, out), "-12");
  EXPECT_EQ(dlongToString(1LL << 40, out), "1099511627776");
  EXPECT_EQ(boolToString(true, out), "true");
  EXPECT_EQ(&doubleToString(-1.7976931348623157e308, out), &out);
  EXPECT_EQ(out.length(), 312u);
}

TEST(Conversion, KeepsThePointUnderALocaleWithADecimalComma) {
  CommaLocale const locale;
  if (!locale.active()) GTEST_SKIP() << "no locale with a decimal comma, and localedef cannot make one";
  EXPECT_EQ(doubleToString(1234.5), "1234.5");
  EXPECT_EQ(floatToString(-0.25f), "-0.25");
}

}  // namespace
}  // namespace tavrone

#include "tavrone/core/Conversion.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <cstdio>
#include <limits>
#include <random>
#include <string>

#include "tavrone/core/DesignerTypes.h"
#include "tavrone/core/Exceptions.h"
#include "tests/core/CommaLocale.h"

namespace tavrone {
namespace {

std::string bytes(tvstring const &text) {
  return std::string(text.data(), text.length());
}

// The number, or the text of the failure.
template <class Reader>
std::string outcome(Reader reader, std::string const &text) {
  try {
    return std::to_string(reader(text.data(), text.data() + text.size()));
  } catch (TransformException const &failure) {
    EXPECT_EQ(failure.getTrace().getFileName(), "cpp/Conversion");
    return bytes(failure.getMessage());
  }
}

TEST(Conversion, ReadsIntegersAndNamesWhatItCannotRead) {
  struct {
    char const *text, *asInt, *asLong;
  } const cases[] = {
      {"0", "0", "0"},
      {"-", "0", "0"},
      {"+", "0", "0"},
      {"+7", "7", "7"},
      {"0012345", "12345", "12345"},
      {"-2147483648", "-2147483648", "-2147483648"},
      {"2147483648", "Integer overflow. Cannot convert '2147483648' to int", "2147483648"},
      {"9999999999", "1410065407", "9999999999"},  // wraps past the sign test unnoticed
      {"-9999999999", "-1410065407", "-9999999999"},
      {"00000000000000000000042", "42", "42"},
      {"", "Cannot convert '' to int", "Cannot convert '' to long"},
      {"12a", "Cannot convert '12a' to int", "Cannot convert '12a' to long"},
      {"1234567:", "Cannot convert '1234567:' to int", "Cannot convert '1234567:' to long"},
      {"12/45678", "Cannot convert '12/45678' to int", "Cannot convert '12/45678' to long"},
      {"--1", "Cannot convert '--1' to int", "Cannot convert '--1' to long"},
      {" 1", "Cannot convert ' 1' to int", "Cannot convert ' 1' to long"},
      {"1\xB2", "Cannot convert '1\xB2' to int", "Cannot convert '1\xB2' to long"},
      // After the tenth digit the wrapped value is positive: a further digit overflows, a letter is a bad character.
      {"30000000000", "Integer overflow. Cannot convert '30000000000' to int", "30000000000"},
      {"3000000000x", "Cannot convert '3000000000x' to int", "Cannot convert '3000000000x' to long"},
      {"30000000000x", "Integer overflow. Cannot convert '30000000000x' to int",
       "Cannot convert '30000000000x' to long"},
      {"9223372036854775807", nullptr, "9223372036854775807"},
      {"-9223372036854775808", nullptr, "-9223372036854775808"},
      {"9223372036854775808", nullptr, "Long overflow. Cannot convert '9223372036854775808' to long"},
      {"20000000000000000000", nullptr, "1553255926290448384"},
      {"99999999999999999999", nullptr, "Long overflow. Cannot convert '99999999999999999999' to long"},
  };
  for (auto const &c : cases) {
    EXPECT_EQ(outcome(t_atol, c.text), c.asLong) << c.text;
    if (c.asInt != nullptr) {
      EXPECT_EQ(outcome(t_atoi, c.text), c.asInt) << c.text;
    }
  }
}

TEST(Conversion, WritesIntegersOfEveryLengthAndNoByteMore) {
  auto const check = [](long long value) {
    std::string const expected = std::to_string(value);
    char text[32];
    std::memset(text, '#', sizeof text);
    t_ltoa(value, text);
    EXPECT_EQ(std::string(text, expected.size() + 2), expected + std::string("\0#", 2));
    EXPECT_EQ(bytes(dlongToString(value)), expected);
    EXPECT_EQ(t_atol(expected.data(), expected.data() + expected.size()), value);
    if (static_cast<int>(value) != value) return;
    std::memset(text, '#', sizeof text);
    EXPECT_STREQ(intToString(static_cast<int>(value), text), expected.c_str());
    EXPECT_EQ(text[expected.size() + 1], '#');
    EXPECT_EQ(bytes(intToString(static_cast<int>(value))), expected);
    EXPECT_EQ(t_atoi(expected.data(), expected.data() + expected.size()), value);
  };
  for (long long value = -130; value <= 10100; ++value) check(value);
  for (long long power = 10; power < 1000000000000000000; power *= 10)
    for (long long value : {power - 1, power, power + 1, 9 * power + 7}) {
      check(value);
      check(-value);
    }
  check(std::numeric_limits<int>::min());
  check(std::numeric_limits<int>::max());
  check(std::numeric_limits<long long>::min());
  check(std::numeric_limits<long long>::max());
}

// What the C library prints for "%.8f", trimmed.
std::string printed(double value) {
  char text[352];
  std::string all(text, static_cast<size_t>(std::snprintf(text, sizeof text, "%.8f", value)));
  if (!std::isfinite(value)) return all;
  size_t const last = all.find_last_not_of('0');
  return all.substr(0, all[last] == '.' ? last + 2 : last + 1);
}

std::string written(double value) {
  char text[352];
  return doubleToString(value, text);
}

TEST(Conversion, WritesDoublesAsTheCLibraryDoesLessTrailingZeros) {
  double const infinity = std::numeric_limits<double>::infinity();
  double const nan = std::numeric_limits<double>::quiet_NaN();
  struct {
    double value;
    char const *text;
  } const cases[] = {{0, "0.0"},
                     {-0.0, "-0.0"},
                     {5, "5.0"},
                     {100, "100.0"},
                     {1.5, "1.5"},
                     {0.1, "0.1"},
                     {-1e-10, "-0.0"},
                     {0.999999999, "1.0"},
                     {99999999.999999999, "100000000.0"},
                     {0x1p-9, "0.00195312"},      // a tie: to the even neighbour below
                     {3 * 0x1p-9, "0.00585938"},  // a tie: to the even neighbour above
                     {1e20, "100000000000000000000.0"},
                     {1e22, "10000000000000000000000.0"},
                     {infinity, "inf"},
                     {-infinity, "-inf"},
                     {nan, "nan"},
                     {-nan, "-nan"}};
  for (auto const &c : cases) EXPECT_EQ(written(c.value), c.text);

  std::mt19937_64 random(1);
  for (int i = 0; i < 20000; ++i) {
    uint64_t const bits = random();
    double const price = static_cast<double>(bits % 100000000000) / 1e8;
    double const tie = std::ldexp(static_cast<double>(bits >> 11), -static_cast<int>(bits % 100));
    for (double value : {std::bit_cast<double>(bits), price, tie}) ASSERT_EQ(written(value), printed(value)) << value;
  }
  for (double value : {5e-324, 1.7976931348623157e308, 0x1p53, 0x1p63, 0x1p64, -0x1p64})
    EXPECT_EQ(bytes(doubleToString(value)), printed(value));
}

TEST(Conversion, WidensFloatsAndSpellsCharactersAndBooleans) {
  char text[64];
  EXPECT_STREQ(floatToString(0.1f, text), "0.1");
  EXPECT_STREQ(floatToString(-std::numeric_limits<float>::max(), text), "-340282346638528859811704183484516925440.0");
  EXPECT_EQ(floatToString(16777.217f), "16777.21679688");
  EXPECT_STREQ(charToString('x', text), "x");
  EXPECT_STREQ(boolToString(false, text), "false");
  EXPECT_EQ(boolToString(true), "true");
  EXPECT_EQ(bytes(charToString('\0')), std::string(1, '\0'));

  tvstring out("before");
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
  EXPECT_EQ(doubleToString(1e22), "10000000000000000000000.0");
}

TEST(DesignerTypes, AreTheNamesInMetadata) {
  std::pair<tvstring const *, char const *> const names[] = {{&DesignerTypes::INT_TYPE, "Integer"},
                                                             {&DesignerTypes::CHAR_TYPE, "Character"},
                                                             {&DesignerTypes::BOOLEAN_TYPE, "Boolean"},
                                                             {&DesignerTypes::DATE_ONLY_TYPE, "DateOnly"},
                                                             {&DesignerTypes::ISO_DATE_TIME_TYPE, "ISODateTime"},
                                                             {&DesignerTypes::RAW_MESSAGE_TYPE, "RawMessage"},
                                                             {&DesignerTypes::DATAOBJECT_TYPE, "DataObject"}};
  for (auto const &[name, text] : names) EXPECT_EQ(*name, text);
}

}  // namespace
}  // namespace tavrone

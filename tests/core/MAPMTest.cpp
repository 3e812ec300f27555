#include "tavrone/core/MAPM.h"

#include <gtest/gtest.h>
#include <sys/resource.h>

#include <climits>
#include <cmath>
#include <cstdlib>
#include <limits>
#include <memory>
#include <random>
#include <vector>

#include "tests/Cases.h"
#include "tests/Failure.h"
#include "tests/core/DecimalReference.h"

namespace tavrone {
namespace {

template <class Operation>
std::string reportOf(Operation const &operation) {
  Failure const failure = failureOf<TransformException>(operation);
  EXPECT_EQ(failure.source, "cpp/MAPM");
  return failure.text;
}

TEST(MAPM, ReadsTextAndNormalises) {
  // The number, its sign, exponent and count of digits, and whether it is whole.
  expectEach(
      {"-0.000 -> 0 0 0 1 1", "123.45 -> 123.45 1 2 5 0", "-00123.4500 -> -123.45 -1 2 5 0", ".5 -> 0.5 1 -1 1 0",
       "+5. -> 5 1 0 1 1", "1.5E3 -> 1500 1 3 2 1", "15e-4 -> 0.0015 1 -3 2 0", "1E0000000005 -> 100000 1 5 1 1",
       "1234567890123456789.0123456789E9 -> 1234567890123456789012345678.9 1 27 29 0",
       "1000000000000000000 -> 1000000000000000000 1 18 1 1", "0.000000000000000001 -> 0.000000000000000001 1 -18 1 0"},
      [](auto &in) {
        MAPM const number(in.str().c_str());
        return words(fixed(number), number.sign(), number.exponent(), number.significant_digits(),
                     number.is_integer() != 0);
      });
}

TEST(MAPM, ReportsWhatIsNoNumber) {
  for (char const *text : {"", "-", ".", "E5", "1E", "1E+", "--1", "1.2.3", " 1", "1 ", "1,5", "0x1", "1E5.0", "inf",
                           "1E100000", "0E-100000", "1E99999999999999999999"})
    EXPECT_EQ(reportOf([&] { MAPM{text}; }), "'m_apm_set_string', Non-digit char found in parse") << text;
  for (double value : {std::numeric_limits<double>::quiet_NaN(), HUGE_VAL, -HUGE_VAL})
    EXPECT_EQ(reportOf([&] { MAPM{value}; }), "'m_apm_set_double', Invalid double input (likely a NAN or +/- INF)");
  MAPM number(7);
  EXPECT_EQ(reportOf([&] { number = number / MAPM(); }), "'m_apm_divide', Divide by 0");
  EXPECT_EQ(reportOf([&] { number.integer_div_rem(MAPM(), number, number); }), "'m_apm_divide', Divide by 0");
  EXPECT_EQ(reportOf([&] { (void)MAPM("0.5").is_odd(); }), "'m_apm_is_even', Non-integer input");
  EXPECT_EQ(fixed(number), "7");
}

TEST(MAPM, TakesFifteenDigitsOfADouble) {
  std::pair<double, char const *> const cases[] = {
      {0.1 + 0.2, "0.3"}, {-1e23, "-100000000000000000000000"}, {2.0 / 3, "0.666666666666667"}, {-0.0, "0"}};
  for (auto const &[value, text] : cases) EXPECT_EQ(fixed(MAPM(value)), text);
  EXPECT_EQ(fixed(MAPM(INT_MIN)), "-2147483648");
}

TEST(MAPM, RoundsHalfAwayFromZero) {
  auto const read = [](std::istream &in) {
    std::string text;
    int count = 0;
    in >> text >> count;
    return std::pair(MAPM(text.c_str()), count);
  };
  expectEach({"-123.45 4 -> -123.5", "999.95 4 -> 1000", "1.5 -7 -> 2", "1.5 2147483647 -> 1.5", "0 3 -> 0",
              "0.5000000000000000005 18 -> 0.500000000000000001",
              "999999999999999999999999999999999999.5 36 -> 1000000000000000000000000000000000000"},
             [&](auto &in) {
               auto const [number, digits] = read(in);
               return fixed(number.round(digits));
             });
  // Rounded and cut.
  expectEach({"-0.05 1 -> -0.1 0", "0.049 1 -> 0 0", "5 -1 -> 10 0", "4 -3 -> 0 0", "-1.9 0 -> -2 -1",
              "1234.5678 2 -> 1234.57 1234.56", "1 -2147483648 -> 0 0", "1.25 2147483647 -> 1.25 1.25"},
             [&](auto &in) {
               auto const [number, decimals] = read(in);
               return words(fixed(number.roundDecimals(decimals)), fixed(number.truncateDecimals(decimals)));
             });
}

TEST(MAPM, DividesToTheDigitsRule) {
  EXPECT_EQ(fixed(MAPM(2) / MAPM(3)), "0." + std::string(29, '6') + "7");
  EXPECT_EQ((MAPM(("1." + std::string(39, '1')).c_str()) / MAPM(7)).significant_digits(), 40);
  EXPECT_EQ(fixed(MAPM("-1").divide(8, 2)), "-0.13");
  EXPECT_EQ(fixed(MAPM("999.96").divide(1, 4)), "1000");
  EXPECT_EQ(fixed(MAPM(7).divide(2, INT_MIN)), "4");
  EXPECT_EQ(fixed(MAPM("1E20").divide("1E-20", 5)), "1" + std::string(40, '0'));
  EXPECT_EQ(MAPM(1).divide(MAPM(3), INT_MAX).significant_digits(), 100'000);
}

TEST(MAPM, IntegerDivisionMayWriteIntoItsOperands) {
  MAPM a("-7.5"), b("0.4");
  EXPECT_EQ(fixed(a.div(b)) + " " + fixed(a.rem(b)), "-18 -0.3");
  a.integer_div_rem(b, b, a);
  EXPECT_EQ(fixed(b) + " " + fixed(a), "-18 -0.3");
}

TEST(MAPM, FollowsTheRulesOfArithmetic) {
  std::mt19937 random(1);
  auto const below = [&random](unsigned n) { return static_cast<int>(random() % n); };
  // Runs of 0 and 9 make carries travel and quotient estimates fail.
  auto const number = [&below] {
    std::string text = below(2) == 0 ? "-" : "";
    for (int parts = 1 + below(4); parts > 0; --parts) {
      int const kind = below(3);
      for (int left = 1 + below(30); left > 0; --left)
        text += static_cast<char>('0' + (kind == 0 ? below(10) : kind == 1 ? 9 : 0));
    }
    return text + "." + std::to_string(below(100000)) + (below(3) == 0 ? std::string(20, '0') + "3" : "");
  };
  for (int round = 0; round < 500; ++round) {
    std::string const a = number(), b = number();
    EXPECT_EQ(brokenOperation(a, b), "") << a << " and " << b;
  }
}

TEST(MAPM, WritesText) {
  // Scientific, with all digits, with groups, the whole part.
  expectEach({"123.45 -1 -> 1.2345E+2 123.45 123,45 123", "0 -1 -> 0.0E+0 0 0 0", "0 2 -> 0.0E+0 0.00 0,00 0",
              "5 -1 -> 5.0E+0 5 5 5", "5 0 -> 5E+0 5 5 5", "-0.00125 1 -> -1.3E-3 0.0 0,0 0",
              "-0.125 2 -> -1.25E-1 -0.13 -0,13 0", "1234567.895 2 -> 1.23E+6 1234567.90 1.234.567,90 1234567",
              "999.999 2 -> 1.00E+3 1000.00 1.000,00 999",
              "1E20 1 -> 1.0E+20 100000000000000000000.0 100.000.000.000.000.000.000,0 100000000000000000000"},
             [](auto &in) {
               std::string text;
               int decimals = 0;
               in >> text >> decimals;
               MAPM const number(text.c_str());
               char scientific[64], whole[64];
               number.toString(scientific, decimals);
               number.toIntegerString(whole);
               std::unique_ptr<char[]> const grouped(number.toFixPtStringExp(decimals, ',', '.', 3));
               return words(scientific, fixed(number, decimals), grouped.get(), whole);
             });
}

TEST(MAPM, ConvertsToOtherNumbers) {
  EXPECT_EQ(MAPM("-12.99").toInt(), -12);
  EXPECT_EQ(MAPM("2147483647.9").toInt(), INT_MAX);
  EXPECT_EQ(MAPM("9999999999").toInt(), 1410065407);
  EXPECT_EQ(MAPM("9223372036854775807.5").toLong(), LLONG_MAX);
  EXPECT_EQ(MAPM("-9223372036854775808").toLong(), LLONG_MIN);
  for (char const *text :
       {"0", "-123.45", "9007199254740993", "-1E400", "1E-400", "4.9406564584124654E-324", "1.7976931348623157E308"})
    EXPECT_EQ(MAPM(text).toDouble(), std::strtod(text, nullptr)) << text;
  // Rounding to double first would give the even neighbour below.
  EXPECT_EQ(MAPM("1.000000059604644775390625000000001").toFloat(), std::nextafter(1.0F, 2.0F));
}

TEST(MAPM, CopiesAreIndependentOfTheirSource) {
  // What subclasses reach: a body that they write themselves.
  struct Writable : MAPM {
    using MAPM::MAPM;
    static MAPM fresh() { return MAPM(makeNew()); }
    void negate() { val()->sign = -val()->sign; }
    int precision(MAPM const &other) const { return myDigits() + 100 * digits(other); }
  };
  Writable number("99.5");
  MAPM const before = number++;
  EXPECT_EQ(fixed(before) + " " + fixed(number), "99.5 100.5");
  MAPM const copy = ++number;
  number.negate();
  EXPECT_EQ(fixed(number) + " " + fixed(copy) + " " + fixed(Writable::fresh() + copy), "-101.5 101.5 101.5");
  EXPECT_EQ(number.precision(MAPM(("1." + std::string(39, '1')).c_str())), 30 + 4000);
  MAPM &self = number;
  number.MAPM::operator=(self);
  number.MAPM::operator=(std::move(self));
  EXPECT_EQ(fixed(number), "-101.5");
  MAPM const moved = std::move(self);
  EXPECT_EQ(fixed(number) + " " + fixed(moved), "0 -101.5");
}

TEST(MAPM, ExtremesStayBounded) {
  MAPM const huge("1E+99999");
  MAPM const tiny("1E-99999");
  EXPECT_EQ((huge + tiny).significant_digits(), 199'999);
  EXPECT_EQ((huge - tiny).rem(huge).exponent(), 99'998);
  EXPECT_EQ(huge.integer_divide(tiny).exponent(), 199'998);
  EXPECT_EQ(fixed(tiny).size(), 100'001U);
  std::string const million = "1" + std::string(999'998, '7') + "3";
  EXPECT_EQ(fixed(MAPM(million.c_str())), million);
  MAPM power = huge;
  EXPECT_EQ(reportOf([&] {
              for (;;) power = power * power;
            }),
            "'m_apm_multiply', Out of memory");
  EXPECT_EQ(reportOf([&] { (void)(tiny / power / power); }), "'m_apm_divide', Out of memory");
}

#if !defined(__SANITIZE_ADDRESS__) && !defined(__SANITIZE_THREAD__)  // both end the process instead
// Leaves the process with no block of so many bytes, and gives back what it took when it goes.
class NoMemory {
 public:
  explicit NoMemory(size_t size) {
    std::unique_ptr<void, Free> const enoughToReport(std::malloc(1 << 16));
    getrlimit(RLIMIT_AS, &before_);
    rlimit const none{0, before_.rlim_max};
    setrlimit(RLIMIT_AS, &none);
    while (void *block = std::malloc(size)) taken_.emplace_back(block);
  }
  NoMemory(NoMemory const &) = delete;
  ~NoMemory() { setrlimit(RLIMIT_AS, &before_); }

 private:
  struct Free {
    void operator()(void *block) const { std::free(block); }
  };

  rlimit before_;
  std::vector<std::unique_ptr<void, Free>> taken_;
};

TEST(MAPM, ReportsThatMemoryIsOut) {
  MAPM great("1E+99999");
  for (int i = 0; i < 6; ++i) great = great * great;
  MAPM const small = MAPM(1).divide(great, 1);
  constexpr size_t DIGITS = 12'000'000;  // about twice 64 times 99,999
  Failure failures[2];
  {
    NoMemory const none(DIGITS / 3);
    failures[0] = failureOf<TransformException>([&] { (void)(great + small); });
    failures[1] = failureOf<TransformException>([&] { (void)great.toLong(); });
  }
  EXPECT_EQ(failures[0].text, "'m_apm_add', Out of memory");
  EXPECT_EQ(failures[1].text, "'m_apm_to_integer_string', Out of memory");
}
#endif

}  // namespace
}  // namespace tavrone

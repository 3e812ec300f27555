// Two texts, parted by a newline: read as decimals, computed with, and checked against arithmetic on paper.
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <string>

#include "tavrone/core/BigDecimal.h"
#include "tavrone/core/Exceptions.h"
#include "tests/core/DecimalReference.h"

using namespace tavrone;

namespace {

void check(MAPM const &result, DecimalReference const &expected, char const *operation) {
  std::unique_ptr<char[]> const text(result.toFixPtStringExp(-1, '.', '\0', 0));
  if (expected.text() == text.get()) return;
  std::fprintf(stderr, "%s gives %s instead of %s\n", operation, text.get(), expected.text().c_str());
  std::abort();
}

void checkAgainstPaper(MAPM const &a, MAPM const &b, DecimalReference const &refA, DecimalReference const &refB) {
  check(a, refA, "reading");
  check(a + b, refA.plus(refB), "+");
  check(a - b, refA.plus(refB, true), "-");
  check(a * b, refA.times(refB), "*");
  int const decimals = b.toInt() & 31;
  check(a.roundDecimals(decimals), refA.rounded(decimals), "roundDecimals");
  if (a.compare(b) != (a - b).sign()) std::abort();
  if (b.sign() == 0) return;
  DecimalReference const whole = refA.over(refB, 0);
  MAPM quotient;
  MAPM rest;
  a.integer_div_rem(b, quotient, rest);
  check(quotient, whole, "integer_divide");
  check(rest, refA.plus(refB.times(whole), true), "rem");
  if (a.sign() == 0) return;
  MAPM const divided = a.divide(b, 1 + decimals);
  int const shown = decimals - divided.exponent();
  if (shown >= 0) check(divided, refA.over(refB, shown + 2).rounded(shown), "divide");
}

// Whatever the numbers are, these end, in bounded time and memory.
void exercise(MAPM const &a, MAPM const &b) {
  (void)a.toDouble();
  (void)a.toFloat();
  (void)(a + b).round(5);
  (void)(a * b).compare(a - b);
  std::string text(static_cast<size_t>(a.significant_digits()) + 20, '\0');
  a.toString(text.data(), -1);
  if (a.compare(MAPM(text.c_str())) != 0 && std::abs(a.exponent()) <= 99'999) std::abort();
  (void)a.divide(b);
  (void)a.rem(b);
  (void)a.toLong();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(uint8_t const *data, size_t size) {
  std::string const input(reinterpret_cast<char const *>(data), size);
  size_t const cut = std::min(input.find('\n'), input.size());
  std::string const textA = input.substr(0, cut);
  std::string const textB = input.substr(std::min(cut + 1, input.size()));
  try {
    BigDecimal const a(tvstring(textA.data(), textA.size()));
    BigDecimal const b(tvstring(textB.data(), textB.size()));
    auto const isShort = [](MAPM const &x) { return x.significant_digits() < 200 && std::abs(x.exponent()) < 200; };
    if (isShort(a) && isShort(b) && textA.size() + textB.size() < 300)
      checkAgainstPaper(a, b, DecimalReference(textA), DecimalReference(textB));
    exercise(a, b);
  } catch (TransformException const &) {
  }
  return 0;
}

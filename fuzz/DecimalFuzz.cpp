// Two texts, parted by a newline: read as decimals and computed with, by the rules of arithmetic if they are short.
#include <algorithm>
#include <cstdio>
#include <cstdlib>

#include "tavrone/core/BigDecimal.h"
#include "tavrone/core/Exceptions.h"
#include "tests/core/DecimalReference.h"

using namespace tavrone;

namespace {

// Whatever the numbers are, these end, in bounded time and memory.
void exercise(MAPM const &a, MAPM const &b) {
  (void)a.toDouble();
  (void)a.toFloat();
  (void)(a + b).round(5);
  (void)(a * b).compare(a - b);
  std::string text(static_cast<size_t>(a.significant_digits()) + 20, '\0');
  a.toString(text.data(), -1);
  if (std::abs(a.exponent()) <= 99'999 && a.compare(MAPM(text.c_str())) != 0) std::abort();
  (void)a.divide(b);
  (void)a.rem(b);
  (void)a.toLong();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(uint8_t const *data, size_t size) {
  std::string const input(reinterpret_cast<char const *>(data), size);
  size_t const cut = std::min(input.find('\n'), size);
  std::string const textA = input.substr(0, cut), textB = input.substr(std::min(cut + 1, size));
  try {
    BigDecimal const a(tvstring(textA.data(), textA.size())), b(tvstring(textB.data(), textB.size()));
    auto const isShort = [](MAPM const &x) { return x.significant_digits() < 200 && std::abs(x.exponent()) < 200; };
    if (isShort(a) && isShort(b) && size < 300) {
      std::string const broken = brokenOperation(textA, textB);
      std::fputs(broken.c_str(), stderr);
      if (!broken.empty()) std::abort();
    }
    exercise(a, b);
  } catch (TransformException const &) {
  }
  return 0;
}

// Text functions on 32 bytes, beside a std::string doing the same; the counters are allocations for each call. Meant:
// none for what is a part of the text, one for a new text. Then the other formula classes beside what they call: at
// most twice its time.
#include <benchmark/benchmark.h>

#include <algorithm>
#include <cctype>
#include <string>
#include <string_view>

#include "benchmarks/Allocations.h"
#include "tavrone/formula/FormatFunctions.h"
#include "tavrone/formula/TextFunctions.h"
#include "tavrone/formula/UtilFunctions.h"
#include "tavrone/formula/ValidationFunctions.h"

namespace tavrone {
namespace {

char const *const TEXT = "  The quick brown fox, jumping. ";  // 32 bytes

template <class Work>
void measure(benchmark::State &state, Work const &work) {
  long long const before = allocations;
  for (auto _ : state) {
    auto const result = work();
    benchmark::DoNotOptimize(&result);
    benchmark::ClobberMemory();
  }
  state.counters["allocations"] =
      benchmark::Counter(static_cast<double>(allocations - before), benchmark::Counter::kAvgIterations);
}

// A benchmark of a formula on `ours` and one of its peer on `theirs`.
#define TEXT_PAIR(Name, formula, peer)       \
  void Name(benchmark::State &state) {       \
    tvstring ours(TEXT);                     \
    benchmark::DoNotOptimize(&ours);         \
    measure(state, [&] { return formula; }); \
  }                                          \
  BENCHMARK(Name);                           \
  void Name##Peer(benchmark::State &state) { \
    std::string theirs(TEXT);                \
    benchmark::DoNotOptimize(&theirs);       \
    measure(state, [&] { return peer; });    \
  }                                          \
  BENCHMARK(Name##Peer)

std::string changed(std::string text, int (*change)(int)) {
  for (char &c : text) c = static_cast<char>(change(static_cast<unsigned char>(c)));
  return text;
}
std::string replaced(std::string text, std::string_view old, std::string_view value) {
  for (size_t at = 0; (at = text.find(old, at)) != std::string::npos; at += value.size())
    text.replace(at, old.size(), value);
  return text;
}
std::string trimmed(std::string const &text) {
  auto const blank = [](char c) { return static_cast<signed char>(c) <= 32; };
  auto const begin = std::find_if_not(text.begin(), text.end(), blank);
  return std::string(begin, std::find_if_not(text.rbegin(), std::make_reverse_iterator(begin), blank).base());
}
tvstring const FOX("fox"), CAT("tomcat");

TEXT_PAIR(trim, TextFunctions::trim(ours), trimmed(theirs));
TEXT_PAIR(left, TextFunctions::left(ours, 24), theirs.substr(0, 24));
TEXT_PAIR(mid, TextFunctions::mid(ours, 2, 24), theirs.substr(2, 24));
TEXT_PAIR(right, TextFunctions::right(ours, 24), theirs.substr(8));
TEXT_PAIR(upper, TextFunctions::upper(ours), changed(theirs, std::toupper));
TEXT_PAIR(lower, TextFunctions::lower(ours), changed(theirs, std::tolower));
TEXT_PAIR(replaceText, TextFunctions::replace(ours, FOX, CAT), replaced(theirs, "fox", "tomcat"));
TEXT_PAIR(replaceChar, TextFunctions::replace(ours, ' ', '_'), replaced(theirs, " ", "_"));
TEXT_PAIR(insertNumber, TextFunctions::insert(ours, 6, 12345), std::string(theirs).insert(6, std::to_string(12345)));

// A concatenation as generated code writes it.
void concat(benchmark::State &state) {
  tvstring const name("Quantity ");
  measure(state, [&] {
    tvstringbuffer buffer;
    buffer.reserve(static_cast<size_t>(ConcatFunctionsHelper::lengthOf(name) + ConcatFunctionsHelper::lengthOf(1) +
                                       ConcatFunctionsHelper::lengthOf(2.5)));
    ConcatFunctionsHelper::appendToString(buffer, name);
    ConcatFunctionsHelper::appendToString(buffer, 25000);
    ConcatFunctionsHelper::appendToString(buffer, 412.35);
    return buffer;
  });
}
BENCHMARK(concat);
void concatPeer(benchmark::State &state) {
  std::string const name("Quantity ");
  measure(state, [&] { return name + std::to_string(25000) + std::to_string(412.35); });
}
BENCHMARK(concatPeer);

// A formula and what it calls.
#define PAIR(Name, formula, called)            \
  void Name(benchmark::State &state) {         \
    measure(state, [&] { return formula; });   \
  }                                            \
  BENCHMARK(Name);                             \
  void Name##Called(benchmark::State &state) { \
    measure(state, [&] { return called; });    \
  }                                            \
  BENCHMARK(Name##Called)

BigDecimal const PRICE("1234567.125"), TICK("0.005");
tvstring const MONEY("#,##0.00"), ISO("yyyy-MM-ddTHH:mm:ss"), WHEN("2026-11-21T14:30:15"), DIGITS("-1234567.125");
DateTime const NOON(2026, 11, 21, 12, 0, 0, 0), LATER(2027, 3, 1, 0, 0, 0, 0);

PAIR(formatNumber, FormatFunctions::formatNumber(PRICE, MONEY), PRICE.roundDecimals(2).toString());
PAIR(formatFixed, FormatFunctions::formatFixed(PRICE, 2), PRICE.roundDecimals(2).toString());
PAIR(formatFixedDouble, FormatFunctions::formatFixed(412.355, 2), BigDecimal(412.355).roundDecimals(2).toString());
PAIR(roundDouble, UtilFunctions::round(412.355, 2), BigDecimal(412.355).roundDecimals(2).toDouble());
PAIR(floorDouble, UtilFunctions::floor(412.355, 0.05), BigDecimal(412.355).integer_divide(BigDecimal(0.05)).toDouble());
PAIR(parseNumber, FormatFunctions::parseNumber(DIGITS, '.', ','), Parsing::parseDouble(DIGITS));
PAIR(isDouble, ValidationFunctions::isDouble(DIGITS), Parsing::parseDouble(DIGITS));
PAIR(isMultipleOf, ValidationFunctions::isMultipleOf(PRICE, TICK), PRICE.rem(TICK));
PAIR(parseDate, DateFunctions::parse(WHEN, ISO), DateTime::fromString(WHEN, ISO));
PAIR(addDays, DateFunctions::addDays(NOON, 7), NOON + TimeSpan(7 * 86400));
PAIR(addMonths, DateFunctions::addMonths(NOON, 7), NOON + TimeSpan(7 * 86400));
PAIR(daysBetween, DateFunctions::daysBetween(NOON, LATER), LATER - NOON);
PAIR(monthsBetween, DateFunctions::monthsBetween(NOON, LATER), LATER - NOON);

}  // namespace
}  // namespace tavrone

BENCHMARK_MAIN();

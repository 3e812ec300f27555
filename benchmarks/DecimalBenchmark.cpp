// Decimal numbers beside Boost.Multiprecision's of 50 digits, where it is installed: each operation on numbers of 30
// digits and on prices.
#include <benchmark/benchmark.h>

#include <string>

#include "tavrone/core/BigDecimal.h"

#if __has_include(<boost/multiprecision/cpp_dec_float.hpp>)
#define TAVRONE_HAS_DECIMAL_PEER 1
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wconversion"
#pragma GCC diagnostic ignored "-Wshadow"
#pragma GCC diagnostic ignored "-Wpedantic"
#include <boost/multiprecision/cpp_dec_float.hpp>
#pragma GCC diagnostic pop
#endif

namespace tavrone {
namespace {

struct Operands {
  char const *a;
  char const *b;
};
constexpr Operands LONG = {"123456789012345.678901234567891", "987654321098765.432109876543219"};
constexpr Operands PRICE = {"412.35", "1500"};

template <class Number>
void fromText(benchmark::State &state, Operands operands) {
  char const *text = operands.a;
  for (auto _ : state) {
    benchmark::DoNotOptimize(text);
    benchmark::DoNotOptimize(Number(text));
  }
}

template <class Number>
void arithmetic(benchmark::State &state, Operands operands, Number (*operation)(Number const &, Number const &)) {
  Number a(operands.a);
  Number b(operands.b);
  for (auto _ : state) {
    benchmark::DoNotOptimize(a);
    benchmark::DoNotOptimize(b);
    benchmark::DoNotOptimize(operation(a, b));
  }
}

template <class Number>
void toText(benchmark::State &state, Operands operands, auto text) {
  Number a(operands.a);
  for (auto _ : state) {
    benchmark::DoNotOptimize(a);
    benchmark::DoNotOptimize(text(a));
  }
}

template <class Number>
void registerAll(std::string const &name, auto text) {
  for (auto const &[size, operands] : {std::pair("30digits", LONG), std::pair("price", PRICE)}) {
    std::string const tail = std::string("/") + size + "/" + name;
    auto const add = [&, operands = operands](char const *what, Number (*operation)(Number const &, Number const &)) {
      benchmark::RegisterBenchmark((what + tail).c_str(),
                                   [=](benchmark::State &state) { arithmetic<Number>(state, operands, operation); });
    };
    benchmark::RegisterBenchmark(("fromText" + tail).c_str(),
                                 [operands = operands](benchmark::State &state) { fromText<Number>(state, operands); });
    benchmark::RegisterBenchmark(("toText" + tail).c_str(), [operands = operands, text](benchmark::State &state) {
      toText<Number>(state, operands, text);
    });
    add("add", [](Number const &a, Number const &b) { return Number(a + b); });
    add("subtract", [](Number const &a, Number const &b) { return Number(a - b); });
    add("multiply", [](Number const &a, Number const &b) { return Number(a * b); });
    add("divide", [](Number const &a, Number const &b) { return Number(a / b); });
  }
}

}  // namespace
}  // namespace tavrone

int main(int argc, char **argv) {
  tavrone::registerAll<tavrone::BigDecimal>("BigDecimal", [](tavrone::BigDecimal const &a) { return a.toString(); });
#ifdef TAVRONE_HAS_DECIMAL_PEER
  using Peer = boost::multiprecision::number<boost::multiprecision::cpp_dec_float<50>, boost::multiprecision::et_off>;
  tavrone::registerAll<Peer>("cpp_dec_float", [](Peer const &a) { return a.str(0, std::ios_base::fixed); });
#endif
  benchmark::Initialize(&argc, argv);
  benchmark::RunSpecifiedBenchmarks();
}

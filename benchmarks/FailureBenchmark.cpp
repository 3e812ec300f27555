// What a failure costs: raised, passed up through three functions and caught, beside a std::runtime_error on the same
// way. Limit: 5 microseconds for a TransformException.
#include <benchmark/benchmark.h>

#include <memory>
#include <stdexcept>

#include "tavrone/core/Raise.h"

namespace {

using namespace tavrone;

// Each level has something to release, as those of a parser have.
template <int LEVELS, void (*Fail)()>
[[gnu::noinline]] void passThrough() {
  auto const held = std::make_unique<int>(LEVELS);
  benchmark::DoNotOptimize(held.get());
  if constexpr (LEVELS == 1)
    Fail();
  else
    passThrough<LEVELS - 1, Fail>();
}

template <class Caught, void (*Fail)()>
void throughThreeLevels(benchmark::State &state) {
  for (auto _ : state) {
    try {
      passThrough<3, Fail>();
    } catch (Caught const &failure) {
      benchmark::DoNotOptimize(&failure);
    }
  }
}

void throwRuntimeError() {
  throw std::runtime_error("Unexpected end of input while looking for data");
}
void raisePlain() {
  raise<TransformException>("Unexpected end of input while looking for data", "cpp/Benchmark");
}
void raiseWithCode() {
  raiseCatalogued<FieldNullException>("SRT500", "Price", "cpp/Benchmark");
}
BENCHMARK(throughThreeLevels<std::runtime_error, throwRuntimeError>)->Name("runtimeError");
BENCHMARK(throughThreeLevels<TransformException, raisePlain>)->Name("transformException");
BENCHMARK(throughThreeLevels<TransformException, raiseWithCode>)->Name("cataloguedFailure");

void makeTransformException(benchmark::State &state) {
  for (auto _ : state) benchmark::DoNotOptimize(TransformException("Unexpected end of input"));
}
BENCHMARK(makeTransformException);

void copyTransformException(benchmark::State &state) {
  TransformException const failure("Unexpected end of input");
  for (auto _ : state) benchmark::DoNotOptimize(TransformException(failure));
}
BENCHMARK(copyTransformException);

}  // namespace

BENCHMARK_MAIN();

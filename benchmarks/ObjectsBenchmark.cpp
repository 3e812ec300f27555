// References and wrappers beside std::shared_ptr, which pays for no virtual call. Meant: a reference copied and dropped
// in at most 3 times its time, a wrapper made, read and dropped in at most 1.5 times.
#include <benchmark/benchmark.h>

#include <memory>

#include "tavrone/core/SmartPtr.h"
#include "tavrone/core/Wrappers.h"

namespace {

using namespace tavrone;

class Service : public ObjectRef {};

void copySmartPtr(benchmark::State &state) {
  SmartPtr<Service> const first(new Service);
  for (auto _ : state) {
    SmartPtr<Service> copy(first);
    benchmark::DoNotOptimize(copy.get());
  }
}
BENCHMARK(copySmartPtr);

void copySharedPtr(benchmark::State &state) {
  auto const first = std::make_shared<int>(1);
  for (auto _ : state) {
    auto copy = first;
    benchmark::DoNotOptimize(copy.get());
  }
}
BENCHMARK(copySharedPtr);

void makeAndReadIntObject(benchmark::State &state) {
  for (auto _ : state) {
    SmartPtr<Object> field(new IntObject(7));
    benchmark::DoNotOptimize(field->getLong());
  }
}
BENCHMARK(makeAndReadIntObject);

void makeAndReadSharedInt(benchmark::State &state) {
  for (auto _ : state) {
    auto field = std::make_shared<int>(7);
    benchmark::DoNotOptimize(*field);
  }
}
BENCHMARK(makeAndReadSharedInt);

}  // namespace

BENCHMARK_MAIN();

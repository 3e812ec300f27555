// Look-ups of a key that is present among ten. Limit: 15 ns and no allocation, for each position and for keys that
// differ only at their end. The peers are the same containers without a map around them.

#include <benchmark/benchmark.h>

#include <map>
#include <string>
#include <vector>

#include "benchmarks/Allocations.h"
#include "tavrone/context/PropertyMapImpl.h"
#include "tavrone/context/TransformContext.h"
#include "tavrone/core/Wrappers.h"

namespace tavrone {
namespace {

constexpr int COUNT = 10;

// The library's own keys, or keys of one length that differ in their last byte; the text is not shared with any map.
tvstring keyAt(int64_t i, bool alike) {
  static char const *const names[COUNT] = {
      "input.format",     "input.source",       "input.mode",      "input.batch.context", "input.batch.id",
      "input.batch.size", "output.destination", "output.protocol", "output.format",       "output.device"};
  return alike ? tvstring("session.property.") + static_cast<char>('0' + i) : tvstring(names[i]);
}

template <class Find>
void lookUp(benchmark::State &state, Find const &find) {
  tvstring key = keyAt(state.range(0), state.range(1) != 0);
  long long const before = allocations;
  for (auto _ : state) {
    benchmark::DoNotOptimize(&key);
    auto const found = find(key);
    benchmark::DoNotOptimize(&found);
  }
  state.counters["allocations"] =
      benchmark::Counter(static_cast<double>(allocations - before), benchmark::Counter::kAvgIterations);
}

void BM_PropertyMap(benchmark::State &state) {
  SmartPtr<IPropertyMap> const map = new PropertyMapImpl;
  for (int i = 0; i < COUNT; ++i) map->setIntProperty(keyAt(i, state.range(1) != 0), i);
  lookUp(state, [&](tvstring const &key) { return map->getProperty(key); });
}

void BM_PropertyMapInt(benchmark::State &state) {
  SmartPtr<IPropertyMap> const map = new PropertyMapImpl;
  for (int i = 0; i < COUNT; ++i) map->setIntProperty(keyAt(i, state.range(1) != 0), i);
  lookUp(state, [&](tvstring const &key) { return map->getIntProperty(key, -1); });
}

void BM_PairsOfStdString(benchmark::State &state) {
  std::vector<std::pair<std::string, Object *>> pairs;
  for (int i = 0; i < COUNT; ++i) pairs.emplace_back(keyAt(i, state.range(1) != 0).c_str(), nullptr);
  std::string const wanted = keyAt(state.range(0), state.range(1) != 0).c_str();
  lookUp(state, [&](tvstring const &) {
    for (auto const &pair : pairs)
      if (pair.first == wanted) return pair.second;
    return static_cast<Object *>(nullptr);
  });
}

void BM_TransformContext(benchmark::State &state) {
  TransformContext context;
  for (int i = 0; i < COUNT; ++i) context.setProperty(keyAt(i, state.range(1) != 0), "value");
  lookUp(state, [&](tvstring const &key) { return context.getProperty(key); });
}

void BM_StdMapOfStdString(benchmark::State &state) {
  std::map<std::string, std::string> map;
  for (int i = 0; i < COUNT; ++i) map[keyAt(i, state.range(1) != 0).c_str()] = "value";
  std::string const wanted = keyAt(state.range(0), state.range(1) != 0).c_str();
  lookUp(state, [&](tvstring const &) { return map.find(wanted)->second; });
}

void positions(benchmark::internal::Benchmark *benchmark) {
  benchmark->ArgNames({"position", "alike"});
  for (int64_t alike : {0, 1})
    for (int64_t position : {0, 5, 9}) benchmark->Args({position, alike});
}
BENCHMARK(BM_PropertyMap)->Apply(positions);
BENCHMARK(BM_PairsOfStdString)->Apply(positions);
BENCHMARK(BM_PropertyMapInt)->Apply(positions);
BENCHMARK(BM_TransformContext)->Apply(positions);
BENCHMARK(BM_StdMapOfStdString)->Apply(positions);

}  // namespace
}  // namespace tavrone

BENCHMARK_MAIN();

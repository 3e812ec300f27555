// Reading prices beside std::from_chars, which is the peer to beat (at most 0.6 of its time), and formatting a failure
// text with two arguments (limit: 150 ns and one allocation, which the counter shows).
#include <benchmark/benchmark.h>

#include <charconv>
#include <cstdio>
#include <random>
#include <vector>

#include "benchmarks/Allocations.h"
#include "tavrone/core/ObjectList.h"
#include "tavrone/core/Parsing.h"
#include "tavrone/core/ResourceBundle.h"

namespace {

std::vector<tavrone::tvstring> prices() {
  std::mt19937 random(20260101);
  std::vector<tavrone::tvstring> texts;
  for (int i = 0; i < 1024; ++i) {
    char text[32];
    int const length =
        std::snprintf(text, sizeof text, "%s%.*f", i % 8 == 0 ? "-" : "", 2 + static_cast<int>(random() % 3),
                      static_cast<double>(random() % 100000000) / 10000.0);
    texts.emplace_back(text, static_cast<size_t>(length));
  }
  return texts;
}

double ownReading(tavrone::tvstring const &text) {
  return tavrone::Parsing::parseDouble(text);
}
double peerReading(tavrone::tvstring const &text) {
  double value = 0;
  std::from_chars(text.data(), text.data() + text.length(), value);
  return value;
}

template <double (*Read)(tavrone::tvstring const &)>
void readPrices(benchmark::State &state) {
  auto const texts = prices();
  for (auto _ : state)
    for (auto const &text : texts) benchmark::DoNotOptimize(Read(text));
  state.SetItemsProcessed(state.iterations() * static_cast<int64_t>(texts.size()));
}
BENCHMARK(readPrices<ownReading>)->Name("1024 prices/parseDouble");
BENCHMARK(readPrices<peerReading>)->Name("1024 prices/from_chars");

void formatFailure(benchmark::State &state) {
  tavrone::ObjectList args;
  args.add(tavrone::StringObject("12345.678"));
  args.add(tavrone::StringObject("yyyy-MM-dd"));
  tavrone::tvstring const pattern = tavrone::Resources::getProperty("UNV114.message");
  long long const before = allocations;
  for (auto _ : state) benchmark::DoNotOptimize(tavrone::formatMessage(pattern, args));
  state.counters["allocations"] = static_cast<double>(allocations - before) / static_cast<double>(state.iterations());
}
BENCHMARK(formatFailure)->Name("formatMessage/two arguments");

void lookUp(benchmark::State &state) {
  long long const before = allocations;
  for (auto _ : state) benchmark::DoNotOptimize(tavrone::Resources::getProperty("UNV114.message"));
  state.counters["allocations"] = static_cast<double>(allocations - before) / static_cast<double>(state.iterations());
}
BENCHMARK(lookUp)->Name("Resources::getProperty");

}  // namespace

BENCHMARK_MAIN();

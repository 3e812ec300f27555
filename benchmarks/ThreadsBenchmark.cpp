// A router for each thread, over one directory and one set of metadata: the road of orders in all four wire formats by
// one thread and by two. Limit: two threads pass at least 1.9 times the messages of one. Not pinned to a core.

#include <benchmark/benchmark.h>

#include "examples/mixed/MixedOrders.h"

namespace tavrone {
namespace {

std::vector<std::string> goodMessages() {
  MixedOrders host;
  std::vector<std::string> good;
  for (std::string const &message : mixedMessages(20))
    if (host.outcome(message).rfind("refused", 0) != 0) good.push_back(message);
  return good;
}

void BM_RouterForEachThread(benchmark::State &state) {
  static bool const bound = (bindMixedOrders(), true);
  benchmark::DoNotOptimize(bound);
  MixedOrders host;
  std::vector<std::string> const messages = goodMessages();
  for (auto _ : state)
    for (std::string const &message : messages) benchmark::DoNotOptimize(host.process(message));
  state.SetItemsProcessed(state.iterations() * static_cast<int64_t>(messages.size()));
}
BENCHMARK(BM_RouterForEachThread)->Threads(1)->Threads(2)->UseRealTime();

}  // namespace
}  // namespace tavrone

BENCHMARK_MAIN();

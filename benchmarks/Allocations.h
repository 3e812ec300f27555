#pragma once

// Replaces the program's operator new by one that counts. Included by the one source of a benchmark.

#include <benchmark/benchmark.h>

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <new>

inline long long allocations = 0;
inline size_t largeSize = SIZE_MAX;  // from this size on a block counts as large
inline long long largeAllocations = 0;

// Out of line, or the compiler takes malloc and operator delete for a mismatch.
__attribute__((noinline)) void *operator new(size_t size) {
  ++allocations;
  if (size >= largeSize) ++largeAllocations;
  if (void *block = std::malloc(size)) return block;
  throw std::bad_alloc();
}
__attribute__((noinline)) void operator delete(void *block) noexcept {
  std::free(block);
}
__attribute__((noinline)) void operator delete(void *block, size_t) noexcept {
  std::free(block);
}

// Runs the body once to warm up, then measures it and counts what each run allocates.
template <class Body>
void run(benchmark::State &state, Body const &body) {
  body();
  long long const before = allocations, largeBefore = largeAllocations;
  for (auto _ : state) body();
  auto perRun = [](long long count) {
    return benchmark::Counter(static_cast<double>(count), benchmark::Counter::kAvgIterations);
  };
  state.counters["allocations"] = perRun(allocations - before);
  if (largeSize != SIZE_MAX) state.counters["texts"] = perRun(largeAllocations - largeBefore);
}

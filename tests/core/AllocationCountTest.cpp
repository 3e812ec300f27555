#include "tests/core/AllocationCount.h"

#include "tests/CountedHeap.h"

int tavrone::AllocationCount::total() {
  return heap::allocations;
}

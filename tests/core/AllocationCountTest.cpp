#include "tests/core/AllocationCount.h"

#include <cstdlib>
#include <new>

namespace {

thread_local int allocations = 0;

void *countedBlock(size_t size) {
  ++allocations;
  return std::malloc(size != 0 ? size : 1);
}

}  // namespace

int tavrone::AllocationCount::total() {
  return allocations;
}

// The whole program allocates through these.
void *operator new(size_t size) {
  void *block = countedBlock(size);
  if (block == nullptr) throw std::bad_alloc();
  return block;
}
void *operator new(size_t size, std::nothrow_t const &) noexcept {
  return countedBlock(size);
}
void operator delete(void *block) noexcept {
  std::free(block);
}
void operator delete(void *block, size_t) noexcept {
  std::free(block);
}
void operator delete(void *block, std::nothrow_t const &) noexcept {
  std::free(block);
}

#pragma once

// Replaces the program's operator new and delete by ones that count what is alive and can be told to fail. Included by
// the one source of a program.

#include <atomic>
#include <cstdlib>
#include <new>

namespace heap {

inline std::atomic<long> alive = 0;           // blocks, of all threads
inline thread_local int allocations = 0;      // tried by this thread
inline thread_local long countdown = -1;      // allocations of this thread up to the one that fails; below 0 none does
inline thread_local bool staysEmpty = false;  // whether all behind the failing one fail, too
inline thread_local bool failed = false;

// Out of line, or the compiler takes malloc and operator delete for a mismatch.
__attribute__((noinline)) inline void *allocate(std::size_t size) noexcept {
  ++allocations;
  if (countdown >= 0 && countdown-- == 0) {
    if (staysEmpty) countdown = 0;
    failed = true;
    return nullptr;
  }
  void *const block = std::malloc(size != 0 ? size : 1);
  if (block != nullptr) alive.fetch_add(1, std::memory_order_relaxed);
  return block;
}
__attribute__((noinline)) inline void free(void *block) noexcept {
  if (block != nullptr) alive.fetch_sub(1, std::memory_order_relaxed);
  std::free(block);
}

}  // namespace heap

void *operator new(std::size_t size) {
  if (void *const block = heap::allocate(size)) return block;
  throw std::bad_alloc();
}
void *operator new(std::size_t size, std::nothrow_t const &) noexcept {
  return heap::allocate(size);
}
void operator delete(void *block) noexcept {
  heap::free(block);
}
void operator delete(void *block, std::size_t) noexcept {
  heap::free(block);
}
void operator delete(void *block, std::nothrow_t const &) noexcept {
  heap::free(block);
}

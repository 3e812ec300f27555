#pragma once

#include <sys/mman.h>

#include <climits>
#include <cstddef>
#include <cstring>
#include <new>
#include <string>

namespace tavrone {

// One byte more than an int can count: a few to begin with, then zeros. They take addresses, but next to no memory.
class HugeBytes {
 public:
  explicit HugeBytes(std::string const &begin = "")
      : data_(::mmap(nullptr, size(), PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS | MAP_NORESERVE, -1, 0)) {
    if (data_ == MAP_FAILED) throw std::bad_alloc();
    std::memcpy(data_, begin.data(), begin.size());
  }
  HugeBytes(HugeBytes const &) = delete;
  HugeBytes &operator=(HugeBytes const &) = delete;
  ~HugeBytes() { ::munmap(data_, size()); }

  char const *data() const { return static_cast<char const *>(data_); }
  size_t size() const { return size_t{INT_MAX} + 1; }

 private:
  void *data_;
};

}  // namespace tavrone

#pragma once

namespace tavrone {

// Counts what operator new hands out to this thread, from its construction on.
class AllocationCount {
 public:
  AllocationCount() : before_(total()) {}
  int soFar() const { return total() - before_; }

 private:
  static int total();

  int before_;
};

}  // namespace tavrone

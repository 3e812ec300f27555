#pragma once

namespace tavrone {

// A Base that counts how many of it are alive.
template <class Base>
struct Tracked : Base {
  Tracked() { ++alive; }
  Tracked(Tracked const &other) : Base(other) { ++alive; }
  Tracked &operator=(Tracked const &) = default;
  ~Tracked() noexcept(false) override { --alive; }
  static inline int alive = 0;
};

}  // namespace tavrone

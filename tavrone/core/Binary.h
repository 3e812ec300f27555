#pragma once

#include "tavrone/core/tvstring.h"

namespace tavrone {

// A byte array: the storage and sharing of tvstring under an interface for raw data. Copies share one counted array;
// set() writes in place and every holder sees it. Belongs to one thread at a time.
class TAVRONE_API Binary {
 public:
  Binary() noexcept = default;
  // n bytes, not initialised.
  explicit Binary(size_t n);
  Binary(size_t n, char c);
  Binary(char const *bytes, size_t n);
  // With copy false it refers to the caller's bytes, which must outlive it and all its copies.
  Binary(char const *bytes, size_t n, bool copy);
  Binary(Binary const &) noexcept = default;
  Binary(Binary &&) noexcept = default;
  // Shares the text's array.
  Binary(tvstring const &text) noexcept;

 private:
  tvstring bytes_;
};

}  // namespace tavrone

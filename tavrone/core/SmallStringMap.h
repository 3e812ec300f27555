#pragma once

#include <utility>

#include "tavrone/core/ArrayList.h"
#include "tavrone/core/Object.h"

namespace tavrone {

// A linear map for a handful of entries, in order of insertion. Holds one reference on each value; values may be null.
class TAVRONE_API SmallStringMap {
 public:
  SmallStringMap() = default;
  // Both maps hold the values then.
  SmallStringMap(SmallStringMap const &other);
  SmallStringMap(SmallStringMap &&other) noexcept : entries_(std::move(other.entries_)) {}
  SmallStringMap &operator=(SmallStringMap other) noexcept {
    entries_.swap(other.entries_);
    return *this;
  }
  ~SmallStringMap() noexcept(false);

  // Borrowed; null if there is no such key.
  ObjectRef *get(tvstring const &key) const;
  // Replaces the value of an existing key in place and releases the old one, or appends.
  void put(tvstring const &key, ObjectRef *value);

 private:
  ArrayList<std::pair<tvstring, ObjectRef *>> entries_;
};

}  // namespace tavrone

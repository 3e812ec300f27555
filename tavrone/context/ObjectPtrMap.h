#pragma once

#include <map>

#include "tavrone/core/Object.h"

namespace tavrone {

// Objects by name, each with one reference that whoever inserted it added; the map drops them when it goes. Values may
// be null.
template <class T>
class ObjectPtrMap : public std::map<tvstring, T *> {
 public:
  ObjectPtrMap() = default;
  ObjectPtrMap(ObjectPtrMap const &) = delete;
  ObjectPtrMap &operator=(ObjectPtrMap const &) = delete;
  ~ObjectPtrMap() noexcept(false) {
    for (auto const &entry : *this) ObjectRef::releaseRef(entry.second);
  }
};

}  // namespace tavrone

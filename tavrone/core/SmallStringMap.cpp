#include "tavrone/core/SmallStringMap.h"

namespace tavrone {

SmallStringMap::SmallStringMap(SmallStringMap const &other) : entries_(other.entries_) {
  for (auto const &entry : entries_) ObjectRef::addRef(entry.second);
}

SmallStringMap::~SmallStringMap() noexcept(false) {
  for (auto const &entry : entries_) ObjectRef::releaseRef(entry.second);
}

ObjectRef *SmallStringMap::get(tvstring const &key) const {
  for (auto const &[name, value] : entries_)
    if (name == key) return value;
  return nullptr;
}

void SmallStringMap::put(tvstring const &key, ObjectRef *value) {
  // Before the value is counted: a failure to grow then leaves all as it was.
  entries_.ensureFree(1);
  ObjectRef::addRef(value);
  for (auto &[name, held] : entries_) {
    if (name != key) continue;
    ObjectRef::releaseRef(std::exchange(held, value));
    return;
  }
  entries_.push_back({key, value});
}

}  // namespace tavrone

#pragma once

#include <algorithm>
#include <vector>

namespace tavrone {

// Empties the vector and deletes what it owned; an object that stands in it more than once is deleted once.
template <class T>
void deleteOwned(std::vector<T *> &owned) {
  std::vector<T *> objects;
  objects.swap(owned);
  std::sort(objects.begin(), objects.end());
  objects.erase(std::unique(objects.begin(), objects.end()), objects.end());
  for (T *object : objects) delete object;
}

// Takes the object over: it stands in the vector or, should that fail to grow, goes. One that stands there already
// stays.
template <class T>
void pushOwned(std::vector<T *> &owned, T *object) {
  try {
    owned.push_back(object);
  } catch (...) {
    if (std::find(owned.begin(), owned.end(), object) == owned.end()) delete object;
    throw;
  }
}

}  // namespace tavrone

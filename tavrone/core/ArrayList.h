#pragma once

#include <algorithm>
#include <climits>
#include <iterator>
#include <memory>
#include <stdexcept>
#include <utility>

#include "tavrone/core/Export.h"

namespace tavrone {

// A small array that grows by ten slots, since the lists that it serves stay small; a long one is to be reserved first.
// Indexes are not checked. Pointers among the elements are borrowed. More elements than an int counts raise
// std::length_error "ArrayList too long". Growing ends the use of pointers and references to elements.
template <class T>
class ArrayList {
 public:
  ArrayList() = default;
  ArrayList(ArrayList const &other) {
    reserve(other.size_);
    std::copy(other.begin(), other.end(), elements_.get());
    size_ = other.size_;
  }
  ArrayList(ArrayList &&other) noexcept { swap(other); }
  ArrayList &operator=(ArrayList other) noexcept {
    swap(other);
    return *this;
  }
  void swap(ArrayList &other) noexcept {
    elements_.swap(other.elements_);
    std::swap(size_, other.size_);
    std::swap(capacity_, other.capacity_);
  }

  T &at(int i) { return elements_[static_cast<size_t>(i)]; }
  T const &at(int i) const { return elements_[static_cast<size_t>(i)]; }

  // The value may be an element of this list.
  void push_back(T const &value) {
    if (size_ + 1 < capacity_)
      elements_[static_cast<size_t>(size_++)] = value;
    else
      growAndPushBack(value);
  }
  // Nothing on an empty list.
  void pop_back() {
    if (size_ > 0) elements_[static_cast<size_t>(--size_)] = T();
  }

  // Room for n elements in all.
  void reserve(int n) {
    if (n > capacity_) moveTo(n);
  }
  // Room for n more: push_back neither allocates nor fails for as many.
  void ensureFree(int n) {
    long long const needed = static_cast<long long>(size_) + n;
    if (needed >= capacity_) moveTo(std::max(capacity_ + GROWTH, needed + 1));
  }

  int size() const { return size_; }
  int capacity() const { return static_cast<int>(capacity_); }

  T *begin() { return elements_.get(); }
  T *end() { return elements_.get() + size_; }
  T const *begin() const { return elements_.get(); }
  T const *end() const { return elements_.get() + size_; }

 private:
  static constexpr long long GROWTH = 10;

  TAVRONE_COLD void growAndPushBack(T const &value) {
    T copy(value);
    ensureFree(1);
    elements_[static_cast<size_t>(size_++)] = std::move(copy);
  }
  void moveTo(long long capacity) {
    if (capacity > INT_MAX) throw std::length_error("ArrayList too long");
    std::unique_ptr<T[]> grown(new T[static_cast<size_t>(capacity)]());
    std::move(begin(), end(), grown.get());
    elements_ = std::move(grown);
    capacity_ = static_cast<int>(capacity);
  }

  std::unique_ptr<T[]> elements_;
  int size_ = 0;
  int capacity_ = 0;
};

}  // namespace tavrone

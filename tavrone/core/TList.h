#pragma once

#include <deque>
#include <iterator>
#include <memory>
#include <type_traits>
#include <utility>
#include <vector>

#include "tavrone/core/BigDecimal.h"
#include "tavrone/core/Binary.h"
#include "tavrone/core/Conversion.h"
#include "tavrone/core/DateTime.h"
#include "tavrone/core/Object.h"
#include "tavrone/core/Subscript.h"
#include "tavrone/core/tvstringbuffer.h"

namespace tavrone {

// A std::deque with what else a std::vector offers. Lists of bool stand on it, since std::vector<bool> hands out no
// real references.
template <class T>
class SimpleDeque : public std::deque<T> {
 public:
  using std::deque<T>::deque;
  void reserve(size_t) {}
  size_t capacity() const { return this->max_size(); }
};

// A typed list with value semantics that is also an Object: TList<E> is the list of E, over std::vector<E> (over
// SimpleDeque<bool> for bool); TList<C, T> names the container as well, and either is made from the other.
//
// Indexes are 0-based. A bad one, negative or past the end, raises std::out_of_range "invalid vector<T> subscript".
// Arguments may be elements of the list, or the list itself.
template <class C, class T = void>
class TAVRONE_API TList : public Object {
 public:
  using iterator = typename C::iterator;
  using const_iterator = typename C::const_iterator;

  TList() : elements_(new C) {}
  TList(TList const &other) : Object(other), elements_(new C(*other.elements_)) {}
  TList &operator=(TList const &other) {
    if (this != &other) *elements_ = *other.elements_;
    return *this;
  }
  ~TList() noexcept(false) override = default;

  int size() const { return static_cast<int>(elements_->size()); }
  T &operator[](int index) { return (*elements_)[checked(index)]; }
  T const &operator[](int index) const { return (*elements_)[checked(index)]; }

  void add(T const &value) { elements_->push_back(value); }
  // Inserts before index; size() appends.
  void add(int index, T const &value) {
    if (index == size())
      add(value);
    else
      elements_->insert(begin() + static_cast<ptrdiff_t>(checked(index)), value);
  }
  // n values; nothing for n below 1.
  void addAll(T const *values, int n) {
    if (n > 0) append(C(values, values + n));
  }
  void addAll(TList const &other) { append(C(*other.elements_)); }
  void set(int index, T const &value) { (*this)[index] = T(value); }
  void removeElementAt(int index) { elements_->erase(begin() + static_cast<ptrdiff_t>(checked(index))); }
  void clear() { elements_->clear(); }

  bool contains(T const &value) const { return indexOf(value) >= 0; }
  // The first or last position of an equal element, or -1.
  int indexOf(T const &value) const {
    for (int i = 0; i < size(); ++i)
      if ((*this)[i] == value) return i;
    return -1;
  }
  int lastIndexOf(T const &value) const {
    int i = size() - 1;
    while (i >= 0 && !((*this)[i] == value)) --i;
    return i;
  }

  bool equals(TList const &other) const { return this == &other || *elements_ == *other.elements_; }
  // -1 or 1 at the first pair that differs; otherwise the difference of the sizes, in 32 bits.
  int compareTo(TList const &other) const {
    if (this == &other) return 0;
    auto theirs = other.begin();
    for (T const &mine : *elements_) {
      if (theirs == other.end()) break;
      if (mine < *theirs) return -1;
      if (mine > *theirs) return 1;
      ++theirs;
    }
    return static_cast<int>(static_cast<unsigned>(elements_->size() - other.elements_->size()));
  }
  // Whether any element of this list is in the other.
  bool intersects(TList const &other) const {
    for (T const &mine : *elements_)
      if (other.contains(mine)) return true;
    return false;
  }

  iterator begin() { return elements_->begin(); }
  iterator end() { return elements_->end(); }
  const_iterator begin() const { return std::as_const(*elements_).begin(); }
  const_iterator end() const { return std::as_const(*elements_).end(); }

  // "[1, 2]"; dates as "yyyy-MM-ddTHH:mm:ss.SSS".
  tvstring toString() const override {
    tvstringbuffer text("[");
    for (auto element = begin(); element != end(); ++element) {
      if (element != begin()) text.append(", ");
      text.append(elementText(*element));
    }
    return text.append(']');
  }
  Object *clone() const override { return new TList(*this); }

 private:
  size_t checked(int index) const { return checkedSubscript(index, elements_->size()); }

  void append(C &&added) {
    elements_->insert(elements_->end(), std::make_move_iterator(added.begin()), std::make_move_iterator(added.end()));
  }

  static tvstring elementText(T const &value) {
    if constexpr (std::is_same_v<T, int>)
      return intToString(value);
    else if constexpr (std::is_same_v<T, long long>)
      return dlongToString(value);
    else if constexpr (std::is_same_v<T, float>)
      return floatToString(value);
    else if constexpr (std::is_same_v<T, double>)
      return doubleToString(value);
    else if constexpr (std::is_same_v<T, char>)
      return charToString(value);
    else if constexpr (std::is_same_v<T, bool>)
      return boolToString(value);
    else if constexpr (std::is_same_v<T, DateTime>)
      return value.toString(tvstringliteral("yyyy-MM-ddTHH:mm:ss.SSS"));
    else
      return value.toString();
  }

  std::unique_ptr<C> elements_;
};

// The container that the short form stands on.
template <class E>
using TListContainer = std::conditional_t<std::is_same_v<E, bool>, SimpleDeque<bool>, std::vector<E>>;

// The short form: TList<int>, TList<tvstring>.
template <class E>
class TAVRONE_API TList<E, void> : public TList<TListContainer<E>, E> {
  using Base = TList<TListContainer<E>, E>;

 public:
  TList() = default;
  TList(Base const &other) : Base(other) {}
  TList(TList const &) = default;
  TList &operator=(TList const &) = default;
  ~TList() noexcept(false) override = default;

  Object *clone() const override { return new TList(*this); }
};

}  // namespace tavrone

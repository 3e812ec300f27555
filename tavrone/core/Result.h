#pragma once

#include <type_traits>
#include <utility>
#include <vector>

#include "tavrone/core/Class.h"
#include "tavrone/core/ExceptionDataObject.h"
#include "tavrone/core/OwnedPointers.h"

namespace tavrone {

// What the collecting form of an operation gives: its value and the records of the failures on the way, in order of
// arrival. An empty list means that nothing failed.
//
// Owns the list and frees what is left in it; whoever takes a record out of it owns that record. Copies have clones of
// their own, a moved-from result has no records.
template <class T>
struct Result {
  T value{};  // as far as the operation came, if something failed
  std::vector<ExceptionDataObject *> exceptions;

  Result() = default;
  // Takes over the records, such as those of a CascadingExceptionHandler.
  Result(T result, std::vector<ExceptionDataObject *> records)
      : value(std::move(result)), exceptions(std::move(records)) {}
  Result(Result const &other) : value(other.value) {
    exceptions.reserve(other.exceptions.size());
    try {
      for (ExceptionDataObject const *record : other.exceptions)
        exceptions.push_back(checkedCast<ExceptionDataObject>(record->clone()));
    } catch (...) {
      deleteOwned(exceptions);
      throw;
    }
  }
  Result(Result &&other) noexcept(std::is_nothrow_move_constructible_v<T>) : value(std::move(other.value)) {
    exceptions.swap(other.exceptions);
  }
  Result &operator=(Result other) {
    value = std::move(other.value);
    exceptions.swap(other.exceptions);
    return *this;
  }
  ~Result() noexcept(false) { deleteOwned(exceptions); }
};

}  // namespace tavrone

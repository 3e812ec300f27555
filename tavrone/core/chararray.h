#pragma once

#include <cstddef>
#include <cstdint>

#include "tavrone/core/Export.h"

namespace tavrone {

// The storage that strings and binary values share: one heap block that holds this header and the characters directly
// behind it. Counted by a plain integer, 1 on creation; an array and its holders belong to one thread at a time.
class TAVRONE_API chararray {
 public:
  // A new array of `capacity` bytes, not initialised, with a count of 1. Raises std::bad_array_new_length for more than
  // an object can have.
  static chararray *create(size_t capacity);

  // A new array that begins with the whole old array's bytes. Releases `old`, which may be null.
  // REQUIRES: capacity >= old->length()
  static chararray *resize(chararray *old, size_t capacity);

  // Raises TransformException "Ref count error. Illegal delete on tvstring object" while references remain: somebody
  // deleted the array directly.
  ~chararray() noexcept(false);

  chararray(chararray const &) = delete;
  chararray &operator=(chararray const &) = delete;

  void addRef() noexcept { ++references_; }

  // Drops one reference and frees the block with the last one.
  void releaseRef() noexcept {
    if (--references_ == 0) destroy();
  }

  int getRefCount() const { return references_; }

  // The capacity in bytes.
  size_t length() const { return capacity_; }

  char *getPtr() const { return characters_; }
  char *getCharPtr() const { return characters_; }
  char charAt(size_t i) const { return characters_[i]; }

  // A hook for debugging; does nothing.
  void checkThreadOwner() const {}

  // Blocks are longer than the header, so the sized form of the language must not be used.
  static void operator delete(void *block) { ::operator delete(block); }

 private:
  chararray(size_t capacity, char *characters) : characters_(characters), capacity_(capacity) {}
  void destroy() noexcept;

  char *characters_;
  size_t capacity_;
  int32_t references_ = 1;
};

}  // namespace tavrone

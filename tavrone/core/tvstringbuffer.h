#pragma once

#include "tavrone/core/tvstring.h"

namespace tavrone {

// The mutable string: appends and edits in place and moves to a larger array when it must. A copy shares the array, and
// there is no copy-on-write: holders of the old array see in-place changes until growth moves the buffer away.
// The argument of every operation may lie inside the buffer itself. Sizes that no array can have raise
// std::bad_array_new_length.
//
// A buffer is meant to hold its text at its array's start. One that was assigned from a view or from a literal can be
// edited, but growth keeps the array, not the text: afterwards a view shows as many bytes from the array's start, and
// the bytes of a literal are zero. Construct the buffer from the text instead, or clear() it first.
class TAVRONE_API tvstringbuffer : public tvstring {
 public:
  tvstringbuffer() = default;
  // As tvstring copies them.
  tvstringbuffer(char const *text) : tvstring(text) {}
  tvstringbuffer(char const *text, size_t length) : tvstring(text, length) {}
  // Copies into a private array; the copy of another buffer shares instead.
  tvstringbuffer(tvstring const &text) : tvstring(text.data(), text.length()) {}
  tvstringbuffer(tvstringbuffer const &other) = default;
  tvstringbuffer(tvstringbuffer &&other) noexcept = default;
  tvstringbuffer &operator=(tvstringbuffer const &other) = default;
  tvstringbuffer &operator=(tvstringbuffer &&other) noexcept = default;
  using tvstring::operator=;

  tvstringbuffer &append(char c) {
    ensureFree(1);
    getMutableBuffer()[length_++] = c;
    return *this;
  }
  tvstringbuffer &operator+=(char c) { return append(c); }
  // n times c; nothing for n below 1.
  tvstringbuffer &append(int n, char c);
  tvstringbuffer &append(char const *text, size_t n) {
    if (!hasFree(n)) return appendGrowing(text, n);
    if (n != 0) std::memmove(getMutableBuffer() + length_, text, n);
    length_ += n;
    return *this;
  }
  // Makes the text n bytes longer and returns where they begin, for the caller to write them before anything else.
  char *extend(size_t n) {
    ensureFree(n);
    char *const at = getMutableBuffer() + length_;
    length_ += n;
    return at;
  }
  tvstringbuffer &append(char const *text) { return append(text, std::strlen(text)); }
  tvstringbuffer &append(tvstring const &text) { return append(text.data(), text.length()); }
  tvstringbuffer &operator+=(tvstring const &text) { return append(text); }

  // Before the byte at pos, which is not checked; length() appends.
  tvstringbuffer &insert(size_t pos, char const *text, size_t n);
  tvstringbuffer &insert(size_t pos, tvstring const &text) { return insert(pos, text.data(), text.length()); }
  tvstringbuffer &insert(size_t pos, char const *text) { return insert(pos, text, std::strlen(text)); }
  tvstringbuffer &insert(size_t pos, char c) { return insert(pos, &c, 1); }

  // Removes the smaller of count and what stands from pos on.
  tvstringbuffer &erase(size_t pos, size_t count);

  // Erases, then inserts.
  tvstringbuffer &replace(size_t pos, size_t count, char const *text, size_t n);
  tvstringbuffer &replace(size_t pos, size_t count, char const *text) {
    return replace(pos, count, text, std::strlen(text));
  }
  tvstringbuffer &replace(size_t pos, size_t count, tvstring const &text) {
    return replace(pos, count, text.data(), text.length());
  }

  // Length 0; the array stays.
  void clear() { length_ = 0; }
  // With less than n bytes of capacity, asks for n - capacity bytes beyond the present length; a total of n is not
  // meant.
  void reserve(size_t n) {
    if (capacity() < n) ensureFree(n - capacity());
  }

  using tvstring::operator[];
  // Valid until the buffer grows. Text without an owner moves to an array first.
  char &operator[](size_t i) {
    if (owner_ == nullptr) own();
    return getMutableBuffer()[i];
  }

 private:
  // Whether n more bytes and a terminator fit behind the text.
  bool hasFree(size_t n) const {
    if (owner_ == nullptr) return false;
    size_t const room = owner_->length() - static_cast<size_t>(-bufferOffset());
    return length_ < room && n < room - length_;
  }
  void ensureFree(size_t n) {
    if (!hasFree(n)) grow(n);
  }
  // The array's start minus data: zero or negative, 0 without an owner.
  ptrdiff_t bufferOffset() const { return owner_ == nullptr ? 0 : owner_->getPtr() - data_; }
  char *getMutableBuffer() { return const_cast<char *>(data_); }

  void grow(size_t n);
  void own();
  tvstringbuffer &appendGrowing(char const *text, size_t n);
  bool holds(char const *text) const;
};

}  // namespace tavrone

#include "tavrone/core/tvstringbuffer.h"

#include <algorithm>

namespace tavrone {

// The new array begins with the whole old one, also where the text starts inside it: the text is expected at the start.
// Text without an owner isn't carried over; zeros stand in its place.
void tvstringbuffer::grow(size_t n) {
  size_t const wanted = saturatedSum(saturatedSum(length_, n), 7);
  size_t const grown = saturatedSum(std::max(2 * capacity(), wanted), 1);
  bool const carried = owner_ != nullptr;
  owner_ = chararray::resize(owner_, grown);
  data_ = owner_->getPtr();
  if (!carried) std::memset(owner_->getPtr(), 0, length_);
}

// Moves text without an owner to an array. REQUIRES: there is no owner
void tvstringbuffer::own() {
  init(data_, length_);
}

bool tvstringbuffer::holds(char const *text) const {
  if (owner_ == nullptr) return false;
  auto const start = reinterpret_cast<uintptr_t>(owner_->getPtr());
  auto const at = reinterpret_cast<uintptr_t>(text);
  return at >= start && at - start < owner_->length();
}

tvstringbuffer &tvstringbuffer::append(int n, char c) {
  if (n < 1) return *this;
  size_t const count = static_cast<size_t>(n);
  ensureFree(count);
  std::memset(getMutableBuffer() + length_, c, count);
  length_ += count;
  return *this;
}

tvstringbuffer &tvstringbuffer::appendGrowing(char const *text, size_t n) {
  if (n == 0) return *this;
  tvstring const hold(*this);  // text may lie in the old array
  grow(n);
  std::memcpy(getMutableBuffer() + length_, text, n);
  length_ += n;
  return *this;
}

tvstringbuffer &tvstringbuffer::insert(size_t pos, char const *text, size_t n) {
  if (n == 0) return *this;
  if (holds(text)) return insert(pos, tvstring(text, n));
  char const *unowned = owner_ == nullptr ? data_ : nullptr;
  ensureFree(n);
  if (unowned != nullptr) std::memcpy(getMutableBuffer(), unowned, length_);
  char *at = getMutableBuffer() + pos;
  std::memmove(at + n, at, length_ - pos);
  std::memcpy(at, text, n);
  length_ += n;
  return *this;
}

tvstringbuffer &tvstringbuffer::erase(size_t pos, size_t count) {
  size_t const rest = length_ - pos;
  size_t const removed = std::min(count, rest);
  if (removed == 0) return *this;
  if (owner_ == nullptr) own();
  char *at = getMutableBuffer() + pos;
  std::memmove(at, at + removed, rest - removed);
  length_ -= removed;
  return *this;
}

tvstringbuffer &tvstringbuffer::replace(size_t pos, size_t count, char const *text, size_t n) {
  if (holds(text)) return replace(pos, count, tvstring(text, n));
  erase(pos, count);
  return insert(pos, text, n);
}

}  // namespace tavrone

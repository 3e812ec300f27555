#include "tavrone/core/tvstringbuffer.h"

namespace tavrone {

void tvstringbuffer::ensureFree(size_t n) {
  size_t const used = bufferOffsetInArray() + length_;
  if (capacity() >= used + n + 1) return;
  size_t const doubled = 2 * capacity();
  size_t const wanted = length_ + n + 7;
  chararray *grown = chararray::create((doubled > wanted ? doubled : wanted) + 1);
  if (owner_ == nullptr)
    std::memset(grown->getPtr(), 0, length_);
  else
    std::memcpy(grown->getPtr(), data_, length_);
  clean();
  owner_ = grown;
  data_ = grown->getPtr();
}

tvstringbuffer &tvstringbuffer::append(int n, char c) {
  if (n < 1) return *this;
  size_t const count = static_cast<size_t>(n);
  ensureFree(count);
  std::memset(getMutableBuffer() + length_, c, count);
  length_ += count;
  return *this;
}

tvstringbuffer &tvstringbuffer::append(char const *text, size_t n) {
  if (n == 0) return *this;
  tvstring const hold(*this);  // keeps the old array while text may lie in it
  ensureFree(n);
  std::memmove(getMutableBuffer() + length_, text, n);
  length_ += n;
  return *this;
}

tvstringbuffer &tvstringbuffer::insert(size_t pos, char const *text, size_t n) {
  tvstring const copy(text, n);
  ensureFree(n);
  char *at = getMutableBuffer() + pos;
  std::memmove(at + n, at, length_ - pos);
  std::memcpy(at, copy.data(), n);
  length_ += n;
  return *this;
}

tvstringbuffer &tvstringbuffer::erase(size_t pos, size_t count) {
  size_t const rest = length_ - pos;
  if (count > rest) count = rest;
  if (count == 0) return *this;
  if (owner_ == nullptr) init(data_, length_);
  std::memmove(getMutableBuffer() + pos, data_ + pos + count, rest - count);
  length_ -= count;
  return *this;
}

tvstringbuffer &tvstringbuffer::replace(size_t pos, size_t count, char const *text, size_t n) {
  tvstring const copy(text, n);
  erase(pos, count);
  return insert(pos, copy.data(), n);
}

void tvstringbuffer::reserve(size_t n) {
  if (capacity() < n) ensureFree(n - capacity());
}

}  // namespace tavrone

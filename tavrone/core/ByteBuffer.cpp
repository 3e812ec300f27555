#include "tavrone/core/ByteBuffer.h"

#include <algorithm>
#include <climits>

#include "tavrone/core/Raise.h"

namespace tavrone {

ByteBuffer &ByteBuffer::operator=(ByteBuffer const &other) {
  // Over the same bytes, whoever owns them goes on owning them.
  if (buffer_ != other.buffer_) {
    freeOwned();
    buffer_ = other.buffer_;
    capacity_ = 0;
    ownsBuffer_ = false;
  }
  length_ = other.length_;
  readPosition_ = other.readPosition_;
  scratch_ = other.scratch_;
  return *this;
}

ByteBuffer &ByteBuffer::operator=(ByteBuffer &&other) noexcept {
  std::swap(buffer_, other.buffer_);
  std::swap(capacity_, other.capacity_);
  std::swap(length_, other.length_);
  std::swap(readPosition_, other.readPosition_);
  std::swap(ownsBuffer_, other.ownsBuffer_);
  std::swap(scratch_, other.scratch_);
  return *this;
}

void ByteBuffer::init(int capacity) {
  int const size = std::max(capacity, 0);
  replaceBlock(std::unique_ptr<char[]>(new char[static_cast<size_t>(size)]), size);
  length_ = 0;
  readPosition_ = 0;
}

char *ByteBuffer::toByteArray(int &n) const {
  char *copy = new char[static_cast<size_t>(length_)];
  if (length_ != 0) std::memcpy(copy, buffer_, static_cast<size_t>(length_));
  n = length_;
  return copy;
}

void ByteBuffer::grow(long long needed) {
  int capacity;
  std::unique_ptr<char[]> block = copyInto(needed, capacity);
  replaceBlock(std::move(block), capacity);
}

void ByteBuffer::growAndAppend(char const *bytes, size_t n) {
  if (n > INT_MAX) raiseOutOfBounds();
  int capacity;
  std::unique_ptr<char[]> block = copyInto(length_ + static_cast<long long>(n), capacity);
  std::memcpy(block.get() + length_, bytes, n);  // before the old block goes: the bytes may lie in it
  replaceBlock(std::move(block), capacity);
  length_ += static_cast<int>(n);
}

std::unique_ptr<char[]> ByteBuffer::copyInto(long long needed, int &capacity) const {
  if (needed > INT_MAX) raiseOutOfBounds();
  long long const doubled = std::min<long long>(2LL * capacity_, INT_MAX);
  capacity = static_cast<int>(std::max({needed, doubled, static_cast<long long>(length_)}));
  std::unique_ptr<char[]> block(new char[static_cast<size_t>(capacity)]);
  if (length_ != 0) std::memcpy(block.get(), buffer_, static_cast<size_t>(length_));
  return block;
}

void ByteBuffer::replaceBlock(std::unique_ptr<char[]> block, int capacity) {
  freeOwned();
  buffer_ = block.release();
  capacity_ = capacity;
  ownsBuffer_ = true;
}

void ByteBuffer::appendWithPoint(tvstring const &text, char point) {
  append(text);
  char *start = buffer_ + length_ - text.length();
  if (void *dot = std::memchr(start, '.', text.length())) *static_cast<char *>(dot) = point;
}

void ByteBuffer::raiseOutOfBounds() {
  raise<TransformException>("Out of bounds", "cpp/ByteBuffer");
}

}  // namespace tavrone

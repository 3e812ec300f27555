#pragma once

#include <bit>
#include <cstring>
#include <memory>
#include <utility>

#include "tavrone/core/Binary.h"

namespace tavrone {

// A byte buffer that grows as it is written and is read by a cursor. One that wraps foreign bytes is for reading; the
// first write copies them into a block of its own.
//
// A copy sees the source's bytes and does not own them: it is valid until the source grows or goes, and like a wrapped
// buffer it moves to a block of its own when it is written to. Moving hands the ownership on.
//
// Lengths past an int raise TransformException "Out of bounds" and change nothing. One thread at a time.
class TAVRONE_API ByteBuffer {
 public:
  static constexpr int INITIAL_CAPACITY = 16;  // bytes

  ByteBuffer() : ByteBuffer(INITIAL_CAPACITY) {}
  // An empty block of that capacity in bytes; a negative one counts as 0.
  explicit ByteBuffer(int capacity) { init(capacity); }
  // Wraps the bytes, which must outlive the buffer and its copies.
  ByteBuffer(char const *bytes, int length) : buffer_(const_cast<char *>(bytes)), length_(length < 0 ? 0 : length) {}
  ByteBuffer(ByteBuffer const &other) { *this = other; }
  ByteBuffer(ByteBuffer &&other) noexcept { *this = std::move(other); }
  ByteBuffer &operator=(ByteBuffer const &other);
  ByteBuffer &operator=(ByteBuffer &&other) noexcept;
  ~ByteBuffer() { freeOwned(); }

  // Begins anew with an empty block of that capacity; a negative one counts as 0.
  void init(int capacity);

  // The bytes written, wherever the read position is; pcount is another name.
  int length() const { return length_; }
  int pcount() const { return length_; }
  // Bytes of the block of its own; 0 for wrapped bytes.
  int capacity() const { return capacity_; }
  // The bytes, borrowed until the buffer grows or goes; not terminated.
  char *str() const { return buffer_; }
  char *getByteArray(int &n) const {
    n = length_;
    return buffer_;
  }
  // A copy from new[], the caller's.
  char *toByteArray(int &n) const;
  // A copy of the bytes.
  tvstring toString() const { return tvstring(buffer_, static_cast<size_t>(length_)); }

  // Sets the length, up to the capacity: what was written through str() behind the length can be taken in. Any other
  // length raises "Out of bounds".
  void chop(int n) {
    if (n < 0 || (n > capacity_ && n > length_)) raiseOutOfBounds();
    length_ = n;
  }

  bool hasMore() const { return readPosition_ < length_; }
  // The next byte, sign-extended. Raises TransformException "Out of bounds" at the end.
  int read() {
    if (readPosition_ >= length_) raiseOutOfBounds();
    return static_cast<signed char>(buffer_[readPosition_++]);
  }
  // The read position, which then moves on by n. A request that ends at the very end already raises TransformException
  // "Out of bounds", which is meant: in the streams that are read so, a byte follows every field of fixed width. So
  // does a negative n; the position stays.
  char *getCursor(int n) {
    if (n < 0 || n >= length_ - readPosition_) raiseOutOfBounds();
    char *cursor = buffer_ + readPosition_;
    readPosition_ += n;
    return cursor;
  }

  // Room for n more bytes, or for a total of `capacity`: the larger of what is needed and twice the old capacity.
  void ensureFree(int n) { reserve(static_cast<long long>(length_) + n); }
  void expandCapacity(int capacity) { reserve(capacity); }

  // The low 8 bits, as one byte.
  void write(int b) { append(static_cast<char>(b)); }
  void write(Binary const &value) { appendBytes(value.data(), value.length()); }

  void append(char c) {
    if (length_ >= capacity_) grow(static_cast<long long>(length_) + 1);
    buffer_[length_++] = c;
  }
  // n bytes, which may lie inside this buffer; nothing for n below 1.
  void append(char const *bytes, int n) { append0(bytes, n); }
  void append0(char const *bytes, int n) {
    if (n > 0) appendBytes(bytes, static_cast<size_t>(n));
  }
  void append(ByteBuffer const &other) { append0(other.buffer_, other.length_); }
  void append(tvstring const &text) { appendBytes(text.data(), text.length()); }
  // Up to the terminator.
  void appendDelimiter(char const *delimiter) { appendBytes(delimiter, std::strlen(delimiter)); }

  // The texts of tvstring::assign.
  void append(int value) { append(scratch_.assign(value)); }
  void append(long long value) { append(scratch_.assign(value)); }
  void append(float value) { append(scratch_.assign(value)); }
  void append(double value) { append(scratch_.assign(value)); }
  // With `point` in place of the '.'.
  void append(float value, char point) { appendWithPoint(scratch_.assign(value), point); }
  void append(double value, char point) { appendWithPoint(scratch_.assign(value), point); }

  static int floatToIntBits(float value) { return std::bit_cast<int>(value); }
  static float intBitsToFloat(int bits) { return std::bit_cast<float>(bits); }
  static long long doubleToLongBits(double value) { return std::bit_cast<long long>(value); }
  static double longBitsToDouble(long long bits) { return std::bit_cast<double>(bits); }

 private:
  void appendBytes(char const *bytes, size_t n) {
    size_t const free = capacity_ > length_ ? static_cast<size_t>(capacity_ - length_) : 0;
    if (n <= free) {
      if (n == 0) return;
      std::memcpy(buffer_ + length_, bytes, n);
      length_ += static_cast<int>(n);
    } else {
      growAndAppend(bytes, n);
    }
  }
  void reserve(long long needed) {
    if (needed > capacity_) grow(needed);
  }
  void grow(long long needed);
  void growAndAppend(char const *bytes, size_t n);
  // A larger block that holds the present bytes; `capacity` receives its size.
  std::unique_ptr<char[]> copyInto(long long needed, int &capacity) const;
  void replaceBlock(std::unique_ptr<char[]> block, int capacity);
  void appendWithPoint(tvstring const &text, char point);
  void freeOwned() {
    if (ownsBuffer_) delete[] buffer_;
  }
  [[noreturn]] static void raiseOutOfBounds();

  char *buffer_ = nullptr;
  int capacity_ = 0;  // stays 0 for wrapped bytes, so that every write finds no room and moves to an owned block
  int length_ = 0;
  int readPosition_ = 0;
  bool ownsBuffer_ = false;
  tvstring scratch_;
};

}  // namespace tavrone

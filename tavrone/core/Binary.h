#pragma once

#include "tavrone/core/tvstring.h"

namespace tavrone {

// A byte array: the storage and sharing of tvstring under an interface for raw data. Copies share one counted array;
// set() writes in place and every holder sees it. Positions and lengths are not checked unless said.
// Belongs, with everything that shares its array, to one thread at a time.
class TAVRONE_API Binary {
 public:
  // What an empty value points at.
  static constexpr char const (&EMPTY_BIN_LITERAL)[sizeof tvstring::EMPTY_TEXT] = tvstring::EMPTY_TEXT;

  constexpr Binary() noexcept = default;
  // n bytes, not initialised.
  explicit Binary(size_t n) {
    bytes_.ensureCleanFree(n);
    bytes_.length_ = n;
  }
  Binary(size_t n, char c) : bytes_(n, c) {}
  Binary(char const *bytes, size_t n) : bytes_(bytes, n) {}
  // With copy false it refers to the caller's bytes, which must outlive it and all its copies.
  Binary(char const *bytes, size_t n, bool copy);
  Binary(Binary const &) noexcept = default;
  // Leaves the source empty.
  Binary(Binary &&) noexcept = default;
  // Shares the text's array.
  Binary(tvstring const &text) noexcept : bytes_(text) {}

  Binary &operator=(Binary const &) noexcept = default;
  Binary &operator=(Binary &&) noexcept = default;
  Binary &assign(Binary const &other) noexcept { return *this = other; }
  // Copies n bytes, which may lie inside this value.
  Binary &assign(char const *bytes, size_t n) {
    bytes_.assign(bytes, n);
    return *this;
  }

  char const *data() const { return bytes_.data(); }
  size_t size() const { return bytes_.size(); }
  size_t length() const { return bytes_.length(); }
  bool empty() const { return bytes_.empty(); }
  // Whether copies keep the bytes alive; false for bytes that are somebody else's, or static.
  bool isCounted() const { return bytes_.owner_ != nullptr; }

  char operator[](size_t i) const { return bytes_[i]; }
  // The byte sign-extended: 0xE9 is -23.
  int at(size_t i) const { return static_cast<signed char>(bytes_[i]); }
  // Writes in place although const, and although others may share the array: that is meant.
  void set(size_t i, char c) const { const_cast<char *>(bytes_.data_)[i] = c; }

  // Room for `n` bytes in an array of this value's own, the old bytes gone. The caller writes them and then calls
  // setBufferLength. A negative n raises std::bad_array_new_length and leaves the value as it is.
  char *getBuffer(int n) { return bytes_.getBuffer(n); }
  void setBufferLength(int n) { bytes_.setBufferLength(n); }

  Binary operator+(Binary const &other) const {
    return addtvstrings(bytes_.data_, bytes_.length_, other.bytes_.data_, other.bytes_.length_);
  }
  // A copy of n bytes from pos, unlike tvstring::substr.
  Binary sub(int pos, int n) const { return Binary(data() + pos, static_cast<size_t>(n)); }

  bool operator==(Binary const &other) const { return bytes_ == other.bytes_; }
  bool operator!=(Binary const &other) const { return bytes_ != other.bytes_; }
  // Both always false: containers ask for them, and they do not order.
  bool operator<(Binary const &) const { return false; }
  bool operator>(Binary const &) const { return false; }

  tvstring toString() const { return toASCIIString(); }
  // A copy of the bytes as text.
  tvstring toASCIIString() const { return tvstring(data(), length()); }
  // The same bytes as text: shares the array.
  tvstring asText() const { return bytes_; }
  // This value, or a copy where copies would not keep the bytes alive.
  Binary counted() const { return isCounted() ? *this : Binary(data(), length()); }

  // Two characters a byte, high nibble first, "0123456789ABCDEF".
  tvstring toHexString() const;
  // Takes characters in pairs and rejects none: whatever is no digit counts as its capital letter's distance from '7',
  // so that a wrong character gives a wrong byte. An odd last character is ignored.
  static Binary fromHexString(tvstring const &text);

  // RFC 4648 base64 with padding and without line breaks.
  tvstring toBase64String() const;
  // Decodes up to the first '=' and skips every byte outside the alphabet. Of n characters of the alphabet come
  // n / 4 * 3 + max(n % 4 - 1, 0) bytes.
  static Binary fromBase64String(tvstring const &text);

  // For subclasses, as the members of tvstring of those names: the first two do not release what the value held.
  void init(char const *bytes, size_t n) { bytes_.init(bytes, n); }
  void copyToThis(Binary const &other) noexcept { bytes_.copyToThis(other.bytes_); }
  void clean() noexcept { bytes_.clean(); }
  static void clean(chararray *array) noexcept { tvstring::clean(array); }

 private:
  tvstring bytes_;
};

}  // namespace tavrone

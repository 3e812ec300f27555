#pragma once

#include <cstddef>
#include <cstring>
#include <string>
#include <type_traits>

#include "tavrone/core/Export.h"
#include "tavrone/core/chararray.h"

namespace tavrone {

// The string of the whole system: a counted run of bytes, any value included. Copies and substrings share one counted
// chararray and allocate nothing; text without an owner is static, or outlives the string by the caller's care.
//
// The text is not kept terminated: c_str() writes the terminator when somebody asks for it, and a view pays for one
// copy then. Whatever reads a value as data uses exactly [data(), data() + length()).
//
// Positions are size_t; "not found" is npos, all bits set. Positions and lengths are not checked unless said.
// A string, and everything that shares its array, belongs to one thread at a time; text without an owner is free of
// that.
class TAVRONE_API tvstring {
 public:
  static constexpr size_t npos = static_cast<size_t>(-1);

  // The empty string: no owner, no allocation.
  static tvstring const EMPTY;

  constexpr tvstring() noexcept : data_(EMPTY_TEXT), length_(0), owner_(nullptr) {}

  // Copies a terminated text; null gives an empty string with an array of its own.
  tvstring(char const *text);
  tvstring(char const *text, size_t length);
  tvstring(size_t count, char c);

  tvstring(tvstring const &other) noexcept : data_(other.data_), length_(other.length_), owner_(other.owner_) {
    if (owner_ != nullptr) owner_->addRef();
  }
  // Leaves the source empty.
  tvstring(tvstring &&other) noexcept : data_(other.data_), length_(other.length_), owner_(other.owner_) {
    other.forget();
  }
  ~tvstring() { clean(); }

  tvstring &operator=(tvstring const &other) noexcept { return assign(other); }
  tvstring &operator=(tvstring &&other) noexcept {
    if (this != &other) {
      chararray *old = owner_;
      data_ = other.data_;
      length_ = other.length_;
      owner_ = other.owner_;
      other.forget();
      clean(old);
    }
    return *this;
  }
  // Copies a terminated text, which may lie inside this string. REQUIRES: text is not null
  tvstring &operator=(char const *text) { return assign(text, std::strlen(text)); }

  tvstring &assign(tvstring const &other) noexcept {
    chararray *old = owner_;
    if (other.owner_ != nullptr) other.owner_->addRef();
    data_ = other.data_;
    length_ = other.length_;
    owner_ = other.owner_;
    clean(old);
    return *this;
  }
  // Copies `length` bytes, which may lie inside this string.
  tvstring &assign(char const *text, size_t length);

  // Decimal text of the value, rendered into this string's own array where it is unshared and large enough.
  tvstring &assign(int value);
  tvstring &assign(long long value);
  tvstring &assign(float value);
  tvstring &assign(double value);
  tvstring &assign(char value);

  // A string over static text, no copy and no owner; this string is not looked at.
  tvstring static_string(char const *text) const { return tvstring(text, std::strlen(text), nullptr, false); }

  size_t length() const { return length_; }
  size_t size() const { return length_; }
  bool empty() const { return length_ == 0; }
  char at(size_t i) const { return data_[i]; }
  char operator[](size_t i) const { return data_[i]; }

  // The first byte; no terminator is promised.
  char const *data() const { return data_; }

  // The text with a terminator behind it. Text without an owner is returned as it stands: a substring of a literal
  // reads on to the literal's end. A view on a larger array moves to an array of its own; other holders see no change.
  char const *c_str() const { return owner_ == nullptr ? data_ : terminate(); }

  // Room for `n` bytes and a terminator in an array of this string's own, the old text gone. The caller writes the text
  // and then calls setBufferLength. A negative n raises std::bad_array_new_length and leaves the string as it is.
  char *getBuffer(int n) { return ensureCleanFree(static_cast<size_t>(n)); }
  void setBufferLength(int n) { length_ = static_cast<size_t>(n); }

  tvstring const &toString() const { return *this; }
  void toString(tvstring &out) const { out.assign(*this); }

  // Views on the same array.
  tvstring substr(size_t pos) const { return tvstring(data_ + pos, length_ - pos, owner_, true); }
  tvstring substr(size_t pos, size_t n) const {
    size_t const rest = length_ - pos;
    return tvstring(data_ + pos, n < rest ? n : rest, owner_, true);
  }
  void substr(size_t pos, tvstring &out) const { out.becomeView(data_ + pos, length_ - pos, owner_); }
  // Deliberately does not clamp n, unlike the form that returns its result.
  void substr(size_t pos, size_t n, tvstring &out) const { out.becomeView(data_ + pos, n, owner_); }

  // Bytes from this text's start to the other's, for two views of one text.
  ptrdiff_t distance(tvstring const &other) const { return other.data_ - data_; }
  // The view from this text's start through the other's end, for two views of one text; empty if the other starts
  // first.
  tvstring span(tvstring const &other) const;

  // The first position at or after start, or npos. Bytes compare sign-extended: a positive c above 127 is never found.
  size_t find(int c) const { return find(c, 0); }
  size_t find(int c, size_t start) const {
    if (start >= length_ || c < -128 || c > 127) return npos;
    void const *hit = std::memchr(data_ + start, c, length_ - start);
    return hit == nullptr ? npos : static_cast<size_t>(static_cast<char const *>(hit) - data_);
  }
  size_t find(tvstring const &text) const { return find(text, 0); }
  // An empty text is found at start, and at or past the end only when both texts are empty and start is 0.
  size_t find(tvstring const &text, size_t start) const;
  // The last position at or before start, or npos.
  size_t rfind(char c) const { return rfind(c, length_ - 1); }
  size_t rfind(char c, size_t start) const;
  size_t rfind(tvstring const &text) const { return rfind(text, length_); }
  // The last position at or below the smaller of start and length() - text.length(); an empty text gives that bound.
  size_t rfind(tvstring const &text, size_t start) const;

  // The difference of the first unequal pair of bytes, which count as signed; with none, the low 32 bits of the
  // difference of the lengths.
  int compare(char const *text, size_t length) const;
  int compare(char const *text) const { return compare(text, std::strlen(text)); }
  int compare(tvstring const &other) const { return compare(other.data_, other.length_); }

  bool operator<(tvstring const &other) const { return compare(other) < 0; }
  bool operator>(tvstring const &other) const { return compare(other) > 0; }
  bool operator<(char const *text) const { return compare(text) < 0; }
  bool operator>(char const *text) const { return compare(text) > 0; }
  bool operator==(tvstring const &other) const { return equals(other); }
  bool operator!=(tvstring const &other) const { return !equals(other); }
  bool operator==(char const *text) const { return equals(text, std::strlen(text)); }
  bool operator!=(char const *text) const { return !equals(text, std::strlen(text)); }
  static bool equals(char const *a, char const *b, size_t n) { return n == 0 || std::memcmp(a, b, n) == 0; }

  tvstring operator+(tvstring const &other) const;

 protected:
  // Static text; only the first argument is read. Takes any pointer as the second, but no literal 0: that is a length.
  template <class Pointer>
  requires std::is_convertible_v<Pointer, char const *>
  constexpr tvstring(char const *text, Pointer) noexcept
      : data_(isNull(text) ? EMPTY_TEXT : text),
        length_(isNull(text) ? 0 : std::char_traits<char>::length(text)),
        owner_(nullptr) {}
  // A view; adds a reference if told so and there is an owner.
  tvstring(char const *text, size_t length, chararray *owner, bool addRef) noexcept
      : data_(text), length_(length), owner_(owner) {
    if (addRef && owner != nullptr) owner->addRef();
  }

  // These four do not release what the string held.
  void assign0(char const *text, size_t length, chararray *owner, bool addRef) noexcept {
    if (addRef && owner != nullptr) owner->addRef();
    data_ = text;
    length_ = length;
    owner_ = owner;
  }
  void init(char const *text, size_t length);
  void copyToThis(tvstring const &other) noexcept { assign0(other.data_, other.length_, other.owner_, true); }
  void forget() noexcept {
    data_ = EMPTY_TEXT;
    length_ = 0;
    owner_ = nullptr;
  }

  void clean() noexcept {
    clean(owner_);
    owner_ = nullptr;
  }
  static void clean(chararray *array) noexcept {
    if (array != nullptr) array->releaseRef();
  }

  size_t capacity() const { return owner_ == nullptr ? 0 : owner_->length(); }
  // An unshared array of more than n bytes, length 0; returns its start. The old text is gone.
  char *ensureCleanFree(size_t n) {
    if (owner_ == nullptr || owner_->getRefCount() > 1 || owner_->length() <= n) replaceArray(n);
    length_ = 0;
    data_ = owner_->getPtr();
    return owner_->getPtr();
  }

  // npos where the sum doesn't fit, so that no wrapped length ever reaches an allocation.
  static constexpr size_t saturatedSum(size_t a, size_t b) { return a + b < a ? npos : a + b; }

  // A constant text never is; under sanitizers gcc takes the comparison for no constant.
  static constexpr bool isNull(char const *text) { return !std::is_constant_evaluated() && text == nullptr; }

  static constexpr char EMPTY_TEXT[8] = {};

  mutable char const *data_;
  size_t length_;
  mutable chararray *owner_;

 private:
  friend class Binary;
  friend TAVRONE_API tvstring addtvstrings(char const *a, size_t aLength, char const *b, size_t bLength);

  // A view that moves on within one array, as over the fields of a message, touches no count.
  void becomeView(char const *text, size_t length, chararray *owner) noexcept {
    chararray *old = owner_;
    data_ = text;
    length_ = length;
    if (old == owner) return;
    if (owner != nullptr) owner->addRef();
    owner_ = owner;
    clean(old);
  }
  void replaceArray(size_t n);
  char const *terminate() const;
  bool equals(tvstring const &other) const {
    return length_ == other.length_ && (data_ == other.data_ || equals(data_, other.data_, length_));
  }
  bool equals(char const *text, size_t length) const { return length_ == length && equals(data_, text, length); }
  static bool equalsIgnoreCase(char const *a, char const *b, size_t n);
};

static_assert(sizeof(tvstring) == 3 * sizeof(void *) && std::is_standard_layout_v<tvstring>);
static_assert(std::is_nothrow_move_constructible_v<tvstring> && std::is_nothrow_move_assignable_v<tvstring>);

inline bool operator==(char const *a, tvstring const &b) {
  return b == a;
}
inline bool operator!=(char const *a, tvstring const &b) {
  return b != a;
}

// A string over static text: never copied, never owned, safe to read from every thread.
class tvstringliteral : public tvstring {
 public:
  constexpr tvstringliteral(char const *text) noexcept : tvstring(text, nullptr) {}
};

// Both texts in a fresh array, not terminated.
TAVRONE_API tvstring addtvstrings(char const *a, size_t aLength, char const *b, size_t bLength);
TAVRONE_API tvstring operator+(tvstring const &a, char b);
TAVRONE_API tvstring operator+(tvstring const &a, char const *b);
TAVRONE_API tvstring operator+(char a, tvstring const &b);
TAVRONE_API tvstring operator+(char const *a, tvstring const &b);

}  // namespace tavrone

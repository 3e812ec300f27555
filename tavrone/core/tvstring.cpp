#include "tavrone/core/tvstring.h"

#include <cctype>
#include <exception>
#include <new>

#include "tavrone/core/Raise.h"

namespace tavrone {

constinit tvstring const tvstring::EMPTY;

chararray *chararray::create(size_t capacity) {
  if (capacity > static_cast<size_t>(PTRDIFF_MAX) - sizeof(chararray)) throw std::bad_array_new_length();
  void *block = ::operator new(sizeof(chararray) + capacity);
  return new (block) chararray(capacity, static_cast<char *>(block) + sizeof(chararray));
}

chararray *chararray::resize(chararray *old, size_t capacity) {
  chararray *grown = create(capacity);
  if (old != nullptr) {
    std::memcpy(grown->characters_, old->characters_, old->capacity_);
    old->releaseRef();
  }
  return grown;
}

chararray::~chararray() noexcept(false) {
  if (references_ != 0 && std::uncaught_exceptions() == 0)
    raise<TransformException>("Ref count error. Illegal delete on tvstring object", "cpp/tvstring");
}

void chararray::destroy() noexcept { delete this; }

tvstring::tvstring(char const *text) { init(text, text == nullptr ? 0 : std::strlen(text)); }

tvstring::tvstring(char const *text, size_t length) { init(text, length); }

tvstring::tvstring(size_t count, char c) : length_(count) {
  owner_ = chararray::create(count + 1);
  data_ = owner_->getPtr();
  std::memset(owner_->getPtr(), c, count);
}

void tvstring::init(char const *text, size_t length) {
  chararray *array = chararray::create(length + 1);
  if (length != 0) std::memcpy(array->getPtr(), text, length);
  assign0(array->getPtr(), length, array, false);
}

tvstring &tvstring::assign(char const *text, size_t length) {
  chararray *old = owner_;
  init(text, length);
  clean(old);
  return *this;
}

char const *tvstring::c_str() const { return owner_ == nullptr ? data_ : terminate(); }

char const *tvstring::terminate() const {
  size_t const wanted = length_ + 1;
  bool const fillsOwnArray = owner_->getRefCount() < 2 && wanted >= owner_->length();
  bool const terminatorFits = static_cast<size_t>(data_ - owner_->getPtr()) + wanted <= owner_->length();
  if (!terminatorFits || (!fillsOwnArray && wanted != owner_->length())) {
    chararray *array = chararray::create(wanted);
    std::memcpy(array->getPtr(), data_, length_);
    owner_->releaseRef();
    owner_ = array;
    data_ = array->getPtr();
  }
  const_cast<char *>(data_)[length_] = '\0';
  return data_;
}

char *tvstring::ensureCleanFree(size_t n) {
  if (owner_ == nullptr || owner_->getRefCount() > 1 || owner_->length() <= n) {
    chararray *array = chararray::create(n + 1);
    clean();
    owner_ = array;
  }
  length_ = 0;
  data_ = owner_->getPtr();
  return owner_->getPtr();
}

tvstring tvstring::span(tvstring const &other) const {
  if (other.data_ < data_) return tvstring();
  return tvstring(data_, other.length_ + static_cast<size_t>(other.data_ - data_), owner_, true);
}

size_t tvstring::find(tvstring const &text, size_t start) const {
  if (length_ < text.length_) return npos;
  if (start >= length_) return length_ == 0 && start == 0 && text.length_ == 0 ? 0 : npos;
  if (text.length_ == 0) return start;
  if (length_ - start < text.length_) return npos;
  void const *hit = memmem(data_ + start, length_ - start, text.data_, text.length_);
  return hit == nullptr ? npos : static_cast<size_t>(static_cast<char const *>(hit) - data_);
}

size_t tvstring::rfind(char c, size_t start) const {
  if (length_ == 0) return npos;
  size_t const last = start < length_ - 1 ? start : length_ - 1;
  void const *hit = memrchr(data_, c, last + 1);
  return hit == nullptr ? npos : static_cast<size_t>(static_cast<char const *>(hit) - data_);
}

size_t tvstring::rfind(tvstring const &text, size_t start) const {
  if (length_ < text.length_) return npos;
  size_t const bound = length_ - text.length_;
  for (size_t at = start < bound ? start : bound;; --at) {
    if (equals(data_ + at, text.data_, text.length_)) return at;
    if (at == 0) return npos;
  }
}

int tvstring::compare(char const *text, size_t length) const {
  size_t const common = length_ < length ? length_ : length;
  for (size_t i = 0; i < common; ++i)
    if (data_[i] != text[i]) return static_cast<signed char>(data_[i]) - static_cast<signed char>(text[i]);
  return static_cast<int>(static_cast<unsigned>(length_ - length));
}

bool tvstring::equalsIgnoreCase(char const *a, char const *b, size_t n) {
  for (size_t i = 0; i < n; ++i)
    if (std::tolower(static_cast<unsigned char>(a[i])) != std::tolower(static_cast<unsigned char>(b[i]))) return false;
  return true;
}

tvstring tvstring::operator+(tvstring const &other) const {
  return addtvstrings(data_, length_, other.data_, other.length_);
}

namespace {

// Gives addtvstrings the reach into a string's array without a second copy of the text.
class FreshText : public tvstring {
 public:
  explicit FreshText(size_t length) { ensureCleanFree(length); length_ = length; }
  char *text() { return owner_->getPtr(); }
};

}  // namespace

tvstring addtvstrings(char const *a, size_t aLength, char const *b, size_t bLength) {
  FreshText sum(aLength + bLength);
  if (aLength != 0) std::memcpy(sum.text(), a, aLength);
  if (bLength != 0) std::memcpy(sum.text() + aLength, b, bLength);
  return sum;
}

tvstring operator+(tvstring const &a, char b) { return addtvstrings(a.data(), a.length(), &b, 1); }
tvstring operator+(tvstring const &a, char const *b) { return addtvstrings(a.data(), a.length(), b, std::strlen(b)); }
tvstring operator+(char a, tvstring const &b) { return addtvstrings(&a, 1, b.data(), b.length()); }
tvstring operator+(char const *a, tvstring const &b) { return addtvstrings(a, std::strlen(a), b.data(), b.length()); }

}  // namespace tavrone

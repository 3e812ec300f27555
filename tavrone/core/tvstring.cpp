#include "tavrone/core/tvstring.h"

#include <emmintrin.h>

#include <algorithm>
#include <bit>
#include <cctype>
#include <exception>
#include <functional>
#include <new>

#include "tavrone/core/Raise.h"

namespace tavrone {

constinit tvstring const tvstring::EMPTY;

chararray *chararray::create(size_t capacity) {
  if (capacity > static_cast<size_t>(PTRDIFF_MAX) - sizeof(chararray)) throw std::bad_array_new_length();
  void *block = ::operator new(sizeof(chararray) + capacity);
  return ::new (block) chararray(capacity, static_cast<char *>(block) + sizeof(chararray));
}

chararray *chararray::resize(chararray *old, size_t capacity) {
  chararray *grown = create(capacity);
  if (old != nullptr) {
    std::memcpy(grown->characters_, old->characters_, std::min(old->capacity_, capacity));
    old->releaseRef();
  }
  return grown;
}

chararray::~chararray() noexcept(false) {
  if (references_ != 0 && std::uncaught_exceptions() == 0)
    raise<TransformException>("Ref count error. Illegal delete on tvstring object", "cpp/tvstring");
}

void chararray::destroy() noexcept {
  delete this;
}

tvstring::tvstring(char const *text) {
  init(text, text == nullptr ? 0 : std::strlen(text));
}

tvstring::tvstring(char const *text, size_t length) {
  init(text, length);
}

tvstring::tvstring(size_t count, char c) {
  chararray *array = chararray::create(saturatedSum(count, 1));
  std::memset(array->getPtr(), c, count);
  assign0(array->getPtr(), count, array, false);
}

void tvstring::init(char const *text, size_t length) {
  chararray *array = chararray::create(saturatedSum(length, 1));
  if (length != 0) std::memcpy(array->getPtr(), text, length);
  assign0(array->getPtr(), length, array, false);
}

tvstring &tvstring::assign(char const *text, size_t length) {
  chararray *old = owner_;
  init(text, length);
  clean(old);
  return *this;
}

char const *tvstring::terminate() const {
  size_t const capacity = owner_->length();
  size_t const offset = static_cast<size_t>(data_ - owner_->getPtr());
  size_t const wanted = saturatedSum(length_, 1);
  // A text that fills its array may write the spare byte, shared or not: no view uses it.
  if (offset == 0 && wanted == capacity) {
    owner_->getPtr()[length_] = '\0';
    return data_;
  }
  // A view: it moves to an array of its own. A length beyond the array, set by hand, reads as zeros there.
  chararray *array = chararray::create(wanted);
  size_t const held = std::min(length_, offset < capacity ? capacity - offset : 0);
  std::memcpy(array->getPtr(), data_, held);
  std::memset(array->getPtr() + held, 0, wanted - held);
  owner_->releaseRef();
  owner_ = array;
  data_ = array->getPtr();
  return data_;
}

void tvstring::replaceArray(size_t n) {
  chararray *array = chararray::create(saturatedSum(n, 1));
  clean();
  owner_ = array;
}

tvstring tvstring::span(tvstring const &other) const {
  if (data_ == nullptr || other.data_ == nullptr || std::less<>()(other.data_, data_)) return tvstring();
  return tvstring(data_, other.length_ + static_cast<size_t>(other.data_ - data_), owner_, true);
}

size_t tvstring::find(tvstring const &text, size_t start) const {
  if (length_ < text.length_) return npos;
  if (start >= length_) return length_ == 0 && start == 0 ? 0 : npos;
  if (text.length_ == 0) return start;
  void const *hit = memmem(data_ + start, length_ - start, text.data_, text.length_);
  return hit == nullptr ? npos : static_cast<size_t>(static_cast<char const *>(hit) - data_);
}

size_t tvstring::rfind(char c, size_t start) const {
  if (length_ == 0) return npos;
  void const *hit = memrchr(data_, c, std::min(start, length_ - 1) + 1);
  return hit == nullptr ? npos : static_cast<size_t>(static_cast<char const *>(hit) - data_);
}

size_t tvstring::rfind(tvstring const &text, size_t start) const {
  if (length_ < text.length_) return npos;
  size_t at = std::min(start, length_ - text.length_);
  if (text.length_ == 0) return at;
  for (size_t candidates = at + 1; candidates != 0; candidates = at) {
    void const *first = memrchr(data_, text.data_[0], candidates);
    if (first == nullptr) return npos;
    at = static_cast<size_t>(static_cast<char const *>(first) - data_);
    if (equals(data_ + at, text.data_, text.length_)) return at;
  }
  return npos;
}

namespace {

template <class Word>
Word load(char const *from) {
  Word word;
  std::memcpy(&word, from, sizeof word);
  return word;
}

// Two words that overlap cover every n from one word's size to two; the smaller index that differs, or n.
template <class Word>
size_t firstDifferenceInTwo(char const *a, char const *b, size_t n) {
  size_t const second = n - sizeof(Word);
  if (Word const unequal = load<Word>(a) ^ load<Word>(b)) return static_cast<size_t>(std::countr_zero(unequal)) / 8;
  Word const unequal = load<Word>(a + second) ^ load<Word>(b + second);
  return unequal == 0 ? n : second + static_cast<size_t>(std::countr_zero(unequal)) / 8;
}

unsigned unequalBytes(char const *a, char const *b) {
  return static_cast<unsigned>(_mm_movemask_epi8(_mm_cmpeq_epi8(load<__m128i>(a), load<__m128i>(b)))) ^ 0xFFFFU;
}

// The first index at which a and b differ, or n.
size_t firstDifference(char const *a, char const *b, size_t n) {
  constexpr size_t BLOCK = sizeof(__m128i);
  constexpr size_t STRIDE = 256;
  if (n >= BLOCK) {
    size_t i = 0;
    while (n - i >= STRIDE && std::memcmp(a + i, b + i, STRIDE) == 0) i += STRIDE;
    for (; n - i >= BLOCK; i += BLOCK)
      if (unsigned const unequal = unequalBytes(a + i, b + i))
        return i + static_cast<size_t>(std::countr_zero(unequal));
    if (i == n) return n;
    i = n - BLOCK;  // overlaps what is known to be equal
    unsigned const unequal = unequalBytes(a + i, b + i);
    return unequal == 0 ? n : i + static_cast<size_t>(std::countr_zero(unequal));
  }
  if (n >= 8) return firstDifferenceInTwo<uint64_t>(a, b, n);
  if (n >= 4) return firstDifferenceInTwo<uint32_t>(a, b, n);
  size_t i = 0;
  while (i < n && a[i] == b[i]) ++i;
  return i;
}

}  // namespace

int tvstring::compare(char const *text, size_t length) const {
  size_t const common = std::min(length_, length);
  size_t const at = data_ == text ? common : firstDifference(data_, text, common);
  if (at < common) return static_cast<signed char>(data_[at]) - static_cast<signed char>(text[at]);
  return static_cast<int>(static_cast<uint32_t>(length_ - length));
}

bool tvstring::equalsIgnoreCase(char const *a, char const *b, size_t n) {
  return std::equal(a, a + n, b, [](char x, char y) {
    return std::tolower(static_cast<unsigned char>(x)) == std::tolower(static_cast<unsigned char>(y));
  });
}

tvstring tvstring::operator+(tvstring const &other) const {
  return addtvstrings(data_, length_, other.data_, other.length_);
}

tvstring addtvstrings(char const *a, size_t aLength, char const *b, size_t bLength) {
  size_t const length = tvstring::saturatedSum(aLength, bLength);
  chararray *array = chararray::create(tvstring::saturatedSum(length, 1));
  if (aLength != 0) std::memcpy(array->getPtr(), a, aLength);
  if (bLength != 0) std::memcpy(array->getPtr() + aLength, b, bLength);
  return tvstring(array->getPtr(), length, array, false);
}

tvstring operator+(tvstring const &a, char b) {
  return addtvstrings(a.data(), a.length(), &b, 1);
}
tvstring operator+(tvstring const &a, char const *b) {
  return addtvstrings(a.data(), a.length(), b, std::strlen(b));
}
tvstring operator+(char a, tvstring const &b) {
  return addtvstrings(&a, 1, b.data(), b.length());
}
tvstring operator+(char const *a, tvstring const &b) {
  return addtvstrings(a, std::strlen(a), b.data(), b.length());
}

}  // namespace tavrone

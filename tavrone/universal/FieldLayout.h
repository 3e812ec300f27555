#pragma once

#include <climits>
#include <cmath>
#include <concepts>
#include <cstring>
#include <type_traits>

#include "tavrone/core/BigDecimal.h"
#include "tavrone/core/ByteBuffer.h"
#include "tavrone/core/Conversion.h"
#include "tavrone/core/DateTime.h"
#include "tavrone/core/DigitText.h"
#include "tavrone/core/Raise.h"
#include "tavrone/universal/UniversalRecord.h"

// Internal: how UniversalOutputRecord lays its fields out. Every value is first rendered as a text on the stack and
// checked; only then room is made for the whole field, so that a field that fails leaves nothing behind.

namespace tavrone {

constexpr char const *OUTPUT_SOURCE = "cpp/universal/UniversalOutputRecord";

[[noreturn]] TAVRONE_COLD inline void raiseCannotRepresent(tvstring const &value, long long width, char const *unit) {
  raise<TransformException>("Cannot represent '" + value + "' in " + dlongToString(width) + ' ' + unit, OUTPUT_SOURCE);
}
// Raises "Out of bounds" for more than a record can hold.
inline int lengthOf(size_t n) {
  if (n > INT_MAX) raise<TransformException>("Out of bounds", OUTPUT_SOURCE);
  return static_cast<int>(n);
}

// The text of one value, on the stack; a view where the value is a text itself.
class FieldText {
 public:
  explicit FieldText(tvstring const &text) : data_(text.data()), length_(text.length()) {}
  explicit FieldText(char value) : data_(room_), length_(1) { room_[0] = value; }
  template <class Number>
  requires std::same_as<Number, int> || std::same_as<Number, long long>
  explicit FieldText(Number value) : data_(room_), length_(static_cast<size_t>(writeNumber(value, room_) - room_)) {}
  FieldText(double value, char point) : data_(room_), length_(static_cast<size_t>(writeNumber(value, room_) - room_)) {
    if (void *dot = point == '.' ? nullptr : std::memchr(room_, '.', length_)) *static_cast<char *>(dot) = point;
  }
  FieldText(DateTime const &value, tvstring const &pattern)
      : data_(room_), length_(value.asString(room_, LONGEST_DATE, pattern)) {}
  // In `longText` where the text is longer than any number of 64 bits.
  template <std::derived_from<MAPM> Decimal>
  FieldText(Decimal const &value, tvstring &longText) {
    if (char const *end = value.writeFixed(room_, room_ + sizeof room_)) {
      data_ = room_;
      length_ = static_cast<size_t>(end - room_);
    } else {
      longText = value.toString();
      data_ = longText.data();
      length_ = longText.length();
    }
  }
  FieldText(FieldText const &) = delete;

  char const *data() const { return data_; }
  size_t size() const { return length_; }
  int length() const { return lengthOf(length_); }
  tvstring toString() const { return tvstring(data_, length_); }

 private:
  static constexpr size_t LONGEST_DATE = 256;
  static constexpr size_t LONGEST_NUMBER = 352;

  char const *data_;
  size_t length_;
  char room_[LONGEST_NUMBER];
};

// The least value has no magnitude and stays negative.
template <std::signed_integral T>
constexpr T magnitudeOf(T value) {
  using Unsigned = std::make_unsigned_t<T>;
  return value < 0 ? static_cast<T>(Unsigned{0} - static_cast<Unsigned>(value)) : value;
}

// Writes a field's parts, one behind the other, into room that is made for all of them at once. Parts are short, so
// that they are written in whole words: what a word holds too much, the next part or field overwrites.
class FieldRoom {
 public:
  // For n bytes. Raises "Out of bounds" for more than a record can hold.
  FieldRoom(ByteBuffer &out, size_t n) : out_(out) {
    out.ensureFree(lengthOf(n + WORD));
    at_ = out.str() + out.length();
  }
  FieldRoom(FieldRoom const &) = delete;
  ~FieldRoom() { out_.chop(static_cast<int>(at_ - out_.str())); }

  void put(char c) { *at_++ = c; }
  void fill(size_t n, char c) {
    if (n > SHORT) {
      std::memset(at_, c, n);
    } else {
      uint64_t const word = static_cast<unsigned char>(c) * 0x0101010101010101;
      for (size_t i = 0; i < n; i += WORD) std::memcpy(at_ + i, &word, WORD);
    }
    at_ += n;
  }
  void copy(char const *from, size_t n) {
    if (n < WORD) {
      copyShort(from, n);
    } else if (n > SHORT) {
      std::memcpy(at_, from, n);
    } else {
      for (size_t i = 0; i + WORD < n; i += WORD) std::memcpy(at_ + i, from + i, WORD);
      std::memcpy(at_ + n - WORD, from + n - WORD, WORD);
    }
    at_ += n;
  }
  void copy(FieldText const &text) { copy(text.data(), text.size()); }
  void copy(tvstring const &text) { copy(text.data(), text.length()); }

 private:
  static constexpr size_t WORD = sizeof(uint64_t);
  static constexpr size_t SHORT = 4 * WORD;

  // Not a byte is read beyond the text: two parts that overlap.
  void copyShort(char const *from, size_t n) {
    if (n >= 4) {
      std::memcpy(at_, from, 4);
      std::memcpy(at_ + n - 4, from + n - 4, 4);
    } else if (n >= 2) {
      std::memcpy(at_, from, 2);
      std::memcpy(at_ + n - 2, from + n - 2, 2);
    } else if (n == 1) {
      std::memcpy(at_, from, 1);
    }
  }

  ByteBuffer &out_;
  char *at_;
};

// A field of fixed width: its fill, its sign and its digits. REQUIRES: they fit, as checkWidth says
inline void layOut(FieldText const &digits, bool negative, int width, bool rightAlign, char fill, FieldRoom &room) {
  size_t const free = static_cast<size_t>(width) - digits.size() - (negative ? 1 : 0);
  bool const signFirst = fill == '0';
  if (rightAlign && !signFirst) room.fill(free, fill);
  if (negative) room.put('-');
  if (rightAlign && signFirst) room.fill(free, fill);
  room.copy(digits);
  if (!rightAlign) room.fill(free, fill);
}

inline void checkWidth(FieldText const &digits, bool negative, long long width) {
  if (width < static_cast<long long>(digits.size()) + (negative ? 1 : 0))
    raiseCannotRepresent(digits.toString(), width, "digits");
}

inline void appendPadded(FieldText const &digits, bool negative, int width, bool rightAlign, char fill,
                         ByteBuffer &out) {
  checkWidth(digits, negative, width);
  FieldRoom room(out, static_cast<size_t>(width));
  layOut(digits, negative, width, rightAlign, fill, room);
}

// A text of fixed width; the terminator is -1 for none.
inline void appendFixedText(FieldText const &text, int width, bool rightAlign, char fill, int terminator,
                            ByteBuffer &out) {
  bool const terminated = terminator != -1;
  long long const textWidth = static_cast<long long>(width) - (terminated ? 1 : 0);
  long long const length = static_cast<long long>(text.size());
  if (length != 0 && length > textWidth) raiseCannotRepresent(text.toString(), textWidth, "characters");
  size_t const free = textWidth > length ? static_cast<size_t>(textWidth - length) : 0;
  bool const fillFirst = rightAlign || length == 0;
  FieldRoom room(out, text.size() + free + 1);
  if (fillFirst) room.fill(free, fill);
  room.copy(text);
  if (terminated) room.put(static_cast<char>(terminator));
  if (!fillFirst) room.fill(free, fill);
}

inline void appendFill(ByteBuffer &out, int n, char c) {
  if (n > 0) FieldRoom(out, static_cast<size_t>(n)).fill(static_cast<size_t>(n), c);
}

// A number's whole part and its fraction, which is rounded to places of its own and never carries into the whole part.
class SplitDouble {
 public:
  static constexpr int MOST_PLACES = 18;

  // Raises "Cannot represent" where the whole part leaves 64 bits.
  SplitDouble(double value, int width) : value_(value) {
    if (!(value >= -0x1p63 && value < 0x1p63)) raiseCannotRepresent(doubleToString(value), width, "digits");
    whole_ = static_cast<long long>(value);
    fraction_ = std::fabs(value - static_cast<double>(whole_));
  }

  bool isNegative() const { return value_ < 0; }
  long long magnitude() const { return magnitudeOf(whole_); }
  bool hasFraction() const { return fraction_ != 0; }
  // REQUIRES: 0 <= places <= MOST_PLACES
  long long fraction(int places) const {
    double const power = static_cast<double>(UniversalRecord::LONG_POWERS_OF_10[static_cast<size_t>(places)]);
    return static_cast<long long>(std::floor(power * fraction_ + 0.5));
  }

 private:
  double value_;
  long long whole_;
  double fraction_;
};

// A number with a fixed count of places on both sides of the point, checked.
class FixedDouble {
 public:
  FixedDouble(double value, int integerDigits, int fractionDigits, char point)
      : parts_(split(value, integerDigits, fractionDigits)),
        whole_(parts_.magnitude()),
        fraction_(parts_.fraction(fractionDigits)),
        integerDigits_(integerDigits),
        fractionDigits_(fractionDigits),
        point_(point) {
    checkWidth(whole_, parts_.isNegative(), integerDigits);
  }

  size_t size() const {
    return static_cast<size_t>(integerDigits_) + static_cast<size_t>(fractionDigits_) + (point_ != '\0' ? 1 : 0);
  }
  // For those whose failure is to leave nothing behind.
  void checkFraction() const { checkWidth(fraction_, false, fractionDigits_); }
  int length() const {
    checkFraction();
    return lengthOf(size());
  }
  // A fraction that does not fit fails behind what stands before it.
  void appendTo(ByteBuffer &out, char fill) const {
    FieldRoom room(out, size());
    layOut(whole_, parts_.isNegative(), integerDigits_, true, fill, room);
    if (point_ != '\0') room.put(point_);
    checkFraction();
    layOut(fraction_, false, fractionDigits_, true, '0', room);
  }

 private:
  static SplitDouble split(double value, int integerDigits, int fractionDigits) {
    if (fractionDigits < 0 || fractionDigits > SplitDouble::MOST_PLACES)
      raiseCannotRepresent(doubleToString(value), fractionDigits, "digits");
    return SplitDouble(value, integerDigits);
  }

  SplitDouble parts_;
  FieldText whole_;
  FieldText fraction_;
  int integerDigits_;
  int fractionDigits_;
  char point_;
};

}  // namespace tavrone

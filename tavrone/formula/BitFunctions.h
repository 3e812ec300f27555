#pragma once

#include <climits>
#include <concepts>
#include <type_traits>

#include "tavrone/core/Binary.h"

namespace tavrone {

// Bits of ints and long longs, and of bytes. Bit 0 is the lowest of a number, but the highest of byte 0 of a Binary: as
// numbers and bitmaps are written. A result is as wide as its number; smaller types count as int.
class TAVRONE_API BitFunctions {
  template <class... T>
  using Word = decltype((0 + ... + T()));
  template <class T>
  using Bits = std::make_unsigned_t<Word<T>>;
  template <class T>
  static constexpr int WIDTH = sizeof(Word<T>) * CHAR_BIT;

  template <class T>
  static constexpr bool hasBit(int bit) {
    return bit >= 0 && bit < WIDTH<T>;
  }
  // No bit for a position outside the width.
  template <class T>
  static constexpr Word<T> mask(int bit) {
    return hasBit<T>(bit) ? static_cast<Word<T>>(Bits<T>{1} << bit) : 0;
  }

 public:
  template <std::integral A, std::integral B>
  static constexpr Word<A, B> bitAnd(A a, B b) {
    return Word<A, B>{a} & Word<A, B>{b};
  }
  template <std::integral A, std::integral B>
  static constexpr Word<A, B> bitOr(A a, B b) {
    return Word<A, B>{a} | Word<A, B>{b};
  }
  template <std::integral A, std::integral B>
  static constexpr Word<A, B> bitXor(A a, B b) {
    return Word<A, B>{a} ^ Word<A, B>{b};
  }
  template <std::integral T>
  static constexpr Word<T> bitNot(T value) {
    return ~Word<T>{value};
  }

  // 0 for a count below 0 or at or past the width. shiftRight keeps the sign, shiftRightUnsigned fills with zeros.
  template <std::integral T>
  static constexpr Word<T> shiftLeft(T value, int count) {
    return hasBit<T>(count) ? static_cast<Word<T>>(static_cast<Bits<T>>(value) << count) : 0;
  }
  template <std::integral T>
  static constexpr Word<T> shiftRight(T value, int count) {
    return hasBit<T>(count) ? Word<T>{value} >> count : 0;
  }
  template <std::integral T>
  static constexpr Word<T> shiftRightUnsigned(T value, int count) {
    return hasBit<T>(count) ? static_cast<Word<T>>(static_cast<Bits<T>>(value) >> count) : 0;
  }

  // A bit outside the width is not set, and the others leave the value as it is.
  template <std::integral T>
  static constexpr bool isSet(T value, int bit) {
    return (value & mask<T>(bit)) != 0;
  }
  template <std::integral T>
  static constexpr Word<T> set(T value, int bit) {
    return value | mask<T>(bit);
  }
  template <std::integral T>
  static constexpr Word<T> clear(T value, int bit) {
    return value & ~mask<T>(bit);
  }
  template <std::integral T>
  static constexpr Word<T> flip(T value, int bit) {
    return value ^ mask<T>(bit);
  }

  // How many bits are set.
  template <std::integral T>
  static constexpr int count(T value) {
    return __builtin_popcountll(static_cast<Bits<T>>(value));
  }
  // `count` bits from `first` up, moved down to bit 0; those past the width are zeros. 0 for a `first` outside the
  // width and for a count below 1.
  template <std::integral T>
  static constexpr Word<T> extract(T value, int first, int count) {
    if (!hasBit<T>(first) || count < 1) return 0;
    Word<T> const bits = shiftRightUnsigned(value, first);
    return count >= WIDTH<T> ? bits : static_cast<Word<T>>(static_cast<Bits<T>>(bits) & ((Bits<T>{1} << count) - 1));
  }

  // False for a bit outside the bytes; set then leaves them as they are. The argument never changes.
  static bool isSet(Binary const &bytes, int bit) {
    return isInside(bytes, bit) && isSet(bytes.at(static_cast<size_t>(bit / CHAR_BIT)), 7 - bit % CHAR_BIT);
  }
  static Binary set(Binary const &bytes, int bit, bool on);

 private:
  static bool isInside(Binary const &bytes, int bit) {
    return bit >= 0 && static_cast<size_t>(bit / CHAR_BIT) < bytes.length();
  }
};

}  // namespace tavrone

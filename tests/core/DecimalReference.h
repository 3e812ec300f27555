#pragma once

#include <algorithm>
#include <cstdint>
#include <string>
#include <utility>

namespace tavrone {

// Decimal arithmetic as it is done on paper, digit by digit on text: slow, and too simple to be wrong in the same way
// as the library's. A whole number of units of 10^-scale.
class DecimalReference {
 public:
  bool negative = false;
  std::string digits;  // without leading zeros; empty for zero
  int scale = 0;       // never negative

  DecimalReference() = default;
  // A number's text: a sign, digits, a point, an exponent. REQUIRES: well-formed
  explicit DecimalReference(std::string text) {
    negative = text[0] == '-';
    if (negative || text[0] == '+') text.erase(0, 1);
    size_t const mark = text.find_first_of("eE");
    if (mark != std::string::npos) {
      scale = -std::stoi(text.substr(mark + 1));
      text.erase(mark);
    }
    size_t const point = text.find('.');
    if (point != std::string::npos) {
      scale += static_cast<int>(text.size() - point - 1);
      text.erase(point, 1);
    }
    digits = text;
    if (scale < 0) digits.append(static_cast<size_t>(-std::exchange(scale, 0)), '0');
    trim();
  }

  // With every digit, none of them a zero at the end of a fraction.
  std::string text() const {
    std::string out = digits;
    if (static_cast<int>(out.size()) <= scale) out.insert(0, static_cast<size_t>(scale) + 1 - out.size(), '0');
    std::string fraction = out.substr(out.size() - static_cast<size_t>(scale));
    out.resize(out.size() - fraction.size());
    fraction.erase(fraction.find_last_not_of('0') + 1);
    return (negative && !digits.empty() ? "-" : "") + out + (fraction.empty() ? "" : "." + fraction);
  }

  DecimalReference plus(DecimalReference other, bool subtract = false) const {
    DecimalReference own = *this;
    other.negative = other.negative != subtract;
    align(own, other);
    DecimalReference out;
    out.scale = own.scale;
    if (own.negative == other.negative) {
      out.digits = add(own.digits, other.digits);
      out.negative = own.negative;
    } else {
      bool const swap = less(own.digits, other.digits);
      out.digits = swap ? take(other.digits, own.digits) : take(own.digits, other.digits);
      out.negative = swap ? other.negative : own.negative;
    }
    out.trim();
    return out;
  }

  DecimalReference times(DecimalReference const &other) const {
    DecimalReference out;
    out.scale = scale + other.scale;
    out.negative = negative != other.negative;
    out.digits.assign(digits.size() + other.digits.size(), '0');
    for (size_t i = digits.size(); i-- > 0;) {
      int carry = 0;
      for (size_t j = other.digits.size(); j-- > 0;) {
        int const value = out.digits[i + j + 1] - '0' + (digits[i] - '0') * (other.digits[j] - '0') + carry;
        out.digits[i + j + 1] = static_cast<char>('0' + value % 10);
        carry = value / 10;
      }
      out.digits[i] = static_cast<char>(out.digits[i] + carry);
    }
    out.trim();
    return out;
  }

  // The quotient, cut behind so many decimals. REQUIRES: divisor is not zero
  DecimalReference over(DecimalReference divisor, int decimals) const {
    DecimalReference own = *this;
    align(own, divisor);
    DecimalReference out;
    out.scale = decimals;
    out.negative = negative != divisor.negative;
    std::string rest;
    for (char digit : own.digits + std::string(static_cast<size_t>(decimals), '0')) {
      rest += digit;
      rest.erase(0, std::min(rest.find_first_not_of('0'), rest.size()));
      char next = '0';
      for (; !less(rest, divisor.digits); ++next) rest = take(rest, divisor.digits);
      out.digits += next;
    }
    out.trim();
    return out;
  }

  // Half away from zero to so many decimals, 0 or more.
  DecimalReference rounded(int decimals) const {
    if (scale <= decimals) return *this;
    DecimalReference half;
    half.negative = negative;
    half.digits = "5";
    half.scale = decimals + 1;
    DecimalReference out = plus(half);
    out.digits.resize(std::max<size_t>(out.digits.size(), static_cast<size_t>(out.scale - decimals)) -
                      static_cast<size_t>(out.scale - decimals));
    out.scale = decimals;
    return out;
  }

  // The power of ten of the first digit. REQUIRES: not zero
  int exponent() const { return static_cast<int>(digits.size()) - 1 - scale; }

 private:
  static void align(DecimalReference &a, DecimalReference &b) {
    int const common = std::max(a.scale, b.scale);
    for (DecimalReference *number : {&a, &b}) {
      if (!number->digits.empty()) number->digits.append(static_cast<size_t>(common - number->scale), '0');
      number->scale = common;
    }
  }
  static bool less(std::string const &a, std::string const &b) {
    return a.size() != b.size() ? a.size() < b.size() : a < b;
  }
  static std::string add(std::string a, std::string b) {
    if (a.size() < b.size()) a.swap(b);
    b.insert(0, a.size() - b.size(), '0');
    int carry = 0;
    for (size_t i = a.size(); i-- > 0;) {
      int const sum = a[i] - '0' + (b[i] - '0') + carry;
      a[i] = static_cast<char>('0' + sum % 10);
      carry = sum / 10;
    }
    return carry > 0 ? "1" + a : a;
  }
  static std::string take(std::string a, std::string b) {
    b.insert(0, a.size() - b.size(), '0');
    int borrow = 0;
    for (size_t i = a.size(); i-- > 0;) {
      int const left = a[i] - b[i] - borrow;
      borrow = left < 0 ? 1 : 0;
      a[i] = static_cast<char>('0' + left + 10 * borrow);
    }
    return a.erase(0, std::min(a.find_first_not_of('0'), a.size()));
  }
  void trim() { digits.erase(0, std::min(digits.find_first_not_of('0'), digits.size())); }
};

}  // namespace tavrone

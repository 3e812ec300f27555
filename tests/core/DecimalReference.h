#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "tavrone/core/MAPM.h"

namespace tavrone {

// Every digit of the number, without an exponent.
inline std::string fixed(MAPM const &number, int decimals = -1) {
  std::unique_ptr<char[]> const text(number.toFixPtStringExp(decimals, '.', '\0', 0));
  return text.get();
}

// A decimal's text as a member of the field of numbers modulo a prime, where 10 has an inverse: sums and products of
// decimals have the sums and products of their residues, and hardly a wrong result does.
struct Residue {
  static constexpr uint64_t PRIME = 4294967291, INVERSE_OF_10 = 3865470562;
  uint64_t value = 0;

  bool operator==(Residue const &) const = default;
  Residue operator+(Residue other) const { return {(value + other.value) % PRIME}; }
  Residue operator*(Residue other) const { return {value * other.value % PRIME}; }
};

// REQUIRES: a sign, digits, a point, an exponent, well-formed
inline Residue residueOf(std::string const &text) {
  Residue residue;
  size_t const mark = text.find_first_of("eE"), point = text.substr(0, mark).find('.');
  for (char c : text.substr(0, mark))
    if (c >= '0' && c <= '9') residue = residue * Residue{10} + Residue{static_cast<uint64_t>(c - '0')};
  int exponent = mark == std::string::npos ? 0 : std::stoi(text.substr(mark + 1));
  if (point != std::string::npos) exponent -= static_cast<int>(text.substr(0, mark).size() - point) - 1;
  for (; exponent > 0; --exponent) residue = residue * Residue{10};
  for (; exponent < 0; ++exponent) residue = residue * Residue{Residue::INVERSE_OF_10};
  return text[0] == '-' ? residue * Residue{Residue::PRIME - 1} : residue;
}

// Whether the quotient is a / b, rounded half away from zero at the place of 10^-decimals.
inline bool isRounded(MAPM const &quotient, MAPM const &a, MAPM const &b, int decimals) {
  MAPM const unit(("1E" + std::to_string(-decimals)).c_str());
  int const beside = ((quotient * b - a).abs() * 2).compare((b * unit).abs());
  return quotient.rem(unit).sign() == 0 && (beside < 0 || (beside == 0 && (quotient * b).abs() > a.abs()));
}

// The first operation on the numbers that these texts are that breaks the rules of arithmetic; "" if none does.
inline std::string brokenOperation(std::string const &textA, std::string const &textB) {
  MAPM const a(textA.c_str()), b(textB.c_str());
  Residue const refA = residueOf(textA), refB = residueOf(textB), minus{Residue::PRIME - 1};
  auto const value = [](MAPM const &number) { return residueOf(fixed(number)); };
  if (value(a) != refA || value(b) != refB) return "reading";
  if (value(a + b) != refA + refB) return "+";
  if (value(a - b) != refA + refB * minus) return "-";
  if (value(a * b) != refA * refB) return "*";
  if (a.compare(b) != (a - b).sign()) return "compare";
  int const decimals = a.significant_digits() & 31;
  if (!isRounded(a.roundDecimals(decimals), a, 1, decimals)) return "roundDecimals";
  if (b.sign() == 0) return "";
  MAPM whole, rest;
  a.integer_div_rem(b, whole, rest);
  if (!whole.is_integer() || whole * b + rest != a || rest.abs() >= b.abs() || rest.sign() * a.sign() < 0)
    return "integer_div_rem";
  for (int digits : {1 + decimals, 30 + a.significant_digits() + b.significant_digits()}) {
    MAPM const quotient = a.divide(b, digits);
    if (a.sign() != 0 && !isRounded(quotient, a, b, digits - 1 - quotient.exponent())) return "divide";
  }
  return "";
}

}  // namespace tavrone

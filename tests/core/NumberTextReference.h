#pragma once

#include <bit>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <string>

#include "tavrone/core/Conversion.h"
#include "tavrone/core/Exceptions.h"
#include "tavrone/core/Parsing.h"
#include "tests/Text.h"

namespace tavrone {

// How numbers are read and written as text, by the plain rules and by the C library.

// The number that stands in the text, or the failure's words: one digit after the other in `bits` bits of two's
// complement.
inline std::string referenceReading(std::string const &text, unsigned bits) {
  std::string const bad = "Cannot convert '" + text + "' to " + (bits == 32 ? "int" : "long");
  std::string const overflow = (bits == 32 ? "Integer overflow. " : "Long overflow. ") + bad;
  if (text.empty()) return bad;
  unsigned const unused = 64 - bits;
  auto const wrapped = [&](unsigned long long value) { return std::bit_cast<long long>(value << unused) >> unused; };
  bool const negative = text[0] == '-';
  long long value = 0;
  for (size_t i = negative || text[0] == '+' ? 1 : 0; i < text.size(); ++i) {
    if (text[i] < '0' || text[i] > '9') return bad;
    if (value > 0) return overflow;
    value = wrapped(static_cast<unsigned long long>(value) * 10 - static_cast<unsigned long long>(text[i] - '0'));
  }
  if (negative) return std::to_string(value);
  value = wrapped(0 - static_cast<unsigned long long>(value));
  return value < 0 ? overflow : std::to_string(value);
}

// What t_atoi or t_atol makes of the text, in the same form.
template <class Reader>
std::string readingOf(Reader reader, std::string const &text) {
  try {
    return std::to_string(reader(text.data(), text.data() + text.size()));
  } catch (TransformException const &failure) {
    return str(failure.getMessage());
  }
}

inline bool readsByTheRules(std::string const &text) {
  return readingOf(t_atoi, text) == referenceReading(text, 32) && readingOf(t_atol, text) == referenceReading(text, 64);
}

// Whether parseDouble gives what strtod does, bit for bit, on whatever passes the character check.
inline bool readsDoubleAsTheCLibraryDoes(std::string const &text) {
  bool const allowed = text.find_first_not_of("0123456789+-.eE") == std::string::npos;
  try {
    double const value = Parsing::parseDouble(tvstring(text.data(), text.length()));
    return allowed && std::bit_cast<uint64_t>(value) == std::bit_cast<uint64_t>(std::strtod(text.c_str(), nullptr));
  } catch (TransformException const &) {
    return !allowed;
  }
}

// What the C library prints for "%.8f", trimmed.
inline std::string referenceDoubleText(double value) {
  char text[352];
  std::string all(text, static_cast<size_t>(std::snprintf(text, sizeof text, "%.8f", value)));
  if (!std::isfinite(value)) return all;
  size_t const last = all.find_last_not_of('0');
  return all.substr(0, all[last] == '.' ? last + 2 : last + 1);
}

}  // namespace tavrone

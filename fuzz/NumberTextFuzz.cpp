// Every reader and writer of number text, against the C library and a slow model of the reading rule.

#include <bit>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>

#include "tavrone/core/Conversion.h"
#include "tavrone/core/Exceptions.h"

namespace {

void require(bool holds) {
  if (!holds) std::abort();
}

// One digit after the other in `bits` bits of two's complement; what it prints is the number or the failure's text.
std::string modelOfReading(std::string const &text, unsigned bits, std::string const &kind, std::string const &type) {
  std::string const bad = "Cannot convert '" + text + "' to " + type;
  if (text.empty()) return bad;
  unsigned const unused = 64 - bits;
  auto const wrapped = [&](unsigned long long value) { return std::bit_cast<long long>(value << unused) >> unused; };
  bool const negative = text[0] == '-';
  long long value = 0;
  for (size_t i = negative || text[0] == '+' ? 1 : 0; i < text.size(); ++i) {
    if (text[i] < '0' || text[i] > '9') return bad;
    if (value > 0) return kind + " overflow. " + bad;
    value = wrapped(static_cast<unsigned long long>(value) * 10 - static_cast<unsigned long long>(text[i] - '0'));
  }
  if (negative) return std::to_string(value);
  value = wrapped(0 - static_cast<unsigned long long>(value));
  return value < 0 ? kind + " overflow. " + bad : std::to_string(value);
}

template <class Reader>
std::string outcome(Reader reader, std::string const &text) {
  try {
    return std::to_string(reader(text.data(), text.data() + text.size()));
  } catch (tavrone::TransformException const &failure) {
    tavrone::tvstring const message = failure.getMessage();
    return std::string(message.data(), message.length());
  }
}

std::string printed(char const *format, auto value) {
  char text[352];
  return std::string(text, static_cast<size_t>(std::snprintf(text, sizeof text, format, value)));
}

void checkDouble(double value) {
  std::string expected = printed("%.8f", value);
  if (std::isfinite(value)) {
    size_t const last = expected.find_last_not_of('0');
    expected.resize(expected[last] == '.' ? last + 2 : last + 1);
  }
  char text[352];
  require(expected == doubleToString(value, text));
  require(doubleToString(value) == expected.c_str());
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(uint8_t const *data, size_t size) {
  std::string const text(reinterpret_cast<char const *>(data), size);
  require(outcome(t_atoi, text) == modelOfReading(text, 32, "Integer", "int"));
  require(outcome(t_atol, text) == modelOfReading(text, 64, "Long", "long"));

  if (size < sizeof(uint64_t)) return 0;
  uint64_t bits;
  std::memcpy(&bits, data, sizeof bits);
  long long const number = std::bit_cast<long long>(bits) >> (size % 64);
  char exact[21];
  t_ltoa(number, exact);
  require(exact == printed("%lld", number));
  require(dlongToString(number) == exact);
  t_itoa(static_cast<int>(number), exact);
  require(exact == printed("%d", static_cast<int>(number)));

  checkDouble(std::bit_cast<double>(bits));
  checkDouble(static_cast<double>(number) / 1e8);
  checkDouble(std::ldexp(static_cast<double>(number), -static_cast<int>(size % 128)));
  float const single = std::bit_cast<float>(static_cast<uint32_t>(bits));
  char text64[64];
  require(doubleToString(static_cast<double>(single)) == floatToString(single, text64));
  return 0;
}

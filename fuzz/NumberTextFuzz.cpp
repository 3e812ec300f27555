// Every reader and writer of number text, against the C library and the plain reading rule.
#include <cstring>

#include "tests/FuzzInput.h"
#include "tests/core/NumberTextReference.h"

using namespace tavrone;

namespace {

void checkDouble(double value) {
  char text[352];
  std::string const expected = referenceDoubleText(value);
  require(expected == doubleToString(value, text));
  require(str(doubleToString(value)) == expected);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(uint8_t const *data, size_t size) {
  std::string const input(reinterpret_cast<char const *>(data), size);
  require(readsByTheRules(input) && readsDoubleAsTheCLibraryDoes(input));

  if (size < sizeof(uint64_t)) return 0;
  uint64_t bits;
  std::memcpy(&bits, data, sizeof bits);
  long long const number = std::bit_cast<long long>(bits) >> (size % 64);
  char text[64];
  t_ltoa(number, text);
  require(std::to_string(number) == text && dlongToString(number) == text);
  t_itoa(static_cast<int>(number), text);
  require(std::to_string(static_cast<int>(number)) == text);

  checkDouble(std::bit_cast<double>(bits));
  checkDouble(static_cast<double>(number) / 1e8);
  checkDouble(std::ldexp(static_cast<double>(number), -static_cast<int>(size % 128)));
  float const single = std::bit_cast<float>(static_cast<uint32_t>(bits));
  require(doubleToString(static_cast<double>(single)) == floatToString(single, text));
  return 0;
}

// Hexadecimal and base64, both ways, on every path that this processor can run, against their rules.
#include <cstdint>
#include <cstdlib>

#include "tests/core/BinaryTextReference.h"

extern "C" int LLVMFuzzerTestOneInput(uint8_t const *data, size_t size) {
  if (!tavrone::binaryTextFollowsTheRules(std::string(reinterpret_cast<char const *>(data), size))) std::abort();
  return 0;
}

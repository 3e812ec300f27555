// Parsing::parseDouble against strtod, bit for bit, on whatever passes the character check.
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <string>

#include "tavrone/core/Exceptions.h"
#include "tavrone/core/Parsing.h"

extern "C" int LLVMFuzzerTestOneInput(uint8_t const *data, size_t size) {
  std::string const text(reinterpret_cast<char const *>(data), size);
  bool const allowed = text.find_first_not_of("0123456789+-.eE") == std::string::npos;
  try {
    double const value = tavrone::Parsing::parseDouble(tavrone::tvstring(text.data(), text.length()));
    double const expected = std::strtod(text.c_str(), nullptr);
    if (!allowed || std::memcmp(&value, &expected, sizeof value) != 0) std::abort();
  } catch (tavrone::TransformException const &) {
    if (allowed) std::abort();
  }
  return 0;
}

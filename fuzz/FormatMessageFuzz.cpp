// formatMessage against a plain reading of its rules, which lets t_atoi throw. The first byte says how many arguments
// there are.
#include <cstdint>
#include <cstdlib>

#include "tavrone/tavrone.h"
#include "tests/Text.h"

namespace {

int indexAt(std::string const &pattern, size_t open, size_t close) try {
  return pattern[open] != '{' || close == std::string::npos ? -1
                                                            : t_atoi(pattern.data() + open + 1, pattern.data() + close);
} catch (tavrone::TransformException const &) {
  return -1;
}

std::string model(std::string const &pattern, tavrone::ObjectList const &args) {
  std::string out;
  for (size_t i = 0; i < pattern.size(); ++i) {
    size_t const close = pattern.find('}', i);
    int const index = indexAt(pattern, i, close);
    if (index >= 0 && index < args.size()) {
      out += args[index]->toString().c_str();
      i = close;
    } else {
      out += pattern[i];
      if (pattern.compare(i, 2, "''") == 0) ++i;
    }
  }
  return out;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(uint8_t const *data, size_t size) {
  if (size == 0) return 0;
  tavrone::ObjectList args;
  for (int i = 0; i < data[0] % 4; ++i) args.add(tavrone::IntObject(100 + i));
  tavrone::tvstring const pattern(reinterpret_cast<char const *>(data) + 1, size - 1);
  if (str(formatMessage(pattern, args)) != model(str(pattern), args)) std::abort();
  return 0;
}

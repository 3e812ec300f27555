// Parsing::toRuntimeObject of any text as every type: an object, null or a TransformException, and what was read can be
// written. The first byte chooses the type.
#include <cstdint>
#include <memory>

#include "tavrone/core/Exceptions.h"
#include "tavrone/core/Parsing.h"

extern "C" int LLVMFuzzerTestOneInput(uint8_t const *data, size_t size) {
  static char const *const TYPES[] = {"String",   "Integer", "Long",      "BigInteger", "BigDecimal",
                                      "Binary",   "Float",   "Double",    "DateTime",   "DateOnly",
                                      "TimeOnly", "Boolean", "Character", "ISODate",    ""};
  if (size == 0) return 0;
  tavrone::tvstring const type = TYPES[data[0] % std::size(TYPES)];
  tavrone::tvstring const text(reinterpret_cast<char const *>(data) + 1, size - 1);
  try {
    std::unique_ptr<tavrone::Object> const object(tavrone::Parsing::toRuntimeObject(text, type));
    if (object != nullptr) tavrone::Parsing::runtimeObjectToString(object.get(), type);
  } catch (tavrone::TransformException const &) {
  }
  return 0;
}

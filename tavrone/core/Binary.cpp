#include "tavrone/core/Binary.h"

namespace tavrone {

static_assert(sizeof(Binary) == 3 * sizeof(void *));

Binary::Binary(char const *bytes, size_t n, bool copy) {
  if (copy)
    init(bytes, n);
  else if (bytes != nullptr)
    bytes_.assign0(bytes, n, nullptr, false);
}

}  // namespace tavrone

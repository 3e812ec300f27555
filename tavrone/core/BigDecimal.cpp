#include "tavrone/core/BigDecimal.h"

namespace tavrone {

tvstring BigDecimal::toString() const {
  return toFixedText(-1);
}

tvstring BigInteger::toString() const {
  return toFixedText(0);
}

}  // namespace tavrone

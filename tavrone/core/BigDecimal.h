#pragma once

#include "tavrone/core/tvstring.h"

namespace tavrone {

struct M_APM_;

// An exact decimal number of any length: one pointer to a counted body, so that a copy costs one increment. Immutable in
// use. Belongs to one thread at a time.
class TAVRONE_API MAPM {
 private:
  M_APM_ *val_;
};

class TAVRONE_API BigDecimal : public MAPM {};

class TAVRONE_API BigInteger : public MAPM {};

}  // namespace tavrone

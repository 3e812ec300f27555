#pragma once

#include "tavrone/core/Binary.h"

namespace tavrone {

// One complete payload in memory. Nothing consumes it: every reader gets the same bytes, as often as it asks.
class TAVRONE_API InputSource {
 public:
  // The first byte; it stays valid as long as the source lives. Stores the number of bytes in `length`. No
  // terminator is promised.
  virtual char const *getAsBytes(int &length) = 0;
  // The payload as a value that may outlive the source; by default a copy.
  virtual Binary getAsBinary();
  virtual ~InputSource() noexcept(false);
};

}  // namespace tavrone

#pragma once

#include "tavrone/pipeline/RawMessage.h"

namespace tavrone {

// What formulas ask of messages.
class TAVRONE_API MessageFunctions {
 public:
  // The payload, byte for byte; empty for a null handle.
  static tvstring toText(RawMessage const &message);
};

}  // namespace tavrone

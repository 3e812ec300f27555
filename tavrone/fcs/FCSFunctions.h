#pragma once

#include "tavrone/core/Binary.h"

namespace tavrone {

// The checksum that generated formulas ask for: the exclusive or of all 16-bit words in little-endian order.
class TAVRONE_API FCSFunctions {
 public:
  // Stores the checksum of the first `length` bytes, rounded up to whole words, in the word behind them.
  // REQUIRES: data has (length + 1) / 2 + 1 words
  static void store_checksum(short *data, short length);
  // A new value: the data, a zero byte if their count is odd, and the two bytes of their checksum.
  static Binary storePSSChecksum(Binary const &data);
  // The same over both values joined.
  static Binary storePSSChecksum(Binary const &first, Binary const &second);
};

}  // namespace tavrone

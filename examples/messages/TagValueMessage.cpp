#include "examples/messages/TagValueMessage.h"

namespace examples {

void countBytes(TagValueTrailer &trailer, tvstring const &message, size_t end) {
  constexpr char SOH = '\x01';
  // BodyLength is the second field. Both searches end at the last byte at most: one past npos is 0.
  size_t const begin = message.find(SOH, message.find(SOH) + 1) + 1;
  trailer.set<"CountedBodyLength">(static_cast<int>(end) - static_cast<int>(begin));
  trailer.set<"CountedCheckSum">(FIXOutputWriter::generateCheckSum(message.data(), static_cast<unsigned>(end)));
}

}  // namespace examples

#pragma once

#include "examples/messages/FIXMessage.h"
#include "examples/messages/NewOrderSingle.h"

namespace examples {

// Reads a NewOrderSingle; see FIXMessageParser.
class NewOrderSingleParser : public FIXMessageParser<NewOrderSingleParser, NewOrderSingle> {
 public:
  ~NewOrderSingleParser() noexcept(false) override;

 private:
  friend TagValueMessageParser;
  friend FIXMessageParser;

  bool parseField(NewOrderSingle &order, Pair &pair, FIXTokenizer &tokens) const;
  bool parseField(OrderParty &party, Pair const &pair) const;
  bool parseField(OrderAllocation &allocation, Pair const &pair) const;
  void assertComplete(NewOrderSingle &order) const;
};

}  // namespace examples

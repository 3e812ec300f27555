#pragma once

#include "examples/messages/NewOrderSingleParser.h"
#include "examples/messages/NewOrderSingleWriter.h"
#include "examples/messages/OrderFormats.h"

namespace examples {

// "Default": an order to buy or sell a whole number of shares, with just the prices that its OrdType asks for.
class NewOrderSingleRules : public CodedRules {
 public:
  using CodedRules::validateData;
  void validateData(DataObject *header, DataObject *data) override;
};

using NewOrderSingleMessage =
    TagValueMessage<NewOrderSingle, FIXWire, NewOrderSingleParser, NewOrderSingleWriter, NewOrderSingleRules>;

// To the internal order: an order at the market has no price. Parties and allocations stay behind, they are the
// business of the desk that the message comes from.
class NewOrderSingleToOrder : public InputMappingRules {
 protected:
  void mapFields0(ExternalObject *source, DataObject *target) override;
};

// From the internal order. The header's names are those of a gateway.
class OrderToNewOrderSingle : public NumberedMappingRules {
 protected:
  void mapHeaderFields0(DataObject *source, DataObject *header) override;
  void mapDataFields0(DataObject *source, DataObject *data) override;
};

using NewOrderSingleFormat = OrderInputFormat<NewOrderSingleMessage, NewOrderSingleToOrder>;
using NewOrderSingleOutputFormat =
    OrderOutputFormat<FIXHeader, NewOrderSingle, NewOrderSingleWriter, OrderToNewOrderSingle>;

}  // namespace examples

#pragma once

#include "examples/messages/FCSOrder.h"
#include "examples/messages/OrderFormats.h"

namespace examples {

// From the internal order to an FCS one, where the order is one that FCS can tell: its number is a branch and a
// sequence number such as AB-0042, its price is in eighths, and it has no legs. The time of day stays behind.
class OrderToFCSOrder : public NumberedMappingRules {
 protected:
  void mapHeaderFields0(DataObject *source, DataObject *header) override;
  void mapDataFields0(DataObject *source, DataObject *data) override;
  void mapTrailerFields0(DataObject *source, DataObject *data, DataObject *trailer) override;
};

class FCSOrderOutputFormat : public OrderOutputFormat<FCSOrderHeader, FCSOrder, FCSOrderWriter, OrderToFCSOrder> {
 public:
  ~FCSOrderOutputFormat() noexcept(false) override = default;

  DataObject *createTrailer() override { return new FCSTrailer; }
};

}  // namespace examples

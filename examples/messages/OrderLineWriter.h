#pragma once

#include "examples/messages/OrderLayout.h"

namespace examples {

// Writes an order as the line that OrderLineParser reads, with its line feed. A text that holds a delimiter would be
// read back as something else, so it fails.
class OrderLineWriter : public OrderLayoutWriter {
 public:
  // The data must be an Order.
  void writeData(DataObject *data, TransformContext &context) override;

 private:
  template <FixedText... Fields>
  void write(Order const &order);
  template <FixedText Name>
  void writeField(Order const &order);

  UniversalOutputRecord line_;  // serves one line after the other
};

}  // namespace examples

#pragma once

#include "examples/messages/FIXMessage.h"
#include "examples/messages/NewOrderSingle.h"

namespace examples {

// Writes a NewOrderSingle, its fields in the order of FIX 4.4. A message that was read in that order, with numbers in
// their shortest form, is written as it was read.
class NewOrderSingleWriter : public FIXMessageWriter {
 public:
  ~NewOrderSingleWriter() noexcept(false) override;

  void writeData(DataObject *data, TransformContext &context) override;
};

}  // namespace examples

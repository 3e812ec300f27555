#pragma once

#include "examples/messages/OrderFormats.h"
#include "examples/messages/OrderLineParser.h"
#include "examples/messages/OrderLineWriter.h"

namespace examples {

// A line of fields as an external message: its data part is an Order, checked by nothing but the parser.
class OrderLineMessage : public AbstractExternalMessage {
 public:
  OrderLineMessage() : AbstractExternalMessage("OrderLine") {
    addValidator("Integrity", new CodedRules);
    addValidator("Default", new CodedRules);
  }
  ~OrderLineMessage() noexcept(false) override = default;

  SmartPtr<ExternalObject> createExternalObject() override {
    SmartPtr<DataObject> const data(new Order);
    return SmartPtr<ExternalObject>(new ExternalObject(nullptr, data.get(), nullptr));
  }
  InputParser *getInputParser() override { return &parser_; }
  OutputWriter *getOutputWriter() override { return &writer_; }

 private:
  OrderLineParser parser_;
  OrderLineWriter writer_;
};

class OrderLineToOrder : public InputMappingRules {
 protected:
  void mapFields0(ExternalObject *source, DataObject *target) override {
    *checkedCast<Order>(target) = *checkedCast<Order>(source->getData());
  }
};

class OrderToOrderLine : public OutputMappingRules {
 protected:
  void mapDataFields0(DataObject *source, DataObject *data) override {
    *checkedCast<Order>(data) = *checkedCast<Order>(source);
  }
};

using OrderLineFormat = OrderInputFormat<OrderLineMessage, OrderLineToOrder>;
using OrderLineOutputFormat = OrderOutputFormat<void, Order, OrderLineWriter, OrderToOrderLine>;

}  // namespace examples

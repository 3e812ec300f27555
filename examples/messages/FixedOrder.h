#pragma once

#include "examples/messages/OrderFormats.h"
#include "examples/messages/OrderLayout.h"

namespace examples {

// An order as a line of 206 bytes, its fields of fixed width:
//
//   tag          4   "ORD1"                            price          18   blank: at the market
//   order       20                                     day             8   yyyyMMdd
//   account     12   blank: none                       time           21   yyyyMMdd-HH:mm:ss, with .SSS if there are
//   symbol      12                                     all or none     1   Y or N          milliseconds
//   side         1                                     text          100   blank: none
//   quantity     9   zeros in front
//
// Texts are filled with blanks behind them, the price in front. The line feed is none of the bytes.

// clang-format off
struct FixedOrder : Record<"FixedOrder",
                           Field<"OrderID", tvstring>,
                           Field<"Account", tvstring>,
                           Field<"Symbol", tvstring>,
                           Field<"Side", char>,
                           Field<"Quantity", int>,
                           Field<"Price", double>,
                           Field<"TradeDate", DateOnly>,
                           Field<"TransactTime", DateTime>,
                           Field<"AllOrNone", bool>,
                           Field<"Text", tvstring>> {
  static constexpr char TAG[] = "ORD1";
  static constexpr int LENGTH = 206;
};
// clang-format on

// Reports every field that fails: all are where they should be whatever the others hold.
class FixedOrderParser : public OrderLayoutParser<FixedOrder> {
 public:
  ~FixedOrderParser() noexcept(false) override = default;

 protected:
  // The bytes are one line, without its end.
  void parseData(FixedOrder &order, Binary const &bytes) override;
};

// A value that is too long for its field, or would be read back as something else, fails.
class FixedOrderWriter : public OrderLayoutWriter {
 public:
  void writeData(DataObject *data, TransformContext &context) override;

 private:
  UniversalOutputRecord line_;  // serves one line after the other
};

// The parser checks the fields; what an order must be to be taken, the internal message knows.
class FixedOrderMessage : public AbstractExternalMessage {
 public:
  FixedOrderMessage() : AbstractExternalMessage("FixedOrder") {
    addValidator("Integrity", new CodedRules);
    addValidator("Default", new CodedRules);
  }
  ~FixedOrderMessage() noexcept(false) override = default;

  SmartPtr<ExternalObject> createExternalObject() override {
    SmartPtr<DataObject> const data(new FixedOrder);
    return SmartPtr<ExternalObject>(new ExternalObject(nullptr, data.get(), nullptr));
  }
  InputParser *getInputParser() override { return &parser_; }
  OutputWriter *getOutputWriter() override { return &writer_; }

 private:
  FixedOrderParser parser_;
  FixedOrderWriter writer_;
};

class FixedOrderToOrder : public InputMappingRules {
 protected:
  void mapFields0(ExternalObject *source, DataObject *target) override;
};

// An order with legs fails: the line has no place for them.
class OrderToFixedOrder : public OutputMappingRules {
 protected:
  void mapDataFields0(DataObject *source, DataObject *data) override;
};

using FixedOrderFormat = OrderInputFormat<FixedOrderMessage, FixedOrderToOrder>;
using FixedOrderOutputFormat = OrderOutputFormat<void, FixedOrder, FixedOrderWriter, OrderToFixedOrder>;

// Knows a line by its tag. The format is "FIXED-ORDER".
class FixedOrderIdentifier : public MessageIdentifier {
 public:
  FixedOrderIdentifier();

  DataObject *identifyMessage(InputSource &input) override;

 private:
  SmartPtr<DataObject> header_;  // the same for every line
};

}  // namespace examples

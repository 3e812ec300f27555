#pragma once

#include "examples/messages/Order.h"

namespace examples {

// Reads an order from a line of eleven fields:
//
//   OrderID|Account|Symbol|Side|Quantity|Price|TradeDate|TransactTime|AllOrNone|Legs|Text
//
// Dates are written 20240315, times 20240315-14:30:00 or with milliseconds 20240315-14:30:00.125, legs
// SYMBOL:RATIO:PRICE with commas between them. Account, Price, TradeDate and the fields from AllOrNone on may be empty;
// without a price an order is at the market.
//
// Every field that cannot be read goes to the exception handler, with its name, its place in the line and the error
// type "Required" or "Parsing". If the handler lets the parser go on, the field stays null.
class OrderLineParser : public InputParser {
 public:
  ~OrderLineParser() noexcept(false) override = default;

  using InputParser::parse;
  // The data part of the object must be an Order.
  void parse(ExternalObject *object, Binary const &bytes, TransformContext &context) override;
  ExternalObject *parse(Binary const &bytes, TransformContext &context) override;

  // What both come down to. The texts of the order are views on the line's storage.
  void parseOrder(Order &order, tvstring const &line, TransformContext &context);
  // A new order, with a record of each field that cannot be read.
  static Result<SmartPtr<DataObject>> parse2(tvstring const &line, TransformContext &context);
};

// Knows a line of fields by its delimiters; several lines are none. All such lines are of the format "ORDER-LINE";
// which of them are orders, the parser tells.
class OrderLineIdentifier : public MessageIdentifier {
 public:
  OrderLineIdentifier();

  DataObject *identifyMessage(InputSource &input) override;

 private:
  SmartPtr<DataObject> header_;  // the same for every line
};

}  // namespace examples

#include "examples/messages/OrderLineWriter.h"

#include "examples/messages/TextFields.h"

namespace examples {

namespace {

constinit tvstringliteral const LINE_FEED("\n");
constinit tvstringliteral const BAR("|");
constinit tvstringliteral const TRUE_TEXT("true");
constinit tvstringliteral const FALSE_TEXT("false");

constexpr int REQUIRED[] = {Order::index<"OrderID">, Order::index<"Symbol">, Order::index<"Side">,
                            Order::index<"Quantity">, Order::index<"TransactTime">};

tvstring legsText(Order const &order) {
  tvstringbuffer text;
  for (Leg const &leg : order.section<"Legs">()) {
    if (!text.empty()) text.append(',');
    text.append(lineText(leg.get<"Symbol">(), "Legs", "|,:")).append(':');
    text.append(Parsing::intToString(leg.get<"Ratio">())).append(':');
    text.append(lineText(leg.get<"Price">(), "Legs", ""));
  }
  return text;
}

}  // namespace

void OrderLineWriter::writeData(DataObject *data, TransformContext &) {
  auto &order = *checkedCast<Order>(data);
  for (int const field : REQUIRED)
    if (order.isNull(field)) requiredFieldMissing(&order, field);
  line_.restart(LINE_FEED, true, true);
  line_.startSequence();
  write<"OrderID", "Account", "Symbol", "Side", "Quantity", "Price", "TradeDate", "TransactTime", "AllOrNone">(order);
  line_.appendDelimitedField(legsText(order), BAR);
  write<"Text">(order);
  line_.endSequence();
  appendRecord(line_);
}

template <FixedText... Fields>
void OrderLineWriter::write(Order const &order) {
  (writeField<Fields>(order), ...);
}

template <FixedText Name>
void OrderLineWriter::writeField(Order const &order) {
  if (order.isNull<Name>())
    line_.appendDelimitedNullField(BAR);
  else if constexpr (Name.view() == "AllOrNone")
    line_.appendDelimitedField(order.get<Name>(), BAR, TRUE_TEXT, FALSE_TEXT);
  else
    line_.appendDelimitedField(lineText(order.get<Name>(), Name.text, "|"), BAR);
}

}  // namespace examples

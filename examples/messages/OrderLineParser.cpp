#include "examples/messages/OrderLineParser.h"

#include <algorithm>

namespace examples {

namespace {

using OrderLineHeader = Record<"OrderLineHeader", Field<"MessageFormat", tvstring>>;

constexpr char const *SOURCE = "examples/OrderLineParser";

// Hands out the parts of a text that stand between delimiters, as views on it. An empty text is one empty part.
class Parts {
 public:
  Parts(tvstring const &text, char delimiter) : text_(text), delimiter_(delimiter) {}

  bool hasNext() const { return start_ <= text_.length(); }
  // REQUIRES: hasNext()
  tvstring next() {
    size_t const end = std::min(text_.find(delimiter_, start_), text_.length());
    tvstring const part = text_.substr(start_, end - start_);
    start_ = end + 1;
    return part;
  }
  size_t position() const { return start_; }

 private:
  tvstring text_;
  char delimiter_;
  size_t start_ = 0;
};

[[noreturn]] void cannotConvert(tvstring const &text, char const *what) {
  raise<TransformException>("Cannot convert '" + text + "' to " + what, SOURCE);
}

// Nine characters always fit. Of longer texts Parsing::parseInt lets some wrap around unnoticed, such as 9999999999.
int parseCount(tvstring const &text) {
  if (text.length() > 9) cannotConvert(text, "a whole number of up to nine characters");
  return Parsing::parseInt(text);
}

// By way of a BigDecimal, which takes the whole text or nothing: Parsing::parseDouble reads 1.2.3 as 1.2.
double parsePrice(tvstring const &text) {
  try {
    return Parsing::parseBigDecimal(text).toDouble();
  } catch (TransformException const &) {
    cannotConvert(text, "a price");
  }
}

DateTime parseTime(tvstring const &text) {
  constexpr size_t LENGTH_IN_SECONDS = 17;
  return Parsing::parseDate(text, text.length() > LENGTH_IN_SECONDS ? "yyyyMMdd-HH:mm:ss.SSS" : "yyyyMMdd-HH:mm:ss");
}

void parseLegs(Order &order, tvstring const &text) {
  for (Parts legs(text, ','); legs.hasNext();) {
    tvstring const leg = legs.next();
    tvstring values[3];
    int count = 0;
    for (Parts parts(leg, ':'); parts.hasNext(); ++count) {
      tvstring const value = parts.next();
      if (count < 3) values[count] = value;
    }
    if (count != 3 || values[0].empty()) cannotConvert(leg, "a leg");
    int const ratio = parseCount(values[1]);
    double const price = parsePrice(values[2]);
    Leg &added = order.section<"Legs">().add();
    added.set<"Symbol">(values[0]);
    added.set<"Ratio">(ratio);
    added.set<"Price">(price);
  }
}

struct Column {
  int field;
  bool required;
  void (*read)(Order &order, tvstring const &text);
};

// In the order in which they stand in the line.
constexpr Column COLUMNS[] = {
    {Order::index<"OrderID">, true, [](Order &o, tvstring const &text) { o.set<"OrderID">(text); }},
    {Order::index<"Account">, false, [](Order &o, tvstring const &text) { o.set<"Account">(text); }},
    {Order::index<"Symbol">, true, [](Order &o, tvstring const &text) { o.set<"Symbol">(text); }},
    {Order::index<"Side">, true, [](Order &o, tvstring const &text) { o.set<"Side">(Parsing::parseChar(text)); }},
    {Order::index<"Quantity">, true, [](Order &o, tvstring const &text) { o.set<"Quantity">(parseCount(text)); }},
    {Order::index<"Price">, false, [](Order &o, tvstring const &text) { o.set<"Price">(parsePrice(text)); }},
    {Order::index<"TradeDate">, false,
     [](Order &o, tvstring const &text) { o.set<"TradeDate">(Parsing::parseDate(text, "yyyyMMdd")); }},
    {Order::index<"TransactTime">, true,
     [](Order &o, tvstring const &text) { o.set<"TransactTime">(parseTime(text)); }},
    {Order::index<"AllOrNone">, false,
     [](Order &o, tvstring const &text) { o.set<"AllOrNone">(Parsing::parseBool(text)); }},
    {Order::index<"Legs">, false, parseLegs},
    {Order::index<"Text">, false, [](Order &o, tvstring const &text) { o.set<"Text">(text); }},
};

}  // namespace

void OrderLineParser::parse(ExternalObject *object, Binary const &bytes, TransformContext &context) {
  parseOrder(*checkedCast<Order>(object->getData()), bytes.toString(), context);
}

ExternalObject *OrderLineParser::parse(Binary const &bytes, TransformContext &context) {
  SmartPtr<Order> const order(new Order);
  parseOrder(*order, bytes.toString(), context);
  return new ExternalObject(nullptr, order.get(), nullptr);
}

void OrderLineParser::parseOrder(Order &order, tvstring const &line, TransformContext &context) {
  // Counted first: in a line with a delimiter too many or too few no field is where it should be.
  auto const count = 1 + std::count(line.data(), line.data() + line.length(), '|');
  if (count != std::ssize(COLUMNS)) {
    TransformException failure("Expected " + Parsing::longToString(std::ssize(COLUMNS)) + " fields, found " +
                               Parsing::longToString(count));
    failure.setErrorType(ExceptionObject::ERROR_TYPE_PARSING);
    exceptionHandler->onException(&failure);
    return;
  }
  Parts parts(line, '|');
  for (Column const &column : COLUMNS) {
    auto const position = static_cast<int>(parts.position());
    tvstring const text = parts.next();
    try {
      if (column.required) ensureNotNull(text, &order, column.field, context);
      if (!isNull(text)) column.read(order, text);
    } catch (TransformException &failure) {
      failure.setErrorType(isNull(text) ? ExceptionObject::ERROR_TYPE_REQUIRED : ExceptionObject::ERROR_TYPE_PARSING);
      failure.setFFieldName(order.getFieldName(column.field));
      failure.setColumn(position);
      exceptionHandler->onException(&failure);
    }
  }
}

Result<SmartPtr<DataObject>> OrderLineParser::parse2(tvstring const &line, TransformContext &context) {
  CascadingExceptionHandler collecting;
  OrderLineParser parser;
  parser.exceptionHandler = &collecting;
  SmartPtr<Order> const order(new Order);
  parser.parseOrder(*order, line, context);
  return {order.get(), collecting.getExceptions()};
}

OrderLineIdentifier::OrderLineIdentifier() {
  auto *const header = new OrderLineHeader;
  header->set<"MessageFormat">("ORDER-LINE");
  header_ = header;
}

DataObject *OrderLineIdentifier::identifyMessage(InputSource &input) {
  int length = 0;
  char const *const bytes = input.getAsBytes(length);
  auto const has = [&](char c) { return std::find(bytes, bytes + length, c) != bytes + length; };
  return has('|') && !has('\n') ? header_.get() : nullptr;
}

}  // namespace examples

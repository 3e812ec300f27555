#pragma once

#include "examples/messages/CodedRules.h"
#include "examples/messages/Order.h"
#include "examples/messages/ReportingParser.h"

namespace examples {

// What the layouts of orders share: each is one data part, a record with a section "Orders" whose fields are named as
// those of Order.

// The internal form of a whole file.
struct OrderList : Record<"OrderList", Section<"Orders", Order>> {};

template <class Data>
class OrderLayoutParser : public ReportingParser {
 public:
  using InputParser::parse;
  // The data part of the object must be of this layout.
  void parse(ExternalObject *object, Binary const &bytes, TransformContext &) override {
    parseData(*checkedCast<Data>(object->getData()), bytes);
  }
  ExternalObject *parse(Binary const &bytes, TransformContext &) override {
    SmartPtr<Data> const data(new Data);
    parseData(*data, bytes);
    return new ExternalObject(nullptr, data.get(), nullptr);
  }

 protected:
  virtual void parseData(Data &data, Binary const &bytes) = 0;
};

class OrderLayoutWriter : public UniversalOutputWriter {
 public:
  void writeHeader(DataObject *, TransformContext &) override {}
  void writeTrailer(DataObject *, TransformContext &) override {}

 protected:
  // What the record holds now.
  void appendRecord(UniversalOutputRecord const &record) {
    int length = 0;
    char const *const bytes = record.getBytes(length);
    appendMessage(bytes, length);
  }
};

// "Default": what every order must hold, whatever its layout.
template <class Data>
class OrderChecks : public CodedRules {
 public:
  using CodedRules::validateData;
  void validateData(DataObject *, DataObject *data) override {
    int i = 0;
    for (auto const &order : checkedCast<Data>(data)->template section<"Orders">()) {
      tvstring const where = "Orders[" + Parsing::intToString(i++) + "].";
      char const side = order.template get<"Side">();
      check(side == 'B' || side == 'S', "LAY-01", "BuyOrSell", where + "Side");
      check(order.template get<"Quantity">() > 0, "LAY-02", "SomeQuantity", where + "Quantity");
      check(order.template get<"Price">() > 0, "LAY-03", "SomePrice", where + "Price");
    }
  }
};

// To an OrderList: each field that the layout has goes to the one of its name.
template <class Data>
class OrderMapping : public InputMappingRules {
 protected:
  void mapFields0(ExternalObject *source, DataObject *target) override {
    for (auto const &from : checkedCast<Data>(source->getData())->template section<"Orders">()) {
      Order &to = checkedCast<OrderList>(target)->section<"Orders">().add();
      mapOrder<"OrderID", "Account", "Symbol", "Side", "Quantity", "ExecutedQuantity", "Price", "Rate", "Notional",
               "TradeDate", "TransactTime", "AllOrNone", "Signature", "Text">(from, to);
      mapLegs(from, to);
    }
  }

 private:
  template <FixedText... Fields, class From>
  static void mapOrder(From const &from, Order &to) {
    (mapField<Fields>(from, to), ...);
  }
  template <FixedText Name, class From>
  static void mapField(From const &from, Order &to) {
    if constexpr (From::template kindOf<Name> == MemberKind::FIELD)
      if (!from.template isNull<Name>()) to.set<Name>(from.template get<Name>());
  }
  template <class From>
  static void mapLegs(From const &from, Order &to) {
    if constexpr (From::template kindOf<"Legs"> == MemberKind::SECTION)
      for (Leg const &leg : from.template section<"Legs">()) to.section<"Legs">().add() = leg;
  }
};

// A layout as a whole, as the wire format of that name.
template <class Data, class Parser, class Writer>
class OrderLayout : public AbstractExternalMessage {
 public:
  explicit OrderLayout(tvstring const &name) : AbstractExternalMessage(name) {
    addValidator(DEFAULT_VALIDATOR, new OrderChecks<Data>);
  }
  ~OrderLayout() noexcept(false) override = default;

  SmartPtr<ExternalObject> createExternalObject() override {
    SmartPtr<DataObject> const data(new Data);
    return SmartPtr<ExternalObject>(new ExternalObject(nullptr, data.get(), nullptr));
  }
  InputParser *getInputParser() override { return &parser_; }
  OutputWriter *getOutputWriter() override { return &writer_; }

 private:
  Parser parser_;
  Writer writer_;
};

}  // namespace examples

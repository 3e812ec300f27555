#include "examples/messages/GeneratedOrder.h"

using namespace tavrone;

namespace examples {

namespace {

char const *LEG_NAMES[] = {"Symbol", "Ratio", "Price"};
char const *LEG_TYPES[] = {"String", "Integer", "Double"};

char const *ORDER_NAMES[] = {"OrderID",          "Account",   "Symbol",    "Side",     "Quantity",
                             "ExecutedQuantity", "Price",     "Rate",      "Notional", "TradeDate",
                             "TransactTime",     "AllOrNone", "Signature", "Text",     "Legs"};
char const *ORDER_TYPES[] = {"String",     "String",   "String",   "Character", "Integer", "Long",   "Double", "Float",
                             "BigDecimal", "DateOnly", "DateTime", "Boolean",   "Binary",  "String", "Section"};

}  // namespace

DataObjectMetaInfo *GeneratedLeg::metaInfoOfType() {
  static DataObjectMetaInfo metaInfo("Leg", LEG_NAMES, LEG_TYPES, FIELD_COUNT);
  return &metaInfo;
}

GeneratedLeg::GeneratedLeg(DataObjectSection *parent) : AbstractDataObject(metaInfoOfType(), flags_, parent) {}

GeneratedLeg::GeneratedLeg(GeneratedLeg const &other)
    : Object(),
      ObjectRef(),
      AbstractDataObject(other, flags_, nullptr),
      symbol_(other.symbol_),
      ratio_(other.ratio_),
      price_(other.price_) {}

Object *GeneratedLeg::getField0(int index, Object *out) const {
  switch (index) {
    case SYMBOL:
      if (out == nullptr) return new StringObject(symbol_);
      out->setString(symbol_);
      return out;
    case RATIO:
      if (out == nullptr) return new IntObject(ratio_);
      out->setInt(ratio_);
      return out;
    case PRICE:
      if (out == nullptr) return new DoubleObject(price_);
      out->setDouble(price_);
      return out;
    default:
      return AbstractDataObject::getField0(index, out);
  }
}

void GeneratedLeg::setField0(int index, Object const *value) {
  switch (index) {
    case SYMBOL:
      symbol_ = value->getString();
      break;
    case RATIO:
      ratio_ = value->getInt();
      break;
    case PRICE:
      price_ = value->getDouble();
      break;
    default:
      AbstractDataObject::setField0(index, value);
  }
}

DataObjectMetaInfo *GeneratedOrder::metaInfoOfType() {
  static DataObjectMetaInfo metaInfo("Order", ORDER_NAMES, ORDER_TYPES, FIELD_COUNT);
  return &metaInfo;
}

// A section is never null: its flag is up from the start.
GeneratedOrder::GeneratedOrder(DataObjectSection *parent)
    : AbstractDataObject(metaInfoOfType(), flags_, parent), legs_(this, "Legs", 0, 100) {
  setNotNull(LEGS);
}

GeneratedOrder::GeneratedOrder(GeneratedOrder const &other)
    : Object(),
      ObjectRef(),
      AbstractDataObject(other, flags_, nullptr),
      orderID_(other.orderID_),
      account_(other.account_),
      symbol_(other.symbol_),
      side_(other.side_),
      quantity_(other.quantity_),
      executedQuantity_(other.executedQuantity_),
      price_(other.price_),
      rate_(other.rate_),
      notional_(other.notional_),
      tradeDate_(other.tradeDate_),
      transactTime_(other.transactTime_),
      allOrNone_(other.allOrNone_),
      signature_(other.signature_),
      text_(other.text_),
      legs_(other.legs_, this) {}

GeneratedOrder &GeneratedOrder::operator=(GeneratedOrder const &other) {
  if (this == &other) return *this;
  AbstractDataObject::operator=(other);
  orderID_ = other.orderID_;
  account_ = other.account_;
  symbol_ = other.symbol_;
  side_ = other.side_;
  quantity_ = other.quantity_;
  executedQuantity_ = other.executedQuantity_;
  price_ = other.price_;
  rate_ = other.rate_;
  notional_ = other.notional_;
  tradeDate_ = other.tradeDate_;
  transactTime_ = other.transactTime_;
  allOrNone_ = other.allOrNone_;
  signature_ = other.signature_;
  text_ = other.text_;
  legs_.copy(other.legs_, this);
  return *this;
}

void GeneratedOrder::reset() {
  AbstractDataObject::reset();
  legs_.clear();
  setNotNull(LEGS);
}

DataObject *GeneratedOrder::createSectionElement(tvstring const &name, DataObjectSection *section) const {
  if (name == "Legs") return new GeneratedLeg(section);
  return AbstractDataObject::createSectionElement(name, section);
}

Object *GeneratedOrder::getField0(int index, Object *out) const {
  switch (index) {
    case ORDER_ID:
      if (out == nullptr) return new StringObject(orderID_);
      out->setString(orderID_);
      return out;
    case ACCOUNT:
      if (out == nullptr) return new StringObject(account_);
      out->setString(account_);
      return out;
    case SYMBOL:
      if (out == nullptr) return new StringObject(symbol_);
      out->setString(symbol_);
      return out;
    case SIDE:
      if (out == nullptr) return new CharObject(side_);
      out->setCharacter(side_);
      return out;
    case QUANTITY:
      if (out == nullptr) return new IntObject(quantity_);
      out->setInt(quantity_);
      return out;
    case EXECUTED_QUANTITY:
      if (out == nullptr) return new LongObject(executedQuantity_);
      out->setLong(executedQuantity_);
      return out;
    case PRICE:
      if (out == nullptr) return new DoubleObject(price_);
      out->setDouble(price_);
      return out;
    case RATE:
      if (out == nullptr) return new FloatObject(rate_);
      out->setFloat(rate_);
      return out;
    case NOTIONAL:
      if (out == nullptr) return new BigDecimalObject(notional_);
      out->setBigDecimal(notional_);
      return out;
    case TRADE_DATE:
      if (out == nullptr) return new DateObject(tradeDate_);
      out->setDate(tradeDate_);
      return out;
    case TRANSACT_TIME:
      if (out == nullptr) return new DateObject(transactTime_);
      out->setDate(transactTime_);
      return out;
    case ALL_OR_NONE:
      if (out == nullptr) return new BoolObject(allOrNone_);
      out->setBoolean(allOrNone_);
      return out;
    case SIGNATURE:
      if (out == nullptr) return new BinaryObject(signature_);
      out->setBinary(signature_);
      return out;
    case TEXT:
      if (out == nullptr) return new StringObject(text_);
      out->setString(text_);
      return out;
    case LEGS: {
      // Reading a record hands out its section to work on.
      auto *legs = const_cast<DataObjectSectionImpl *>(&legs_);
      if (out == nullptr) return new SectionObject(legs, false);
      SectionObject const value(legs, false);
      out->setObject(&value);
      return out;
    }
    default:
      return AbstractDataObject::getField0(index, out);
  }
}

void GeneratedOrder::setField0(int index, Object const *value) {
  switch (index) {
    case ORDER_ID:
      orderID_ = value->getString();
      break;
    case ACCOUNT:
      account_ = value->getString();
      break;
    case SYMBOL:
      symbol_ = value->getString();
      break;
    case SIDE:
      side_ = value->getCharacter();
      break;
    case QUANTITY:
      quantity_ = value->getInt();
      break;
    case EXECUTED_QUANTITY:
      executedQuantity_ = value->getLong();
      break;
    case PRICE:
      price_ = value->getDouble();
      break;
    case RATE:
      rate_ = value->getFloat();
      break;
    case NOTIONAL:
      notional_ = value->getBigDecimal();
      break;
    case TRADE_DATE:
      tradeDate_ = value->getDate();
      break;
    case TRANSACT_TIME:
      transactTime_ = value->getDate();
      break;
    case ALL_OR_NONE:
      allOrNone_ = value->getBoolean();
      break;
    case SIGNATURE:
      signature_ = value->getBinary();
      break;
    case TEXT:
      text_ = value->getString();
      break;
    case LEGS:
      DataObjectSection::assign(&legs_, checkedCast<SectionObject>(value)->getSection());
      break;
    default:
      AbstractDataObject::setField0(index, value);
  }
}

}  // namespace examples

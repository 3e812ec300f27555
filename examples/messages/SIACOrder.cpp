#include "examples/messages/SIACOrder.h"

namespace examples {

namespace {

constexpr char const *SOURCE = "examples/SIACOrderParser";

enum Tag {
  ORDER_ID = 11001,
  SYMBOL,
  SIDE,
  QUANTITY,
  PRICE,
  ORDER_TIME,
  ALL_OR_NONE,
  ACCOUNT,
  TEXT,
  LEGS = 11020,
  LEG_SYMBOL,
  LEG_RATIO,
  LEG_PRICE,
  END_GROUP = 26000,
  END_INSTANCE = 26999
};

constexpr double MAX_PRICE = 1e9;

}  // namespace

SIACOrderParser::~SIACOrderParser() noexcept(false) = default;
SIACOrderWriter::~SIACOrderWriter() noexcept(false) = default;

bool SIACOrderParser::parseField(SIACOrder &order, Pair &pair, Tokenizer &tokens) const {
  switch (pair.tag) {
    case ORDER_ID:
      store<"CFT_OrderID">(order, pair);
      break;
    case SYMBOL:
      store<"CFT_Symbol">(order, pair);
      break;
    case SIDE:
      store<"CFT_Side">(order, pair);
      break;
    case QUANTITY:
      store<"CFT_Quantity">(order, pair);
      break;
    case PRICE:
      store<"CFT_Price">(order, pair);
      break;
    case ORDER_TIME:
      store<"CFT_OrderTime">(order, pair);
      break;
    case ALL_OR_NONE:
      store<"CFT_AllOrNone">(order, pair);
      break;
    case ACCOUNT:
      store<"CFT_Account">(order, pair);
      break;
    case TEXT:
      store<"CFT_Text">(order, pair);
      break;
    case LEGS:
      parseGroup(order.section<"CFT_Legs">(), pair, tokens);
      break;
    default:
      return false;
  }
  return true;
}

bool SIACOrderParser::parseField(SIACLeg &leg, Pair const &pair) const {
  switch (pair.tag) {
    case LEG_SYMBOL:
      store<"CFT_LegSymbol">(leg, pair);
      break;
    case LEG_RATIO:
      store<"CFT_LegRatio">(leg, pair);
      break;
    case LEG_PRICE:
      store<"CFT_LegPrice">(leg, pair);
      break;
    default:
      return false;
  }
  return true;
}

// An instance is open from its first field to the tag that ends it; the group ends between two instances.
template <class Group>
void SIACOrderParser::parseGroup(Group &group, Pair const &begin, Tokenizer &tokens) const {
  assertSectionEmpty(&group, begin.tag);
  if (begin.value != "{")
    raise<SIACCanonicalParsingException>("Tag '" + intToString(begin.tag) + "' opens no group.", SOURCE);
  bool isOpen = false;
  for (Pair pair; tokens.next(pair);) {
    if (pair.tag == END_GROUP && !isOpen) return;
    if (pair.tag == END_INSTANCE && isOpen) {
      isOpen = false;
      continue;
    }
    if (!isOpen) group.add();
    isOpen = true;
    if (!parseField(group[group.size() - 1], pair))
      raise<SIACCanonicalParsingException>(
          "Unexpected tag " + intToString(pair.tag) + " in the group of tag '" + intToString(begin.tag) + "'.", SOURCE);
  }
  missingTag(END_GROUP);
}

void SIACOrderParser::assertComplete(SIACOrder &order) const {
  assertNotNull(&order, SIACOrder::index<"CFT_OrderID">, ORDER_ID);
  assertNotNull(&order, SIACOrder::index<"CFT_Symbol">, SYMBOL);
  assertNotNull(&order, SIACOrder::index<"CFT_Side">, SIDE);
  assertNotNull(&order, SIACOrder::index<"CFT_Quantity">, QUANTITY);
  assertNotNull(&order, SIACOrder::index<"CFT_OrderTime">, ORDER_TIME);
  for (SIACLeg &leg : order.section<"CFT_Legs">()) {
    assertNotNull(&leg, SIACLeg::index<"CFT_LegSymbol">, LEG_SYMBOL);
    assertNotNull(&leg, SIACLeg::index<"CFT_LegRatio">, LEG_RATIO);
    assertNotNull(&leg, SIACLeg::index<"CFT_LegPrice">, LEG_PRICE);
  }
}

void SIACOrderWriter::writeHeader(DataObject *object, TransformContext &) {
  auto const &header = *checkedCast<SIACCanonicalHeader>(object);
  append("CFT_CanonicalVersion", "10001", header.getCFT_CanonicalVersion());
  append("CFT_SIACMsgType", "10003", header.getCFT_SIACMsgType());
  append("CFT_MsgSubType", "10004", header.getCFT_MsgSubType());
  append("CFT_MsgOrigin", "10005", header.getCFT_MsgOrigin());
  append("CFT_MsgDest", "10006", header.getCFT_MsgDest());
  if (!header.isNull(SIACCanonicalHeaderLayout::MSG_SEQ_NO)) appendField("10007", header.getCFT_MsgSeqNo());
}

void SIACOrderWriter::writeData(DataObject *data, TransformContext &) {
  auto &order = *checkedCast<SIACOrder>(data);
  writeRequired<"CFT_OrderID">("11001", order);
  writeRequired<"CFT_Symbol">("11002", order);
  writeRequired<"CFT_Side">("11003", order);
  writeRequired<"CFT_Quantity">("11004", order);
  write<"CFT_Price">("11005", order);
  writeRequired<"CFT_OrderTime">("11006", order);
  write<"CFT_AllOrNone">("11007", order);
  write<"CFT_Account">("11008", order);
  write<"CFT_Text">("11009", order);
  auto &legs = order.section<"CFT_Legs">();
  if (legs.size() == 0) return;
  appendBeginGroup("11020");
  for (SIACLeg &leg : legs) {
    writeRequired<"CFT_LegSymbol">("11021", leg);
    writeRequired<"CFT_LegRatio">("11022", leg);
    writeRequired<"CFT_LegPrice">("11023", leg);
    appendEndGroupInstance();
  }
  appendEndGroup();
}

void SIACOrderRules::validateData(DataObject *, DataObject *data) {
  auto const &order = *checkedCast<SIACOrder>(data);
  char const side = order.get<"CFT_Side">();
  double const price = order.isNull<"CFT_Price">() ? 1 : order.get<"CFT_Price">();
  check(side == 'B' || side == 'S', "SIAC-03", "BuyOrSell", "CFT_Side");
  check(order.get<"CFT_Quantity">() > 0, "SIAC-04", "QuantityAboveZero", "CFT_Quantity");
  check(price > 0 && price <= MAX_PRICE, "SIAC-05", "PriceLimit", "CFT_Price");
}

void SIACOrderToOrder::mapFields0(ExternalObject *source, DataObject *target) {
  auto const &from = *checkedCast<SIACOrder>(source->getData());
  auto &order = *checkedCast<Order>(target);
  order.set<"OrderID">(from.get<"CFT_OrderID">());
  order.set<"Symbol">(from.get<"CFT_Symbol">());
  order.set<"Side">(from.get<"CFT_Side">());
  order.set<"Quantity">(from.get<"CFT_Quantity">());
  order.set<"TransactTime">(from.get<"CFT_OrderTime">());
  copyField<"Price", "CFT_Price">(order, from);
  copyField<"AllOrNone", "CFT_AllOrNone">(order, from);
  copyField<"Account", "CFT_Account">(order, from);
  copyField<"Text", "CFT_Text">(order, from);
  for (SIACLeg const &leg : from.section<"CFT_Legs">()) {
    Leg &to = order.section<"Legs">().add();
    to.set<"Symbol">(leg.get<"CFT_LegSymbol">());
    to.set<"Ratio">(leg.get<"CFT_LegRatio">());
    to.set<"Price">(leg.get<"CFT_LegPrice">());
  }
}

void OrderToSIACOrder::mapHeaderFields0(DataObject *, DataObject *target) {
  auto &header = *checkedCast<SIACCanonicalHeader>(target);
  header.setCFT_CanonicalVersion("Canonical");
  header.setCFT_SIACMsgType("ORD");
  header.setCFT_MsgOrigin("GATEWAY");
  header.setCFT_MsgDest("FLOOR");
  header.setCFT_MsgSeqNo(nextNumber());
}

void OrderToSIACOrder::mapDataFields0(DataObject *source, DataObject *target) {
  auto const &order = *checkedCast<Order>(source);
  auto &to = *checkedCast<SIACOrder>(target);
  to.set<"CFT_OrderID">(order.get<"OrderID">());
  to.set<"CFT_Symbol">(order.get<"Symbol">());
  to.set<"CFT_Side">(order.get<"Side">());
  to.set<"CFT_Quantity">(order.get<"Quantity">());
  to.set<"CFT_OrderTime">(order.get<"TransactTime">());
  copyField<"CFT_Price", "Price">(to, order);
  copyField<"CFT_AllOrNone", "AllOrNone">(to, order);
  copyField<"CFT_Account", "Account">(to, order);
  copyField<"CFT_Text", "Text">(to, order);
  for (Leg const &leg : order.section<"Legs">()) {
    SIACLeg &added = to.section<"CFT_Legs">().add();
    added.set<"CFT_LegSymbol">(leg.get<"Symbol">());
    added.set<"CFT_LegRatio">(leg.get<"Ratio">());
    added.set<"CFT_LegPrice">(leg.get<"Price">());
  }
}

}  // namespace examples

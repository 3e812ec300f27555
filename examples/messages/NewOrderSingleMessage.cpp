#include "examples/messages/NewOrderSingleMessage.h"

#include <cmath>

namespace examples {

namespace {

constexpr char BUY = '1', SELL = '2';
constexpr char MARKET = '1', LIMIT = '2', STOP = '3', STOP_LIMIT = '4';
constexpr char const *ALL_OR_NONE = "G";

constexpr double MAX_QUANTITY = 1e9;
constexpr double MAX_PRICE = 1e9;

bool isAmount(double value, double max) {
  return value > 0 && value <= max;
}

// A price is there if the type of the order asks for it, and only then.
template <FixedText Name>
bool isPriceOf(NewOrderSingle const &order, bool asked) {
  return order.isNull<Name>() ? !asked : asked && isAmount(order.get<Name>(), MAX_PRICE);
}

}  // namespace

void NewOrderSingleRules::validateData(DataObject *, DataObject *data) {
  auto const &order = *checkedCast<NewOrderSingle>(data);
  char const side = order.get<"Side">();
  char const type = order.get<"OrdType">();
  double const quantity = order.isNull<"OrderQty">() ? 0 : order.get<"OrderQty">();
  check(side == BUY || side == SELL, "NOS-01", "BuyOrSell", "Side");
  check(isAmount(quantity, MAX_QUANTITY) && quantity == std::floor(quantity), "NOS-02", "WholeShares", "OrderQty");
  check(type == MARKET || type == LIMIT || type == STOP || type == STOP_LIMIT, "NOS-03", "KnownOrdType", "OrdType");
  check(isPriceOf<"Price">(order, type == LIMIT || type == STOP_LIMIT), "NOS-04", "PriceOfLimit", "Price");
  check(isPriceOf<"StopPx">(order, type == STOP || type == STOP_LIMIT), "NOS-05", "PriceOfStop", "StopPx");
}

void NewOrderSingleToOrder::mapFields0(ExternalObject *source, DataObject *target) {
  auto const &from = *checkedCast<NewOrderSingle>(source->getData());
  auto &order = *checkedCast<Order>(target);
  requirePlace(from.isNull<"StopPx">(), "An order of this desk", "a stop price", "StopPx");
  requirePlace(from.isNull<"EncodedText">(), "An order of this desk", "an encoded text", "EncodedText");
  order.set<"OrderID">(from.get<"ClOrdID">());
  order.set<"Symbol">(from.get<"Symbol">());
  order.set<"Side">(from.get<"Side">() == BUY ? 'B' : 'S');
  order.set<"Quantity">(static_cast<int>(from.get<"OrderQty">()));
  order.set<"TransactTime">(from.get<"TransactTime">());
  order.set<"TradeDate">(DateTime(from.get<"TransactTime">().getDatePortion(), Time()));
  order.set<"AllOrNone">(!from.isNull<"ExecInst">() && from.get<"ExecInst">().find(ALL_OR_NONE) != tvstring::npos);
  copyField<"Account", "Account">(order, from);
  copyField<"Price", "Price">(order, from);
  copyField<"Text", "Text">(order, from);
}

void OrderToNewOrderSingle::mapHeaderFields0(DataObject *source, DataObject *target) {
  auto const &order = *checkedCast<Order>(source);
  auto &header = *checkedCast<FIXHeader>(target);
  header.setBeginString("FIX.4.4");
  header.setMsgType("D");
  header.setSenderCompID("GATEWAY");
  header.setTargetCompID("EXCHANGE");
  header.setMsgSeqNum(nextNumber());
  tvstring time;
  header.setSendingTime(FIXType::formatUTCTimestamp(order.get<"TransactTime">(), time));
}

void OrderToNewOrderSingle::mapDataFields0(DataObject *source, DataObject *target) {
  auto const &order = *checkedCast<Order>(source);
  auto &to = *checkedCast<NewOrderSingle>(target);
  requirePlace(order.section<"Legs">().isEmpty(), "A NewOrderSingle", "legs", "Legs");
  to.set<"ClOrdID">(order.get<"OrderID">());
  to.set<"HandlInst">('1');
  to.set<"Symbol">(order.get<"Symbol">());
  to.set<"Side">(order.get<"Side">() == 'B' ? BUY : SELL);
  to.set<"TransactTime">(order.get<"TransactTime">());
  to.set<"OrderQty">(order.get<"Quantity">());
  to.set<"OrdType">(order.isNull<"Price">() ? MARKET : LIMIT);
  if (order.get<"AllOrNone">()) to.set<"ExecInst">(ALL_OR_NONE);
  copyField<"Account", "Account">(to, order);
  copyField<"Price", "Price">(to, order);
  copyField<"Text", "Text">(to, order);
}

}  // namespace examples

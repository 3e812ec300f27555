#include "examples/tickets/OrderMessage.h"

#include <algorithm>
#include <climits>

#include "examples/messages/Checks.h"

namespace examples {

namespace {

[[maybe_unused]] bool const BOUND = bindFactory<OrderMessage>("Order");

constexpr int MAX_QUANTITY = 1'000'000;
constexpr double MAX_PRICE = 100'000;

// Two capital letters, a hyphen and digits.
bool isAccount(tvstring const &text) {
  using T = TextFunctions;
  return text.length() > 3 && T::isAlphaUpper(T::left(text, 2)) && T::charAt(text, 2) == '-' &&
         T::isNum(T::mid(text, 3, INT_MAX));
}

// What an order must pass, as its validator "Default".
constexpr Check<Order> CHECKS[] = {
    {"ORD-01", "AccountForm", "Account", [](Order const &o) { return isAccount(o.get<"Account">()); }},
    {"ORD-02", "BuyOrSell", "Side", [](Order const &o) { return o.get<"Side">() == 'B' || o.get<"Side">() == 'S'; }},
    {"ORD-03", "QuantityLimit", "Quantity",
     [](Order const &o) { return ValidationFunctions::inRange(o.get<"Quantity">(), 1, MAX_QUANTITY); }},
    {"ORD-04", "PriceLimit", "Price",
     [](Order const &o) { return o.get<"Price">() > 0 && o.get<"Price">() <= MAX_PRICE; }},
    {"ORD-05", "TradedThatDay", "TradeDate",
     [](Order const &o) {
       return DateFunctions::datePart(o.get<"TradeDate">()) == DateFunctions::datePart(o.get<"TransactTime">());
     }},
    {"ORD-06", "LegRatios", "Legs",
     [](Order const &o) {
       auto const &legs = o.section<"Legs">();
       return std::all_of(legs.begin(), legs.end(), [](Leg const &leg) { return leg.get<"Ratio">() != 0; });
     }},
};

}  // namespace

void OrderDefaults::process(DataObject *object) {
  Order &order = *checkedCast<Order>(object);
  if (order.isNull<"TradeDate">()) order.set<"TradeDate">(DateFunctions::datePart(order.get<"TransactTime">()));
  if (order.isNull<"AllOrNone">()) order.set<"AllOrNone">(false);
  order.set<"ExecutedQuantity">(0);
}

void OrderNotional::process(DataObject *object) {
  Order &order = *checkedCast<Order>(object);
  // Exact: a product of doubles would be off in the last place.
  order.set<"Notional">(BigTypeFunctions::multiply(BigTypeFunctions::toBigDecimal(order.get<"Quantity">()),
                                                   BigTypeFunctions::toBigDecimal(order.get<"Price">())));
}

// The triggers hold a handle on the message that does not count: objects that count each other never go.
OrderMessage::OrderMessage()
    : AbstractInternalMessage("Order"), triggers_(SmartPtr<IInternalMessage>(new BusinessTransactionWrapper(this))) {
  addProcessing(PREPROCESSING_NODE_NAME, new OrderDefaults);
  addValidator(DEFAULT_VALIDATOR, new TableChecks<Order>(CHECKS));
  addProcessing(POSTPROCESSING_NODE_NAME, new OrderNotional);
}

}  // namespace examples

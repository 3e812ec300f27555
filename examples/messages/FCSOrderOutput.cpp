#include "examples/messages/FCSOrderOutput.h"

#include <algorithm>
#include <cmath>

namespace examples {

namespace {

constexpr char const *MESSAGE = "An FCS order";
constexpr int MAX_QUANTITY = 9'999'999;
constexpr int MAX_ACCOUNT = 12;
constexpr int MAX_TEXT = 75;
constexpr int MAX_PRICE = 1'000'000;
constexpr int NUMBERS = 1'000'000;  // of six digits

// Whether the text is read back as it is written: printable, and without a blank where none may stand.
bool isPrintable(tvstring const &text, int maxLength, char first) {
  return FCSLineTokenizer::isTextType(text, maxLength) && text[0] != ' ' && text[text.length() - 1] != ' ' &&
         std::all_of(text.data(), text.data() + text.length(), [=](char c) { return c >= first && c <= '~'; });
}

bool isInEighths(double price) {
  return price > 0 && price < MAX_PRICE && price * 8 == std::floor(price * 8);
}

}  // namespace

void OrderToFCSOrder::mapHeaderFields0(DataObject *source, DataObject *target) {
  auto const &order = *checkedCast<Order>(source);
  auto &header = *checkedCast<FCSOrderHeader>(target);
  tvstring const &id = order.get<"OrderID">();
  size_t const hyphen = std::min(id.find('-'), id.length());
  tvstring const branch = id.substr(0, hyphen);
  tvstring const sequence = hyphen == id.length() ? tvstring() : id.substr(hyphen + 1);
  requirePlace(FCSLineTokenizer::isCharType(branch, 4) && FCSLineTokenizer::isNumberType(sequence, 4), MESSAGE,
               "an order number that is no branch and number", "OrderID");
  header.set<"Branch">(branch);
  header.set<"Sequence">(sequence);
  header.set<"Date">(order.get<"TradeDate">());
}

void OrderToFCSOrder::mapDataFields0(DataObject *source, DataObject *target) {
  auto const &order = *checkedCast<Order>(source);
  auto &to = *checkedCast<FCSOrder>(target);
  requirePlace(order.section<"Legs">().isEmpty(), MESSAGE, "legs", "Legs");
  requirePlace(FCSLineTokenizer::isCharType(order.get<"Symbol">(), 5), MESSAGE, "such a symbol", "Symbol");
  requirePlace(order.get<"Quantity">() <= MAX_QUANTITY, MESSAGE, "more than seven digits", "Quantity");
  requirePlace(order.isNull<"Price">() || isInEighths(order.get<"Price">()), MESSAGE, "a price that is not in eighths",
               "Price");
  requirePlace(order.isNull<"Account">() || isPrintable(order.get<"Account">(), MAX_ACCOUNT, '!'), MESSAGE,
               "such an account", "Account");
  requirePlace(order.isNull<"Text">() || isPrintable(order.get<"Text">(), MAX_TEXT, ' '), MESSAGE, "such a text",
               "Text");
  to.set<"Side">(order.get<"Side">() == 'B' ? "BUY" : "SELL");
  to.set<"Quantity">(order.get<"Quantity">());
  to.set<"Symbol">(order.get<"Symbol">());
  to.set<"AllOrNone">(order.get<"AllOrNone">());
  copyField<"Price", "Price">(to, order);
  copyField<"Account", "Account">(to, order);
  copyField<"Text", "Text">(to, order);
}

void OrderToFCSOrder::mapTrailerFields0(DataObject *, DataObject *, DataObject *target) {
  tvstring const digits = Parsing::intToString(NUMBERS + nextNumber() % NUMBERS);
  checkedCast<FCSTrailer>(target)->set<"ISN">(digits.substr(1));
}

}  // namespace examples

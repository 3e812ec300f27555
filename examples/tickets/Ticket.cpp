#include "examples/tickets/Ticket.h"

namespace examples {

namespace {

[[maybe_unused]] bool const BOUND = bindFactory<OrderToTicket>("OrderToTicket") &&
                                    bindFactory<OrderToTicketMapping>("OrderToTicketMapping") &&
                                    bindFactory<TicketFormat>("TicketLine");

// One instrument by its symbol, a combination by its legs: "ACME-BETA".
tvstring instrumentOf(Order const &order) {
  auto const &legs = order.section<"Legs">();
  if (legs.size() == 0) return order.get<"Symbol">();
  tvstringbuffer name;
  for (Leg const &leg : legs) {
    if (!name.empty()) name.append('-');
    name.append(leg.get<"Symbol">());
  }
  return name;
}

}  // namespace

bool isBlock(Ticket const &ticket) {
  static BigDecimal const amount(250'000);
  return ticket.get<"Amount">() >= amount;
}

void OrderToTicketRules::mapFields0(DataObject *source, DataObject *target) {
  Order const &order = *checkedCast<Order>(source);
  Ticket &ticket = *checkedCast<Ticket>(target);
  ticket.set<"TicketID">("T-" + order.get<"OrderID">());
  ticket.set<"Account">(order.get<"Account">());
  ticket.set<"Direction">(order.get<"Side">() == 'B' ? "BUY" : "SELL");
  ticket.set<"Quantity">(order.get<"Quantity">());
  ticket.set<"Instrument">(instrumentOf(order));
  ticket.set<"Amount">(order.get<"Notional">());
  ticket.set<"TradeDate">(order.get<"TradeDate">());
  if (!order.isNull<"Text">()) ticket.set<"Note">(order.get<"Text">());
}

DataObject *OrderToTicket::map(DataObject *source, TransformContext &context) {
  auto ticket = std::make_unique<Ticket>();
  rules_.mapFields(source, ticket.get(), context);
  return ticket.release();
}

OrderToTicketMapping::OrderToTicketMapping() : AbstractMessageMapping("OrderToTicketMapping") {
  setSourceMessageName("Order");
  setDestinationMessageName("Ticket");
}

SmartPtr<DataObject> OrderToTicketMapping::map(SmartPtr<DataObject> const &source, TransformContext &context) {
  SmartPtr<DataObject> const ticket(new Ticket);
  rules_.mapFields(source.get(), ticket.get(), context);
  return ticket;
}

void TicketWriter::initMessage() {
  // A new buffer: the line of the last message is still in its receiver's hands, and copies share their storage.
  line_ = tvstringbuffer();
}

void TicketWriter::writeHeader(DataObject *header, TransformContext &) {
  line_.append("TICKET");
  put("Source", checkedCast<TicketHeader>(header)->get<"Source">());
}

void TicketWriter::writeData(DataObject *data, TransformContext &) {
  Ticket const &ticket = *checkedCast<Ticket>(data);
  put("TicketID", ticket.get<"TicketID">());
  put("Account", ticket.get<"Account">());
  put("Direction", ticket.get<"Direction">());
  put("Quantity", Parsing::intToString(ticket.get<"Quantity">()));
  put("Instrument", ticket.get<"Instrument">());
  put("Amount", ticket.get<"Amount">().toString());
  put("TradeDate", ticket.get<"TradeDate">().toString("yyyyMMdd"));
  put("SettlementDate", ticket.get<"SettlementDate">().toString("yyyyMMdd"));
  put("Note", ticket.isNull<"Note">() ? tvstring::EMPTY : ticket.get<"Note">());
}

void TicketWriter::writeTrailer(DataObject *, TransformContext &) {
  line_.append(";END\n");
}

tvstring TicketWriter::endMessage() {
  return line_;
}

// A delimiter inside of a value would shift all fields behind it, and nobody down the line could tell.
void TicketWriter::put(char const *field, tvstring const &text) {
  line_.append(';');
  if (text.find(';') == tvstring::npos && text.find('\n') == tvstring::npos) {
    line_.append(text);
    return;
  }
  TransformException failure(tvstring("Field '") + field + "' holds a delimiter");
  failure.setErrorType(ExceptionObject::ERROR_TYPE_OUTPUT);
  failure.setFFieldName(field);
  exceptionHandler->onException(&failure);
}

void TicketFormat::mapHeader(DataObject *, DataObject *target, TransformContext &context) {
  checkedCast<TicketHeader>(target)->set<"Source">(context.getProperty(TransformContext::INPUT_SOURCE_PROPERTY));
}

void TicketFormat::mapData(DataObject *source, DataObject *target, TransformContext &) {
  *checkedCast<Ticket>(target) = *checkedCast<Ticket>(source);
}

}  // namespace examples

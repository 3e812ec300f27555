#include "examples/tickets/TicketMessage.h"

#include "examples/messages/Checks.h"
#include "examples/tickets/Ticket.h"

namespace examples {

namespace {

[[maybe_unused]] bool const BOUND = bindFactory<TicketMessage>("Ticket");

constexpr Check<Ticket> CHECKS[] = {
    {"TKT-01", "WorkingDay", "TradeDate",
     [](Ticket const &t) { return !DateFunctions::isWeekend(t.get<"TradeDate">()); }},
};

}  // namespace

void TicketSettlement::process(DataObject *object) {
  Ticket &ticket = *checkedCast<Ticket>(object);
  DateTime day = ticket.get<"TradeDate">();
  for (int working = 0; working < 2;) {
    day = DateFunctions::addDays(day, 1);
    if (!DateFunctions::isWeekend(day)) ++working;
  }
  ticket.set<"SettlementDate">(day);
}

// The triggers hold a handle on the message that does not count: objects that count each other never go.
TicketMessage::TicketMessage()
    : AbstractInternalMessage("Ticket"), triggers_(SmartPtr<IInternalMessage>(new BusinessTransactionWrapper(this))) {
  addProcessing(PREPROCESSING_NODE_NAME, new TicketSettlement);
  addValidator(DEFAULT_VALIDATOR, new TableChecks<Ticket>(CHECKS));
}

DataObject *TicketMessage::createNormalizedObject() {
  return new Ticket;
}

}  // namespace examples

#include "examples/messages/NewOrderSingleParser.h"

namespace examples {

namespace {

enum Tag {
  ACCOUNT = 1,
  CL_ORD_ID = 11,
  CURRENCY = 15,
  EXEC_INST = 18,
  HANDL_INST = 21,
  ORDER_QTY = 38,
  ORD_TYPE = 40,
  PRICE = 44,
  SIDE = 54,
  SYMBOL = 55,
  TEXT = 58,
  TIME_IN_FORCE = 59,
  TRANSACT_TIME = 60,
  NO_ALLOCS = 78,
  ALLOC_ACCOUNT = 79,
  ALLOC_QTY = 80,
  STOP_PX = 99,
  ENCODED_TEXT_LEN = 354,
  ENCODED_TEXT = 355,
  PARTY_ID_SOURCE = 447,
  PARTY_ID = 448,
  PARTY_ROLE = 452,
  NO_PARTY_IDS = 453
};

}  // namespace

NewOrderSingleParser::~NewOrderSingleParser() noexcept(false) = default;

bool NewOrderSingleParser::parseField(NewOrderSingle &order, Pair &pair, FIXTokenizer &tokens) const {
  switch (pair.tag) {
    case ACCOUNT:
      store<"Account">(order, pair);
      break;
    case CL_ORD_ID:
      store<"ClOrdID">(order, pair);
      break;
    case CURRENCY:
      store<"Currency">(order, pair);
      break;
    case EXEC_INST:
      store<"ExecInst">(order, pair);
      break;
    case HANDL_INST:
      store<"HandlInst">(order, pair);
      break;
    case ORDER_QTY:
      store<"OrderQty">(order, pair);
      break;
    case ORD_TYPE:
      store<"OrdType">(order, pair);
      break;
    case PRICE:
      store<"Price">(order, pair);
      break;
    case SIDE:
      store<"Side">(order, pair);
      break;
    case SYMBOL:
      store<"Symbol">(order, pair);
      break;
    case TEXT:
      store<"Text">(order, pair);
      break;
    case TIME_IN_FORCE:
      store<"TimeInForce">(order, pair);
      break;
    case TRANSACT_TIME:
      store<"TransactTime">(order, pair);
      break;
    case STOP_PX:
      store<"StopPx">(order, pair);
      break;
    case NO_ALLOCS:
      parseGroup(order.section<"Allocs">(), pair, tokens, ALLOC_ACCOUNT);
      break;
    case NO_PARTY_IDS:
      parseGroup(order.section<"PartyIDs">(), pair, tokens, PARTY_ID);
      break;
    case ENCODED_TEXT_LEN:
      storeData<"EncodedText">(order, pair, tokens, ENCODED_TEXT);
      break;
    default:
      return false;
  }
  return true;
}

bool NewOrderSingleParser::parseField(OrderParty &party, Pair const &pair) const {
  switch (pair.tag) {
    case PARTY_ID:
      store<"PartyID">(party, pair);
      break;
    case PARTY_ID_SOURCE:
      store<"PartyIDSource">(party, pair);
      break;
    case PARTY_ROLE:
      store<"PartyRole">(party, pair);
      break;
    default:
      return false;
  }
  return true;
}

bool NewOrderSingleParser::parseField(OrderAllocation &allocation, Pair const &pair) const {
  switch (pair.tag) {
    case ALLOC_ACCOUNT:
      store<"AllocAccount">(allocation, pair);
      break;
    case ALLOC_QTY:
      store<"AllocQty">(allocation, pair);
      break;
    default:
      return false;
  }
  return true;
}

void NewOrderSingleParser::assertComplete(NewOrderSingle &order) const {
  assertNotNull(&order, NewOrderSingle::index<"ClOrdID">, CL_ORD_ID);
  assertNotNull(&order, NewOrderSingle::index<"Symbol">, SYMBOL);
  assertNotNull(&order, NewOrderSingle::index<"Side">, SIDE);
  assertNotNull(&order, NewOrderSingle::index<"TransactTime">, TRANSACT_TIME);
  assertNotNull(&order, NewOrderSingle::index<"OrdType">, ORD_TYPE);
}

}  // namespace examples

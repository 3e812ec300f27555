#include "examples/messages/NewOrderSingleParser.h"

#include <typeinfo>

namespace examples {

namespace {

constexpr char SOH = '\x01';
constexpr char const *SOURCE = "examples/NewOrderSingleParser";

enum Tag {
  ACCOUNT = 1,
  CHECK_SUM = 10,
  CL_ORD_ID = 11,
  CURRENCY = 15,
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

template <class Value>
decltype(auto) convert(tvstring const &text) {
  if constexpr (std::is_same_v<Value, tvstring>)
    return (text);
  else if constexpr (std::is_same_v<Value, Binary>)
    return Binary(text);
  else if constexpr (std::is_same_v<Value, int>)
    return Parsing::parseInt(text);
  else if constexpr (std::is_same_v<Value, char>)
    return Parsing::parseChar(text);
  else if constexpr (std::is_same_v<Value, double>)
    return Parsing::parseDouble(text);
  else
    return FIXType::parseUTCTimestamp(text);
}

// The part if it is exactly a Part, which is told faster than by a cast.
template <class Part>
Part *partOf(DataObject *part) {
  return part != nullptr && typeid(*part) == typeid(Part) ? static_cast<Part *>(part) : nullptr;
}

}  // namespace

NewOrderSingleParser::~NewOrderSingleParser() noexcept(false) = default;

void NewOrderSingleParser::parse(ExternalObject *object, Binary const &bytes, TransformContext &) {
  auto *header = partOf<FIXHeader>(object->getHeader());
  auto *order = partOf<NewOrderSingle>(object->getData());
  if (header == nullptr || order == nullptr) {
    SmartPtr<FIXHeader> const newHeader(header = new FIXHeader);
    SmartPtr<NewOrderSingle> const newOrder(order = new NewOrderSingle);
    object->setExternalObjects(header, order, nullptr);
  } else {
    object->reset();
  }
  parseMessage(*header, *order, bytes.asText());
}

ExternalObject *NewOrderSingleParser::parse(Binary const &bytes, TransformContext &context) {
  auto object = std::make_unique<ExternalObject>();
  parse(object.get(), bytes, context);
  return object.release();
}

void NewOrderSingleParser::parseMessage(FIXHeader &header, NewOrderSingle &order, tvstring const &message) const {
  FIXTokenizer tokens(message, SOH);
  FIXHeaderParser::parseHeader(&header, tokens);
  Pair pair;
  while (tokens.next(pair)) {
    if (parseField(order, pair, tokens)) continue;
    if (pair.tag != CHECK_SUM) tokens.pushBack(pair);
    tokens.assertEmpty();
    assertComplete(order);
    return;
  }
  missingTag(CHECK_SUM);
}

template <FixedText Name, class Type>
void NewOrderSingleParser::store(Type &record, Pair const &pair) const {
  assertTagNew(&record, Type::template index<Name>, pair.tag);
  using Value = std::remove_cvref_t<decltype(record.template get<Name>())>;
  record.template set<Name>(convert<Value>(pair.value));
}

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
      if (!tokens.nextDataTag(pair, pair.toInt()) || pair.tag != ENCODED_TEXT) missingTag(ENCODED_TEXT);
      store<"EncodedText">(order, pair);
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

// Each element begins with the same tag; the first tag that is none of the group's goes back.
template <class Group>
void NewOrderSingleParser::parseGroup(Group &group, Pair const &counter, FIXTokenizer &tokens, int firstTag) const {
  assertSectionEmpty(&group, counter.tag);
  int const expected = counter.toInt();
  for (Pair pair; tokens.next(pair);) {
    if (pair.tag == firstTag) group.add();
    if (group.size() != 0 && parseField(group[group.size() - 1], pair)) continue;
    tokens.pushBack(pair);
    break;
  }
  if (group.size() == expected) return;
  raise<FIXParsingException>("Tag '" + intToString(counter.tag) + "' counts " + intToString(expected) +
                                 " elements, found " + intToString(group.size()) + ".",
                             SOURCE);
}

void NewOrderSingleParser::assertComplete(NewOrderSingle &order) const {
  assertNotNull(&order, NewOrderSingle::index<"ClOrdID">, CL_ORD_ID);
  assertNotNull(&order, NewOrderSingle::index<"Symbol">, SYMBOL);
  assertNotNull(&order, NewOrderSingle::index<"Side">, SIDE);
  assertNotNull(&order, NewOrderSingle::index<"TransactTime">, TRANSACT_TIME);
  assertNotNull(&order, NewOrderSingle::index<"OrdType">, ORD_TYPE);
}

}  // namespace examples

#include "examples/messages/MarketDataSnapshotFullRefresh.h"

namespace examples {

namespace {

enum Tag {
  CURRENCY = 15,
  SECURITY_ID_SOURCE = 22,
  SECURITY_ID = 48,
  SYMBOL = 55,
  SECURITY_EXCHANGE = 207,
  MD_REQ_ID = 262,
  NO_MD_ENTRIES = 268,
  MD_ENTRY_TYPE = 269,
  MD_ENTRY_PX = 270,
  MD_ENTRY_SIZE = 271,
  QUOTE_CONDITION = 276,
  MD_ENTRY_ORIGINATOR = 282,
  MD_ENTRY_POSITION_NO = 290,
  FINANCIAL_STATUS = 291,
  NUMBER_OF_ORDERS = 346,
  NET_CHG_PREV_DAY = 451
};

constexpr char BID = '0', OFFER = '1', TRADE = '2';

}  // namespace

MarketDataSnapshotFullRefreshParser::~MarketDataSnapshotFullRefreshParser() noexcept(false) = default;
MarketDataSnapshotFullRefreshWriter::~MarketDataSnapshotFullRefreshWriter() noexcept(false) = default;

bool MarketDataSnapshotFullRefreshParser::parseField(MarketDataSnapshotFullRefresh &snapshot, Pair &pair,
                                                     FIXTokenizer &tokens) const {
  switch (pair.tag) {
    case SECURITY_ID_SOURCE:
      store<"SecurityIDSource">(snapshot, pair);
      break;
    case SECURITY_ID:
      store<"SecurityID">(snapshot, pair);
      break;
    case SYMBOL:
      store<"Symbol">(snapshot, pair);
      break;
    case SECURITY_EXCHANGE:
      store<"SecurityExchange">(snapshot, pair);
      break;
    case MD_REQ_ID:
      store<"MDReqID">(snapshot, pair);
      break;
    case NO_MD_ENTRIES:
      parseGroup(snapshot.section<"MDEntries">(), pair, tokens, MD_ENTRY_TYPE);
      break;
    case FINANCIAL_STATUS:
      store<"FinancialStatus">(snapshot, pair);
      break;
    case NET_CHG_PREV_DAY:
      store<"NetChgPrevDay">(snapshot, pair);
      break;
    default:
      return false;
  }
  return true;
}

bool MarketDataSnapshotFullRefreshParser::parseField(MDEntry &entry, Pair const &pair) const {
  switch (pair.tag) {
    case CURRENCY:
      store<"Currency">(entry, pair);
      break;
    case MD_ENTRY_TYPE:
      store<"MDEntryType">(entry, pair);
      break;
    case MD_ENTRY_PX:
      store<"MDEntryPx">(entry, pair);
      break;
    case MD_ENTRY_SIZE:
      store<"MDEntrySize">(entry, pair);
      break;
    case QUOTE_CONDITION:
      store<"QuoteCondition">(entry, pair);
      break;
    case MD_ENTRY_ORIGINATOR:
      store<"MDEntryOriginator">(entry, pair);
      break;
    case MD_ENTRY_POSITION_NO:
      store<"MDEntryPositionNo">(entry, pair);
      break;
    case NUMBER_OF_ORDERS:
      store<"NumberOfOrders">(entry, pair);
      break;
    default:
      return false;
  }
  return true;
}

void MarketDataSnapshotFullRefreshParser::assertComplete(MarketDataSnapshotFullRefresh &snapshot) const {
  assertNotNull(&snapshot, MarketDataSnapshotFullRefresh::index<"Symbol">, SYMBOL);
  assertConstraints(&snapshot, MarketDataSnapshotFullRefresh::index<"MDEntries">, NO_MD_ENTRIES);
}

void MarketDataSnapshotFullRefreshWriter::writeData(DataObject *data, TransformContext &) {
  auto &snapshot = *checkedCast<MarketDataSnapshotFullRefresh>(data);
  write<"MDReqID">("262", snapshot);
  writeRequired<"Symbol">("55", snapshot);
  write<"SecurityID">("48", snapshot);
  write<"SecurityIDSource">("22", snapshot);
  write<"SecurityExchange">("207", snapshot);
  write<"FinancialStatus">("291", snapshot);
  write<"NetChgPrevDay">("451", snapshot);
  writeRequiredGroup<"MDEntries">("268", snapshot, [&](MDEntry &entry) {
    writeRequired<"MDEntryType">("269", entry);
    write<"MDEntryPx">("270", entry);
    write<"Currency">("15", entry);
    write<"MDEntrySize">("271", entry);
    write<"QuoteCondition">("276", entry);
    write<"MDEntryOriginator">("282", entry);
    write<"NumberOfOrders">("346", entry);
    write<"MDEntryPositionNo">("290", entry);
  });
}

void MarketDataSnapshotFullRefreshRules::validateData(DataObject *, DataObject *data) {
  auto const &snapshot = *checkedCast<MarketDataSnapshotFullRefresh>(data);
  bool hasPrices = true;
  bool hasSizes = true;
  for (MDEntry const &entry : snapshot.section<"MDEntries">()) {
    char const type = entry.get<"MDEntryType">();
    hasPrices &= (type != BID && type != OFFER && type != TRADE) || !entry.isNull<"MDEntryPx">();
    hasSizes &= entry.isNull<"MDEntrySize">() || entry.get<"MDEntrySize">() >= 0;
  }
  check(hasPrices, "MDS-01", "PriceOfEntry", "MDEntries");
  check(hasSizes, "MDS-02", "SizeOfEntry", "MDEntries");
}

}  // namespace examples

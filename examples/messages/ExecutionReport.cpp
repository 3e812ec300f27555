#include "examples/messages/ExecutionReport.h"

namespace examples {

namespace {

enum Tag {
  ACCOUNT = 1,
  AVG_PX = 6,
  CL_ORD_ID = 11,
  CUM_QTY = 14,
  EXEC_ID = 17,
  LAST_PX = 31,
  LAST_QTY = 32,
  ORDER_ID = 37,
  ORDER_QTY = 38,
  ORD_STATUS = 39,
  ORIG_CL_ORD_ID = 41,
  PRICE = 44,
  SIDE = 54,
  SYMBOL = 55,
  TEXT = 58,
  TRANSACT_TIME = 60,
  ORD_REJ_REASON = 103,
  EXEC_TYPE = 150,
  LEAVES_QTY = 151,
  CONTRA_TRADER = 337,
  CONTRA_BROKER = 375,
  NO_CONTRA_BROKERS = 382,
  CONTRA_TRADE_QTY = 437,
  CONTRA_TRADE_TIME = 438
};

constexpr char TRADE = 'F';
constexpr char NEW = '0', PARTIALLY_FILLED = '1', FILLED = '2';

}  // namespace

ExecutionReportParser::~ExecutionReportParser() noexcept(false) = default;
ExecutionReportWriter::~ExecutionReportWriter() noexcept(false) = default;

bool ExecutionReportParser::parseField(ExecutionReport &report, Pair &pair, FIXTokenizer &tokens) const {
  switch (pair.tag) {
    case AVG_PX:
      store<"AvgPx">(report, pair);
      break;
    case CUM_QTY:
      store<"CumQty">(report, pair);
      break;
    case EXEC_ID:
      store<"ExecID">(report, pair);
      break;
    case LAST_PX:
      store<"LastPx">(report, pair);
      break;
    case LAST_QTY:
      store<"LastQty">(report, pair);
      break;
    case ORD_STATUS:
      store<"OrdStatus">(report, pair);
      break;
    case ORD_REJ_REASON:
      store<"OrdRejReason">(report, pair);
      break;
    case EXEC_TYPE:
      store<"ExecType">(report, pair);
      break;
    case LEAVES_QTY:
      store<"LeavesQty">(report, pair);
      break;
    case NO_CONTRA_BROKERS:
      parseGroup(report.section<"ContraBrokers">(), pair, tokens, CONTRA_BROKER);
      break;
    default:
      return parseOrderField(report, pair);
  }
  return true;
}

// What the report repeats of the order.
bool ExecutionReportParser::parseOrderField(ExecutionReport &report, Pair const &pair) const {
  switch (pair.tag) {
    case ACCOUNT:
      store<"Account">(report, pair);
      break;
    case CL_ORD_ID:
      store<"ClOrdID">(report, pair);
      break;
    case ORDER_ID:
      store<"OrderID">(report, pair);
      break;
    case ORDER_QTY:
      store<"OrderQty">(report, pair);
      break;
    case ORIG_CL_ORD_ID:
      store<"OrigClOrdID">(report, pair);
      break;
    case PRICE:
      store<"Price">(report, pair);
      break;
    case SIDE:
      store<"Side">(report, pair);
      break;
    case SYMBOL:
      store<"Symbol">(report, pair);
      break;
    case TEXT:
      store<"Text">(report, pair);
      break;
    case TRANSACT_TIME:
      store<"TransactTime">(report, pair);
      break;
    default:
      return false;
  }
  return true;
}

bool ExecutionReportParser::parseField(ContraBroker &broker, Pair const &pair) const {
  switch (pair.tag) {
    case CONTRA_BROKER:
      store<"ContraBroker">(broker, pair);
      break;
    case CONTRA_TRADER:
      store<"ContraTrader">(broker, pair);
      break;
    case CONTRA_TRADE_QTY:
      store<"ContraTradeQty">(broker, pair);
      break;
    case CONTRA_TRADE_TIME:
      store<"ContraTradeTime">(broker, pair);
      break;
    default:
      return false;
  }
  return true;
}

void ExecutionReportParser::assertComplete(ExecutionReport &report) const {
  assertNotNull(&report, ExecutionReport::index<"OrderID">, ORDER_ID);
  assertNotNull(&report, ExecutionReport::index<"ExecID">, EXEC_ID);
  assertNotNull(&report, ExecutionReport::index<"ExecType">, EXEC_TYPE);
  assertNotNull(&report, ExecutionReport::index<"OrdStatus">, ORD_STATUS);
  assertNotNull(&report, ExecutionReport::index<"Symbol">, SYMBOL);
  assertNotNull(&report, ExecutionReport::index<"Side">, SIDE);
  assertNotNull(&report, ExecutionReport::index<"LeavesQty">, LEAVES_QTY);
  assertNotNull(&report, ExecutionReport::index<"CumQty">, CUM_QTY);
  assertNotNull(&report, ExecutionReport::index<"AvgPx">, AVG_PX);
}

void ExecutionReportWriter::writeData(DataObject *data, TransformContext &) {
  auto &report = *checkedCast<ExecutionReport>(data);
  writeRequired<"OrderID">("37", report);
  write<"ClOrdID">("11", report);
  write<"OrigClOrdID">("41", report);
  writeGroup("382", report.section<"ContraBrokers">(), [&](ContraBroker &broker) {
    writeRequired<"ContraBroker">("375", broker);
    write<"ContraTrader">("337", broker);
    write<"ContraTradeQty">("437", broker);
    write<"ContraTradeTime">("438", broker);
  });
  writeRequired<"ExecID">("17", report);
  writeRequired<"ExecType">("150", report);
  writeRequired<"OrdStatus">("39", report);
  write<"OrdRejReason">("103", report);
  write<"Account">("1", report);
  writeRequired<"Symbol">("55", report);
  writeRequired<"Side">("54", report);
  write<"OrderQty">("38", report);
  write<"Price">("44", report);
  write<"LastQty">("32", report);
  write<"LastPx">("31", report);
  writeRequired<"LeavesQty">("151", report);
  writeRequired<"CumQty">("14", report);
  writeRequired<"AvgPx">("6", report);
  write<"TransactTime">("60", report);
  write<"Text">("58", report);
}

void ExecutionReportRules::validateData(DataObject *, DataObject *data) {
  auto const &report = *checkedCast<ExecutionReport>(data);
  bool const hasTrade = !report.isNull<"LastQty">() && !report.isNull<"LastPx">() && report.get<"LastQty">() > 0;
  check(report.get<"ExecType">() != TRADE || hasTrade, "EXE-01", "TradedQuantityAndPrice", "LastQty");
  char const status = report.get<"OrdStatus">();
  double const total = report.get<"LeavesQty">() + report.get<"CumQty">();
  bool const isOpen = status == NEW || status == PARTIALLY_FILLED || status == FILLED;
  check(!isOpen || report.isNull<"OrderQty">() || total == report.get<"OrderQty">(), "EXE-02", "LeavesAndCumQty",
        "LeavesQty");
  double shares = 0;
  for (ContraBroker const &broker : report.section<"ContraBrokers">())
    shares += broker.isNull<"ContraTradeQty">() ? 0 : broker.get<"ContraTradeQty">();
  check(shares == 0 || (hasTrade && shares == report.get<"LastQty">()), "EXE-03", "ContraTradeQty", "ContraBrokers");
}

}  // namespace examples

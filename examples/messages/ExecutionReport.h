#pragma once

// ExecutionReport of FIX 4.4, message type 8, with the fields of a plain execution and its repeating group of contra
// brokers: record, parser, writer and rules in one.

#include "examples/messages/FIXMessage.h"

namespace examples {

// clang-format off
struct ContraBroker : Record<"ContraBroker",
                             Field<"ContraBroker", tvstring>,         // 375
                             Field<"ContraTrader", tvstring>,         // 337
                             Field<"ContraTradeQty", double>,         // 437
                             Field<"ContraTradeTime", DateTime>> {};  // 438

struct ExecutionReport : Record<"ExecutionReport",
                                Field<"OrderID", tvstring>,               // 37
                                Field<"ClOrdID", tvstring>,               // 11
                                Field<"OrigClOrdID", tvstring>,           // 41
                                Section<"ContraBrokers", ContraBroker>,   // 382
                                Field<"ExecID", tvstring>,                // 17
                                Field<"ExecType", char>,                  // 150
                                Field<"OrdStatus", char>,                 // 39
                                Field<"OrdRejReason", int>,               // 103
                                Field<"Account", tvstring>,               // 1
                                Field<"Symbol", tvstring>,                // 55
                                Field<"Side", char>,                      // 54
                                Field<"OrderQty", double>,                // 38
                                Field<"Price", double>,                   // 44
                                Field<"LastQty", double>,                 // 32
                                Field<"LastPx", double>,                  // 31
                                Field<"LeavesQty", double>,               // 151
                                Field<"CumQty", double>,                  // 14
                                Field<"AvgPx", double>,                   // 6
                                Field<"TransactTime", DateTime>,          // 60
                                Field<"Text", tvstring>> {};              // 58
// clang-format on

// Reads an ExecutionReport; see FIXMessageParser.
class ExecutionReportParser : public FIXMessageParser<ExecutionReportParser, ExecutionReport> {
 public:
  ~ExecutionReportParser() noexcept(false) override;

 private:
  friend TagValueMessageParser;
  friend FIXMessageParser;

  bool parseField(ExecutionReport &report, Pair &pair, FIXTokenizer &tokens) const;
  bool parseOrderField(ExecutionReport &report, Pair const &pair) const;
  bool parseField(ContraBroker &broker, Pair const &pair) const;
  void assertComplete(ExecutionReport &report) const;
};

// Writes an ExecutionReport, its fields in the order of FIX 4.4.
class ExecutionReportWriter : public FIXMessageWriter {
 public:
  ~ExecutionReportWriter() noexcept(false) override;

  void writeData(DataObject *data, TransformContext &context) override;
};

// "Default": a trade says what was traded, what is left and what was executed make up the order, and so do the shares
// of the contra brokers the trade.
class ExecutionReportRules : public CodedRules {
 public:
  using CodedRules::validateData;
  void validateData(DataObject *header, DataObject *data) override;
};

using ExecutionReportMessage =
    TagValueMessage<ExecutionReport, FIXWire, ExecutionReportParser, ExecutionReportWriter, ExecutionReportRules>;

}  // namespace examples

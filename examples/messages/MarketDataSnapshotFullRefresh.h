#pragma once

// MarketDataSnapshotFullRefresh of FIX 4.4, message type W, with the fields of a plain book of one instrument: record,
// parser, writer and rules in one.

#include "examples/messages/FIXMessage.h"

namespace examples {

// clang-format off
struct MDEntry : Record<"MDEntry",
                        Field<"MDEntryType", char>,            // 269
                        Field<"MDEntryPx", double>,            // 270
                        Field<"Currency", tvstring>,           // 15
                        Field<"MDEntrySize", double>,          // 271
                        Field<"QuoteCondition", tvstring>,     // 276
                        Field<"MDEntryOriginator", tvstring>,  // 282
                        Field<"NumberOfOrders", int>,          // 346
                        Field<"MDEntryPositionNo", int>> {};   // 290

struct MarketDataSnapshotFullRefresh : Record<"MarketDataSnapshotFullRefresh",
                                              Field<"MDReqID", tvstring>,            // 262
                                              Field<"Symbol", tvstring>,             // 55
                                              Field<"SecurityID", tvstring>,         // 48
                                              Field<"SecurityIDSource", tvstring>,   // 22
                                              Field<"SecurityExchange", tvstring>,   // 207
                                              Field<"FinancialStatus", tvstring>,    // 291
                                              Field<"NetChgPrevDay", double>,        // 451
                                              Section<"MDEntries", MDEntry, 1>> {};  // 268
// clang-format on

// Reads a MarketDataSnapshotFullRefresh; see FIXMessageParser. "Tag '268[MDEntries]' expected. ..." for one without
// entries.
class MarketDataSnapshotFullRefreshParser
    : public FIXMessageParser<MarketDataSnapshotFullRefreshParser, MarketDataSnapshotFullRefresh> {
 public:
  ~MarketDataSnapshotFullRefreshParser() noexcept(false) override;

 private:
  friend TagValueMessageParser;
  friend FIXMessageParser;

  bool parseField(MarketDataSnapshotFullRefresh &snapshot, Pair &pair, FIXTokenizer &tokens) const;
  bool parseField(MDEntry &entry, Pair const &pair) const;
  void assertComplete(MarketDataSnapshotFullRefresh &snapshot) const;
};

// Writes a MarketDataSnapshotFullRefresh, its fields in the order of FIX 4.4.
class MarketDataSnapshotFullRefreshWriter : public FIXMessageWriter {
 public:
  ~MarketDataSnapshotFullRefreshWriter() noexcept(false) override;

  void writeData(DataObject *data, TransformContext &context) override;
};

// "Default": bids, offers and trades have a price, and no size is negative.
class MarketDataSnapshotFullRefreshRules : public CodedRules {
 public:
  using CodedRules::validateData;
  void validateData(DataObject *header, DataObject *data) override;
};

using MarketDataSnapshotFullRefreshMessage =
    TagValueMessage<MarketDataSnapshotFullRefresh, FIXWire, MarketDataSnapshotFullRefreshParser,
                    MarketDataSnapshotFullRefreshWriter, MarketDataSnapshotFullRefreshRules>;

}  // namespace examples

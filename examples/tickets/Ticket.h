#pragma once

#include "examples/messages/Order.h"

namespace examples {

// What the middle office books: the order in its words. And what goes before it on the wire.
// clang-format off
struct Ticket : RecordOf<Ticket, "Ticket",
                         Field<"TicketID", tvstring>,
                         Field<"Account", tvstring>,
                         Field<"Direction", tvstring>,
                         Field<"Quantity", int>,
                         Field<"Instrument", tvstring>,
                         Field<"Amount", BigDecimal>,
                         Field<"TradeDate", DateOnly>,
                         Field<"SettlementDate", DateOnly>,
                         Field<"Note", tvstring>> {};

struct TicketHeader : RecordOf<TicketHeader, "TicketHeader",
                               Field<"Source", tvstring>> {};
// clang-format on

// From this amount on the middle office wants a file; what is smaller stays with the host, in memory.
bool isBlock(Ticket const &ticket);

// The assignments of the mapping from Order to Ticket.
class OrderToTicketRules : public NormalizedObjectMappingRules {
 protected:
  void mapFields0(DataObject *source, DataObject *target) override;
};

class OrderToTicket : public AbstractNormalizedObjectMappingFormat {
 public:
  OrderToTicket() : AbstractNormalizedObjectMappingFormat("Order", "Ticket") {}
  ~OrderToTicket() noexcept(false) override = default;

  using AbstractNormalizedObjectMappingFormat::map;
  DataObject *map(DataObject *source, TransformContext &context) override;

 private:
  OrderToTicketRules rules_;
};

// The same mapping for flows.
class OrderToTicketMapping : public AbstractMessageMapping {
 public:
  OrderToTicketMapping();
  ~OrderToTicketMapping() noexcept(false) override = default;

  SmartPtr<DataObject> map(SmartPtr<DataObject> const &source, TransformContext &context) override;

 private:
  OrderToTicketRules rules_;
};

// Renders a ticket as one line: TICKET;<source>;<the ticket's fields>;END and a line feed.
class TicketWriter : public AbstractSimpleOutputWriter {
 public:
  void writeHeader(DataObject *header, TransformContext &context) override;
  void writeData(DataObject *data, TransformContext &context) override;
  void writeTrailer(DataObject *trailer, TransformContext &context) override;
  void initMessage() override;
  tvstring endMessage() override;

 private:
  void put(char const *field, tvstring const &text);

  tvstringbuffer line_;
};

class TicketFormat : public AbstractOutputFormat {
 public:
  TicketFormat() = default;
  ~TicketFormat() noexcept(false) override = default;

  DataObject *createHeader() override { return new TicketHeader; }
  void mapHeader(DataObject *source, DataObject *target, TransformContext &context) override;
  DataObject *createRecordData() override { return new Ticket; }
  void mapData(DataObject *source, DataObject *target, TransformContext &context) override;
  OutputWriter *getOutputWriter() override { return &writer_; }

 private:
  TicketWriter writer_;
};

}  // namespace examples

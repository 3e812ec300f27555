#pragma once

#include <span>

#include "examples/messages/OrderLayout.h"

namespace examples {

// Orders as messages that tell their length: a line each, of five digits for the bytes that follow, the tag "ORD:", and
// fields in any order. A field is two letters, three digits for the bytes of its value, and the value. A leg is a field
// whose value is such fields again.
//
//   00093ORD:ID006T-0001AC007AB-1001SY004ACME ... LG025SY005ACME-RA0011PR0041.25

// clang-format off
struct TaggedOrder : Record<"Message",
                            Field<"OrderID", tvstring>,
                            Field<"Account", tvstring>,
                            Field<"Symbol", tvstring>,
                            Field<"Side", char>,
                            Field<"Quantity", int>,
                            Field<"Price", double>,
                            Field<"TradeDate", DateOnly>,
                            Field<"TransactTime", DateTime>,
                            Field<"AllOrNone", bool>,
                            Field<"Text", tvstring>,
                            Section<"Legs", Leg, 0, 100>> {};

struct TaggedOrderFile : Record<"TaggedOrderFile",
                                Section<"Orders", TaggedOrder>> {};
// clang-format on

// What stands behind a tag; Part is the record that has the field.
template <class Part>
struct TaggedField {
  char const *tag;
  int index;
  bool required;
  int maxLength;
  void (*read)(Part &part, tvstring const &text);
  tvstring (*text)(Part const &part);
};

// Reports every field that fails. Behind a length that can't be, nothing of its group is read. A message with a failure
// is left out.
class TaggedOrderParser : public OrderLayoutParser<TaggedOrderFile> {
 public:
  ~TaggedOrderParser() noexcept(false) override = default;

 protected:
  void parseData(TaggedOrderFile &file, Binary const &bytes) override;

 private:
  // These return whether nothing failed. Positions are bytes of the file.
  bool readMessage(UniversalInputRecord *line, TaggedOrder &order);
  template <class Part>
  bool readGroup(UniversalInputRecord *line, Part &part, std::span<TaggedField<Part> const> fields, int end);
  template <class Part>
  bool readNext(UniversalInputRecord *line, Part &part, std::span<TaggedField<Part> const> fields, int end);
  bool readLeg(UniversalInputRecord *line, TaggedOrder &order, int end);
};

// The fields in the order of the record, then the legs.
class TaggedOrderWriter : public OrderLayoutWriter {
 public:
  void writeData(DataObject *data, TransformContext &context) override;

 private:
  void writeOrder(TaggedOrder &order);
  template <class Part>
  void writeFields(UniversalOutputRecord &out, Part &part, std::span<TaggedField<Part> const> fields);
  static void appendTagged(UniversalOutputRecord &out, char const *tag, tvstring const &value, int maxLength);

  UniversalOutputRecord line_;  // these serve one message after the other
  UniversalOutputRecord body_;
  UniversalOutputRecord leg_;
};

using TaggedOrderLayout = OrderLayout<TaggedOrderFile, TaggedOrderParser, TaggedOrderWriter>;

}  // namespace examples

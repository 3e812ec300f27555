#pragma once

#include "examples/messages/OrderLayout.h"

namespace examples {

// Orders as records of a mainframe: 116 bytes each, one behind the other, with nothing between them. Integers have the
// most significant byte first, decimals are packed with odd counts of digits, and texts are filled with blanks.
//
//   record type   integer of 2 bytes, 17        notional       packed, 13 digits and 2 behind the point
//   order         text of 8                     day            packed, 9 digits: yyyyMMdd
//   account       text of 10                    time           packed, 15 digits: yyyyMMddHHmmss
//   symbol        text of 12                    all or none    a byte, 0 or 1
//   side          text of 1                     rate           IEEE 754, 4 bytes
//   quantity      integer of 4 bytes            signature      8 bytes as 16 hexadecimal digits
//   executed      integer of 8 bytes            token          16 bytes as 24 characters in base 64
//   price         packed, 7 digits and 2 behind the point

// clang-format off
struct MainframeOrder : Record<"Order",
                               Field<"RecordType", int>,
                               Field<"OrderID", tvstring>,
                               Field<"Account", tvstring>,
                               Field<"Symbol", tvstring>,
                               Field<"Side", char>,
                               Field<"Quantity", int>,
                               Field<"ExecutedQuantity", long long>,
                               Field<"Price", double>,
                               Field<"Notional", BigDecimal>,
                               Field<"TradeDate", DateOnly>,
                               Field<"TransactTime", DateTime>,
                               Field<"AllOrNone", bool>,
                               Field<"Rate", float>,
                               Field<"Signature", Binary>,
                               Field<"Token", Binary>> {
  static constexpr int TYPE = 17;
  static constexpr int LENGTH = 116;
};

struct MainframeFile : Record<"MainframeFile",
                              Section<"Orders", MainframeOrder>> {};
// clang-format on

// Reports every field that fails: all are where they should be whatever the others hold. A record with such a field is
// left out. Every field must have a value.
class MainframeParser : public OrderLayoutParser<MainframeFile> {
 public:
  ~MainframeParser() noexcept(false) override = default;

 protected:
  void parseData(MainframeFile &file, Binary const &bytes) override;

 private:
  // Whether no field failed.
  bool readOrder(UniversalInputRecord *whole, MainframeOrder &order);
};

class MainframeWriter : public OrderLayoutWriter {
 public:
  void writeData(DataObject *data, TransformContext &context) override;

 private:
  void writeOrder(MainframeOrder &order);

  UniversalOutputRecord record_;  // serves one order after the other
};

using MainframeLayout = OrderLayout<MainframeFile, MainframeParser, MainframeWriter>;

}  // namespace examples

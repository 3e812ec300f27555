#pragma once

#include "examples/messages/OrderLayout.h"

namespace examples {

// A file of trades as spreadsheets write them: a record a line, fields between commas, a text that holds a comma
// between quotes. Fields that are null at a line's end are left out, with their commas.
//
//   H,sender,time
//   T,order,account,symbol,side,quantity,price,day,time[,all or none[,text]]     any number
//   E,count

// clang-format off
struct TradeFileStart : Record<"Start",
                               Field<"Sender", tvstring>,
                               Field<"Created", DateTime>> {
  static constexpr char TYPE[] = "H";
  static constexpr int FIRST_OPTIONAL = 2;
};

struct Trade : Record<"Trade",
                      Field<"OrderID", tvstring>,
                      Field<"Account", tvstring>,
                      Field<"Symbol", tvstring>,
                      Field<"Side", char>,
                      Field<"Quantity", int>,
                      Field<"Price", double>,
                      Field<"TradeDate", DateOnly>,
                      Field<"TransactTime", DateTime>,
                      Field<"AllOrNone", bool>,
                      Field<"Text", tvstring>> {
  static constexpr char TYPE[] = "T";
  static constexpr int FIRST_OPTIONAL = 8;
};

struct TradeFileEnd : Record<"End",
                             Field<"Count", int>> {
  static constexpr char TYPE[] = "E";
  static constexpr int FIRST_OPTIONAL = 1;
};

struct TradeFile : Record<"TradeFile",
                          Nested<"Start", TradeFileStart>,
                          Section<"Orders", Trade>,
                          Nested<"End", TradeFileEnd>> {};
// clang-format on

// Reports every field that fails, and every line that is not expected where it stands; a trade with such a field is
// left out, and counts. The closing quote of a text is not asked for.
class TradeFileParser : public OrderLayoutParser<TradeFile> {
 public:
  ~TradeFileParser() noexcept(false) override = default;

 protected:
  void parseData(TradeFile &file, Binary const &bytes) override;

 private:
  // What is known of a file while it is read: the types that the next line may have, and the trades left out so far.
  struct Walk {
    tvstring expected = TradeFileStart::TYPE;
    int lost = 0;
  };

  void readLine(UniversalInputRecord *line, TradeFile &file, Walk &walk);
  void readEnd(UniversalInputRecord *line, TradeFileEnd &end, int trades);
  // Whether no field failed.
  template <FixedText... Fields, class Part>
  bool readPart(Part &part, UniversalInputRecord *line);
  template <FixedText Name, class Part>
  bool readNext(Part &part, UniversalInputRecord *line);
};

// A field that must be there and is null fails with its name.
class TradeFileWriter : public OrderLayoutWriter {
 public:
  void writeData(DataObject *data, TransformContext &context) override;

 private:
  template <FixedText... Fields, class Part>
  void writeLine(Part const &part);
  template <FixedText Name, class Part>
  void writeField(Part const &part);

  UniversalOutputRecord line_;  // serves one line after the other
};

using TradeFileLayout = OrderLayout<TradeFile, TradeFileParser, TradeFileWriter>;

}  // namespace examples

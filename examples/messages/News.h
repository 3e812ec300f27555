#pragma once

// News of FIX 4.4, message type B, with its lines of text and raw data, which may hold any byte: record, parser, writer
// and rules in one.

#include "examples/messages/FIXMessage.h"

namespace examples {

// clang-format off
struct LineOfText : Record<"LineOfText",
                           Field<"Text", tvstring>> {};  // 58

struct News : Record<"News",
                     Field<"OrigTime", DateTime>,             // 42
                     Field<"Urgency", char>,                  // 61
                     Field<"Headline", tvstring>,             // 148
                     Section<"LinesOfText", LineOfText, 1>,   // 33
                     Field<"URLLink", tvstring>,              // 149
                     Field<"RawData", Binary>> {};            // 96, its length 95
// clang-format on

// Reads a News; see FIXMessageParser. "Tag '33[LinesOfText]' expected. ..." for one without text.
class NewsParser : public FIXMessageParser<NewsParser, News> {
 public:
  ~NewsParser() noexcept(false) override;

 private:
  friend TagValueMessageParser;
  friend FIXMessageParser;

  bool parseField(News &news, Pair &pair, FIXTokenizer &tokens) const;
  bool parseField(LineOfText &line, Pair const &pair) const;
  void assertComplete(News &news) const;
};

// Writes a News, its fields in the order of FIX 4.4.
class NewsWriter : public FIXMessageWriter {
 public:
  ~NewsWriter() noexcept(false) override;

  void writeData(DataObject *data, TransformContext &context) override;
};

// "Default": the urgency is one that FIX 4.4 knows.
class NewsRules : public CodedRules {
 public:
  using CodedRules::validateData;
  void validateData(DataObject *header, DataObject *data) override;
};

using NewsMessage = TagValueMessage<News, FIXWire, NewsParser, NewsWriter, NewsRules>;

}  // namespace examples

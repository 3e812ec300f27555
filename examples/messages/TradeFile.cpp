#include "examples/messages/TradeFile.h"

#include "examples/messages/TextFields.h"

namespace examples {

namespace {

constinit tvstringliteral const LINE_FEED("\n");
constinit tvstringliteral const COMMA(",");
constexpr char QUOTE = '"';

}  // namespace

void TradeFileParser::parseData(TradeFile &file, Binary const &bytes) {
  Walk walk;
  SmartPtr<UniversalInputRecord> const whole(createInputRecord(bytes));
  while (!whole->isEmpty()) {
    SmartPtr<UniversalInputRecord> const line(getDelimitedRecord(whole.get(), LINE_FEED, true, true));
    readLine(line.get(), file, walk);
  }
  if (walk.expected.empty()) return;
  whole->skip(0);  // the place is the end, not the last line
  report(whole.get(), nullptr, [] { fail("The file ends without its last record"); });
}

// A line that is not expected is reported, and then read as if what is missing stood before it.
void TradeFileParser::readLine(UniversalInputRecord *line, TradeFile &file, Walk &walk) {
  tvstring const type = line->getDelimitedString(COMMA, '\0', false);
  if (type.length() != 1 || walk.expected.find(type) == tvstring::npos)
    report(line, nullptr, [&] { fail("Unexpected record type '" + type + "'"); });
  auto &trades = file.section<"Orders">();
  if (type == TradeFileStart::TYPE) {
    readPart<"Sender", "Created">(file.nested<"Start">(), line);
    walk.expected = "TE";
  } else if (type == Trade::TYPE) {
    if (!readPart<"OrderID", "Account", "Symbol", "Side", "Quantity", "Price", "TradeDate", "TransactTime", "AllOrNone",
                  "Text">(trades.add(), line)) {
      trades.removeLastElement();
      ++walk.lost;
    }
    walk.expected = "TE";
  } else if (type == TradeFileEnd::TYPE) {
    readEnd(line, file.nested<"End">(), trades.getElementCount() + walk.lost);
    walk.expected = "";
  } else {
    ++walk.lost;
  }
}

void TradeFileParser::readEnd(UniversalInputRecord *line, TradeFileEnd &end, int trades) {
  if (!readPart<"Count">(end, line) || end.get<"Count">() == trades) return;
  line->setCurrentFieldIndex(TradeFileEnd::index<"Count">);
  report(line, &end, [&] {
    fail("Found " + Parsing::intToString(end.get<"Count">()) + ", the records before give " +
         Parsing::intToString(trades));
  });
}

template <FixedText... Fields, class Part>
bool TradeFileParser::readPart(Part &part, UniversalInputRecord *line) {
  line->startSequence();
  bool isWhole = true;
  ((isWhole = readNext<Fields>(part, line) && isWhole), ...);
  isWhole = report(line, &part, [&] { line->assertCompleted(); }) && isWhole;
  line->endSequence();
  return isWhole;
}

template <FixedText Name, class Part>
bool TradeFileParser::readNext(Part &part, UniversalInputRecord *line) {
  constexpr int INDEX = Part::template index<Name>;
  return report(line, &part, [&] {
    if (INDEX == Part::FIRST_OPTIONAL) line->startTrailingFields();
    tvstring const text = line->getDelimitedField(COMMA, QUOTE);
    if (text.find(QUOTE) != tvstring::npos) fail("A quote within a field");  // which could not be written
    if (!checkNull(text)) readField<Name>(part, text);
    if (INDEX < Part::FIRST_OPTIONAL) assertNotNull(&part, INDEX);
  });
}

template <FixedText Name, class Part>
void TradeFileWriter::writeField(Part const &part) {
  constexpr int INDEX = Part::template index<Name>;
  if (INDEX == Part::FIRST_OPTIONAL) line_.startTrailingFields();
  if (part.template isNull<Name>() && INDEX >= Part::FIRST_OPTIONAL)
    line_.appendDelimitedNullField(COMMA);
  else
    line_.appendDelimitedField(fieldText<Name>(part), COMMA, QUOTE);
}

template <FixedText... Fields, class Part>
void TradeFileWriter::writeLine(Part const &part) {
  line_.restart(LINE_FEED, true, true);
  line_.startSequence();
  line_.appendSectionTag(Part::TYPE, COMMA);
  (writeField<Fields>(part), ...);
  line_.endSequence();
  appendRecord(line_);
}

void TradeFileWriter::writeData(DataObject *data, TransformContext &) {
  TradeFile const &file = *checkedCast<TradeFile>(data);
  writeLine<"Sender", "Created">(file.nested<"Start">());
  for (Trade const &trade : file.section<"Orders">())
    writeLine<"OrderID", "Account", "Symbol", "Side", "Quantity", "Price", "TradeDate", "TransactTime", "AllOrNone",
              "Text">(trade);
  writeLine<"Count">(file.nested<"End">());
}

}  // namespace examples

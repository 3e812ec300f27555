#include "examples/messages/TaggedOrder.h"

#include "examples/messages/TextFields.h"

namespace examples {

namespace {

constinit tvstringliteral const LINE_FEED("\n");
constinit tvstringliteral const SECTION_TAG("ORD");
constinit tvstringliteral const SEPARATOR(":");
constinit tvstringliteral const LEG_TAG("LG");
constexpr int LENGTH_DIGITS = 5;
constexpr int TAG_WIDTH = 2;
constexpr int FIELD_LENGTH_DIGITS = 3;
constexpr int MAX_FIELD_LENGTH = 999;

template <FixedText Name, class Part>
constexpr TaggedField<Part> field(char const *tag, bool required, int maxLength) {
  return {tag, Part::template index<Name>, required, maxLength, readField<Name, Part>, fieldText<Name, Part>};
}

constexpr TaggedField<TaggedOrder> ORDER_FIELDS[] = {
    field<"OrderID", TaggedOrder>("ID", true, 12),   field<"Account", TaggedOrder>("AC", true, 12),
    field<"Symbol", TaggedOrder>("SY", true, 12),    field<"Side", TaggedOrder>("SI", true, 1),
    field<"Quantity", TaggedOrder>("QU", true, 9),   field<"Price", TaggedOrder>("PR", true, 18),
    field<"TradeDate", TaggedOrder>("TD", true, 8),  field<"TransactTime", TaggedOrder>("TT", true, 17),
    field<"AllOrNone", TaggedOrder>("AN", false, 1), field<"Text", TaggedOrder>("TX", false, 200),
};
constexpr TaggedField<Leg> LEG_FIELDS[] = {
    field<"Symbol", Leg>("SY", true, 12),
    field<"Ratio", Leg>("RA", true, 4),
    field<"Price", Leg>("PR", true, 18),
};

int readLength(UniversalInputRecord *line, int digits) {
  return static_cast<int>(parseDigits(line->getString(digits)));
}

int bytesLeft(UniversalInputRecord const *record) {
  return static_cast<int>(record->peekRest().length());
}

}  // namespace

void TaggedOrderParser::parseData(TaggedOrderFile &file, Binary const &bytes) {
  auto &orders = file.section<"Orders">();
  SmartPtr<UniversalInputRecord> const whole(createInputRecord(bytes));
  while (!whole->isEmpty()) {
    SmartPtr<UniversalInputRecord> const line(getDelimitedRecord(whole.get(), LINE_FEED, true, false));
    if (!readMessage(line.get(), orders.add())) orders.removeLastElement();
  }
}

bool TaggedOrderParser::readMessage(UniversalInputRecord *line, TaggedOrder &order) {
  bool const isFramed = report(line, nullptr, [&] {
    int const length = readLength(line, LENGTH_DIGITS);
    if (int const found = bytesLeft(line); found != length)
      fail("Found a message of " + Parsing::intToString(found) + " bytes, its length is " +
           Parsing::intToString(length));
    line->skipSectionTag(SECTION_TAG, SEPARATOR);
  });
  if (!isFramed) return false;
  bool const isWhole = readGroup<TaggedOrder>(line, order, ORDER_FIELDS, line->getCurrentIndex() + bytesLeft(line));
  return report(line, nullptr, [&] { assertConstraints(&order, TaggedOrder::index<"Legs">); }) && isWhole;
}

template <class Part>
bool TaggedOrderParser::readGroup(UniversalInputRecord *line, Part &part, std::span<TaggedField<Part> const> fields,
                                  int end) {
  line->startAll();
  bool isWhole = true;
  while (line->getCurrentIndex() < end) isWhole = readNext(line, part, fields, end) && isWhole;
  // What is missing matters only where nothing else failed.
  for (auto row = fields.begin(); isWhole && row != fields.end(); ++row) {
    line->setCurrentFieldIndex(row->index);
    isWhole = report(line, &part, [&] {
      if (row->required) assertNotNull(&part, row->index);
    });
  }
  line->endAll();
  return isWhole;
}

template <class Part>
bool TaggedOrderParser::readNext(UniversalInputRecord *line, Part &part, std::span<TaggedField<Part> const> fields,
                                 int end) {
  tvstring tag;
  auto row = fields.end();
  int length = 0;
  line->setCurrentFieldIndex(-1);
  bool const isFramed = report(line, &part, [&] {
    if (end - line->getCurrentIndex() < TAG_WIDTH + FIELD_LENGTH_DIGITS) fail("There is no room for another field");
    tag = line->getTagString(TAG_WIDTH);
    row = std::find_if(fields.begin(), fields.end(), [&](auto const &field) { return tag == field.tag; });
    if (row != fields.end()) line->setCurrentFieldIndex(row->index);
    length = readLength(line, FIELD_LENGTH_DIGITS);
    if (length > end - line->getCurrentIndex()) fail("The field '" + tag + "' is longer than what it is part of");
  });
  if (!isFramed) {
    line->skip(end - line->getCurrentIndex());
    return false;
  }
  if constexpr (std::is_same_v<Part, TaggedOrder>)
    if (tag == LEG_TAG) return readLeg(line, part, line->getCurrentIndex() + length);
  return report(line, &part, [&] {
    tvstring const text = line->getString(length);
    if (row == fields.end()) fail("Unknown tag '" + tag + "'");
    assertFieldNew(&part, row->index);
    assertLength(length, 1, row->maxLength);
    row->read(part, text);
  });
}

bool TaggedOrderParser::readLeg(UniversalInputRecord *line, TaggedOrder &order, int end) {
  return readGroup<Leg>(line, order.section<"Legs">().add(), LEG_FIELDS, end);
}

void TaggedOrderWriter::appendTagged(UniversalOutputRecord &out, char const *tag, tvstring const &value,
                                     int maxLength) {
  int const length = UniversalOutputRecord::getASCIIFieldLength(value);
  assertLength(length, 1, maxLength);
  out.appendTag(tvstringliteral(tag));
  out.appendASCIIField(length, FIELD_LENGTH_DIGITS, true, '0');
  out.appendASCIIField(value);
}

template <class Part>
void TaggedOrderWriter::writeFields(UniversalOutputRecord &out, Part &part, std::span<TaggedField<Part> const> fields) {
  for (TaggedField<Part> const &row : fields) {
    if (!part.isNull(row.index))
      appendTagged(out, row.tag, row.text(part), row.maxLength);
    else if (row.required)
      requiredFieldMissing(&part, row.index);
  }
}

void TaggedOrderWriter::writeOrder(TaggedOrder &order) {
  body_.restart(tvstring::EMPTY, false, false);
  body_.appendSectionTag(SECTION_TAG, SEPARATOR);
  writeFields<TaggedOrder>(body_, order, ORDER_FIELDS);
  for (Leg &leg : order.section<"Legs">()) {
    leg_.restart(tvstring::EMPTY, false, false);
    writeFields<Leg>(leg_, leg, LEG_FIELDS);
    appendTagged(body_, LEG_TAG.data(), leg_.toString(), MAX_FIELD_LENGTH);
  }
  line_.restart(LINE_FEED, true, false);
  line_.startSequence();
  line_.appendASCIIField(body_.getSequencePosition(), LENGTH_DIGITS, true, '0');
  line_.appendASCIIField(body_.toString());
  line_.endSequence();
  appendRecord(line_);
}

void TaggedOrderWriter::writeData(DataObject *data, TransformContext &) {
  for (TaggedOrder &order : checkedCast<TaggedOrderFile>(data)->section<"Orders">()) writeOrder(order);
}

}  // namespace examples

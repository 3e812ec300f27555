#include "examples/messages/PaymentFileParser.h"

#include <algorithm>
#include <string_view>

namespace examples {

namespace {

using RecordPtr = SmartPtr<UniversalInputRecord>;

constinit tvstringliteral const LINE_FEED("\n");

template <FixedText Name, class Part>
void readText(Part &part, tvstring const &text) {
  tvstring const value = UniversalInputRecord::trimSpaces(text, false, true);
  if (!value.empty()) part.template set<Name>(value);
}
template <FixedText Name, class Part>
void readNumber(Part &part, tvstring const &text) {
  using Value = std::remove_cvref_t<decltype(part.template get<Name>())>;
  part.template set<Name>(static_cast<Value>(parseDigits(text)));
}
template <FixedText Name, class Part>
void readDate(Part &part, tvstring const &text) {
  parseDigits(text);
  part.template set<Name>(Parsing::parseDate(text, text.length() == 8 ? "yyyyMMdd" : "yyyyMMddHHmm"));
}
void readFileID(PaymentFileHeader &header, tvstring const &text) {
  header.set<"FileID">(Parsing::parseChar(text));
}
void readTransactionCode(PaymentEntry &entry, tvstring const &text) {
  if (text != "22" && text != "27" && text != "32" && text != "37") fail("Unknown transaction code '" + text + "'");
  readNumber<"TransactionCode">(entry, text);
}
void readReceivingBank(PaymentEntry &entry, tvstring const &text) {
  parseDigits(text);
  entry.set<"ReceivingBank">(text);
}
template <class Part>
void readReserved(Part &, tvstring const &text) {
  if (!UniversalInputRecord::trimSpaces(text).empty()) fail("Expected blanks, found '" + text + "'");
}

template <class Part>
using Reader = void (*)(Part &part, tvstring const &text);

// One for each of the widths.
template <class Part>
constexpr Reader<Part> READERS[std::size(Part::WIDTHS)] = {};

template <>
constexpr Reader<PaymentFileHeader> READERS<PaymentFileHeader>[] = {
    readText<"Sender">,     readText<"Receiver">,     readDate<"Created">,   readFileID,
    readText<"SenderName">, readText<"ReceiverName">, readText<"Reference">, readReserved};
template <>
constexpr Reader<PaymentBatch> READERS<PaymentBatch>[] = {
    readText<"CompanyName">,   readText<"CompanyID">,       readNumber<"ServiceClass">, readText<"Description">,
    readDate<"EffectiveDate">, readText<"OriginatingBank">, readNumber<"BatchNumber">,  readReserved};
template <>
constexpr Reader<PaymentEntry> READERS<PaymentEntry>[] = {
    readTransactionCode,   readReceivingBank,        readNumber<"CheckDigit">,  readText<"Account">,
    readNumber<"Amount">,  readText<"RecipientID">,  readText<"RecipientName">, readText<"Discretionary">,
    readNumber<"Addenda">, readNumber<"TraceNumber">};
template <>
constexpr Reader<PaymentBatchControl> READERS<PaymentBatchControl>[] = {
    readNumber<"ServiceClass">,  readNumber<"EntryCount">,  readNumber<"EntryHash">,
    readNumber<"TotalDebit">,    readNumber<"TotalCredit">, readText<"CompanyID">,
    readText<"OriginatingBank">, readNumber<"BatchNumber">, readReserved};
template <>
constexpr Reader<PaymentFileControl> READERS<PaymentFileControl>[] = {
    readNumber<"BatchCount">, readNumber<"EntryCount">,  readNumber<"EntryHash">,
    readNumber<"TotalDebit">, readNumber<"TotalCredit">, readReserved};

// What may follow a line of a type.
constexpr struct {
  char type;
  std::string_view next;
} ORDER[] = {{PaymentFileHeader::TYPE, "59"},
             {PaymentBatch::TYPE, "68"},
             {PaymentEntry::TYPE, "68"},
             {PaymentBatchControl::TYPE, "59"},
             {PaymentFileControl::TYPE, ""}};

void expectEqual(long long found, long long expected) {
  if (found != expected)
    fail("Found " + Parsing::longToString(found) + ", the records before give " + Parsing::longToString(expected));
}

// Compares the sum that a control has just read, if the field is one.
template <class Control>
void checkSum(Control const &control, int field, PaymentTotals const &totals) {
  if constexpr (std::is_same_v<Control, PaymentFileControl>)
    if (field == Control::template index<"BatchCount">)
      expectEqual(control.template get<"BatchCount">(), totals.batches);
  if (field == Control::template index<"EntryCount">) expectEqual(control.template get<"EntryCount">(), totals.entries);
  if (field == Control::template index<"EntryHash">) expectEqual(control.template get<"EntryHash">(), totals.hash);
  if (field == Control::template index<"TotalDebit">) expectEqual(control.template get<"TotalDebit">(), totals.debit);
  if (field == Control::template index<"TotalCredit">)
    expectEqual(control.template get<"TotalCredit">(), totals.credit);
}

}  // namespace

// What is known of a file while it is read.
struct PaymentFileParser::Walk {
  PaymentFileHeader &header;
  PaymentFile &file;
  PaymentFileControl &control;
  std::string_view expected = "1";
  PaymentBatch *batch = nullptr;  // the open one
  PaymentTotals batchTotals{};
  PaymentTotals fileTotals{};
  bool isBatchWhole = true;  // no line was left out
  bool isFileWhole = true;

  void openBatch() {
    closeBatch();
    isBatchWhole = true;
    batch = &file.section<"Batches">().add();
  }
  void closeBatch() {
    if (batch == nullptr) return;
    fileTotals.add(batchTotals);
    isFileWhole = isFileWhole && isBatchWhole;
    batch = nullptr;
    batchTotals = {};
  }
};

void PaymentFileParser::parse(ExternalObject *object, Binary const &bytes, TransformContext &) {
  parseParts(*checkedCast<PaymentFileHeader>(object->getHeader()), *checkedCast<PaymentFile>(object->getData()),
             *checkedCast<PaymentFileControl>(object->getTrailer()), bytes);
}

ExternalObject *PaymentFileParser::parse(Binary const &bytes, TransformContext &) {
  SmartPtr<PaymentFileHeader> const header(new PaymentFileHeader);
  SmartPtr<PaymentFile> const file(new PaymentFile);
  SmartPtr<PaymentFileControl> const control(new PaymentFileControl);
  parseParts(*header, *file, *control, bytes);
  return new ExternalObject(header.get(), file.get(), control.get());
}

void PaymentFileParser::parseParts(PaymentFileHeader &header, PaymentFile &file, PaymentFileControl &control,
                                   Binary const &bytes) {
  Walk walk{header, file, control};
  RecordPtr const whole(createInputRecord(bytes));
  while (!whole->isEmpty()) {
    RecordPtr const line(getDelimitedRecord(whole.get(), LINE_FEED, true, false));
    readLine(line.get(), walk);
  }
  if (walk.expected.empty()) return;
  whole->skip(0);  // the place is the end, not the last line
  report(whole.get(), nullptr, [] { fail("The file ends without a file control"); });
}

// A line that is not expected is reported, and then read as if what is missing stood before it.
void PaymentFileParser::readLine(UniversalInputRecord *line, Walk &walk) {
  tvstring const type = line->peekString(1);
  auto const *const order = std::find_if(std::begin(ORDER), std::end(ORDER),
                                         [&](auto const &row) { return !type.empty() && row.type == type[0]; });
  bool const isKnown = order != std::end(ORDER);
  if (!isKnown || walk.expected.find(type[0]) == walk.expected.npos)
    report(line, nullptr, [&] { fail("Unexpected record type '" + type + "'"); });
  if (!isKnown) {
    walk.isBatchWhole = walk.isFileWhole = false;
    return;
  }
  walk.expected = order->next;
  bool const isInBatch = order->type == PaymentEntry::TYPE || order->type == PaymentBatchControl::TYPE;
  if (isInBatch && walk.batch == nullptr) walk.openBatch();
  switch (order->type) {
    case PaymentFileHeader::TYPE:
      readPart(walk.header, line);
      break;
    case PaymentBatch::TYPE:
      walk.openBatch();
      readPart(*walk.batch, line);
      break;
    case PaymentEntry::TYPE:
      readEntry(line, walk);
      break;
    case PaymentBatchControl::TYPE:
      readControl(walk.batch->nested<"Control">(), line, walk.batchTotals, walk.isBatchWhole);
      walk.closeBatch();
      break;
    default:
      walk.closeBatch();
      readControl(walk.control, line, walk.fileTotals, walk.isFileWhole);
      break;
  }
}

void PaymentFileParser::readEntry(UniversalInputRecord *line, Walk &walk) {
  auto &entries = walk.batch->section<"Entries">();
  PaymentEntry &entry = entries.add();
  if (readPart(entry, line)) {
    walk.batchTotals.add(entry);
  } else {
    entries.removeLastElement();
    walk.isBatchWhole = false;
  }
}

template <class Control>
void PaymentFileParser::readControl(Control &control, UniversalInputRecord *line, PaymentTotals const &totals,
                                    bool isWhole) {
  readPart(control, line, [&](int field) {
    if (isWhole) checkSum(control, field, totals);
  });
}

template <class Part, class AfterField>
bool PaymentFileParser::readPart(Part &part, UniversalInputRecord *line, AfterField const &afterField) {
  return report(line, &part, [&] {
    line->startSequence();
    line->skip(1);
    for (size_t i = 0; i < std::size(Part::WIDTHS); ++i) {
      line->onField();
      READERS<Part>[i](part, line->getString(Part::WIDTHS[i]));
      afterField(static_cast<int>(i));
    }
    line->assertCompleted();
    line->endSequence();
  });
}

}  // namespace examples

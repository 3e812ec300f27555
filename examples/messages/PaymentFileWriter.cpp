#include "examples/messages/PaymentFileWriter.h"

namespace examples {

namespace {

constinit tvstringliteral const LINE_END("\n");
constinit tvstringliteral const DAY("yyyyMMdd");
constinit tvstringliteral const MINUTE("yyyyMMddHHmm");

// The fields of a fixed width, by the types of their values: numbers behind zeros, texts before blanks.
template <class Number>
requires std::is_same_v<Number, int> || std::is_same_v<Number, long long>
void append(UniversalOutputRecord &line, Number value, int width) {
  line.appendASCIIField(value, width, true, '0');
}
void append(UniversalOutputRecord &line, char value, int width) {
  line.appendASCIIField(value, width, false, ' ');
}
void append(UniversalOutputRecord &line, tvstring const &value, int width) {
  line.appendASCIIField(value, width, false, ' ');
}
void append(UniversalOutputRecord &line, DateTime const &value, int width) {
  line.appendASCIIField(value, width, static_cast<size_t>(width) == DAY.length() ? DAY : MINUTE);
}

}  // namespace

template <FixedText FieldName, class Line>
void PaymentFileWriter::writeField(Line &record) {
  constexpr int INDEX = Line::template index<FieldName>;
  constexpr int WIDTH = Line::WIDTHS[INDEX];
  using Value = std::remove_cvref_t<decltype(std::as_const(record).template get<FieldName>())>;
  if (!record.template isNull<FieldName>())
    append(line_, std::as_const(record).template get<FieldName>(), WIDTH);
  else if (std::is_same_v<Value, tvstring>)
    line_.appendFiller(WIDTH);
  else
    line_.requiredFieldMissing(&record, INDEX);
}

template <FixedText... Fields, class Line>
void PaymentFileWriter::writeLine(Line &record) {
  static constexpr char TYPE[] = {Line::TYPE, '\0'};
  line_.restart(LINE_END, false, false);
  try {
    line_.startSequence();
    line_.appendTag(tvstringliteral(TYPE));
    (writeField<Fields>(record), ...);
    line_.endSequence();
  } catch (TransformException &failure) {
    handleException(failure, &line_, &record);
  }
  int length = 0;
  char const *bytes = line_.getBytes(length);
  appendMessage(bytes, length);
}

void PaymentFileWriter::writeHeader(DataObject *header, TransformContext &) {
  writeLine<"Sender", "Receiver", "Created", "FileID", "SenderName", "ReceiverName", "Reference", "Reserved">(
      *checkedCast<PaymentFileHeader>(header));
}

void PaymentFileWriter::writeData(DataObject *data, TransformContext &) {
  for (PaymentBatch &batch : checkedCast<PaymentFile>(data)->section<"Batches">()) writeBatch(batch);
}

void PaymentFileWriter::writeBatch(PaymentBatch &batch) {
  writeLine<"CompanyName", "CompanyID", "ServiceClass", "Description", "EffectiveDate", "OriginatingBank",
            "BatchNumber", "Reserved">(batch);
  for (PaymentEntry &entry : batch.section<"Entries">())
    writeLine<"TransactionCode", "ReceivingBank", "CheckDigit", "Account", "Amount", "RecipientID", "RecipientName",
              "Discretionary", "Addenda", "TraceNumber">(entry);
  writeLine<"ServiceClass", "EntryCount", "EntryHash", "TotalDebit", "TotalCredit", "CompanyID", "OriginatingBank",
            "BatchNumber", "Reserved">(batch.nested<"Control">());
}

void PaymentFileWriter::writeTrailer(DataObject *trailer, TransformContext &) {
  writeLine<"BatchCount", "EntryCount", "EntryHash", "TotalDebit", "TotalCredit", "Reserved">(
      *checkedCast<PaymentFileControl>(trailer));
}

}  // namespace examples

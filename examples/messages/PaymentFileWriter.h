#pragma once

#include "examples/messages/PaymentFile.h"

namespace examples {

// Writes payment files: what PaymentFileParser read comes out as it was. A text that is null is blank; any other null
// field, and a value that is too wide for its place, fails with the field's name.
class PaymentFileWriter : public UniversalOutputWriter {
 public:
  // The parts must be a PaymentFileHeader, a PaymentFile and a PaymentFileControl.
  void writeHeader(DataObject *header, TransformContext &context) override;
  void writeData(DataObject *data, TransformContext &context) override;
  void writeTrailer(DataObject *trailer, TransformContext &context) override;

 private:
  template <FixedText... Fields, class Line>
  void writeLine(Line &record);
  template <FixedText FieldName, class Line>
  void writeField(Line &record);
  void writeBatch(PaymentBatch &batch);

  UniversalOutputRecord line_;  // serves one line after the other
};

}  // namespace examples

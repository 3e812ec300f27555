#pragma once

#include "examples/messages/PaymentFile.h"
#include "examples/messages/ReportingParser.h"

namespace examples {

// Reads payment files. Each line that fails, for itself or because it is not expected where it stands, goes to the
// exception handler with its field, line and column, and the error type "Parsing"; if the handler lets the parser go
// on, the walk continues with the next line, so that one pass finds all failures of a file. What was read of a broken
// header or control stays; a broken entry is left out, and the controls above it are then not compared with their
// entries.
class PaymentFileParser : public ReportingParser {
 public:
  ~PaymentFileParser() noexcept(false) override = default;

  using InputParser::parse;
  // The parts of the object must be a PaymentFileHeader, a PaymentFile and a PaymentFileControl.
  void parse(ExternalObject *object, Binary const &bytes, TransformContext &context) override;
  ExternalObject *parse(Binary const &bytes, TransformContext &context) override;

 private:
  struct Walk;

  void parseParts(PaymentFileHeader &header, PaymentFile &file, PaymentFileControl &control, Binary const &bytes);
  void readLine(UniversalInputRecord *line, Walk &walk);
  void readEntry(UniversalInputRecord *line, Walk &walk);
  template <class Control>
  void readControl(Control &control, UniversalInputRecord *line, PaymentTotals const &totals, bool isWhole);
  // Calls afterField with the index of each field that was read; whether nothing failed.
  template <class Part, class AfterField = void (*)(int)>
  bool readPart(
      Part &part, UniversalInputRecord *line, AfterField const &afterField = [](int) {});
};

}  // namespace examples

#pragma once

#include "tavrone/fcs/FCSLineTokenizer.h"
#include "tavrone/fcs/LineReader.h"
#include "tavrone/pipeline/ExternalObject.h"
#include "tavrone/pipeline/InputParser.h"

namespace tavrone {

// The base of generated FCS parsers: header, body and trailer in this order, then no line may be left. Generated
// classes read header and body, and implement the two Binary forms of parse over parseInternal. No state of its own.
//
// Failures are FCSParseExceptions with the failed line, its 1-based number in the input and the 0-based column.
class TAVRONE_API FCSInputParser : public InputParser {
 public:
  ~FCSInputParser() noexcept(false) override;

  // Each gets its part of the external object, which is null where the format has none.
  virtual void parseHeader(DataObject *header, LineReader &reader, TransformContext &context) = 0;
  virtual void parseData(DataObject *data, LineReader &reader, TransformContext &context) = 0;
  // Reads the firm-to-CMS trailer.
  virtual void parseTrailer(DataObject *trailer, LineReader &reader, TransformContext &context);

  // Raises "Unrecognized lines at the end" if the body left lines.
  void parseInternal(ExternalObject *object, LineReader &reader, TransformContext &context);
  // The last line is the trailer.
  void parseInternal(ExternalObject *object, Binary const &bytes, TransformContext &context);
  void parseInternal(ExternalObject *object, char const *bytes, int length, TransformContext &context);

  // Reads the reader's trailer line: the Input Sequence Number (ISN) goes to field 0 of the trailer, the other tokens,
  // with one space between them, to field 1 if there are any. The ISN is the first of: the token behind "OL"; what
  // follows "OL" in a token; a first token of digits before one of at most four capital letters; a last token of at
  // least four digits. Only the "OL" forms are held to six digits. Raises, and then stores nothing, for an empty line,
  // an "OL" without a number behind it, and a line without an ISN. A null trailer is checked and not stored.
  void parseFirmToCMSTrailer(DataObject *trailer, LineReader &reader, TransformContext &context);
  // Raises "Invalid Input Sequence Number (ISN)" unless the value is one to six digits, with the location of the token
  // at the mark; the tokenizer ends up at its end. The line's number is for the caller to add.
  static void verifyISN(tvstring const &value, FCSLineTokenizer &tokenizer, int mark);
  // Raises "Unrecognized lines at the end", without and with the location of the reader's next line.
  [[noreturn]] static void additionalLinesAtEndError();
  [[noreturn]] static void additionalLinesAtEndError(LineReader &reader);
};

}  // namespace tavrone

#pragma once

#include <vector>

#include "tavrone/core/DateTime.h"
#include "tavrone/core/Exceptions.h"
#include "tavrone/core/tvstringbuffer.h"
#include "tavrone/pipeline/OutputWriter.h"

namespace tavrone {

// The base of generated FCS writers. The tokens of the current line are held apart until finishLine, so that earlier
// ones can still be changed. What is written is not checked: a token with a space in it reads back as two. Generated
// classes write header and body.
//
// A text that was handed out never changes; numbers of a line share one array, so that a token costs no allocation.
class TAVRONE_API FCSOutputWriter : public AbstractSimpleOutputWriter {
 public:
  static tvstringliteral const LINE_FEED;  // one LF

  FCSOutputWriter() = default;
  // The copy has a text of its own.
  FCSOutputWriter(FCSOutputWriter const &other);
  FCSOutputWriter &operator=(FCSOutputWriter const &other);
  ~FCSOutputWriter() noexcept(false) override;

  // Whether prices are written as whole number and eighths; false at first.
  void setUseFractions(bool useFractions) { useFractions_ = useFractions; }
  bool isUseFractions() const { return useFractions_; }

  // Appends the firm-to-CMS trailer, without a line end.
  void writeTrailer(DataObject *trailer, TransformContext &context) override;
  void initMessage() override;
  tvstring endMessage() override { return getOutput(); }
  // The finished lines.
  tvstring getOutput() const { return message_; }

  // Appends a token to the current line.
  void writeToken(tvstring const &text);
  // Two tokens.
  void writeToken(tvstring const &first, tvstring const &second);
  void writeToken(char value) { writeRendered(&value, 1); }
  void writeToken(int value);
  // As Parsing::doubleToString: "%.8f" without trailing zeros.
  void writeToken(double value);
  // "MMddyyyy".
  void writeToken(DateTime const &value);
  // With fractions, a value with 1 to 7 eighths gives two tokens, "12 3/8". Otherwise a whole value gives its digits
  // and any other, negative fractions and what no int holds included, its decimal text.
  void writePrice(double value);

  // The tokens of the current line from its end; 1 is the last one. One that does not exist reads as empty, and
  // changing it does nothing.
  tvstring previousToken(int i) const;
  void setPreviousToken(tvstring const &text, int i);
  void addToPreviousToken(tvstring const &text, int i);

  // The tokens with a space between them and LINE_FEED; a line without tokens too.
  void finishLine();
  void emptyLine() { message_.append(LINE_FEED); }

  // The ISN, and behind a space the text, of those fields 0 and 1 that are there and not null; empty for a null
  // trailer.
  tvstring writeFirmToCMSTrailer(DataObject *trailer, TransformContext &context);

  // Throws a copy as a TransformException.
  [[noreturn]] void handleException(TransformException &exception, DataObject *object);

  // "1/8" to "7/8" for exact eighths, reduced; empty for every other value, 0 and negative ones included.
  static tvstring getFraction(double rest);

 private:
  void writeRendered(char const *text, size_t length);
  tvstring *findPrevious(int i);

  bool useFractions_ = false;
  tvstringbuffer message_;
  std::vector<tvstring> lineTokens_;
  tvstringbuffer rendered_;  // the numbers of the current line, on which their tokens are views
};

}  // namespace tavrone

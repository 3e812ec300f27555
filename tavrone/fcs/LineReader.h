#pragma once

#include <vector>

#include "tavrone/core/Binary.h"
#include "tavrone/pipeline/InputSource.h"

namespace tavrone {

// A cursor over the lines of one message. Holds one copy of the message; every line is a counted view on it and may
// outlive the reader. Belongs, with its lines, to one thread at a time.
//
// LF or CR LF ends a line; any other CR is an ordinary byte. A last line needs no ender.
class TAVRONE_API LineReader {
 public:
  // Read all lines at once. With hasTrailer the last line is set apart as the trailer. Raise FCSParseException "Out of
  // bounds" for a negative length, and for one that no int holds with 64 bytes on top.
  LineReader(char const *bytes, int length, bool hasTrailer);
  LineReader(Binary const &bytes, bool hasTrailer);
  LineReader(InputSource &input, bool hasTrailer);

  // The trailer is none of these lines.
  bool hasMoreLines() const { return nextLine_ < lineCount_; }
  // The next line, or the empty text at the end. Advances in both cases, so that pushBackLine always undoes it.
  tvstring const &getNextLine() {
    int const line = nextLine_++;
    return lines_[static_cast<size_t>(line < lineCount_ ? line : lineCount_)];
  }
  // Nothing at the first line.
  void pushBackLine() {
    if (nextLine_ > 0) --nextLine_;
  }
  // Back to the first line.
  void reset() { nextLine_ = 0; }

  // Empty if there is none.
  tvstring const &getTrailerLine() const { return trailerLine_; }

  // For the location of a failure: the number of the line that getNextLine gave last, counted from 1 (0 before the
  // first), and that of the line behind the body, where the trailer stands.
  int getLineNumber() const { return nextLine_; }
  int getTrailerLineNumber() const { return lineCount_ + 1; }

 private:
  void readLines(char const *bytes, size_t length);
  void makeRoom(size_t lineFeeds, size_t likely);

  std::vector<tvstring> lines_;  // body lines, then one empty sentinel
  int nextLine_ = 0;
  int lineCount_ = 0;  // without the trailer and the sentinel
  bool hasTrailer_;
  tvstring trailerLine_;
};

}  // namespace tavrone

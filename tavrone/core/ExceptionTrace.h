#pragma once

#include "tavrone/core/tvstring.h"

namespace tavrone {

// The place in the source where a failure was raised. Line 0 means that there is none.
class TAVRONE_API ExceptionTrace {
 public:
  void setFileName(char const *fileName) { fileName_ = fileName; }
  // Static text, which is not copied.
  void setFileName(tvstringliteral const &fileName) { fileName_ = fileName; }
  tvstring const &getFileName() const { return fileName_; }
  void setLine(int line) { line_ = line; }
  int getLine() const { return line_; }
  bool isValid() const { return line_ != 0; }

  // File name, ":", line and ":"; empty without a line.
  tvstring getTraceString() const;

 private:
  tvstring fileName_;
  int line_ = 0;
};

}  // namespace tavrone

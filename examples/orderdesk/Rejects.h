#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "examples/orderdesk/Files.h"
#include "examples/orderdesk/MessageReader.h"
#include "tavrone/tavrone.h"

namespace examples {

using namespace tavrone;

// The line before a rejected message:
//
//   #reject failures=N xml=N bytes=N line=N column=N source=FILE
//
// Behind it come `xml` bytes, a TransformException for each failure, then the `bytes` of the message as they came, then
// a line feed.
struct RejectHeader {
  size_t failures = 0;
  size_t xml = 0;
  size_t bytes = 0;
  size_t line = 0;
  size_t column = 0;
  std::string source{};

  static bool begins(std::string_view file);
  // With its line feed. A control byte of the source is written as '?', so that the line stays one.
  std::string toString() const;
  // Returns the length of the line that the text begins with, 0 if it is no such line.
  size_t parse(std::string_view text);
};

void writeReject(OutputFile &file, FileMessage const &message, std::vector<ExceptionDataObject *> const &failures);

}  // namespace examples

#pragma once

#include "tests/page/Page.h"

namespace tavrone {

// What the tests of docs/FORMATS.md stand on.
class FormatPage : public testing::Test {
 protected:
  // Appends the bytes of a row to the message. They must stand where the row says, and be what it shows as text: a '.'
  // for each byte that is not printable, or that would end a cell.
  void addRow(int line, size_t at, char const *hexadecimal, char const *text) {
    std::string bytes, shown;
    for (char const *digits = hexadecimal; *digits != '\0'; digits += digits[2] == ' ' ? 3 : 2) {
      bytes += static_cast<char>(std::stoi(std::string(digits, 2), nullptr, 16));
      bool const isShown = bytes.back() >= ' ' && bytes.back() <= '~' && bytes.back() != '|' && bytes.back() != '`';
      shown += isShown ? bytes.back() : '.';
    }
    if (at != message.length() || shown != text)
      ADD_FAILURE_AT("docs/FORMATS.md", line) << "These bytes stand at " << message.length() << " and read " << shown;
    message = message + tvstring(bytes.data(), bytes.size());
  }

  tvstring message;  // the bytes of the rows so far
};

}  // namespace tavrone

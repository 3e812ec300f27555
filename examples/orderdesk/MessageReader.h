#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace examples {

// A message as it stands in a file. The bytes are a view on the file's.
struct FileMessage {
  std::string source;
  size_t line = 0;  // where it begins, both from 1
  size_t column = 0;
  std::string_view bytes{};
};

// Cuts a file into messages, whatever it holds: every byte belongs to one message, but for blank lines and line ends
// between them.
//
//   FIX, SIAC Canonical   as many bytes as BodyLength tells, so that messages need nothing between them and may hold
//                         line feeds; where that is wrong, up to the line's end, CheckSum or the next message's begin
//   lines of fields       a line
//   FCS, and all else     up to a blank line; what is no FCS message also ends where a line of another format begins
//
// A file that begins as one of rejects gives the messages that are kept in it, with their sources and lines.
class MessageReader {
 public:
  // Borrows the bytes.
  MessageReader(std::string_view source, std::string_view bytes);

  // False at the end.
  bool next(FileMessage &message);
  // The bytes that are behind.
  size_t position() const { return size_ - rest_.size(); }

 private:
  void skipBlankLines();
  void take(size_t count);
  bool takeReject(FileMessage &message);

  std::string source_;
  std::string_view rest_;
  size_t size_;
  size_t line_ = 1;
  size_t column_ = 1;
  bool isRejects_;
};

}  // namespace examples

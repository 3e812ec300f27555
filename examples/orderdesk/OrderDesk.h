#pragma once

#include <map>
#include <optional>
#include <string>
#include <string_view>

#include "examples/orderdesk/Files.h"
#include "examples/orderdesk/Formats.h"
#include "examples/orderdesk/Inspector.h"
#include "examples/orderdesk/MessageReader.h"
#include "examples/orderdesk/Options.h"
#include "examples/orderdesk/Report.h"

namespace examples {

// Takes the messages of files, one after the other, through one router, and writes what becomes of them. Each format is
// known by its bytes, read and checked by the classes of its own and mapped to the internal order, which has rules of
// its own; from there every order goes out alike. A message that is refused is told and, if asked for, kept.
class OrderDesk {
 public:
  // Raises UsageError for a format that is not known, FileError for a file that cannot be written. Both are borrowed.
  OrderDesk(Options const &options, Report &report);

  // A file that cannot be read is told, and the next one taken. Raises FileError for one that cannot be written.
  void run();
  // 0, 1 or 2 as --help has it.
  int exitStatus() const;

 private:
  void openFiles();
  void takeFile(std::string const &path);
  void take(FileMessage const &message);
  void accept(FileMessage const &message, InputSource &input);
  void refuse(FileMessage const &message, InputSource &input, TransformException &failure);
  // What the last message became; empty if nothing was written.
  std::string_view result();
  tvstring formatName(InputSource &input);

  Options const &options_;
  Report &report_;
  Target const *target_ = nullptr;  // null if messages are only checked
  MessageIdentificationService *service_;
  MessageRouter router_;  // owns the service
  std::optional<Inspector> inspector_;
  TransformContext context_;
  std::optional<OutputFile> output_;
  std::optional<OutputFile> rejects_;
  std::map<tvstring, Tally> tallies_;
  size_t messages_ = 0;
  size_t refused_ = 0;
  size_t unreadable_ = 0;
};

}  // namespace examples

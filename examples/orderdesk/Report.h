#pragma once

#include <chrono>
#include <cstddef>
#include <map>
#include <string>
#include <string_view>
#include <utility>

#include "examples/orderdesk/Inspector.h"
#include "examples/orderdesk/MessageReader.h"
#include "tavrone/tavrone.h"

namespace examples {

// What came of the messages of one format.
struct Tally {
  size_t messages = 0, orders = 0, refused = 0;
  std::string in{}, out{};  // the first order
};

// All that is told to people, on standard error. Texts of messages are shown with their control bytes made harmless.
class Report {
 public:
  explicit Report(bool quiet);
  Report(Report const &) = delete;
  Report &operator=(Report const &) = delete;
  ~Report();

  // A line for a failure of a message; a heading comes before the first.
  void tellFailure(FileMessage const &message, tvstring const &format, ExceptionDataObject const &failure);
  // The message, what was found in it, and what it became; that is empty if nothing was written.
  void explain(FileMessage const &message, tvstring const &format, Inspection const &found, std::string_view became);
  // A line of its own, with the program's name before it.
  void tell(std::string const &line);

  // The bar of a run over `total` bytes of files, 0 if that is not known; `done` are behind in the present one. Only on
  // a terminal.
  void setTotal(size_t total) { total_ = total; }
  void progress(size_t done, size_t messages);
  void fileDone(size_t size) { doneFiles_ += size; }

  void summarize(std::map<tvstring, Tally> const &tallies);
  void showSamples(std::map<tvstring, Tally> const &tallies);

  // A text in one line as it may go to a terminal, cut at the width: SOH is '|', a line end " / ".
  static std::string shown(std::string_view text, size_t width);

 private:
  void print(std::string const &text);
  void eraseBar();
  double seconds() const;

  std::chrono::steady_clock::time_point const start_ = std::chrono::steady_clock::now();
  bool const quiet_;
  bool const hasBar_;
  bool isBarShown_ = false;
  bool hasHeading_ = false;
  double nextBar_ = 0.2;
  size_t total_ = 0;
  size_t doneFiles_ = 0;  // bytes
};

}  // namespace examples

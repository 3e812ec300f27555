#pragma once

#include <stdexcept>
#include <string>
#include <vector>

namespace examples {

// What the command line asks for.
struct Options {
  std::string to;       // the name of a format; empty: messages are checked, and go nowhere
  std::string output;   // empty: standard output
  std::string rejects;  // empty: refused messages are not kept
  bool lines = false;
  bool collect = false;
  bool explain = false;
  bool samples = false;
  bool quiet = false;
  bool help = false;
  bool version = false;
  std::vector<std::string> files;  // "-" is standard input
};

// A command line that can't be meant, in one line for its writer.
class UsageError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

// Raises UsageError. `arguments` are those behind the program's name. Nothing is asked of the formats and files that
// they name.
Options parseOptions(std::vector<std::string> const &arguments);

// The text of --help.
std::string helpText();

}  // namespace examples

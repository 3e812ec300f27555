#include "examples/orderdesk/Options.h"

#include <algorithm>

namespace examples {

namespace {

// An option has an argument, which goes to `text`, or is a flag.
struct Option {
  char const *name;
  char const *argument;
  char const *help;
  std::string Options::*text;
  bool Options::*flag;
};

constexpr Option option(char const *name, char const *argument, std::string Options::*text, char const *help) {
  return {name, argument, help, text, nullptr};
}
constexpr Option option(char const *name, bool Options::*flag, char const *help) {
  return {name, "", help, nullptr, flag};
}

constexpr Option OPTIONS[] = {
    option("--to", "FORMAT", &Options::to,
           "write every order as fix, siac, fcs, delimited, fixed or xml;\nwithout it messages are only checked"),
    option("--output", "FILE", &Options::output, "write the results there, not to standard output"),
    option("--rejects", "FILE", &Options::rejects, "keep every refused message there, with its failures"),
    option("--lines", &Options::lines, "end each FIX and SIAC message with a line feed"),
    option("--collect", &Options::collect, "tell everything that is wrong with a message, not only the\nfirst failure"),
    option("--explain", &Options::explain, "show each message, what it was identified as, and its record"),
    option("--samples", &Options::samples, "show the first order of each format, and what became of it"),
    option("--quiet", &Options::quiet, "no progress bar and no summary; failures are still told"),
    option("--help", &Options::help, "show this text"),
    option("--version", &Options::version, "show the versions of the library and of its formats"),
};

constexpr char const *INTRODUCTION = R"(usage: orderdesk [options] FILE...

Reads orders in any of the formats FIX, SIAC Canonical, FCS, lines of fields
and lines of fixed width, checks them, and writes them in the format asked
for. Each message of a FILE is known by its bytes, so formats may be mixed.
FILE - is standard input. A file of --rejects is read as the messages in it.

options:
)";

constexpr char const *REST = R"(
Results go to standard output, all else goes to standard error.

Rejects stand one behind the other, each a line
  #reject failures=N xml=N bytes=N line=N column=N source=FILE
then so many bytes of XML, a TransformException for each failure, then the
bytes of the message as they came, then a line feed.

exit status:
  0   all messages went through
  1   some were refused
  2   wrong use, or a file that cannot be read or written

examples:
  orderdesk --to fix --output orders.fix session.log orders.txt
  orderdesk --collect --rejects bad.txt --to siac orders.txt > orders.siac
  orderdesk --explain bad.txt
  cat orders.txt | orderdesk --to fcs - | orderdesk --to xml - | less
)";

Option const &findOption(std::string const &name) {
  auto const found =
      std::find_if(std::begin(OPTIONS), std::end(OPTIONS), [&](auto const &o) { return name == o.name; });
  if (found == std::end(OPTIONS)) throw UsageError("unknown option " + name + ", see --help");
  return *found;
}

}  // namespace

Options parseOptions(std::vector<std::string> const &arguments) {
  Options options;
  bool onlyFiles = false;  // behind "--"
  for (size_t i = 0; i < arguments.size(); ++i) {
    std::string const &argument = arguments[i];
    if (onlyFiles || argument == "-" || !argument.starts_with("-")) {
      options.files.push_back(argument);
      continue;
    }
    if (argument == "--") {
      onlyFiles = true;
      continue;
    }
    size_t const equals = argument.find('=');
    std::string const name = argument.substr(0, equals);
    Option const &option = findOption(name);
    bool const isJoined = equals != argument.npos;
    if (option.flag != nullptr) {
      if (isJoined) throw UsageError("option " + name + " takes no argument, see --help");
      options.*option.flag = true;
      continue;
    }
    if (!isJoined && i + 1 == arguments.size()) throw UsageError("option " + name + " needs an argument, see --help");
    options.*option.text = isJoined ? argument.substr(equals + 1) : arguments[++i];
    if ((options.*option.text).empty()) throw UsageError("option " + name + " has an empty argument, see --help");
  }
  return options;
}

std::string helpText() {
  constexpr size_t COLUMN = 20;
  std::string text = INTRODUCTION;
  for (Option const &option : OPTIONS) {
    std::string line = std::string("  ") + option.name + " " + option.argument;
    line.resize(COLUMN, ' ');
    for (char const *c = option.help; *c != '\0'; ++c) {
      line += *c;
      if (*c == '\n') line.append(COLUMN, ' ');
    }
    text += line + "\n";
  }
  return text + REST;
}

}  // namespace examples

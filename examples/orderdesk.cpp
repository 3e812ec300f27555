// A tool that takes orders in the formats FIX, SIAC Canonical, FCS, lines of fields and lines of fixed width, and
// passes them on in one of them, or as XML: orderdesk --help.
//
// One router takes them all. Files are cut into messages (MessageReader.h); formats and what is done with their
// messages are tables (Formats.cpp); the desk routes one message after the other (OrderDesk.cpp); what is told to
// people is told in one place (Report.h).

#include <cstdio>
#include <exception>
#include <string>
#include <vector>

#include "examples/orderdesk/OrderDesk.h"

using namespace tavrone;
using namespace examples;

namespace {

constexpr int FAILED = 2;

int show(std::string const &text) {
  OutputFile out("");
  out.write(text);
  out.close();
  return 0;
}

std::string versionText() {
  std::string text = "orderdesk of tavronert64 " + std::string(Version::getImplementationVersion().c_str()) + "\n";
  for (auto const &[format, version] : Version::getFormatVersions())
    text += std::string(format.c_str()) + " " + version.c_str() + "\n";
  return text;
}

int run(std::vector<std::string> const &arguments) {
  Options const options = parseOptions(arguments);
  if (options.help) return show(helpText());
  if (options.version) return show(versionText());
  Report report(options.quiet);
  OrderDesk desk(options, report);
  desk.run();
  return desk.exitStatus();
}

}  // namespace

int main(int argc, char **argv) {
  secureStandardStreams();
  std::string reason;
  try {
    return run(std::vector<std::string>(argv + 1, argv + argc));
  } catch (std::exception const &failure) {  // UsageError and FileError among them
    reason = failure.what();
  } catch (Exception const &failure) {
    reason = failure.getMessage().c_str();
  }
  std::fprintf(stderr, "orderdesk: %s\n", shownName(reason).c_str());
  return FAILED;
}

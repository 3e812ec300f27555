// A host that routes a file of FIX messages, one a line: route_messages examples/data/fix_messages.txt
//
// It shows the whole road of a message: identify its header, pick the configuration that matches, hand the message and
// the configuration's properties to the input format which that configuration names. Here the format prints one line.

#include <array>
#include <cstdio>
#include <map>
#include <string_view>
#include <utility>

#include "tavrone/tavrone.h"

using namespace tavrone;

namespace {

constexpr char SOH = '\x01';

std::string_view view(tvstring const &text) {
  return {text.data(), text.length()};
}

// The value of a field in tag=value text, empty if there is none.
tvstring valueOf(char const *tag, char const *bytes, int length) {
  std::string_view rest(bytes, static_cast<size_t>(length));
  while (!rest.empty()) {
    std::string_view const field = rest.substr(0, rest.find(SOH));
    size_t const equals = field.find('=');
    if (field.substr(0, equals) == tag && equals != field.npos)
      return tvstring(field.data() + equals + 1, field.size() - equals - 1);
    rest.remove_prefix(field.size() < rest.size() ? field.size() + 1 : field.size());
  }
  return tvstring();
}

char const *nameOf(std::string_view type) {
  static constexpr std::pair<std::string_view, char const *> NAMES[] = {
      {"0", "Heartbeat"},    {"3", "Reject"},        {"5", "Logout"},
      {"8", "Execution"},    {"A", "Logon"},         {"D", "New order"},
      {"F", "Cancel order"}, {"G", "Replace order"}, {"V", "Market data request"},
      {"W", "Market data"}};
  for (auto const &[known, name] : NAMES)
    if (known == type) return name;
  return "?";
}

// What the router reads of a message: a record with the three fields that every header has.
DataObject *newSessionHeader(tvstring const &version, tvstring const &type) {
  static char const *names[] = {"MessageFormat", "MessageVersion", "MessageType"};
  static char const *types[] = {"String", "String", "String"};
  static DataObjectMetaInfo metaInfo("SessionHeader", names, types, 3);
  auto *header = new GenericDataObject(&metaInfo, false);
  header->setField(0, "FIX");
  header->setField(1, version);
  header->setField(2, type);
  return header;
}

// Knows FIX by its first bytes and cuts the version out of BeginString, the type out of MsgType.
class SessionIdentifier : public MessageIdentifier {
 public:
  DataObject *identifyMessage(InputSource &input) override {
    static constexpr std::string_view PREFIX = "8=FIX.";
    int length = 0;
    char const *bytes = input.getAsBytes(length);
    if (!std::string_view(bytes, static_cast<size_t>(length)).starts_with(PREFIX)) return nullptr;
    return newSessionHeader(valueOf("8", bytes, length).substr(4), valueOf("35", bytes, length));
  }
};

// How many messages of each type came through each version's configuration.
using Tally = std::map<tvstring, std::array<int, 2>>;

// Prints each message that it is handed, and counts it.
class PrintingFormat : public IInputFormat {
 public:
  explicit PrintingFormat(Tally &tally) : tally_(tally) {}

  void processInput(InputSource &input, TransformContext &context) override {
    int length = 0;
    char const *bytes = input.getAsBytes(length);
    tvstring const type = valueOf("35", bytes, length);
    std::printf("%-12s %-8s %-2s %-20s %-9s %-9s %5s %6d\n", context.getProperty("desk").c_str(),
                valueOf("8", bytes, length).c_str(), type.c_str(), nameOf(view(type)),
                valueOf("49", bytes, length).c_str(), valueOf("56", bytes, length).c_str(),
                valueOf("34", bytes, length).c_str(), length);
    ++tally_[type][context.getProperty("column") == "1"];
  }
  // Nothing asks this format for an object.
  DataObject *handleInput(InputSource &, TransformContext &) override { return nullptr; }

 private:
  Tally &tally_;
};

// Generated code has one such factory for each component; the directory owns it.
class PrintingFormatFactory : public ObjectFactory {
 public:
  explicit PrintingFormatFactory(Tally &tally) : tally_(tally) {}
  Object *create() override { return new PrintingFormat(tally_); }

 private:
  Tally &tally_;
};

MessageConfiguration *configurationOf(char const *version, char const *desk, char const *column) {
  auto *configuration = new MessageConfiguration;
  configuration->setMessageFormat("FIX");
  configuration->setMessageVersion(version);
  configuration->setContextProperty(TransformContext::INPUT_FORMAT_PROPERTY, "PrintingFormat");
  configuration->setContextProperty("desk", desk);
  configuration->setContextProperty("column", column);
  return configuration;
}

struct Counts {
  int routed = 0;
  int unhandled = 0;
  int unrecognized = 0;
};

void route(MessageRouter const &router, std::string_view message, Counts &counts) {
  // Refers to the file's bytes: nothing is copied on the way to the format.
  ByteArrayInputSource input(Binary(message.data(), message.size(), false));
  try {
    router.processMessage(input);
    ++counts.routed;
  } catch (UnrecognizedMessageException const &failure) {
    std::printf("  ! %s: \"%.*s\"\n", failure.getMessage().c_str(), static_cast<int>(message.size()), message.data());
    ++counts.unrecognized;
  } catch (UnhandledMessageException const &failure) {
    std::printf("  ! %s\n", failure.getMessage().c_str());
    ++counts.unhandled;
  }
}

Counts routeFile(MessageRouter const &router, char const *path) {
  FileInputSource file(path);
  int length = 0;
  char const *bytes = file.getAsBytes(length);
  std::string_view rest(bytes, static_cast<size_t>(length));
  Counts counts;
  while (!rest.empty()) {
    std::string_view const line = rest.substr(0, rest.find('\n'));
    if (!line.empty()) route(router, line, counts);
    rest.remove_prefix(line.size() < rest.size() ? line.size() + 1 : line.size());
  }
  return counts;
}

void printSummary(Tally const &tally, Counts const &counts) {
  std::printf("\n%-23s %8s %8s\n", "Routed by type", "FIX.4.2", "FIX.4.4");
  for (auto const &[type, count] : tally)
    std::printf("%-2s %-20s %8d %8d\n", type.c_str(), nameOf(view(type)), count[0], count[1]);
  std::printf("\n%d messages: %d routed, %d unhandled, %d unrecognized\n",
              counts.routed + counts.unhandled + counts.unrecognized, counts.routed, counts.unhandled,
              counts.unrecognized);
}

}  // namespace

int main(int argc, char **argv) {
  if (argc != 2) {
    std::fprintf(stderr, "usage: %s <file of FIX messages, one a line>\n", argv[0]);
    return 2;
  }
  try {
    Tally tally;
    LookupContextFactory::getLookupContext()->bind("PrintingFormat", new PrintingFormatFactory(tally));

    auto *identification = new MessageIdentificationService;
    identification->registerMessageIdentifer(new SessionIdentifier);
    MessageRouter router(identification);
    router.addMessageConfiguration(configurationOf("4.2", "equities", "0"));
    router.addMessageConfiguration(configurationOf("4.4", "funds", "1"));

    std::printf("%-12s %-8s %-23s %-9s %-9s %5s %6s\n", "Desk", "Version", "Type", "From", "To", "Seq", "Bytes");
    Counts const counts = routeFile(router, argv[1]);
    printSummary(tally, counts);
    LookupContextFactory::getLookupContext()->unbind("PrintingFormat");
    return 0;
  } catch (TransformException const &failure) {
    std::fprintf(stderr, "%s\n", failure.getMessage().c_str());
    return 1;
  }
}

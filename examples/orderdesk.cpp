// A host that takes orders in four wire formats and passes them on in one of three:
//
//   gateway --to fix|siac|fcs <file>...
//
// One router takes them all. A FIX session, SIAC Canonical orders, FCS messages and lines of fields are each known by
// their bytes, read and checked by the classes of their own format and mapped to the internal order, which has rules of
// its own; from there every order goes out alike. A message that is refused is shown with what was wrong with it. With
// --to fix each FIX order is also written again from what was parsed, and compared with what came in.

#include <chrono>
#include <cstdio>
#include <map>
#include <string>
#include <string_view>

#include "examples/gateway/GatewayOrder.h"
#include "examples/messages/FCSOrderOutput.h"
#include "examples/messages/NewOrderSingleMessage.h"
#include "examples/messages/OrderLineMessage.h"
#include "examples/messages/SIACOrder.h"

using namespace tavrone;
using namespace examples;

namespace {

constexpr char SOH = '\x01';
constexpr char const *WIRE_PROPERTY = "gateway.wire";

// FIX messages that carry no order, such as logons and heartbeats, end here.
class SessionFormat : public IInputFormat {
 public:
  DataObject *handleInput(InputSource &, TransformContext &) override { return nullptr; }
  void processInput(InputSource &, TransformContext &) override {}
};

[[maybe_unused]] bool const BOUND =
    bindFactory<GatewayOrder>("Order") && bindFactory<NewOrderSingleFormat>("NewOrderSingle") &&
    bindFactory<SessionFormat>("FIXSession") && bindFactory<SIACOrderFormat>("SIACOrder") &&
    bindFactory<FCSOrderFormat>("FCSOrder") && bindFactory<OrderLineFormat>("OrderLine");

bool bindOutput(std::string_view target) {
  constexpr char const *NAME = "gateway.output";
  if (target == "fix") return bindFactory<NewOrderSingleOutputFormat>(NAME);
  if (target == "siac") return bindFactory<SIACOrderOutputFormat>(NAME);
  if (target == "fcs") return bindFactory<FCSOrderOutputFormat>(NAME);
  return false;
}

// A text from outside as it may go to a terminal: SOH as '|', a line end as " / ", tabs left
// out, what is longer than `width` cut.
std::string shown(tvstring const &text, size_t width) {
  std::string out;
  for (size_t i = 0; i < text.length() && out.size() <= width; ++i) {
    char const c = text[i];
    if (c == '\n')
      out += " / ";
    else if (c != '\t')
      out += c == SOH ? '|' : c < ' ' || c > '~' ? '?' : c;
  }
  if (out.size() > width) out.replace(width - 3, out.npos, "...");
  return out;
}

// What came of the messages of one wire format.
struct Tally {
  int messages = 0, orders = 0, refused = 0;
  std::string in{}, out{};  // the first order
};

// One kind of message and what is done with it.
struct Road {
  char const *format, *type, *inputFormat, *wire;
};
constexpr Road ROADS[] = {{"FIX", "D", "NewOrderSingle", "FIX"},
                          {"FIX", "", "FIXSession", "FIX session"},
                          {"Canonical", "", "SIACOrder", "SIAC"},
                          {"ORDER-LINE", "", "OrderLine", "Line"},
                          {"FCS", "Order", "FCSOrder", "FCS"}};

// FCS comes last: it has no mark of its own, and its identifier reads two lines of whatever it is asked for.
MessageIdentificationService *newIdentification() {
  auto *service = new MessageIdentificationService;
  service->registerMessageIdentifer("FIXMessageIdentifier");
  service->registerMessageIdentifer("SIACCanonicalMessageIdentifier");
  service->registerMessageIdentifer(new OrderLineIdentifier);
  service->registerMessageIdentifer(new FCSOrderIdentifier);
  return service;
}

class Gateway {
 public:
  explicit Gateway(bool comparesFIX) : router_(newIdentification()), comparesFIX_(comparesFIX) {
    LookupContextFactory::getLookupContext()->bind("memory", new ContextOutputProtocol);
    for (Road const &road : ROADS) {
      auto *configuration = new MessageConfiguration;
      configuration->setMessageFormat(road.format);
      configuration->setMessageType(road.type);
      configuration->setContextProperty(TransformContext::INPUT_FORMAT_PROPERTY, road.inputFormat);
      configuration->setContextProperty(WIRE_PROPERTY, road.wire);
      router_.addMessageConfiguration(configuration);
    }
  }

  // A line with fields in it is a message; other lines are one message up to a blank line.
  void takeFile(std::string_view path) {
    FileInputSource file(tvstring(path.data(), path.size()));
    LineReader lines(file, false);
    std::string const name(path.substr(path.rfind('/') + 1));
    while (lines.hasMoreLines()) {
      tvstring const first = lines.getNextLine();
      if (first.empty()) continue;
      int const number = lines.getLineNumber();
      tvstring last = first;
      while (!isMessage(first) && lines.hasMoreLines()) {
        tvstring const next = lines.getNextLine();
        if (next.empty()) break;
        if (isMessage(next)) {
          lines.pushBackLine();
          break;
        }
        last = next;
      }
      take((name + ":" + std::to_string(number)).c_str(), first.span(last));
    }
  }

  void printSummary(std::chrono::duration<double> time) const {
    std::printf("\n%-12s %8s %8s %8s\n", "Format", "Messages", "Orders", "Refused");
    int messages = 0;
    for (auto const &[wire, tally] : tallies_) {
      std::printf("%-12s %8d %8d %8d\n", wire.c_str(), tally.messages, tally.orders, tally.refused);
      messages += tally.messages;
    }
    for (auto const &[wire, tally] : tallies_)
      if (tally.orders != 0)
        std::printf("\n%s\n  %s\n  became\n  %s\n", wire.c_str(), tally.in.c_str(), tally.out.c_str());
    if (comparesFIX_) std::printf("\nFIX orders written again: %d byte for byte, %d in another form\n", same_, other_);
    std::printf("\n%d messages, %d failures, %.0f messages per second\n", messages, failures_, messages / time.count());
  }

 private:
  static bool isMessage(tvstring const &line) {
    return line.find(SOH) != tvstring::npos || line.find('|') != tvstring::npos;
  }

  void take(tvstring const &source, tvstring const &text) {
    context_.createOutputContext();
    context_.setProperty(TransformContext::INPUT_SOURCE_PROPERTY, source);
    context_.setProperty(WIRE_PROPERTY, "unknown");
    StringInputSource input(text);
    try {
      router_.processMessage(input, context_);
    } catch (TransformException const &failure) {
      refuse(source, failure);
      return;
    }
    tvstring const wire = context_.getProperty(WIRE_PROPERTY);
    Tally &tally = tallies_[wire];
    ++tally.messages;
    if (wire == "FIX session") return;
    if (tally.orders++ == 0) {
      tally.in = shown(text, LINE_WIDTH);
      tally.out = shown(context_.getOutputContext()->getOutputDevice("memory")->getAsString(), LINE_WIDTH);
    }
    if (comparesFIX_ && wire == "FIX") compare(text);
  }

  void compare(tvstring const &text) {
    SmartPtr<DataObject> const parsed = newOrder_->parse(Binary(text), context_);
    ++(newOrder_->serialize(parsed, context_) == Binary(text) ? same_ : other_);
  }

  void refuse(tvstring const &source, TransformException const &failure) {
    tvstring const wire = context_.getProperty(WIRE_PROPERTY);
    Tally &tally = tallies_[wire];
    ++tally.messages;
    ++tally.refused;
    if (failures_++ == 0)
      std::printf("%-24s %-8s %-12s %-16s %-8s %-14s %s\n", "Refused", "Format", "Type", "Phase", "Code", "Field",
                  "Text");
    tvstring const code = failure.getErrorCode().empty() ? failure.getContextProperty(ExceptionObject::INTERNAL_CODE)
                                                         : failure.getErrorCode();
    bool const hasField = failure.isNotNull(failure.getFieldIndex("FieldName"));
    std::printf("%-24s %-8s %-12s %-16s %-8s %-14s %s\n", source.c_str(), wire.c_str(),
                shown(failure.getErrorType(), 12).c_str(), shown(failure.getErrorPhase(), 16).c_str(),
                shown(code, 8).c_str(), hasField ? shown(failure.getFFieldName(), 14).c_str() : "",
                shown(failure.getMessage(), 90).c_str());
  }

  static constexpr size_t LINE_WIDTH = 240;

  MessageRouter router_;
  SmartPtr<NewOrderSingleMessage> newOrder_{new NewOrderSingleMessage};
  TransformContext context_;
  std::map<tvstring, Tally> tallies_;
  bool const comparesFIX_;
  int failures_ = 0;
  int same_ = 0;
  int other_ = 0;
};

}  // namespace

int main(int argc, char **argv) {
  try {
    if (argc < 4 || std::string_view(argv[1]) != "--to" || !bindOutput(argv[2])) {
      std::fprintf(stderr, "usage: %s --to fix|siac|fcs <file of messages>...\n", argv[0]);
      return 2;
    }
    Gateway gateway(std::string_view(argv[2]) == "fix");
    auto const start = std::chrono::steady_clock::now();
    for (int i = 3; i < argc; ++i) gateway.takeFile(argv[i]);
    gateway.printSummary(std::chrono::steady_clock::now() - start);
    return 0;
  } catch (TransformException const &failure) {
    std::fprintf(stderr, "%s\n", failure.getMessage().c_str());
    return 1;
  }
}

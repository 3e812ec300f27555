// A host that takes orders and sends tickets: tickets [--flow] [--out <folder>] examples/data/orders.txt ...
//
// It shows the inside of the pipeline, with the classes of the folder tickets/. The router identifies a line and
// hands it to an input format; the line is parsed into an order, the order is completed, checked and processed by the
// rules of its message, mapped by a trigger to a ticket, which is a message with rules of its own, and the ticket is
// written by another trigger to a device: blocks to a file each, the rest to memory. Nothing of that is called from
// here: the classes find each other by name, and this file only feeds them and prints what came of it.
//
// With --flow the same lines go through a message flow instead, which calls the same classes by hand.

#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <set>
#include <string>
#include <string_view>
#include <system_error>
#include <vector>

#include "examples/messages/OrderLineMessage.h"
#include "examples/tickets/FileOutputProtocol.h"
#include "tavrone/tavrone.h"

using namespace tavrone;
using namespace examples;

namespace {

[[maybe_unused]] bool const BOUND =
    bindFactory<OrderLineFormat>("OrderLine") && registerClass<OrderLineIdentifier>("OrderLineIdentifier");

// A text from outside as it may go to a terminal: bytes that are not printable are shown by their codes, and what is
// longer than `width` is cut.
std::string shown(tvstring const &text, size_t width) {
  std::string out;
  for (size_t i = 0; i < text.length() && out.size() <= width; ++i) {
    auto const byte = static_cast<unsigned char>(text[i]);
    if (byte == '\n' && i + 1 == text.length()) break;
    char code[5];
    std::snprintf(code, sizeof code, byte < 0x20 || byte > 0x7e ? "\\x%02x" : "%c", byte);
    out += code;
  }
  if (out.size() > width) out.replace(width - 3, out.npos, "...");
  return out;
}

struct Counts {
  int messages = 0;
  int inMemory = 0;
  int inFiles = 0;
  int refused = 0;
  int failures = 0;
};

// Tells somebody who waits at a terminal how far a long run is; the table itself goes elsewhere then.
class Progress {
 public:
  ~Progress() {
    if (shown_) std::fprintf(stderr, "\r%60s\r", "");
  }

  void tell(int messages) {
    if (!watched_ || messages % 256 != 0 || seconds() < nextSecond_) return;
    std::fprintf(stderr, "\r%d messages, %.0f per second", messages, messages / seconds());
    nextSecond_ = seconds() + 0.5;
    shown_ = true;
  }
  double seconds() const { return std::chrono::duration<double>(std::chrono::steady_clock::now() - start_).count(); }

 private:
  std::chrono::steady_clock::time_point const start_ = std::chrono::steady_clock::now();
  bool const watched_ = isatty(STDERR_FILENO) != 0 && isatty(STDOUT_FILENO) == 0;
  double nextSecond_ = 1;
  bool shown_ = false;
};

MessageIdentificationService *orderLineService() {
  auto *service = new MessageIdentificationService;
  service->registerMessageIdentifer("OrderLineIdentifier");
  return service;
}

class TicketDesk {
 public:
  TicketDesk(std::filesystem::path const &folder, bool byFlow)
      : files_(new FileOutputProtocol(folder)), router_(orderLineService()) {
    SmartPtr<ILookupContext> const directory = LookupContextFactory::getLookupContext();
    directory->bind("file", files_.get());
    directory->bind("memory", new ContextOutputProtocol);
    message_ = directory->lookupInternalMessage("Order");
    if (byFlow) flow_ = directory->lookupMessageFlow("OrderFlow");
    auto *orders = new MessageConfiguration;
    orders->setMessageFormat("ORDER-LINE");
    orders->setContextProperty(TransformContext::INPUT_FORMAT_PROPERTY, "OrderLine");
    router_.addMessageConfiguration(orders);
  }

  // Tickets are named for the file and the line of their orders, so no two files may have the same name.
  void takeFile(std::filesystem::path const &path) {
    if (!names_.insert(path.filename()).second)
      throw TransformException("Two files are named " + tvstring(path.filename().c_str()));
    FileInputSource file(path.c_str());
    int length = 0;
    char const *bytes = file.getAsBytes(length);
    std::string_view rest(bytes, static_cast<size_t>(length));
    for (int number = 1; !rest.empty(); ++number) {
      std::string_view const line = rest.substr(0, rest.find('\n'));
      tvstring const name = path.filename().c_str();
      if (!line.empty()) take(name + ":" + Parsing::intToString(number), Binary(line.data(), line.size()));
      rest.remove_prefix(line.size() < rest.size() ? line.size() + 1 : line.size());
    }
  }

  Counts const &counts() const { return counts_; }
  double messagesPerSecond() const { return counts_.messages / progress_.seconds(); }

 private:
  void take(tvstring const &source, Binary const &line) {
    progress_.tell(++counts_.messages);
    context_.createOutputContext();
    context_.setProperty(TransformContext::INPUT_SOURCE_PROPERTY, source);
    try {
      if (flow_.isNull())
        route(source, line);
      else
        runFlow(source, line);
    } catch (TransformException const &failure) {
      printRefusal(source, line);
      explain(failure, line);
    }
  }

  void route(tvstring const &source, Binary const &line) {
    ByteArrayInputSource input(line);
    router_.processMessage(input, context_);
    printDelivery(source, line);
  }

  void runFlow(tvstring const &source, Binary const &line) {
    ObjectList inputs;
    inputs.add(new BinaryObject(line));
    Result<ObjectList> const result = flow_->run2(inputs, context_);
    if (result.exceptions.empty()) return printDelivery(source, line);
    printRefusal(source, line);
    for (ExceptionDataObject *record : result.exceptions) print(*record);
  }

  void printRefusal(tvstring const &source, Binary const &line) {
    ++counts_.refused;
    std::printf("%-20s %-9s refused\n", source.c_str(), orderId(line).c_str());
  }

  void printDelivery(tvstring const &source, Binary const &line) {
    std::string target;
    tvstring ticket;
    std::filesystem::path const file = files_->takeLastPath();
    if (file.empty()) {
      ++counts_.inMemory;
      target = "memory";
      ticket = context_.getOutputContext()->getOutputDevice("memory")->getAsString();
    } else {
      ++counts_.inFiles;
      target = file.filename();
      ticket = FileInputSource(file.c_str()).getAsBinary().toString();
    }
    std::printf("%-20s %-9s %-20s %s\n", source.c_str(), orderId(line).c_str(), target.c_str(),
                shown(ticket, 120).c_str());
  }

  // The pipeline stops at the first failure. An order that it refused is looked at once more, this time collecting, so
  // that its sender hears of everything at once; good orders don't pay for that.
  void explain(TransformException const &failure, Binary const &line) {
    static_cast<void>(files_->takeLastPath());
    Result<SmartPtr<DataObject>> const parsed = OrderLineParser::parse2(line.toString(), context_);
    if (failure.getErrorPhase() == ExceptionObject::INPUT_PHASE) return printAll(parsed, failure);
    if (failure.getErrorType() != ExceptionObject::ERROR_TYPE_VALIDATION) return print(failure);
    message_->preprocess(parsed.value, context_);
    Result<SmartPtr<DataObject>> const checked = message_->validate2(parsed.value, context_);
    if (checked.exceptions.empty()) return print(failure);  // a ticket's check
    printAll(checked, failure);
  }

  // What was collected has not passed through the pipeline, which tells the phase: it is that of the first failure.
  void printAll(Result<SmartPtr<DataObject>> const &result, TransformException const &first) {
    for (ExceptionDataObject *record : result.exceptions) {
      record->fillPhase(first.getErrorPhase());
      print(*record);
    }
  }

  void print(ExceptionDataObject const &failure) {
    ++counts_.failures;
    tvstring const code = failure.getErrorCode().empty() ? failure.getContextProperty(ExceptionObject::INTERNAL_CODE)
                                                         : failure.getErrorCode();
    bool const hasField = failure.isNotNull(failure.getFieldIndex("FieldName"));
    std::printf("  ! %-14s %-16s %-7s %-12s %s\n", failure.getErrorType().c_str(), failure.getErrorPhase().c_str(),
                code.c_str(), hasField ? failure.getFFieldName().c_str() : "", shown(failure.getMessage(), 90).c_str());
  }

  // For the table also where the line is no order.
  static std::string orderId(Binary const &line) {
    tvstring const text = line.toString();
    return shown(text.substr(0, std::min(text.find('|'), text.length())), 9);
  }

  std::set<std::filesystem::path> names_;
  SmartPtr<FileOutputProtocol> files_;
  MessageRouter router_;
  SmartPtr<IMessageFlow> flow_;  // null unless asked for
  SmartPtr<IInternalMessage> message_;
  TransformContext context_;
  Counts counts_;
  Progress progress_;
};

int usage(char const *program) {
  std::fprintf(stderr, "usage: %s [--flow] [--out <folder>] <file of orders, one a line>...\n", program);
  return 2;
}

std::filesystem::path makeTemporaryFolder() {
  std::string name = (std::filesystem::temp_directory_path() / "tickets.XXXXXX").string();
  if (mkdtemp(name.data()) == nullptr)
    throw std::filesystem::filesystem_error("Cannot make a folder", name,
                                            std::error_code(errno, std::generic_category()));
  return name;
}

}  // namespace

int main(int argc, char **argv) {
  std::vector<std::string_view> arguments(argv + 1, argv + argc);
  try {
    std::filesystem::path folder;
    bool byFlow = false;
    while (!arguments.empty() && arguments[0].starts_with("--")) {
      size_t taken = 1;
      if (arguments[0] == "--flow") {
        byFlow = true;
      } else if (arguments[0] == "--out" && arguments.size() >= 2) {
        folder = arguments[taken++];
        std::filesystem::create_directories(folder);
      } else {
        return usage(argv[0]);
      }
      arguments.erase(arguments.begin(), arguments.begin() + static_cast<std::ptrdiff_t>(taken));
    }
    if (arguments.empty()) return usage(argv[0]);
    if (folder.empty()) folder = makeTemporaryFolder();

    TicketDesk desk(folder, byFlow);
    std::printf("%-20s %-9s %-20s %s\n", "Source", "Order", "Went to", "What came out");
    std::printf("  ! %-14s %-16s %-7s %-12s %s\n\n", "Failure", "Phase", "Code", "Field", "Text");
    for (std::string_view path : arguments) desk.takeFile(path);
    Counts const &counts = desk.counts();
    std::printf("\nFiles are in %s\n", folder.c_str());
    std::printf(
        "%d messages: %d tickets in memory, %d in files, %d refused with %d failures, %.0f messages per second\n",
        counts.messages, counts.inMemory, counts.inFiles, counts.refused, counts.failures, desk.messagesPerSecond());
    return 0;
  } catch (TransformException const &failure) {
    std::fprintf(stderr, "%s\n", failure.getMessage().c_str());
  } catch (std::exception const &failure) {
    std::fprintf(stderr, "%s\n", failure.what());
  }
  return 1;
}

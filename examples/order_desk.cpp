// A host that takes orders and sends tickets: order_desk [--out <folder>] examples/data/orders.txt ...
//
// It shows the inside of the pipeline, with the classes of the folder order_desk/: a line is parsed into an order, the
// order is completed, checked and processed by the rules of its message, mapped to a ticket, and the ticket is written
// to a device: blocks to a file each, the rest to memory. Nothing of that is called from here: the classes find each
// other by name, and this file only feeds them and prints what came of it.

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <set>
#include <string>
#include <string_view>
#include <system_error>
#include <vector>

#include "examples/order_desk/FileOutputProtocol.h"
#include "examples/order_desk/OrderLineParser.h"
#include "tavrone/tavrone.h"

using namespace tavrone;
using namespace examples;

namespace {

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

class OrderDesk {
 public:
  explicit OrderDesk(std::filesystem::path const &folder) : files_(new FileOutputProtocol(folder)) {
    SmartPtr<ILookupContext> const directory = LookupContextFactory::getLookupContext();
    directory->bind("file", files_.get());
    directory->bind("memory", new ContextOutputProtocol);
    format_ = directory->lookupInputFormat("OrderLine");
    message_ = directory->lookupInternalMessage("Order");
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

 private:
  void take(tvstring const &source, Binary const &line) {
    ++counts_.messages;
    ByteArrayInputSource input(line);
    context_.clear();
    context_.createOutputContext();
    context_.setProperty(TransformContext::INPUT_SOURCE_PROPERTY, source);
    try {
      format_->processInput(input, context_);
      printDelivery(source, line);
    } catch (TransformException const &failure) {
      ++counts_.refused;
      std::printf("%-20s %-9s refused\n", source.c_str(), orderId(line).c_str());
      explain(failure, line);
    }
  }

  void printDelivery(tvstring const &source, Binary const &line) {
    tvstring const device = context_.getProperty(TransformContext::OUTPUT_DEVICE_PROPERTY);
    std::string target;
    tvstring ticket;
    if (device == "file") {
      ++counts_.inFiles;
      target = files_->getLastPath().filename();
      ticket = FileInputSource(files_->getLastPath().c_str()).getAsBinary().toString();
    } else {
      ++counts_.inMemory;
      target = "memory";
      ticket = context_.getOutputContext()->getOutputDevice(device)->getAsString();
    }
    std::printf("%-20s %-9s %-20s %s\n", source.c_str(), orderId(line).c_str(), target.c_str(),
                shown(ticket, 120).c_str());
  }

  // The pipeline stops at the first failure. An order that it refused is looked at once more, this time collecting, so
  // that its sender hears of everything at once; good orders don't pay for that.
  void explain(TransformException const &failure, Binary const &line) {
    Result<SmartPtr<DataObject>> const parsed = parse2(line);
    if (failure.getErrorPhase() == ExceptionObject::INPUT_PHASE) return printAll(parsed, failure);
    if (failure.getErrorType() != ExceptionObject::ERROR_TYPE_VALIDATION) return print(failure);
    message_->preprocess(parsed.value, context_);
    printAll(message_->validate2(parsed.value, context_), failure);
  }

  Result<SmartPtr<DataObject>> parse2(Binary const &line) {
    CascadingExceptionHandler collecting;
    OrderLineParser parser;
    parser.exceptionHandler = &collecting;
    SmartPtr<Order> const order(new Order);
    parser.parseOrder(*order, line.toString(), context_);
    return {order.get(), collecting.getExceptions()};
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
  SmartPtr<IInputFormat> format_;
  SmartPtr<IInternalMessage> message_;
  TransformContext context_;
  Counts counts_;
};

int usage(char const *program) {
  std::fprintf(stderr, "usage: %s [--out <folder>] <file of orders, one a line>...\n", program);
  return 2;
}

std::filesystem::path makeTemporaryFolder() {
  std::string name = (std::filesystem::temp_directory_path() / "order_desk.XXXXXX").string();
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
    if (arguments.size() >= 2 && arguments[0] == "--out") {
      folder = arguments[1];
      std::filesystem::create_directories(folder);
      arguments.erase(arguments.begin(), arguments.begin() + 2);
    }
    if (arguments.empty()) return usage(argv[0]);
    if (folder.empty()) folder = makeTemporaryFolder();

    OrderDesk desk(folder);
    std::printf("%-20s %-9s %-20s %s\n", "Source", "Order", "Went to", "What came out");
    std::printf("  ! %-14s %-16s %-7s %-12s %s\n\n", "Failure", "Phase", "Code", "Field", "Text");
    for (std::string_view path : arguments) desk.takeFile(path);
    Counts const &counts = desk.counts();
    std::printf("\nFiles are in %s\n", folder.c_str());
    std::printf("%d messages: %d tickets in memory, %d in files, %d refused with %d failures\n", counts.messages,
                counts.inMemory, counts.inFiles, counts.refused, counts.failures);
    return 0;
  } catch (TransformException const &failure) {
    std::fprintf(stderr, "%s\n", failure.getMessage().c_str());
  } catch (std::exception const &failure) {
    std::fprintf(stderr, "%s\n", failure.what());
  }
  return 1;
}

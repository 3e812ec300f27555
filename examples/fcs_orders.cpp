// A host that takes FCS messages: fcs_orders examples/data/fcs_messages.txt
//
// Orders, cancels and reports stand in a file with a blank line between them. Each is identified, read, checked and
// written back; the text is to be the one that was read, but for trailers and decimal prices, which have more than one
// form. Orders are mapped to the internal order, the one that FIX or any other format would be mapped to. Of a broken
// message every broken line is shown, with a mark under the place.

#include <cstdio>
#include <string>

#include "examples/Terminal.h"
#include "examples/messages/FCSOrder.h"

using namespace tavrone;
using namespace examples;

namespace {

[[maybe_unused]] bool const BOUND =
    bindFactory<FCSOrderMessage>("FCSOrder.message") && bindFactory<FCSCancelMessage>("FCSCancel.message") &&
    bindFactory<FCSReportMessage>("FCSReport.message") && bindFactory<FCSOrderFormat>("FCSOrder");

class Desk {
 public:
  // Messages end at a blank line.
  void takeFile(char const *path) {
    FileInputSource file(path);
    LineReader lines(file, false);
    while (lines.hasMoreLines()) {
      tvstring const first = lines.getNextLine();
      if (first.empty()) continue;
      int const number = lines.getLineNumber();
      tvstring last = first;
      while (lines.hasMoreLines() && !lines.getNextLine().empty()) {
        lines.pushBackLine();
        last = lines.getNextLine();
      }
      take(first.span(last), number);
    }
  }

  void printCounts() const {
    std::printf("\n%d messages: %d written back as read, %d in another form, %d refused with %d failures\n",
                same_ + other_ + refused_, same_, other_, refused_, failures_);
  }

 private:
  void take(tvstring const &text, int line) {
    StringInputSource input(text);
    SmartPtr<DataObject> const identity(identifier_.identifyMessage(input));
    std::printf("%3d  ", line);
    if (identity.isNull()) {
      ++refused_;
      std::printf("not recognised\n");
      return;
    }
    tvstring const type = checkedCast<FCSIdentity>(identity.get())->get<"MessageType">();
    std::printf("%-7s", type.c_str());
    SmartPtr<IExternalMessage> const message =
        LookupContextFactory::getLookupContext()->lookupExternalMessage("FCS" + type + ".message");
    auto parsed = message->parse2(input, context_);
    if (!parsed.exceptions.empty()) return refuse(parsed);
    auto const checked = message->validate2(parsed.value, context_);
    if (!checked.exceptions.empty()) return refuse(checked);
    Binary const written = message->serialize(parsed.value, context_);
    bool const isSame = written == Binary(text);
    ++(isSame ? same_ : other_);
    std::printf("%s\n", isSame ? "written back as read" : "written back in another form:");
    if (!isSame) printLines(written);
    if (type == "Order") printOrder(checkedCast<ExternalObject>(parsed.value.get()));
  }

  void refuse(Result<SmartPtr<DataObject>> const &result) {
    ++refused_;
    std::printf("refused\n");
    for (ExceptionDataObject const *record : result.exceptions) {
      ++failures_;
      std::printf("       ! %s: %s\n", record->getErrorType().c_str(), shown(record->getMessage()).c_str());
      auto const *const failure = dynamic_cast<FCSParseException const *>(record);
      if (failure == nullptr) continue;
      std::printf("         line %d | %s\n", failure->getLine(), shown(failure->getFailedLine()).c_str());
      std::printf("                %*s| %*s^\n", failure->getLine() > 9, "", failure->getColumn(), "");
    }
  }

  static void printLines(Binary const &text) {
    LineReader lines(text, false);
    while (lines.hasMoreLines()) std::printf("         %s\n", shown(lines.getNextLine()).c_str());
  }

  void printOrder(ExternalObject *message) {
    Order order;
    rules_.mapFields(message, &order, context_);
    tvstring const price = order.isNull<"Price">() ? tvstring("market") : Parsing::doubleToString(order.get<"Price">());
    std::printf("       -> order %s: %c %d %s at %s%s%s\n", order.get<"OrderID">().c_str(), order.get<"Side">(),
                order.get<"Quantity">(), order.get<"Symbol">().c_str(), price.c_str(),
                order.isNull<"Account">() ? "" : ", account ",
                order.isNull<"Account">() ? "" : shown(order.get<"Account">()).c_str());
  }

  FCSOrderIdentifier identifier_;
  FCSOrderToOrderRules rules_;
  TransformContext context_;
  int same_ = 0, other_ = 0, refused_ = 0, failures_ = 0;
};

}  // namespace

int main(int argc, char **argv) {
  if (argc != 2) {
    std::fprintf(stderr, "usage: %s <file of FCS messages>\n", argv[0]);
    return 2;
  }
  try {
    Desk desk;
    desk.takeFile(argv[1]);
    desk.printCounts();
    return 0;
  } catch (TransformException const &failure) {
    std::fprintf(stderr, "%s\n", failure.getMessage().c_str());
    return 1;
  }
}

// A host that takes files of payments in the Universal format: payments examples/data/payments.txt ...
//
// A file is parsed, collecting all that is wrong with its lines in one pass. If nothing is, the rules check it, it is
// mapped to the payments that a bank books, and it is written again: what comes out must be what came in.

#include <cstdio>

#include "examples/Terminal.h"
#include "examples/payments/PaymentMessage.h"

using namespace tavrone;
using namespace examples;

namespace {

class PaymentDesk {
 public:
  void takeFile(char const *path) {
    std::printf("%s\n", path);
    FileInputSource input(path);
    Result<SmartPtr<DataObject>> const parsed = message_->parse2(input, context_);
    if (refuse(parsed)) return;
    if (refuse(message_->validate2(parsed.value, context_))) return;
    printPayments(parsed.value);
    Binary const written = message_->serialize(parsed.value, context_);
    bool const same = written == input.getAsBinary();
    std::printf("  written again: %d bytes, %s\n", static_cast<int>(written.length()), same ? "the same" : "DIFFERENT");
    ++(same ? taken_ : differing_);
    changeAmount(parsed.value);
  }

  // Prints the sum of all files. Returns whether what was written is what was read.
  bool finish() const {
    std::printf("\n%d files taken with %d payments, %d refused with %d failures\n", taken_, payments_, refused_,
                failures_);
    return differing_ == 0;
  }

 private:
  bool refuse(Result<SmartPtr<DataObject>> const &result) {
    if (result.exceptions.empty()) return false;
    for (ExceptionDataObject const *failure : result.exceptions) printFailure(*failure);
    failures_ += static_cast<int>(result.exceptions.size());
    ++refused_;
    return true;
  }

  // What was put together here goes through the same rules as what came in: the controls tell a changed amount.
  void changeAmount(SmartPtr<DataObject> const &file) {
    ExternalObject const &object = *checkedCast<ExternalObject>(file.get());
    auto &batches = checkedCast<PaymentFile>(object.getData())->section<"Batches">();
    if (batches.size() == 0 || batches[0].section<"Entries">().size() == 0) return;
    PaymentEntry &entry = batches[0].section<"Entries">()[0];
    entry.set<"Amount">(entry.get<"Amount">() + 1);
    std::printf("  with one cent more in the first entry:\n");
    Result<SmartPtr<DataObject>> const checked = message_->validate2(file, context_);
    for (ExceptionDataObject const *failure : checked.exceptions) printFailure(*failure);
  }

  void printPayments(SmartPtr<DataObject> const &file) {
    SmartPtr<Payments> const payments(new Payments);
    mapping_.mapFields(checkedCast<ExternalObject>(file.get()), payments.get(), context_);
    for (Payment const &payment : payments->section<"Payments">()) {
      ++payments_;
      std::printf("  %015lld %s %10.2f  %-22s -> %-22s %s %s\n", payment.get<"Trace">(),
                  shown(payment.get<"ValueDate">().toString("yyyy-MM-dd")).c_str(), payment.get<"Amount">().toDouble(),
                  shown(payment.get<"Payer">()).c_str(), shown(payment.get<"Payee">()).c_str(),
                  shown(payment.get<"Bank">()).c_str(), shown(payment.get<"Account">()).c_str());
    }
  }

  SmartPtr<PaymentFileMessage> message_{new PaymentFileMessage};
  PaymentMapping mapping_;
  TransformContext context_;
  int taken_ = 0;
  int payments_ = 0;
  int refused_ = 0;
  int failures_ = 0;
  int differing_ = 0;
};

}  // namespace

int main(int argc, char **argv) {
  if (argc < 2) {
    std::fprintf(stderr, "usage: %s <payment file>...\n", argv[0]);
    return 2;
  }
  try {
    PaymentDesk desk;
    for (int i = 1; i < argc; ++i) desk.takeFile(argv[i]);
    return desk.finish() ? 0 : 1;
  } catch (Exception const &failure) {
    std::fprintf(stderr, "%s\n", shown(failure.getMessage()).c_str());
    return 1;
  }
}

// Orders in layouts of the Universal format: layouts examples/data
//
// Each layout has a good file and a broken one in that folder. A file is parsed, collecting all that is wrong with it
// in one pass. If nothing is, the rules check it, it is mapped to the internal orders, and it is written again.

#include <cstdio>

#include "examples/Terminal.h"
#include "examples/messages/MainframeOrder.h"
#include "examples/messages/TaggedOrder.h"
#include "examples/messages/TradeFile.h"

using namespace tavrone;
using namespace examples;

namespace {

class Desk {
 public:
  explicit Desk(char const *folder) : folder_(folder) {}

  template <class Layout, class Data>
  void show(char const *name, char const *goodFile, char const *brokenFile) {
    SmartPtr<Layout> const layout(new Layout(name));
    OrderMapping<Data> mapping;
    ++layouts_;
    for (char const *file : {goodFile, brokenFile}) {
      std::printf("%s: %s\n", name, file);
      takeFile(*layout, mapping, folder_ + "/" + file);
    }
  }

  // Prints the sum of all files. Returns whether what was written is what was read.
  bool finish() const {
    std::printf("\n%d layouts: %d files taken with %d orders, %d refused with %d failures\n", layouts_, taken_, orders_,
                refused_, failures_);
    return differing_ == 0;
  }

 private:
  void takeFile(AbstractExternalMessage &layout, InputMappingRules &mapping, std::string const &path) {
    FileInputSource input(path.c_str());
    Result<SmartPtr<DataObject>> const parsed = layout.parse2(input, context_);
    if (refuse(parsed) || refuse(layout.validate2(parsed.value, context_))) return;
    SmartPtr<OrderList> const orders(new OrderList);
    mapping.mapFields(checkedCast<ExternalObject>(parsed.value.get()), orders.get(), context_);
    for (Order const &order : orders->section<"Orders">()) print(order);
    Binary const written = layout.serialize(parsed.value, context_);
    bool const same = written == input.getAsBinary();
    std::printf("  written again: %d bytes, %s\n", static_cast<int>(written.length()), same ? "the same" : "DIFFERENT");
    ++(same ? taken_ : differing_);
  }

  bool refuse(Result<SmartPtr<DataObject>> const &result) {
    if (result.exceptions.empty()) return false;
    for (ExceptionDataObject const *failure : result.exceptions) printFailure(*failure);
    failures_ += static_cast<int>(result.exceptions.size());
    ++refused_;
    return true;
  }

  void print(Order const &order) {
    ++orders_;
    tvstring const day = order.get<"TradeDate">().toString("yyyy-MM-dd");
    std::printf("  %-8s %-10s %-12s %c %8d %12.2f %s  %s\n", shown(order.get<"OrderID">()).c_str(),
                shown(order.get<"Account">()).c_str(), shown(order.get<"Symbol">()).c_str(), order.get<"Side">(),
                order.get<"Quantity">(), order.get<"Price">(), shown(day).c_str(),
                order.isNull<"Text">() ? "" : shown(order.get<"Text">()).c_str());
    for (Leg const &leg : order.section<"Legs">())
      std::printf("  %-8s %-10s %-12s   %8d %12.2f\n", "", "  leg", shown(leg.get<"Symbol">()).c_str(),
                  leg.get<"Ratio">(), leg.get<"Price">());
  }

  std::string folder_;
  TransformContext context_;
  int layouts_ = 0;
  int taken_ = 0;
  int orders_ = 0;
  int refused_ = 0;
  int failures_ = 0;
  int differing_ = 0;
};

}  // namespace

int main(int argc, char **argv) {
  if (argc != 2) {
    std::fprintf(stderr, "usage: %s <folder of the files>\n", argv[0]);
    return 2;
  }
  try {
    Desk desk(argv[1]);
    desk.show<TradeFileLayout, TradeFile>("delimited", "trades.txt", "trades_broken.txt");
    desk.show<TaggedOrderLayout, TaggedOrderFile>("length-preceded", "tagged_orders.txt", "tagged_orders_broken.txt");
    desk.show<MainframeLayout, MainframeFile>("mainframe", "mainframe_orders.bin", "mainframe_orders_broken.bin");
    return desk.finish() ? 0 : 1;
  } catch (Exception const &failure) {
    std::fprintf(stderr, "%s\n", shown(failure.getMessage()).c_str());
    return 1;
  }
}

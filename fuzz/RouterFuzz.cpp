// Messages of all wire formats through one router that is kept: what comes of a message is the same when it comes again
// behind others, and what was written is taken and written as it is.
#include "examples/mixed/MixedOrders.h"
#include "tests/FuzzInput.h"

namespace {

using namespace tavrone;

std::vector<std::string> const &samples() {
  static std::vector<std::string> const messages = mixedMessages(12);
  return messages;
}

// A sample with a few bytes replaced, inserted or cut out, or the input itself.
std::string messageOf(FuzzInput &input) {
  size_t const sample = input.below(samples().size() + 8);
  if (sample >= samples().size()) return input.takeText(input.bytes.size());
  std::string message = samples()[sample];
  while (input.at < input.bytes.size() && !message.empty()) {
    size_t const at = input.take<uint16_t>() % message.size();
    size_t const replaced = input.below(8);
    message.replace(at, replaced, input.takeText(input.below(8)));
  }
  return message;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(uint8_t const *data, size_t size) {
  static bool const bound = (bindMixedOrders(), true);
  require(bound);
  static MixedOrders kept;
  static std::string lastMessage, lastOutcome = kept.outcome("");

  FuzzInput input(data, size);
  std::string const message = messageOf(input);
  std::string const outcome = kept.outcome(message);
  require(kept.outcome(lastMessage) == lastOutcome);
  if (outcome.compare(0, 8, "refused:") != 0) {
    std::string const again = kept.outcome(outcome);
    require(again == outcome || again.compare(0, 8, "refused:") == 0);
  }
  lastMessage = message;
  lastOutcome = outcome;
  return 0;
}

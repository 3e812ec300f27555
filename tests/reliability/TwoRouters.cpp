// Two threads at work, each with a router of its own over one directory and one set of metadata, in all wire formats.
// What is shared is made by whoever needs it first; the report of a data race, if there is one, is the thread
// sanitizer's.

#include <gtest/gtest.h>

#include <thread>

#include "examples/mixed/MixedOrders.h"

namespace tavrone {
namespace {

std::vector<std::string> outcomes() {
  std::vector<std::string> texts;
  for (int round = 0; round < 3; ++round) {
    MixedOrders host;
    for (std::string const &message : mixedMessages(40)) texts.push_back(host.outcome(message));
  }
  return texts;
}

TEST(TwoRouters, GiveWhatOneGives) {
  bindMixedOrders();
  std::vector<std::string> texts[2];
  {
    std::thread first([&] { texts[0] = outcomes(); }), second([&] { texts[1] = outcomes(); });
    first.join();
    second.join();
  }
  EXPECT_EQ(texts[0], texts[1]);
  EXPECT_EQ(texts[0], outcomes());
}

}  // namespace
}  // namespace tavrone

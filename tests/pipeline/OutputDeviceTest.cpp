#include "tavrone/tavrone.h"

#include <gtest/gtest.h>

#include <climits>

#include "tests/Failure.h"

namespace tavrone {
namespace {

DeviceInfo const INFO("device", "source", "format");

TEST(ByteArrayOutputDevice, MovesOnlyWhenTheFreeSpaceIsTooSmall) {
  ByteArrayOutputDevice device(INFO, 4);
  int length = -1;
  char const *const start = device.getAsBytes(length);
  EXPECT_EQ(length, 0);
  device.write("ab", 2);
  device.write("cd", 2);
  EXPECT_EQ(device.getAsBytes(length), start);
  EXPECT_STREQ(device.getAsString(), "abcd");
  device.write(device.getAsBytes(length), 3);
  device.write(nullptr, 0);
  device.close();
  EXPECT_STREQ(device.getAsString(), "abcdabc");
  device.expand(100);
  EXPECT_STREQ(device.getAsString(), "abcdabc");
  device.clear();
  EXPECT_STREQ(device.getAsString(), "");
  EXPECT_EQ(device.getAsBytes(length), nullptr);
  EXPECT_EQ(length, 0);
  device.write("", 1);
  device.getAsBytes(length);
  EXPECT_EQ(length, 1);
}

// Each growth to exactly what is needed leaves one byte free, which the next write takes.
TEST(ByteArrayOutputDevice, KeepsRoomForTheTerminatorAtEveryLength) {
  ByteArrayOutputDevice device(INFO);
  std::string written;
  for (int length = 1; length < 40; ++length) {
    std::string const part(static_cast<size_t>(length % 7), 'x');
    device.write(part.data(), length % 7);
    written += part;
    ASSERT_EQ(device.getAsString(), written);
  }
}

TEST(ByteArrayOutputDevice, RefusesWhatAnIntCannotHold) {
  ByteArrayOutputDevice device(INFO);
  device.write("a", 1);
  for (int length : {-1, INT_MIN, INT_MAX}) {
    EXPECT_FAILURE(TransformException, device.write("b", length), "Out of bounds") << length;
    EXPECT_FAILURE(TransformException, device.expand(length), "Out of bounds") << length;
  }
  for (int capacity : {-1, INT_MAX})  // with the terminator more than an int counts
    EXPECT_EQ(failureOf<TransformException>([=] { ByteArrayOutputDevice(INFO, capacity); }).source,
              "cpp/ByteArrayOutputDevice");
  EXPECT_STREQ(device.getAsString(), "a");
}

TEST(ContextOutputProtocol, CollectsDevicesInTheContext) {
  ContextOutputProtocol protocol;
  TransformContext context;
  DeviceInfo info = INFO;
  EXPECT_EQ(failureOf<TransformException>([&] { protocol.createDevice(info, context); }).line, 56);
  context.createOutputContext();
  OutputDevice *const first = protocol.createDevice(info, context);
  OutputDevice *const second = protocol.createDevice(info, context);
  info = DeviceInfo("other", "", "");
  protocol.createDevice(info, context);
  SmartPtr<IOutputContext> const output = context.getOutputContext();
  EXPECT_EQ(output->getOutputDeviceNames().toString(), "[device, device, other]");
  EXPECT_EQ(output->getOutputDevice("device"), first);
  EXPECT_EQ(output->getOutputDevices().at(1), second);
  EXPECT_EQ(output->getOutputDevice("devic"), nullptr);
  DeviceInfo const &stored = first->getDeviceInfo();
  EXPECT_EQ(stored.getDeviceName() + stored.getMessageIdentifier() + stored.getOutputFormatName(),
            "devicesourceformat");
  output->clear();
  EXPECT_EQ(output->getOutputCount(), 0);
  EXPECT_EQ(output->getOutputDevice("device"), nullptr);
}

}  // namespace
}  // namespace tavrone

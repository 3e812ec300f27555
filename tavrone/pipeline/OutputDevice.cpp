#include "tavrone/pipeline/OutputDevice.h"

#include <algorithm>
#include <cstring>
#include <limits>

#include "tavrone/context/TransformContext.h"
#include "tavrone/core/Raise.h"
#include "tavrone/pipeline/OutputContext.h"

namespace tavrone {

namespace {

std::unique_ptr<char[]> bufferFor(int capacity) {
  return std::unique_ptr<char[]>(new char[static_cast<size_t>(capacity) + 1]);
}

// With the terminator, too, a buffer is no larger than an int counts.
constexpr int MAX_SIZE = std::numeric_limits<int>::max() - 1;

int checkedSize(long long size) {
  if (size < 0 || size > MAX_SIZE) raise<TransformException>("Out of bounds", "cpp/ByteArrayOutputDevice");
  return static_cast<int>(size);
}

}  // namespace

OutputDevice::~OutputDevice() noexcept(false) = default;

DeviceInfo const &OutputDevice::getDeviceInfo() {
  static DeviceInfo const none{tvstring(), tvstring(), tvstring()};
  return none;
}

AbstractOutputDevice::~AbstractOutputDevice() noexcept(false) = default;

ByteArrayOutputDevice::ByteArrayOutputDevice(DeviceInfo const &deviceInfo) : AbstractOutputDevice(deviceInfo) {}
ByteArrayOutputDevice::ByteArrayOutputDevice(DeviceInfo const &deviceInfo, int capacity)
    : AbstractOutputDevice(deviceInfo), buffer_(bufferFor(checkedSize(capacity))), capacity_(capacity) {}
ByteArrayOutputDevice::~ByteArrayOutputDevice() noexcept(false) = default;

void ByteArrayOutputDevice::write(char const *bytes, int length) {
  checkedSize(length);
  std::unique_ptr<char[]> former;  // kept until the bytes, which may stand in it, are copied
  if (capacity_ - length_ < length) former = grow(length);
  if (length == 0) return;
  std::memcpy(buffer_.get() + length_, bytes, static_cast<size_t>(length));
  length_ += length;
}

void ByteArrayOutputDevice::clear() {
  buffer_.reset();
  length_ = 0;
  capacity_ = 0;
}

char const *ByteArrayOutputDevice::getAsBytes(int &length) const {
  length = length_;
  return buffer_.get();
}

char *ByteArrayOutputDevice::getAsString() {
  if (buffer_ == nullptr) return const_cast<char *>("");
  buffer_[static_cast<size_t>(length_)] = '\0';
  return buffer_.get();
}

void ByteArrayOutputDevice::expand(int extra) {
  grow(extra);
}

std::unique_ptr<char[]> ByteArrayOutputDevice::grow(int extra) {
  long long const needed = checkedSize(extra) + static_cast<long long>(length_);
  checkedSize(needed);
  long long const wanted = std::max(needed + 1, 2 * static_cast<long long>(capacity_));
  int const capacity = static_cast<int>(std::min<long long>(wanted, MAX_SIZE));
  std::unique_ptr<char[]> larger = bufferFor(capacity);
  if (length_ != 0) std::memcpy(larger.get(), buffer_.get(), static_cast<size_t>(length_));
  buffer_.swap(larger);
  capacity_ = capacity;
  return larger;
}

IOutputProtocol::~IOutputProtocol() noexcept(false) = default;
IOutputDeviceFactory::~IOutputDeviceFactory() noexcept(false) = default;
ContextOutputProtocol::~ContextOutputProtocol() noexcept(false) = default;

OutputDevice *ContextOutputProtocol::createDevice(DeviceInfo &deviceInfo, TransformContext &context) {
  return context.getOutputContext()->createOutputDevice(deviceInfo);
}

}  // namespace tavrone

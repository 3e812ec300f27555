#include "tavrone/pipeline/OutputContext.h"

#include <memory>

namespace tavrone {

IOutputContext::~IOutputContext() noexcept(false) = default;
IOutputContextImpl::~IOutputContextImpl() noexcept(false) {
  IOutputContextImpl::clear();
}

ByteArrayOutputDevice *IOutputContextImpl::getOutputDevice(tvstring const &deviceName) {
  for (ByteArrayOutputDevice *device : devices_)
    if (device->getDeviceInfo().getDeviceName() == deviceName) return device;
  return nullptr;
}

TList<tvstring> IOutputContextImpl::getOutputDeviceNames() {
  TList<tvstring> names;
  for (ByteArrayOutputDevice *device : devices_) names.add(device->getDeviceInfo().getDeviceName());
  return names;
}

// The list keeps its room for the next message.
void IOutputContextImpl::clear() {
  while (!devices_.empty()) {
    std::unique_ptr<ByteArrayOutputDevice> const last(devices_.back());
    devices_.pop_back();
  }
}

ByteArrayOutputDevice *IOutputContextImpl::createOutputDevice(DeviceInfo const &deviceInfo) {
  auto device = std::make_unique<ByteArrayOutputDevice>(deviceInfo);
  devices_.push_back(device.get());
  return device.release();
}

}  // namespace tavrone

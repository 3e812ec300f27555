#include "tavrone/pipeline/OutputContext.h"

#include <memory>

#include "tavrone/core/OwnedPointers.h"

namespace tavrone {

IOutputContext::~IOutputContext() noexcept(false) = default;
IOutputContextImpl::~IOutputContextImpl() noexcept(false) {
  deleteAll(devices_);
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

void IOutputContextImpl::clear() {
  deleteAll(devices_);
}

ByteArrayOutputDevice *IOutputContextImpl::createOutputDevice(DeviceInfo const &deviceInfo) {
  auto device = std::make_unique<ByteArrayOutputDevice>(deviceInfo);
  devices_.push_back(device.get());
  return device.release();
}

}  // namespace tavrone

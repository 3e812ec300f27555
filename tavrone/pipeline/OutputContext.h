#pragma once

#include <vector>

#include "tavrone/core/TList.h"
#include "tavrone/pipeline/OutputDevice.h"

namespace tavrone {

// The in-memory output of one transformation; it owns its devices.
class TAVRONE_API IOutputContext : public virtual ObjectRef {
 public:
  ~IOutputContext() noexcept(false) override;

  // The first device of that name in order of creation, borrowed; null if there is none.
  virtual ByteArrayOutputDevice *getOutputDevice(tvstring const &deviceName) = 0;
  virtual int getOutputCount() const = 0;
  virtual TList<tvstring> getOutputDeviceNames() = 0;
  // Deletes all devices: pointers to them become invalid.
  virtual void clear() = 0;
  // A new device, borrowed, also when one of that name exists.
  virtual ByteArrayOutputDevice *createOutputDevice(DeviceInfo const &deviceInfo) = 0;
  virtual std::vector<ByteArrayOutputDevice *> const &getOutputDevices() const = 0;
};

// The one that TransformContext makes.
class TAVRONE_API IOutputContextImpl : public IOutputContext {
 public:
  IOutputContextImpl() = default;
  IOutputContextImpl(IOutputContextImpl const &) = delete;
  IOutputContextImpl &operator=(IOutputContextImpl const &) = delete;
  ~IOutputContextImpl() noexcept(false) override;

  ByteArrayOutputDevice *getOutputDevice(tvstring const &deviceName) override;
  int getOutputCount() const override { return static_cast<int>(devices_.size()); }
  TList<tvstring> getOutputDeviceNames() override;
  void clear() override;
  ByteArrayOutputDevice *createOutputDevice(DeviceInfo const &deviceInfo) override;
  std::vector<ByteArrayOutputDevice *> const &getOutputDevices() const override { return devices_; }

 private:
  std::vector<ByteArrayOutputDevice *> devices_;
};

}  // namespace tavrone

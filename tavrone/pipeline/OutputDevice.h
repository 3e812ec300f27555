#pragma once

#include <memory>

#include "tavrone/core/Object.h"

namespace tavrone {

class TransformContext;

// Which device a message goes to, where the message came from, and the format that wrote it (or empty).
class TAVRONE_API DeviceInfo {
 public:
  DeviceInfo(tvstring const &deviceName, tvstring const &messageIdentifier, tvstring const &outputFormatName)
      : deviceName_(deviceName), messageIdentifier_(messageIdentifier), outputFormatName_(outputFormatName) {}

  tvstring const &getDeviceName() const { return deviceName_; }
  tvstring const &getMessageIdentifier() const { return messageIdentifier_; }
  tvstring const &getOutputFormatName() const { return outputFormatName_; }

 private:
  tvstring deviceName_;
  tvstring messageIdentifier_;
  tvstring outputFormatName_;
};

// A flow's declared exit: its name, the protocol that makes its devices, and the device to ask for.
class TAVRONE_API OutputPortDef {
 public:
  OutputPortDef(tvstring const &name, tvstring const &protocol, tvstring const &outputDevice)
      : name_(name), protocol_(protocol), outputDevice_(outputDevice) {}

  tvstring const &getName() const { return name_; }
  tvstring const &getProtocol() const { return protocol_; }
  tvstring const &getOutputDevice() const { return outputDevice_; }

 private:
  tvstring name_;
  tvstring protocol_;
  tvstring outputDevice_;
};

// Where finished bytes go. Serves one message at a time.
class TAVRONE_API OutputDevice : public Object {
 public:
  ~OutputDevice() noexcept(false) override;

  // Borrows the bytes for the call. Output formats and flows deliver a message by one write and then a close, which is
  // left out when the write fails. What a device raises reaches the caller.
  virtual void write(char const *bytes, int length) = 0;
  virtual void close() = 0;
  // What the device was made for; three empty texts unless overridden.
  virtual DeviceInfo const &getDeviceInfo();
};

// A device that knows what it was made for.
class TAVRONE_API AbstractOutputDevice : public OutputDevice {
 public:
  explicit AbstractOutputDevice(DeviceInfo const &deviceInfo) : deviceInfo_(deviceInfo) {}
  ~AbstractOutputDevice() noexcept(false) override;

  DeviceInfo const &getDeviceInfo() override { return deviceInfo_; }

 private:
  DeviceInfo deviceInfo_;
};

// Collects the bytes in memory; they stay readable after close.
class TAVRONE_API ByteArrayOutputDevice : public AbstractOutputDevice {
 public:
  // No buffer until the first write.
  explicit ByteArrayOutputDevice(DeviceInfo const &deviceInfo);
  // Room for `capacity` bytes. Raises TransformException "Out of bounds" for a negative capacity.
  ByteArrayOutputDevice(DeviceInfo const &deviceInfo, int capacity);
  ByteArrayOutputDevice(ByteArrayOutputDevice const &) = delete;
  ByteArrayOutputDevice &operator=(ByteArrayOutputDevice const &) = delete;
  ~ByteArrayOutputDevice() noexcept(false) override;

  // Appends; the bytes may be this device's own. Raises TransformException "Out of bounds" for a negative length or a
  // total past an int, and appends nothing then.
  void write(char const *bytes, int length) override;
  void close() override {}

  // Frees the buffer.
  void clear();
  // The bytes, borrowed until the device changes; null without a buffer.
  char const *getAsBytes(int &length) const;
  // The same with a terminator behind them. Without a buffer the empty text, which is not to be written to.
  char *getAsString();
  // Moves to a larger buffer with room for `extra` more bytes, at least doubled. Raises as write does.
  void expand(int extra);

 private:
  // Returns the former buffer.
  std::unique_ptr<char[]> grow(int extra);

  std::unique_ptr<char[]> buffer_;  // capacity_ bytes and one for the terminator, or null
  int length_ = 0;
  int capacity_ = 0;
};

// Makes devices. A host binds its own in the lookup directory.
class TAVRONE_API IOutputProtocol : public virtual ObjectRef {
 public:
  ~IOutputProtocol() noexcept(false) override;

  // A device for one message, never null; the protocol, or whom it hands it to, owns it.
  virtual OutputDevice *createDevice(DeviceInfo &deviceInfo, TransformContext &context) = 0;
};

// For hosts that make devices without a context; nothing in the library asks.
class TAVRONE_API IOutputDeviceFactory : public virtual ObjectRef {
 public:
  ~IOutputDeviceFactory() noexcept(false) override;

  virtual OutputDevice *createDevice(DeviceInfo &deviceInfo) = 0;
};

// Makes in-memory devices in the context's output context; fails if the context has none.
class TAVRONE_API ContextOutputProtocol : public IOutputProtocol {
 public:
  ContextOutputProtocol() = default;
  ContextOutputProtocol(ContextOutputProtocol const &) : Object(), ObjectRef(), IOutputProtocol() {}
  ~ContextOutputProtocol() noexcept(false) override;

  OutputDevice *createDevice(DeviceInfo &deviceInfo, TransformContext &context) override;
};

}  // namespace tavrone

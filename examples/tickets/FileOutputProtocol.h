#pragma once

#include <cstdio>
#include <filesystem>
#include <memory>
#include <utility>

#include "tavrone/tavrone.h"

namespace examples {

using namespace tavrone;

// A file that appears under its name whole or not at all. It is written under a temporary name, flushed to the disk and
// renamed by close(); a file that has the name already is replaced in the same step. If anything fails, or the device
// goes before it was closed, the temporary file is removed and what stood under the name stays.
//
// Failures are TransformExceptions of the type "Output Writing" with the path and the system's reason.
class FileOutputDevice : public AbstractOutputDevice {
 public:
  FileOutputDevice(DeviceInfo const &deviceInfo, std::filesystem::path const &path);
  FileOutputDevice(FileOutputDevice const &) = delete;
  FileOutputDevice &operator=(FileOutputDevice const &) = delete;
  ~FileOutputDevice() noexcept(false) override;

  void write(char const *bytes, int length) override;
  void close() override;

 private:
  struct Closer {
    void operator()(std::FILE *file) const { std::fclose(file); }
  };

  void discard() noexcept;
  [[noreturn]] void fail(int reason);

  std::filesystem::path path_;
  std::filesystem::path temporaryPath_;
  std::unique_ptr<std::FILE, Closer> file_;  // null once closed or failed
};

// Delivers each message as a file of its own, in one folder. The file is named for the source of the message
// ("input.source"), with the suffix that "output.format.suffix" gives. Messages from one source replace each other, so
// that a day that is run again gives the same files.
class FileOutputProtocol : public IOutputProtocol {
 public:
  explicit FileOutputProtocol(std::filesystem::path const &folder) : folder_(folder) {}
  FileOutputProtocol(FileOutputProtocol const &) = delete;
  FileOutputProtocol &operator=(FileOutputProtocol const &) = delete;
  ~FileOutputProtocol() noexcept(false) override = default;

  // The device is the protocol's, and goes when the next one is made.
  OutputDevice *createDevice(DeviceInfo &deviceInfo, TransformContext &context) override;

  // The file of the last device; empty if none was made since the last call.
  std::filesystem::path takeLastPath() { return std::exchange(lastPath_, {}); }

 private:
  std::filesystem::path folder_;
  std::filesystem::path lastPath_;
  SmartPtr<OutputDevice> device_;
};

}  // namespace examples

#include "examples/tickets/FileOutputProtocol.h"

#include <unistd.h>

#include <cerrno>
#include <string>
#include <string_view>
#include <system_error>

namespace examples {

namespace {

constexpr char const *SOURCE = "examples/FileOutputProtocol";

// A name may come from a message, and a message must not choose the folder or hide its file.
std::string fileNameOf(tvstring const &text) {
  static constexpr std::string_view ALLOWED = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789._-";
  std::string name(text.data(), text.length());
  for (char &c : name)
    if (ALLOWED.find(c) == ALLOWED.npos) c = '-';
  if (name.empty() || name[0] == '.') name.insert(name.begin(), '-');
  return name;
}

}  // namespace

FileOutputDevice::FileOutputDevice(DeviceInfo const &deviceInfo, std::filesystem::path const &path)
    : AbstractOutputDevice(deviceInfo),
      path_(path),
      temporaryPath_(path.parent_path() / ("." + path.filename().string() + ".part")),
      file_(std::fopen(temporaryPath_.c_str(), "wb")) {  // what a crash left under the temporary name is overwritten
  if (file_ == nullptr) fail(errno);
}

FileOutputDevice::~FileOutputDevice() noexcept(false) {
  discard();
}

void FileOutputDevice::write(char const *bytes, int length) {
  if (file_ == nullptr) fail(EBADF);
  auto const count = static_cast<size_t>(length);
  if (std::fwrite(bytes, 1, count, file_.get()) != count) fail(errno);
}

// Each step counts: a full disk may show up in any of them, and a file that is renamed before its bytes are on the disk
// can be empty after a power cut.
void FileOutputDevice::close() {
  if (file_ == nullptr) return;
  if (std::fflush(file_.get()) != 0 || fsync(fileno(file_.get())) != 0) fail(errno);
  if (std::rename(temporaryPath_.c_str(), path_.c_str()) != 0) fail(errno);
  file_.reset();
}

void FileOutputDevice::discard() noexcept {
  if (file_ == nullptr) return;
  file_.reset();
  std::remove(temporaryPath_.c_str());
}

void FileOutputDevice::fail(int reason) {
  discard();
  auto failure = failureAt<TransformException>(
      "Cannot write " + tvstring(path_.c_str()) + ": " + std::generic_category().message(reason).c_str(), SOURCE,
      __builtin_LINE());
  failure.setErrorType(ExceptionObject::ERROR_TYPE_OUTPUT);
  throw failure;
}

OutputDevice *FileOutputProtocol::createDevice(DeviceInfo &deviceInfo, TransformContext &context) {
  tvstring const suffix = context.getProperty(TransformContext::OUTPUT_FORMAT_SUFFIX);
  lastPath_ = folder_ / fileNameOf(deviceInfo.getMessageIdentifier() + "." + suffix);
  device_.release();  // first: an unfinished file of the same name must be gone before the next one is begun
  device_ = new FileOutputDevice(deviceInfo, lastPath_);
  return device_.get();
}

}  // namespace examples

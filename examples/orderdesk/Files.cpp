#include "examples/orderdesk/Files.h"

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <filesystem>
#include <system_error>

namespace examples {

namespace {

std::string reasonOf(int error) {
  return std::generic_category().message(error);
}

bool isStandardInput(std::string const &path) {
  return path == "-";
}

}  // namespace

std::string shownName(std::string_view path) {
  std::string name(path);
  for (char &c : name)
    if (static_cast<unsigned char>(c) < ' ' || c == '\x7f') c = '?';
  return name;
}

void secureStandardStreams() {
  for (int const stream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO})
    if (fcntl(stream, F_GETFD) == -1) static_cast<void>(open("/dev/null", O_RDONLY));  // gets the lowest free number
  std::signal(SIGPIPE, SIG_IGN);
}

std::string readFile(std::string const &path) {
  auto const fail = [&](int reason) {
    std::string const name = isStandardInput(path) ? "standard input" : shownName(path);
    throw UnreadableFile("cannot read " + name + ": " + reasonOf(reason));
  };
  auto const close = [](std::FILE *file) { std::fclose(file); };
  std::unique_ptr<std::FILE, decltype(close)> const opened(
      isStandardInput(path) ? nullptr : std::fopen(path.c_str(), "rb"), close);
  std::FILE *const file = isStandardInput(path) ? stdin : opened.get();
  if (file == nullptr) fail(errno);

  constexpr size_t LEAST_ROOM = 64 * 1024;
  std::string bytes(std::max(sizeOfFile(path) + 1, LEAST_ROOM), '\0');
  size_t length = 0;
  while (size_t const count = std::fread(bytes.data() + length, 1, bytes.size() - length, file)) {
    length += count;
    if (length == bytes.size()) bytes.resize(2 * length);
  }
  if (std::ferror(file) != 0) fail(errno);
  bytes.resize(length);
  return bytes;
}

size_t sizeOfFile(std::string const &path) {
  std::error_code error;
  bool const isFile = !isStandardInput(path) && std::filesystem::is_regular_file(path, error);
  auto const size = isFile ? std::filesystem::file_size(path, error) : 0;
  return error ? 0 : static_cast<size_t>(size);
}

void requireDistinct(std::string const &path, std::vector<std::string> const &others) {
  std::error_code error;
  if (!std::filesystem::is_regular_file(path, error)) return;
  for (std::string const &other : others)
    if (std::filesystem::equivalent(path, other, error))
      throw FileError("cannot write " + shownName(path) + ": the file is named twice");
}

OutputFile::OutputFile(std::string const &path)
    : name_(path.empty() ? "standard output" : shownName(path)),
      file_(path.empty() ? stdout : std::fopen(path.c_str(), "wb")) {
  if (file_ == nullptr) fail(errno);
}

void OutputFile::write(std::string_view bytes) {
  if (std::fwrite(bytes.data(), 1, bytes.size(), file_.get()) != bytes.size()) fail(errno);
}

// A full disk may show up in either step.
void OutputFile::close() {
  if (std::fflush(file_.get()) != 0) fail(errno);
  std::FILE *const file = file_.release();
  if (std::fclose(file) != 0) fail(errno);
}

void OutputFile::fail(int reason) const {
  throw FileError("cannot write " + name_ + ": " + reasonOf(reason));
}

}  // namespace examples

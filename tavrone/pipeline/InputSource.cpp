#include "tavrone/pipeline/InputSource.h"

#include <climits>
#include <cstdio>
#include <string>

#include "tavrone/core/Raise.h"

namespace tavrone {

namespace {

size_t atLeastZero(int length) {
  return length < 0 ? 0 : static_cast<size_t>(length);
}

struct CloseFile {
  void operator()(FILE *file) const { std::fclose(file); }
};
using File = std::unique_ptr<FILE, CloseFile>;

// Null for a path that names no file; a zero byte ends what the C runtime reads of a path.
File open(tvstring const &path) {
  if (path.find(0) != tvstring::npos) return nullptr;
  return File(std::fopen(std::string(path.data(), path.length()).c_str(), "rb"));
}

// The size in bytes, -1 if there is none, with the position back at the start.
long sizeOf(FILE *file) {
  if (std::fseek(file, 0, SEEK_END) != 0) return -1;
  long const size = std::ftell(file);
  return std::fseek(file, 0, SEEK_SET) == 0 ? size : -1;
}

std::unique_ptr<char[]> copyOf(char const *bytes, size_t size) {
  std::unique_ptr<char[]> copy(new char[size]);
  std::memcpy(copy.get(), bytes, size);
  return copy;
}

}  // namespace

InputSource::~InputSource() noexcept(false) = default;

Binary InputSource::getAsBinary() {
  int length = 0;
  char const *bytes = getAsBytes(length);
  return Binary(bytes, atLeastZero(length));
}

ByteArrayInputSource::ByteArrayInputSource(Binary const &bytes) : bytes_(bytes) {}
ByteArrayInputSource::ByteArrayInputSource(char *bytes, int length) : ByteArrayInputSource(bytes, length, true) {}
ByteArrayInputSource::ByteArrayInputSource(char *bytes, int length, bool adopt)
    : bytes_(bytes, atLeastZero(length), !adopt), ownsBytes_(adopt && bytes != nullptr) {}
ByteArrayInputSource::ByteArrayInputSource(ByteArrayInputSource const &other)
    : InputSource(other),
      bytes_(other.ownsBytes_ ? Binary(other.bytes_.data(), other.bytes_.length()) : other.bytes_) {}

ByteArrayInputSource &ByteArrayInputSource::operator=(ByteArrayInputSource const &other) {
  if (this == &other) return *this;
  Binary const bytes = other.ownsBytes_ ? Binary(other.bytes_.data(), other.bytes_.length()) : other.bytes_;
  freeOwned();
  bytes_ = bytes;
  return *this;
}

ByteArrayInputSource::~ByteArrayInputSource() noexcept(false) {
  freeOwned();
}

void ByteArrayInputSource::freeOwned() noexcept {
  if (ownsBytes_) delete[] bytes_.data();
  ownsBytes_ = false;
}

char const *ByteArrayInputSource::getAsBytes(int &length) {
  length = static_cast<int>(bytes_.length());
  return bytes_.data();
}

FileInputSource::FileInputSource(tvstring const &path) {
  File const file = open(path);
  long const size = file == nullptr ? -1 : sizeOf(file.get());
  if (size < 0 || size > INT_MAX) raise<TransformException>("File not found " + path, "cpp/FileInputSource", 14);
  buffer_.reset(new char[static_cast<size_t>(size) + 1]);
  // Asks for one byte more than the file has, so that a folder of size 0 fails, too.
  size_t const count = std::fread(buffer_.get(), 1, static_cast<size_t>(size) + 1, file.get());
  if (std::ferror(file.get()) != 0) raise<TransformException>("File not found " + path, "cpp/FileInputSource", 14);
  length_ = static_cast<int>(count < static_cast<size_t>(size) ? count : static_cast<size_t>(size));
  buffer_[static_cast<size_t>(length_)] = '\0';
}

FileInputSource::FileInputSource(FileInputSource const &other)
    : InputSource(other),
      length_(other.length_),
      buffer_(copyOf(other.buffer_.get(), static_cast<size_t>(other.length_) + 1)) {}

FileInputSource &FileInputSource::operator=(FileInputSource const &other) {
  if (this == &other) return *this;
  buffer_ = copyOf(other.buffer_.get(), static_cast<size_t>(other.length_) + 1);
  length_ = other.length_;
  return *this;
}

FileInputSource::~FileInputSource() noexcept(false) = default;

char const *FileInputSource::getAsBytes(int &length) {
  length = length_;
  return buffer_.get();
}

}  // namespace tavrone

#include "tavrone/pipeline/InputSources.h"

#include <algorithm>
#include <climits>
#include <cstdio>
#include <string>

#include "tavrone/core/Raise.h"

namespace tavrone {

namespace {

size_t atLeastZero(int length) {
  return length < 0 ? 0 : static_cast<size_t>(length);
}

int asLength(size_t size) {
  if (size > INT_MAX) raise<TransformException>("Out of bounds", "cpp/InputSource");
  return static_cast<int>(size);
}

// What the source gives as bytes, shared where they are its own: a subclass may have others.
Binary binaryOf(InputSource &source, Binary const &own) {
  int length = 0;
  char const *const bytes = source.getAsBytes(length);
  Binary const given(bytes, atLeastZero(length), false);
  return given.data() == own.data() && given.length() == own.length() ? own.counted() : given.counted();
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

}  // namespace

ByteArrayInputSource::ByteArrayInputSource(Binary const &bytes) : bytes_(bytes) {}
ByteArrayInputSource::ByteArrayInputSource(char *bytes, int length) : ByteArrayInputSource(bytes, length, true) {}
ByteArrayInputSource::ByteArrayInputSource(char *bytes, int length, bool adopt)
    : bytes_(bytes, atLeastZero(length), !adopt), ownedBytes_(adopt ? bytes : nullptr) {}
ByteArrayInputSource::ByteArrayInputSource(ByteArrayInputSource const &other)
    : Object(), ObjectRef(), AbstractRawMessage(other), bytes_(other.bytes_), ownedBytes_(other.ownedBytes_) {}
ByteArrayInputSource::~ByteArrayInputSource() noexcept(false) = default;

char const *ByteArrayInputSource::getAsBytes(int &length) {
  length = asLength(bytes_.length());
  return bytes_.data();
}

Binary ByteArrayInputSource::getAsBinary() {
  return binaryOf(*this, bytes_);
}

StringInputSource::StringInputSource(tvstring const &text) : text_(text) {}
StringInputSource::StringInputSource(StringInputSource const &other)
    : Object(), ObjectRef(), AbstractRawMessage(other), text_(other.text_) {}
StringInputSource::~StringInputSource() noexcept(false) = default;

char const *StringInputSource::getAsBytes(int &length) {
  length = asLength(text_.length());
  return text_.data();
}

Binary StringInputSource::getAsBinary() {
  return binaryOf(*this, Binary(text_));
}

FileInputSource::FileInputSource(tvstring const &path) {
  File const file = open(path);
  long const size = file == nullptr ? -1 : sizeOf(file.get());
  if (size < 0 || size > INT_MAX) raise<TransformException>("File not found " + path, "cpp/FileInputSource", 14);
  char *const bytes = buffer_.getBuffer(static_cast<int>(size));
  // Asks for one byte more than the file has, so that a folder of size 0 fails, too; the buffer has it for the zero.
  size_t const count = std::fread(bytes, 1, static_cast<size_t>(size) + 1, file.get());
  if (std::ferror(file.get()) != 0) raise<TransformException>("File not found " + path, "cpp/FileInputSource", 14);
  length_ = static_cast<int>(std::min(count, static_cast<size_t>(size)));
  bytes[length_] = '\0';
  buffer_.setBufferLength(length_);
}

FileInputSource::FileInputSource(FileInputSource const &other)
    : Object(), ObjectRef(), AbstractRawMessage(other), length_(other.length_), buffer_(other.buffer_) {}
FileInputSource::~FileInputSource() noexcept(false) = default;

char const *FileInputSource::getAsBytes(int &length) {
  length = length_;
  return buffer_.data();
}

Binary FileInputSource::getAsBinary() {
  return binaryOf(*this, buffer_);
}

}  // namespace tavrone

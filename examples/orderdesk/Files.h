#pragma once

#include <cstdio>
#include <memory>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace examples {

// A file that cannot be read or written, in one line with its name and the system's reason.
class FileError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

class UnreadableFile : public FileError {
 public:
  using FileError::FileError;
};

// A file name as it may be shown.
std::string shownName(std::string_view path);

// The descriptors of the standard streams that the caller closed are opened on something that cannot be written, lest
// a file get their numbers; and a reader that goes away becomes a failed write.
void secureStandardStreams();

// The whole of a file, or of standard input for "-". Raises UnreadableFile.
std::string readFile(std::string const &path);

// The size of a file as far as it is known beforehand, else 0.
size_t sizeOfFile(std::string const &path);

// Raises FileError if the path is one of a file that is also read. What does not exist yet is none.
void requireDistinct(std::string const &path, std::vector<std::string> const &others);

// A file that is being written, from its beginning. Every operation raises FileError.
class OutputFile {
 public:
  // Standard output for "".
  explicit OutputFile(std::string const &path);

  void write(std::string_view bytes);
  // Only what close() has seen through is written.
  void close();

 private:
  struct Closer {
    void operator()(std::FILE *file) const {
      if (file != stdout) std::fclose(file);
    }
  };

  [[noreturn]] void fail(int reason) const;

  std::string name_;
  std::unique_ptr<std::FILE, Closer> file_;
};

}  // namespace examples

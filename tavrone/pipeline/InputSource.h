#pragma once

#include <memory>

#include "tavrone/core/Binary.h"

namespace tavrone {

// One complete payload in memory. Nothing consumes it: every reader gets the same bytes, as often as it asks.
class TAVRONE_API InputSource {
 public:
  // The first byte; it stays valid as long as the source lives. Stores the number of bytes in `length`.
  virtual char const *getAsBytes(int &length) = 0;
  // The payload as a value; by default a copy.
  virtual Binary getAsBinary();
  virtual ~InputSource() noexcept(false);
};

// A payload that the caller has in memory.
class TAVRONE_API ByteArrayInputSource : public InputSource {
 public:
  // Shares the value's bytes.
  ByteArrayInputSource(Binary const &bytes);
  // Takes over a buffer from new[]. A length below 0 counts as 0 in both forms.
  ByteArrayInputSource(char *bytes, int length);
  // With adopt as above; otherwise copies, and the caller may reuse its buffer at once.
  ByteArrayInputSource(char *bytes, int length, bool adopt);
  // A copy of a source that owns its buffer has a buffer of its own; any other shares the bytes.
  ByteArrayInputSource(ByteArrayInputSource const &other);
  ByteArrayInputSource &operator=(ByteArrayInputSource const &other);
  ~ByteArrayInputSource() noexcept(false) override;

  char const *getAsBytes(int &length) override;

 private:
  void freeOwned() noexcept;

  Binary bytes_;
  bool ownsBytes_ = false;
};

// The whole of a file, read when the source is made.
class TAVRONE_API FileInputSource : public InputSource {
 public:
  // Raises TransformException "File not found <path>" for what cannot be read as a file (a folder too) and for a size
  // past an int. A file that shrinks meanwhile gives a shorter payload.
  FileInputSource(tvstring const &path);
  // Copies have a buffer of their own.
  FileInputSource(FileInputSource const &other);
  FileInputSource &operator=(FileInputSource const &other);
  ~FileInputSource() noexcept(false) override;

  char const *getAsBytes(int &length) override;

 private:
  int length_ = 0;
  std::unique_ptr<char[]> buffer_;  // length_ bytes and a zero behind them
};

}  // namespace tavrone

#pragma once

#include <memory>

#include "tavrone/pipeline/AbstractRawMessage.h"

namespace tavrone {

// The three kinds of payload. Each is filled when the source is made and never changes. Copies of a source share it,
// and so do the values of getAsBinary and getAsString where its storage is counted; otherwise they copy it.
// A payload past an int raises TransformException "Out of bounds" when its bytes are asked for.

// Bytes that the caller has in memory.
class TAVRONE_API ByteArrayInputSource : public AbstractRawMessage {
 public:
  // Shares the value's bytes.
  ByteArrayInputSource(Binary const &bytes);
  // Takes over a buffer from new[]. A length below 0 counts as 0 in both forms.
  ByteArrayInputSource(char *bytes, int length);
  // With adopt as above; otherwise copies, and the caller may reuse its buffer at once.
  ByteArrayInputSource(char *bytes, int length, bool adopt);
  ByteArrayInputSource(ByteArrayInputSource const &other);
  ByteArrayInputSource &operator=(ByteArrayInputSource const &other) = default;
  ~ByteArrayInputSource() noexcept(false) override;

  char const *getAsBytes(int &length) override;
  Binary getAsBinary() override;

 private:
  Binary bytes_;
  std::shared_ptr<char[]> ownedBytes_;  // an adopted buffer, else null
};

// A text that the caller has.
class TAVRONE_API StringInputSource : public AbstractRawMessage {
 public:
  // Shares the text.
  StringInputSource(tvstring const &text);
  StringInputSource(StringInputSource const &other);
  StringInputSource &operator=(StringInputSource const &other) = default;
  ~StringInputSource() noexcept(false) override;

  char const *getAsBytes(int &length) override;
  Binary getAsBinary() override;

 private:
  tvstring text_;
};

// The whole of a file, read when the source is made.
class TAVRONE_API FileInputSource : public AbstractRawMessage {
 public:
  // Raises TransformException "File not found <path>" for what cannot be read as a file (a folder too) and for a size
  // past an int. A file that shrinks meanwhile gives a shorter payload.
  FileInputSource(tvstring const &path);
  FileInputSource(FileInputSource const &other);
  FileInputSource &operator=(FileInputSource const &other) = default;
  ~FileInputSource() noexcept(false) override;

  char const *getAsBytes(int &length) override;
  Binary getAsBinary() override;

 private:
  int length_ = 0;
  Binary buffer_;  // length_ bytes, and a zero behind them
};

}  // namespace tavrone

#pragma once

#include <cstring>

#include "tavrone/core/Conversion.h"
#include "tavrone/core/Raise.h"
#include "tavrone/core/tvstringbuffer.h"
#include "tavrone/dataobject/AbstractDataObject.h"
#include "tavrone/pipeline/OutputWriter.h"

namespace tavrone {

// The sum of the bytes modulo 256: the CheckSum of FIX 4.x. A byte counts the same with and without a sign.
TAVRONE_API int sumOfBytes(char const *data, unsigned int length);

// The text of a number as dlongToString and doubleToString give it; returns where it ends. Needs 40 bytes of room.
// REQUIRES: a double is below 1e15 in magnitude
TAVRONE_API char *writeFieldNumber(int value, char *out);
TAVRONE_API char *writeFieldNumber(long long value, char *out);
TAVRONE_API char *writeFieldNumber(double value, char *out);

// The writer of tag=value messages.
//
// Fields are appended as they come; only at the end is BodyLength put behind the first field and CheckSum behind the
// last. One message at a time.
template <class Format>
class TAVRONE_API TagValueWriter : public AbstractSimpleOutputWriter {
 public:
  TagValueWriter() = default;
  // The copy goes on with a text of its own.
  TagValueWriter(TagValueWriter const &other)
      : AbstractSimpleOutputWriter(other),
        delimiter_(other.delimiter_),
        checksum_(other.checksum_),
        message_(static_cast<tvstring const &>(other.message_)) {}
  TagValueWriter &operator=(TagValueWriter const &other) {
    if (this == &other) return *this;
    AbstractSimpleOutputWriter::operator=(other);
    delimiter_ = other.delimiter_;
    checksum_ = other.checksum_;
    message_ = Message(static_cast<tvstring const &>(other.message_));
    return *this;
  }
  ~TagValueWriter() noexcept(false) override;

  // Whether messages end with CheckSum; they do from the start.
  void setChecksum(bool checksum) { checksum_ = checksum; }

  // For generated code that writes batches; these write nothing and return null.
  virtual Object *writeBatchStart(DataObject *, TransformContext &) { return nullptr; }
  virtual Object *writeBatchEnd(DataObject *, TransformContext &) { return nullptr; }
  virtual Object *writeBodyStart(DataObject *, TransformContext &) { return nullptr; }
  virtual Object *writeBodyEnd(DataObject *, TransformContext &) { return nullptr; }

  void initMessage() override { message_.clear(); }
  // Adds BodyLength and CheckSum. The text is the caller's own: later messages don't touch it.
  tvstring endMessage() override;

  // The steps of endMessage. The length counts from behind the first field to the end; without CheckSum the second step
  // does nothing.
  void writeBodyLength();
  void writeCheckSum();

  static int generateCheckSum(char const *data, unsigned int length) { return sumOfBytes(data, length); }

  // Raises the Format's WriterException "<name> is a mandatory field. Tag '<tag>[<name>]' cannot be null."
  [[noreturn]] static void requiredFieldMissing(AbstractDataObject *object, int index, int tag);

 protected:
  // Each appends tag, '=', value and delimiter. An empty or null text appends nothing at all. Values are not checked:
  // one that holds the delimiter is written as it is.
  void appendField(char const *tag, char const *value) {
    if (value != nullptr) appendNonEmpty(tag, value, std::strlen(value));
  }
  void appendField(char const *tag, tvstring const &value) { appendNonEmpty(tag, value.data(), value.length()); }
  void appendField(char const *tag, int value) { appendNumber(tag, value); }
  void appendField(char const *tag, long long value) { appendNumber(tag, value); }
  void appendField(char const *tag, float value) { appendField(tag, static_cast<double>(value)); }
  void appendField(char const *tag, double value) {
    if (value > -SHORT_LIMIT && value < SHORT_LIMIT)
      appendNumber(tag, value);
    else
      appendField0(tag, doubleToString(value, scratch_));
  }
  void appendField(char const *tag, bool value) { appendField0(tag, boolToString(value)); }
  void appendField(char const *tag, char value) { appendField0(tag, &value, 1); }

  // Puts "<tag>=<value><delimiter>" behind the first field; at the very start where no delimiter stands.
  void insertBehindFirstField(char const *tag, tvstring const &value);

  bool hasCheckSum() const { return checksum_; }

 private:
  static constexpr char SOH = '\x01';
  static constexpr size_t NUMBER_ROOM = 40;  // what the texts of integers and of doubles below SHORT_LIMIT need
  static constexpr double SHORT_LIMIT = 1e15;

  struct Message : tvstringbuffer {
    using tvstringbuffer::tvstringbuffer;
    void endAt(char const *end) { length_ = static_cast<size_t>(end - data_); }
  };

  void appendNonEmpty(char const *tag, char const *value, size_t length) {
    if (length != 0) appendField0(tag, value, length);
  }
  void appendField0(char const *tag, tvstring const &value) { appendField0(tag, value.data(), value.length()); }
  // REQUIRES: length is not 0
  void appendField0(char const *tag, char const *value, size_t length) {
    char *const at = beginField(tag, length);
    copy(at, value, length);
    endField(at + length);
  }
  // A number is written where it is to stand.
  template <class Number>
  void appendNumber(char const *tag, Number value) {
    endField(writeFieldNumber(value, beginField(tag, NUMBER_ROOM)));
  }
  // Writes tag and '=' behind the message, and returns where the value begins: there is room for so many bytes of it
  // and the delimiter. endField ends the message behind those that came to be.
  char *beginField(char const *tag, size_t room) {
    size_t const tagLength = std::strlen(tag);
    return putTag(message_.extend(tagLength + room + 2), tag, tagLength);
  }
  void endField(char *valueEnd) {
    *valueEnd = delimiter_;
    message_.endAt(valueEnd + 1);
  }
  // memcpy, but most values are shorter than a call of it is worth.
  static void copy(char *to, char const *from, size_t length) {
    if (length > 16)
      std::memcpy(to, from, length);
    else if (length >= 8)
      copyEnds<8>(to, from, length);
    else if (length >= 4)
      copyEnds<4>(to, from, length);
    else if (length >= 2)
      copyEnds<2>(to, from, length);
    else
      *to = *from;
  }
  // N to 2 * N bytes as two pieces that may overlap.
  template <size_t N>
  static void copyEnds(char *to, char const *from, size_t length) {
    char first[N], last[N];
    std::memcpy(first, from, N);
    std::memcpy(last, from + length - N, N);
    std::memcpy(to, first, N);
    std::memcpy(to + length - N, last, N);
  }
  static char *putTag(char *at, char const *tag, size_t tagLength) {
    std::memcpy(at, tag, tagLength);
    at[tagLength] = '=';
    return at + tagLength + 1;
  }
  // Makes a field in the midst of the message, and returns where the caller writes its value.
  char *insertField(size_t position, char const *tag, size_t length) {
    size_t const tagLength = std::strlen(tag);
    size_t const moved = message_.length() - position;
    char *const gap = message_.extend(tagLength + length + 2) - moved;
    std::memmove(gap + tagLength + length + 2, gap, moved);
    char *const value = putTag(gap, tag, tagLength);
    value[length] = delimiter_;
    return value;
  }
  // One past the first delimiter; 0 without one, since npos + 1 wraps.
  size_t behindFirstField() const { return message_.find(delimiter_) + 1; }

  char delimiter_ = SOH;
  bool checksum_ = true;
  Message message_;
  tvstring scratch_;  // the text of a double that is long, or no number
};

template <class Format>
TagValueWriter<Format>::~TagValueWriter() noexcept(false) = default;

template <class Format>
tvstring TagValueWriter<Format>::endMessage() {
  writeBodyLength();
  writeCheckSum();
  return tvstring(message_.data(), message_.length());
}

template <class Format>
void TagValueWriter<Format>::requiredFieldMissing(AbstractDataObject *object, int index, int tag) {
  tvstring const name = object->getFieldName(index);
  raise<typename Format::WriterException>(
      name + " is a mandatory field. Tag '" + intToString(tag) + "[" + name + "]' cannot be null.",
      Format::OUTPUT_WRITER_SOURCE);
}

template <class Format>
void TagValueWriter<Format>::insertBehindFirstField(char const *tag, tvstring const &value) {
  std::memcpy(insertField(behindFirstField(), tag, value.length()), value.data(), value.length());
}

template <class Format>
void TagValueWriter<Format>::writeBodyLength() {
  size_t const position = behindFirstField();
  size_t length = message_.length() - position;
  size_t digits = 1;
  for (size_t rest = length; rest >= 10; rest /= 10) ++digits;
  char *const value = insertField(position, Format::BODY_LENGTH_TAG, digits);
  for (; digits != 0; length /= 10) value[--digits] = static_cast<char>('0' + length % 10);
}

template <class Format>
void TagValueWriter<Format>::writeCheckSum() {
  if (!checksum_) return;
  int const sum = generateCheckSum(message_.data(), static_cast<unsigned int>(message_.length()));
  char const digits[] = {static_cast<char>('0' + sum / 100), static_cast<char>('0' + sum / 10 % 10),
                         static_cast<char>('0' + sum % 10)};
  appendField0("10", digits, sizeof digits);
}

}  // namespace tavrone

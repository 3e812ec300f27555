#pragma once

#include <algorithm>
#include <cstring>

#include "tavrone/core/Conversion.h"
#include "tavrone/core/Raise.h"
#include "tavrone/core/tvstringbuffer.h"
#include "tavrone/dataobject/AbstractDataObject.h"
#include "tavrone/pipeline/OutputWriter.h"

namespace tavrone {

// The sum of the bytes modulo 256: the CheckSum of FIX 4.x. A byte counts the same with and without a sign.
TAVRONE_API int sumOfBytes(char const *data, unsigned int length);

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
    message_ = tvstringbuffer(static_cast<tvstring const &>(other.message_));
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
  void appendField(char const *tag, int value) { appendField0(tag, scratch_.assign(value)); }
  void appendField(char const *tag, long long value) { appendField0(tag, dlongToString(value, scratch_)); }
  void appendField(char const *tag, float value) { appendField0(tag, floatToString(value, scratch_)); }
  void appendField(char const *tag, double value) { appendField0(tag, doubleToString(value, scratch_)); }
  void appendField(char const *tag, bool value) { appendField0(tag, boolToString(value)); }
  void appendField(char const *tag, char value) { appendField0(tag, &value, 1); }

  // Puts "<tag>=<value><delimiter>" behind the first field; at the very start where no delimiter stands.
  void insertBehindFirstField(char const *tag, tvstring const &value);

  bool hasCheckSum() const { return checksum_; }

 private:
  static constexpr char SOH = '\x01';

  void appendNonEmpty(char const *tag, char const *value, size_t length) {
    if (length != 0) appendField0(tag, value, length);
  }
  void appendField0(char const *tag, tvstring const &value) { appendField0(tag, value.data(), value.length()); }
  void appendField0(char const *tag, char const *value, size_t length) {
    size_t const tagLength = std::strlen(tag);
    char *at = message_.extend(tagLength + length + 2);
    std::memcpy(at, tag, tagLength);
    at += tagLength;
    *at++ = '=';
    std::memcpy(at, value, length);
    at[length] = delimiter_;
  }
  // One past the first delimiter; 0 without one, since npos + 1 wraps.
  size_t behindFirstField() const { return message_.find(delimiter_) + 1; }

  char delimiter_ = SOH;
  bool checksum_ = true;
  tvstringbuffer message_;
  tvstring scratch_;  // the text of a number
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
  size_t const at = behindFirstField();
  size_t const end = message_.length();
  appendField0(tag, value);
  char *const text = &message_[0];
  std::rotate(text + at, text + end, text + message_.length());
}

template <class Format>
void TagValueWriter<Format>::writeBodyLength() {
  insertBehindFirstField(Format::BODY_LENGTH_TAG,
                         dlongToString(static_cast<long long>(message_.length() - behindFirstField()), scratch_));
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

#pragma once

#include <cstdint>

#include "tavrone/core/BigDecimal.h"
#include "tavrone/core/Binary.h"
#include "tavrone/core/DateTime.h"
#include "tavrone/core/tvstringbuffer.h"
#include "tavrone/universal/UniversalRecord.h"

namespace tavrone {

class FieldText;

// The bytes of one record, written field by field in the order of its layout. Generated writers call one operation for
// each field: it counts the field and appends its bytes. The end of the outermost group takes away the null fields at
// the record's end, where the layout has such a zone, appends the record's delimiter and hands the record to the one
// that encloses it.
//
// Failures are TransformExceptions. A field that fails writes none of its bytes; what stands before it stays.
//
// Widths and lengths are bytes. `fill` takes the places that a value leaves free, before the value if `rightAlign`,
// else behind it. `point` is the decimal character. One thread at a time; a record's copy has bytes of its own.
class TAVRONE_API UniversalOutputRecord : public UniversalRecord {
 public:
  UniversalOutputRecord() = default;
  // `enclosing` is borrowed and may be null; the rest as for UniversalRecord.
  UniversalOutputRecord(UniversalOutputRecord *enclosing, tvstring const &delimiter, bool recordFlag,
                        bool dropLastDelimiter);
  UniversalOutputRecord(UniversalOutputRecord const &other);
  UniversalOutputRecord &operator=(UniversalOutputRecord const &other);
  ~UniversalOutputRecord() noexcept(false) override;

  using UniversalRecord::init;
  // Sets the enclosing record, and forgets delimiters, null fields and terminator. The bytes stay.
  void init(UniversalOutputRecord *enclosing);
  // Begins another record in the same memory: no bytes, no open group, the same enclosing record.
  void restart(tvstring const &delimiter, bool recordFlag, bool dropLastDelimiter);

  // The bytes written so far.
  int getCurrentIndex() const override { return getSequencePosition(); }
  virtual int getSequencePosition() const { return buffer_.length(); }

  // A new record within this one, the caller's, at a count of 0. It comes in here when its outermost group ends.
  UniversalOutputRecord *writeDelimitedRecord(tvstring const &delimiter, bool recordFlag, bool dropLastDelimiter);
  // Appends the child's bytes; an empty child counts as a null field. The child stays the caller's.
  void addSequence(UniversalOutputRecord *child);
  UniversalOutputRecord *getEnclosingRecord() const { return enclosingRecord_; }

  // Bytes since the current group began.
  int getRecordLength() const { return buffer_.length() - getSequenceStartIndex(); }
  // Whether nothing was written since then, or whether the bytes end where the last delimiter was to stand.
  bool isEmpty() const { return getRecordLength() == 0 || buffer_.length() == lastDelimiterPosition_; }
  // The record's own bytes, valid until the next operation that writes.
  char *getBytes(int &length) const { return buffer_.getByteArray(length); }
  tvstring toString() const override { return buffer_.toString(); }

  // Every group's end. The outermost one first cuts the null fields at the record's end, and what separates them from
  // the rest if the record drops its last delimiter, and appends the delimiter; a record without one is not cut. It
  // then joins the enclosing record.
  void endSequence();
  void endChoice();
  void endAll();

  // Spaces up to that record length. Raises "Record size (<n>) exceeded upper limit - <length>".
  void padRecordToLength(int length);

  // A character that follows the value in the next field of fixed width that holds text, within its width.
  void setTerminator(char terminator) { terminator_ = static_cast<unsigned char>(terminator); }
  void clearTerminator() { terminator_ = NONE; }

  // What every operation for a field begins with: a field with a value, a null field or filler, a nested record.
  void onWriteField() {
    onField();
    onWriteSequence();
  }
  void onWriteNullField();
  void onWriteSequence() {
    trailingNullPosition_ = NONE;
    lastDelimiterPosition_ = NONE;
  }
  // A delimiter is about to follow.
  void onWriteDelimiter() { lastDelimiterPosition_ = buffer_.length(); }

  // Fields of fixed width. A number that needs more places raises "Cannot represent '<digits>' in <width> digits", a
  // text "Cannot represent '<text>' in <width> characters".
  //
  // Whole numbers: the sign stands before zeros that fill, and behind any other fill.
  void appendASCIIField(int value, int width, bool rightAlign, char fill);
  void appendASCIIField(long long value, int width, bool rightAlign, char fill);
  void appendASCIIField(long value, int width, bool rightAlign, char fill) {
    appendASCIIField(static_cast<long long>(value), width, rightAlign, fill);
  }
  void appendASCIIField(BigInteger const &value, int width, bool rightAlign, char fill);
  // Texts: the terminator set before takes one of the places, and is used up.
  void appendASCIIField(tvstring const &value, int width, bool rightAlign, char fill);
  void appendASCIIField(char const *value, int width, bool rightAlign, char fill) {
    appendASCIIField(static_cast<tvstring const &>(tvstringliteral(value)), width, rightAlign, fill);
  }
  // Width 1 is the byte alone, and leaves the terminator for a later field.
  void appendASCIIField(char value, int width, bool rightAlign, char fill);
  void appendASCIIField(bool value, int width, tvstring const &trueText, tvstring const &falseText, bool rightAlign,
                        char fill);
  // The forms of appendDoubleValue; a float is widened.
  void appendASCIIField(double value, int integerDigits, int fractionDigits, char point, bool rightAlign, char fill);
  void appendASCIIField(double value, int width, char point, bool rightAlign, char fill);
  // appendBigDecimalValue; neither the second int nor the point has an effect.
  void appendASCIIField(BigDecimal const &value, int width, int fractionDigits, char point, bool rightAlign, char fill);
  // The text by a pattern of DateStr, whatever the width.
  void appendASCIIField(DateTime const &value, int width, tvstring const &pattern);
  // Too long a text raises "... in <width> digits" here.
  void appendASCIIFieldHex(Binary const &value, int width, bool rightAlign, char fill);
  void appendASCIIFieldBase64(Binary const &value, int width, bool rightAlign, char fill);

  // Fields as long as their value; return the bytes appended.
  int appendASCIIField(tvstring const &value);
  int appendASCIIField(int value);
  int appendASCIIField(long long value);
  int appendASCIIField(long value) { return appendASCIIField(static_cast<long long>(value)); }
  int appendASCIIField(char value);
  int appendASCIIField(bool value, tvstring const &trueText, tvstring const &falseText);
  // The text of doubleToString; a float is widened.
  int appendASCIIField(double value, char point);
  // The text of getDoubleValue with zeros that fill.
  int appendASCIIField(double value, int integerDigits, int fractionDigits, char point);
  int appendASCIIField(DateTime const &value, tvstring const &pattern);
  int appendASCIIFieldHex(Binary const &value);
  int appendASCIIFieldBase64(Binary const &value);
  int appendBinaryField(Binary const &value);

  // The length that each of those would append, for a length that stands before its field.
  static int getASCIIFieldLength(tvstring const &value);
  static int getASCIIFieldLength(int value);
  static int getASCIIFieldLength(long long value);
  static int getASCIIFieldLength(long value) { return getASCIIFieldLength(static_cast<long long>(value)); }
  static int getASCIIFieldLength(char value);
  static int getASCIIFieldLength(bool value, tvstring const &trueText, tvstring const &falseText);
  static int getASCIIFieldLength(double value, char point);
  static int getASCIIFieldLength(double value, int integerDigits, int fractionDigits, char point);
  static int getASCIIFieldLength(DateTime const &value, tvstring const &pattern);
  static int getASCIIFieldLengthHex(Binary const &value);
  static int getASCIIFieldLengthBase64(Binary const &value);
  static int getBinaryFieldLength(Binary const &value);

  // Fields that a delimiter ends.
  void appendDelimitedField(tvstring const &value, tvstring const &delimiter);
  void appendDelimitedField(char const *value, tvstring const &delimiter) {
    appendDelimitedField(static_cast<tvstring const &>(tvstringliteral(value)), delimiter);
  }
  // Between quotes if the delimiter occurs in the value and the quote isn't zero. Quotes within the value stay single,
  // though a reader takes doubled ones for one: layouts depend on it.
  void appendDelimitedField(tvstring const &value, tvstring const &delimiter, char quote);
  void appendDelimitedField(int value, tvstring const &delimiter);
  void appendDelimitedField(long long value, tvstring const &delimiter);
  void appendDelimitedField(long value, tvstring const &delimiter) {
    appendDelimitedField(static_cast<long long>(value), delimiter);
  }
  void appendDelimitedField(char value, tvstring const &delimiter);
  void appendDelimitedField(bool value, tvstring const &delimiter, tvstring const &trueText, tvstring const &falseText);
  void appendDelimitedField(double value, char point, tvstring const &delimiter);
  void appendDelimitedField(double value, int integerDigits, int fractionDigits, char point, tvstring const &delimiter,
                            char fill);
  void appendDelimitedField(BigDecimal const &value, tvstring const &delimiter);
  void appendDelimitedField(BigInteger const &value, tvstring const &delimiter);
  void appendDelimitedField(DateTime const &value, tvstring const &pattern, tvstring const &delimiter);
  // The delimiter of these three does not count as the record's last one, which is meant.
  void appendDelimitedFieldHex(Binary const &value, tvstring const &delimiter);
  void appendDelimitedFieldBase64(Binary const &value, tvstring const &delimiter);
  void appendDelimitedASCIIFieldASCII(Binary const &value, tvstring const &delimiter);

  // Null fields: n spaces, a text, a text or nothing before its delimiter.
  void appendFiller(int n);
  void appendFiller(tvstring const &text);
  void appendDelimitedFiller(tvstring const &text, tvstring const &delimiter);
  void appendDelimitedNullField(tvstring const &delimiter) { appendDelimitedFiller(EMPTY_STRING, delimiter); }

  // What belongs to no field.
  void appendTag(tvstring const &text) { buffer_.append(text); }
  void appendSectionTag(tvstring const &tag, tvstring const &separator);
  void appendDelimiter(tvstring const &delimiter);
  void writeChoicePadding(int n);

  // Binary fields; `bigEndian` puts the most significant byte first.
  void writeBinaryBoolean(bool value) { writeBinaryInt1(value ? 1 : 0); }
  void writeBinaryInt1(int value);
  void writeBinaryInt2(int value, bool bigEndian);
  void writeBinaryInt4(int value, bool bigEndian);
  void writeBinaryInt8(long long value, bool bigEndian);
  void writeBinaryFloat(float value, bool bigEndian) { writeBinaryInt4(floatToIntBits(value), bigEndian); }
  void writeBinaryDouble(double value, bool bigEndian) { writeBinaryInt8(doubleToLongBits(value), bigEndian); }
  void writeBinaryBinary(Binary const &value) { appendBinaryField(value); }
  // Raises "Number of bytes in output (<size>) is not same as the fixed length - <length>".
  void writeBinaryBinary(Binary const &value, int length);
  // In 1, 2, 4 or 8 bytes; any other length raises "Illegal integral length - <length>". A value that doesn't fit
  // raises as assertRangeInt does, for unsigned values of 4 bytes as assertRangeLong.
  void writeBinaryInt(int length, int value, bool isSigned, bool bigEndian);
  // Always as assertRangeLong.
  void writeBinaryLong(int length, long long value, bool isSigned, bool bigEndian);
  // Raise "Output value <value> not in allowed range" and "Cannot represent output value <value>".
  static void assertRangeInt(int value, int low, int high);
  static void assertRangeLong(long long value, long long low, long long high);

  // Packed decimals: two digits a byte, behind them the sign, 0xC or 0xD. An odd count of digits ends with the sign; an
  // even one ends with the sign and a zero, though readers expect a zero before the digits: layouts depend on it. A
  // negative count writes nothing. Raise "Packed decimal overflow" for a value of more digits and for counts above 10,
  // with long values 19.
  void writePackedDecimalInt(int value, int digits);
  void writePackedDecimalLong(long long value, int digits);
  // The value times 10^fractionDigits, rounded by floor(x + 0.5), negatives too: -1.5 becomes -1.
  void writePackedDecimalDouble(double value, int integerDigits, int fractionDigits);
  // Multiplies in single precision.
  void writePackedDecimalFloat(float value, int integerDigits, int fractionDigits);

  // What the fields of fixed width consist of. They count nothing and append to any buffer.
  //
  // A magnitude below zero, as the least value's, keeps its own sign behind the field's.
  static void appendPaddedInt(int magnitude, bool negative, int width, bool rightAlign, char fill, ByteBuffer &out);
  static void appendPaddedLong(long long magnitude, bool negative, int width, bool rightAlign, char fill,
                               ByteBuffer &out);
  static void appendPaddedBigInt(BigInteger const &magnitude, bool negative, int width, bool rightAlign, char fill,
                                 ByteBuffer &out);
  static void padLong(long long magnitude, bool negative, int width, bool rightAlign, char fill, tvstringbuffer &out);
  // The terminator, -1 for none, follows the value and takes one place of the width; an empty value's stands at the
  // field's end.
  static void appendString(tvstring const &value, int width, bool rightAlign, char fill, int terminator,
                           ByteBuffer &out);
  // Whole part and fraction in fields of their own, the point between them, unless it is zero. Always right-aligned.
  // The fraction is rounded half up by itself and never carries into the whole part, which is meant: 1.999 with two
  // places raises "Cannot represent '100' in 2 digits". So do NaN, infinity, whole parts past 64 bits and more than 18
  // places, with the value's text.
  static void appendDoubleValue(double value, int integerDigits, int fractionDigits, char point, bool rightAlign,
                                char fill, ByteBuffer &out);
  // The same text.
  static tvstring getDoubleValue(double value, int integerDigits, int fractionDigits, char point, bool rightAlign,
                                 char fill);
  // The fraction takes all places that sign, whole part and point leave; a value without one has no point. Always
  // right-aligned. A whole value that is too long is written in full.
  static void appendDoubleValue(double value, int width, char point, bool rightAlign, char fill, ByteBuffer &out);
  // Always right-aligned, with all digits and '.'. A value that is too long is written in full, unlike any other.
  static void appendBigDecimalValue(BigDecimal const &value, int width, char point, bool rightAlign, char fill,
                                    ByteBuffer &out);

 private:
  static constexpr int NONE = -1;
  static constexpr int INITIAL_CAPACITY = 150;

  void endSection0();
  void cutTrailingFields();
  int appendText(FieldText const &text);
  void appendDelimitedText(FieldText const &text, tvstring const &delimiter);
  // The same for a field that is counted already.
  int putText(FieldText const &text);
  void putDelimitedText(FieldText const &text, tvstring const &delimiter);
  void appendEncoded(tvstring const &text, int width, bool rightAlign, char fill);
  // In scratch_.
  tvstring const &hexText(Binary const &value);
  tvstring const &base64Text(Binary const &value);
  template <class Value>
  void writeBinary(long long value, bool bigEndian);
  void writeBinaryOfLength(int length, long long value, bool bigEndian);
  void writePacked(uint64_t magnitude, bool negative, int digits, int mostDigits);
  void appendPacked(uint64_t magnitude, bool negative, unsigned digits);
  TAVRONE_COLD void growAndAppendPacked(uint64_t magnitude, bool negative, unsigned digits);
  template <class Number>
  void writePackedDecimal(Number value, int integerDigits, int fractionDigits);

  int trailingNullPosition_ = NONE;   // where the present run of null fields at the record's end began
  int lastDelimiterPosition_ = NONE;  // where the last delimiter began, if nothing followed it
  int nullDelimiterPosition_ = NONE;  // the same as it was when the run of null fields began
  ByteBuffer buffer_{INITIAL_CAPACITY};
  tvstring scratch_;  // encoded bytes, whose memory serves the fields that follow
  UniversalOutputRecord *enclosingRecord_ = nullptr;
  int terminator_ = NONE;
};

}  // namespace tavrone

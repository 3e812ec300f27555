#include "tavrone/universal/UniversalOutputRecord.h"

#include <array>

#include "tavrone/core/BinaryText.h"
#include "tavrone/universal/FieldLayout.h"
#include "tavrone/universal/PackedDigits.h"

namespace tavrone {

namespace {

constexpr char const *SOURCE = OUTPUT_SOURCE;

}  // namespace

UniversalOutputRecord::UniversalOutputRecord(UniversalOutputRecord *enclosing, tvstring const &delimiter,
                                             bool recordFlag, bool dropLastDelimiter)
    : UniversalRecord(delimiter, recordFlag, dropLastDelimiter), enclosingRecord_(enclosing) {}

UniversalOutputRecord::UniversalOutputRecord(UniversalOutputRecord const &other) : Object(other), UniversalRecord() {
  *this = other;
}

UniversalOutputRecord::~UniversalOutputRecord() noexcept(false) = default;

UniversalOutputRecord &UniversalOutputRecord::operator=(UniversalOutputRecord const &other) {
  if (this == &other) return *this;
  UniversalRecord::operator=(other);
  trailingNullPosition_ = other.trailingNullPosition_;
  lastDelimiterPosition_ = other.lastDelimiterPosition_;
  nullDelimiterPosition_ = other.nullDelimiterPosition_;
  buffer_.chop(0);
  buffer_.append(other.buffer_);
  enclosingRecord_ = other.enclosingRecord_;
  terminator_ = other.terminator_;
  return *this;
}

void UniversalOutputRecord::init(UniversalOutputRecord *enclosing) {
  enclosingRecord_ = enclosing;
  trailingNullPosition_ = NONE;
  lastDelimiterPosition_ = NONE;
  nullDelimiterPosition_ = NONE;
  terminator_ = NONE;
}

void UniversalOutputRecord::restart(tvstring const &delimiter, bool recordFlag, bool dropLastDelimiter) {
  while (!isSequenceCompleted()) UniversalRecord::endSequence();
  init(delimiter, recordFlag, dropLastDelimiter);
  init(enclosingRecord_);
  buffer_.chop(0);
}

UniversalOutputRecord *UniversalOutputRecord::writeDelimitedRecord(tvstring const &delimiter, bool recordFlag,
                                                                   bool dropLastDelimiter) {
  return new UniversalOutputRecord(this, delimiter, recordFlag, dropLastDelimiter);
}

void UniversalOutputRecord::addSequence(UniversalOutputRecord *child) {
  if (child->isEmpty())
    onWriteNullField();
  else
    onWriteSequence();
  int const start = buffer_.length();
  buffer_.append(child->buffer_);
  if (child->lastDelimiterPosition_ != NONE) lastDelimiterPosition_ = start + child->lastDelimiterPosition_;
}

void UniversalOutputRecord::endSequence() {
  endSection0();
  UniversalRecord::endSequence();
}
void UniversalOutputRecord::endChoice() {
  endSection0();
  UniversalRecord::endChoice();
}
void UniversalOutputRecord::endAll() {
  endSection0();
  UniversalRecord::endAll();
}

void UniversalOutputRecord::endSection0() {
  if (!isLastSequence()) return;
  if (!getDelimiter().empty()) {
    cutTrailingFields();
    appendDelimiter(getDelimiter());
  }
  if (enclosingRecord_ != nullptr) enclosingRecord_->addSequence(this);
}

void UniversalOutputRecord::cutTrailingFields() {
  int end = dropsLastDelimiter() ? lastDelimiterPosition_ : NONE;
  if (trailingNullPosition_ != NONE)
    end = nullDelimiterPosition_ == NONE || !dropsLastDelimiter() ? trailingNullPosition_ : nullDelimiterPosition_;
  if (end != NONE && end < buffer_.length()) buffer_.chop(end);
}

void UniversalOutputRecord::padRecordToLength(int length) {
  if (getRecordLength() > length)
    raise<TransformException>(
        "Record size (" + intToString(getRecordLength()) + ") exceeded upper limit - " + intToString(length), SOURCE);
  appendFill(buffer_, length - getRecordLength(), ' ');
}

void UniversalOutputRecord::onWriteNullField() {
  if (isTrailingField() && trailingNullPosition_ == NONE) {
    trailingNullPosition_ = buffer_.length();
    nullDelimiterPosition_ = lastDelimiterPosition_;
  }
  lastDelimiterPosition_ = NONE;
  onField();
}

// What the fields consist of.

void UniversalOutputRecord::appendPaddedInt(int magnitude, bool negative, int width, bool rightAlign, char fill,
                                            ByteBuffer &out) {
  appendPadded(FieldText(magnitude), negative, width, rightAlign, fill, out);
}
void UniversalOutputRecord::appendPaddedLong(long long magnitude, bool negative, int width, bool rightAlign, char fill,
                                             ByteBuffer &out) {
  appendPadded(FieldText(magnitude), negative, width, rightAlign, fill, out);
}
void UniversalOutputRecord::appendPaddedBigInt(BigInteger const &magnitude, bool negative, int width, bool rightAlign,
                                               char fill, ByteBuffer &out) {
  tvstring longText;
  appendPadded(FieldText(magnitude, longText), negative, width, rightAlign, fill, out);
}
void UniversalOutputRecord::padLong(long long magnitude, bool negative, int width, bool rightAlign, char fill,
                                    tvstringbuffer &out) {
  ByteBuffer text;
  appendPaddedLong(magnitude, negative, width, rightAlign, fill, text);
  out.append(text.str(), static_cast<size_t>(text.length()));
}

void UniversalOutputRecord::appendString(tvstring const &value, int width, bool rightAlign, char fill, int terminator,
                                         ByteBuffer &out) {
  appendFixedText(FieldText(value), width, rightAlign, fill, terminator, out);
}

void UniversalOutputRecord::appendDoubleValue(double value, int integerDigits, int fractionDigits, char point, bool,
                                              char fill, ByteBuffer &out) {
  FixedDouble(value, integerDigits, fractionDigits, point).appendTo(out, fill);
}
tvstring UniversalOutputRecord::getDoubleValue(double value, int integerDigits, int fractionDigits, char point, bool,
                                               char fill) {
  ByteBuffer text;
  FixedDouble(value, integerDigits, fractionDigits, point).appendTo(text, fill);
  return text.toString();
}

void UniversalOutputRecord::appendDoubleValue(double value, int width, char point, bool, char fill, ByteBuffer &out) {
  SplitDouble const parts(value, width);
  FieldText const whole(parts.magnitude());
  size_t const head = whole.size() + (parts.isNegative() ? 1 : 0) + (parts.hasFraction() ? 1 : 0);
  long long const places = parts.hasFraction() ? width - static_cast<long long>(head) : 0;
  if (parts.hasFraction() && (places <= 0 || places > SplitDouble::MOST_PLACES))
    raiseCannotRepresent(doubleToString(value), width, "digits");
  FieldText const fraction(parts.fraction(static_cast<int>(places)));
  if (parts.hasFraction()) checkWidth(fraction, false, places);

  long long const free = width - static_cast<long long>(head) - places;
  FieldRoom room(out, head + static_cast<size_t>(places) + (free > 0 ? static_cast<size_t>(free) : 0));
  if (free > 0) room.fill(static_cast<size_t>(free), fill);
  if (parts.isNegative()) room.put('-');
  room.copy(whole);
  if (!parts.hasFraction()) return;
  room.put(point);
  layOut(fraction, false, static_cast<int>(places), true, '0', room);
}

void UniversalOutputRecord::appendBigDecimalValue(BigDecimal const &value, int width, char, bool, char fill,
                                                  ByteBuffer &out) {
  tvstring longText;
  FieldText const text(value, longText);
  if (text.length() < width) appendFill(out, width - text.length(), fill);
  out.append(text.data(), text.length());
}

// Fields of fixed width.

void UniversalOutputRecord::appendASCIIField(int value, int width, bool rightAlign, char fill) {
  onWriteField();
  appendPaddedInt(magnitudeOf(value), value < 0, width, rightAlign, fill, buffer_);
}
void UniversalOutputRecord::appendASCIIField(long long value, int width, bool rightAlign, char fill) {
  onWriteField();
  appendPaddedLong(magnitudeOf(value), value < 0, width, rightAlign, fill, buffer_);
}
void UniversalOutputRecord::appendASCIIField(BigInteger const &value, int width, bool rightAlign, char fill) {
  onWriteField();
  appendPaddedBigInt(value.abs(), value.sign() < 0, width, rightAlign, fill, buffer_);
}
void UniversalOutputRecord::appendASCIIField(tvstring const &value, int width, bool rightAlign, char fill) {
  onWriteField();
  appendString(value, width, rightAlign, fill, terminator_, buffer_);
  clearTerminator();
}
void UniversalOutputRecord::appendASCIIField(char value, int width, bool rightAlign, char fill) {
  if (width == 1) {
    appendASCIIField(value);
    return;
  }
  onWriteField();
  appendFixedText(FieldText(value), width, rightAlign, fill, terminator_, buffer_);
  clearTerminator();
}
void UniversalOutputRecord::appendASCIIField(bool value, int width, tvstring const &trueText, tvstring const &falseText,
                                             bool rightAlign, char fill) {
  appendASCIIField(value ? trueText : falseText, width, rightAlign, fill);
}
void UniversalOutputRecord::appendASCIIField(double value, int integerDigits, int fractionDigits, char point,
                                             bool rightAlign, char fill) {
  onWriteField();
  appendDoubleValue(value, integerDigits, fractionDigits, point, rightAlign, fill, buffer_);
}
void UniversalOutputRecord::appendASCIIField(double value, int width, char point, bool rightAlign, char fill) {
  onWriteField();
  appendDoubleValue(value, width, point, rightAlign, fill, buffer_);
}
void UniversalOutputRecord::appendASCIIField(BigDecimal const &value, int width, int, char point, bool rightAlign,
                                             char fill) {
  onWriteField();
  appendBigDecimalValue(value, width, point, rightAlign, fill, buffer_);
}
void UniversalOutputRecord::appendASCIIField(DateTime const &value, int, tvstring const &pattern) {
  appendASCIIField(value, pattern);
}
void UniversalOutputRecord::appendASCIIFieldHex(Binary const &value, int width, bool rightAlign, char fill) {
  appendEncoded(hexText(value), width, rightAlign, fill);
}
void UniversalOutputRecord::appendASCIIFieldBase64(Binary const &value, int width, bool rightAlign, char fill) {
  appendEncoded(base64Text(value), width, rightAlign, fill);
}
void UniversalOutputRecord::appendEncoded(tvstring const &text, int width, bool rightAlign, char fill) {
  onWriteField();
  checkWidth(FieldText(text), false, width);
  appendString(text, width, rightAlign, fill, NONE, buffer_);
}

tvstring const &UniversalOutputRecord::hexText(Binary const &value) {
  encodeHex(value.data(), value.length(), scratch_.getBuffer(getASCIIFieldLengthHex(value)));
  scratch_.setBufferLength(getASCIIFieldLengthHex(value));
  return scratch_;
}
tvstring const &UniversalOutputRecord::base64Text(Binary const &value) {
  base64Codec().encode(value.data(), value.length(), scratch_.getBuffer(getASCIIFieldLengthBase64(value)));
  scratch_.setBufferLength(getASCIIFieldLengthBase64(value));
  return scratch_;
}

// Fields as long as their value.

int UniversalOutputRecord::appendText(FieldText const &text) {
  onWriteField();
  return putText(text);
}
int UniversalOutputRecord::putText(FieldText const &text) {
  FieldRoom(buffer_, text.size()).copy(text);
  return text.length();
}

int UniversalOutputRecord::appendASCIIField(tvstring const &value) {
  return appendText(FieldText(value));
}
int UniversalOutputRecord::appendASCIIField(int value) {
  return appendText(FieldText(value));
}
int UniversalOutputRecord::appendASCIIField(long long value) {
  return appendText(FieldText(value));
}
int UniversalOutputRecord::appendASCIIField(char value) {
  return appendText(FieldText(value));
}
int UniversalOutputRecord::appendASCIIField(bool value, tvstring const &trueText, tvstring const &falseText) {
  return appendASCIIField(value ? trueText : falseText);
}
int UniversalOutputRecord::appendASCIIField(double value, char point) {
  return appendText(FieldText(value, point));
}
int UniversalOutputRecord::appendASCIIField(double value, int integerDigits, int fractionDigits, char point) {
  onWriteField();
  FixedDouble const text(value, integerDigits, fractionDigits, point);
  int const length = text.length();
  text.appendTo(buffer_, '0');
  return length;
}
int UniversalOutputRecord::appendASCIIField(DateTime const &value, tvstring const &pattern) {
  onWriteField();  // a date may have no text
  return putText(FieldText(value, pattern));
}
int UniversalOutputRecord::appendASCIIFieldHex(Binary const &value) {
  return appendASCIIField(hexText(value));
}
int UniversalOutputRecord::appendASCIIFieldBase64(Binary const &value) {
  return appendASCIIField(base64Text(value));
}
int UniversalOutputRecord::appendBinaryField(Binary const &value) {
  onWriteField();
  buffer_.write(value);
  return static_cast<int>(value.length());
}

int UniversalOutputRecord::getASCIIFieldLength(tvstring const &value) {
  return FieldText(value).length();
}
int UniversalOutputRecord::getASCIIFieldLength(int value) {
  return FieldText(value).length();
}
int UniversalOutputRecord::getASCIIFieldLength(long long value) {
  return FieldText(value).length();
}
int UniversalOutputRecord::getASCIIFieldLength(char) {
  return 1;
}
int UniversalOutputRecord::getASCIIFieldLength(bool value, tvstring const &trueText, tvstring const &falseText) {
  return getASCIIFieldLength(value ? trueText : falseText);
}
int UniversalOutputRecord::getASCIIFieldLength(double value, char point) {
  return FieldText(value, point).length();
}
int UniversalOutputRecord::getASCIIFieldLength(double value, int integerDigits, int fractionDigits, char point) {
  return FixedDouble(value, integerDigits, fractionDigits, point).length();
}
int UniversalOutputRecord::getASCIIFieldLength(DateTime const &value, tvstring const &pattern) {
  return FieldText(value, pattern).length();
}
int UniversalOutputRecord::getASCIIFieldLengthHex(Binary const &value) {
  return lengthOf(2 * value.length());
}
int UniversalOutputRecord::getASCIIFieldLengthBase64(Binary const &value) {
  return lengthOf(base64TextLength(value.length()));
}
int UniversalOutputRecord::getBinaryFieldLength(Binary const &value) {
  return lengthOf(value.length());
}

// Fields that a delimiter ends.

void UniversalOutputRecord::appendDelimitedText(FieldText const &text, tvstring const &delimiter) {
  onField();
  trailingNullPosition_ = NONE;
  putDelimitedText(text, delimiter);
}
void UniversalOutputRecord::putDelimitedText(FieldText const &text, tvstring const &delimiter) {
  FieldRoom room(buffer_, text.size() + delimiter.length());
  room.copy(text);
  lastDelimiterPosition_ = buffer_.length() + text.length();
  room.copy(delimiter);
}

void UniversalOutputRecord::appendDelimitedField(tvstring const &value, tvstring const &delimiter) {
  appendDelimitedText(FieldText(value), delimiter);
}
void UniversalOutputRecord::appendDelimitedField(tvstring const &value, tvstring const &delimiter, char quote) {
  if (quote == '\0' || value.find(delimiter) == tvstring::npos) return appendDelimitedField(value, delimiter);
  onWriteField();
  buffer_.append(quote);
  buffer_.append(value);
  buffer_.append(quote);
  appendDelimiter(delimiter);
}
void UniversalOutputRecord::appendDelimitedField(int value, tvstring const &delimiter) {
  appendDelimitedText(FieldText(value), delimiter);
}
void UniversalOutputRecord::appendDelimitedField(long long value, tvstring const &delimiter) {
  appendDelimitedText(FieldText(value), delimiter);
}
void UniversalOutputRecord::appendDelimitedField(char value, tvstring const &delimiter) {
  appendDelimitedText(FieldText(value), delimiter);
}
void UniversalOutputRecord::appendDelimitedField(bool value, tvstring const &delimiter, tvstring const &trueText,
                                                 tvstring const &falseText) {
  appendDelimitedField(value ? trueText : falseText, delimiter);
}
void UniversalOutputRecord::appendDelimitedField(double value, char point, tvstring const &delimiter) {
  appendDelimitedText(FieldText(value, point), delimiter);
}
void UniversalOutputRecord::appendDelimitedField(double value, int integerDigits, int fractionDigits, char point,
                                                 tvstring const &delimiter, char fill) {
  onWriteField();
  FixedDouble const text(value, integerDigits, fractionDigits, point);
  text.checkFraction();
  text.appendTo(buffer_, fill);
  appendDelimiter(delimiter);
}
void UniversalOutputRecord::appendDelimitedField(BigDecimal const &value, tvstring const &delimiter) {
  tvstring longText;
  appendDelimitedText(FieldText(value, longText), delimiter);
}
void UniversalOutputRecord::appendDelimitedField(BigInteger const &value, tvstring const &delimiter) {
  tvstring longText;
  appendDelimitedText(FieldText(value, longText), delimiter);
}
void UniversalOutputRecord::appendDelimitedField(DateTime const &value, tvstring const &pattern,
                                                 tvstring const &delimiter) {
  onWriteField();
  putDelimitedText(FieldText(value, pattern), delimiter);
}
// No onWriteDelimiter in these three: see the header.
void UniversalOutputRecord::appendDelimitedFieldHex(Binary const &value, tvstring const &delimiter) {
  appendASCIIFieldHex(value);
  buffer_.append(delimiter);
}
void UniversalOutputRecord::appendDelimitedFieldBase64(Binary const &value, tvstring const &delimiter) {
  appendASCIIFieldBase64(value);
  buffer_.append(delimiter);
}
void UniversalOutputRecord::appendDelimitedASCIIFieldASCII(Binary const &value, tvstring const &delimiter) {
  appendBinaryField(value);
  buffer_.append(delimiter);
}

// Null fields, and what belongs to no field.

void UniversalOutputRecord::appendFiller(int n) {
  onWriteNullField();
  writeChoicePadding(n);
}
void UniversalOutputRecord::appendFiller(tvstring const &text) {
  onWriteNullField();
  buffer_.append(text);
}
void UniversalOutputRecord::appendDelimitedFiller(tvstring const &text, tvstring const &delimiter) {
  appendFiller(text);
  appendDelimiter(delimiter);
}
void UniversalOutputRecord::appendSectionTag(tvstring const &tag, tvstring const &separator) {
  appendTag(tag);
  appendTag(separator);
}
void UniversalOutputRecord::appendDelimiter(tvstring const &delimiter) {
  onWriteDelimiter();
  buffer_.append(delimiter);
}
void UniversalOutputRecord::writeChoicePadding(int n) {
  appendFill(buffer_, n, ' ');
}

// Binary fields.

// The value's low bytes, as many as Value has.
template <class Value>
void UniversalOutputRecord::writeBinary(long long value, bool bigEndian) {
  onWriteField();
  char bytes[sizeof(Value)];
  for (size_t i = 0; i < sizeof bytes; ++i)
    bytes[bigEndian ? sizeof bytes - 1 - i : i] = static_cast<char>(static_cast<uint64_t>(value) >> (8 * i));
  buffer_.append(bytes, sizeof bytes);
}

void UniversalOutputRecord::writeBinaryInt1(int value) {
  writeBinary<int8_t>(value, true);
}
void UniversalOutputRecord::writeBinaryInt2(int value, bool bigEndian) {
  writeBinary<int16_t>(value, bigEndian);
}
void UniversalOutputRecord::writeBinaryInt4(int value, bool bigEndian) {
  writeBinary<int32_t>(value, bigEndian);
}
void UniversalOutputRecord::writeBinaryInt8(long long value, bool bigEndian) {
  writeBinary<int64_t>(value, bigEndian);
}

void UniversalOutputRecord::writeBinaryBinary(Binary const &value, int length) {
  onWriteField();
  if (length < 0 || value.length() != static_cast<size_t>(length))
    raise<TransformException>("Number of bytes in output (" + dlongToString(static_cast<long long>(value.length())) +
                                  ") is not same as the fixed length - " + intToString(length),
                              SOURCE);
  buffer_.write(value);
}

namespace {

struct Range {
  long long low;
  long long high;
};

Range rangeOf(int length, bool isSigned) {
  if (length != 1 && length != 2 && length != 4 && length != 8)
    raise<TransformException>("Illegal integral length - " + intToString(length), SOURCE);
  if (length == 8) return {LLONG_MIN, LLONG_MAX};
  long long const values = 1LL << (8 * length);
  return isSigned ? Range{-values / 2, values / 2 - 1} : Range{0, values - 1};
}

}  // namespace

void UniversalOutputRecord::writeBinaryInt(int length, int value, bool isSigned, bool bigEndian) {
  auto const [low, high] = rangeOf(length, isSigned);
  if (high <= INT_MAX)
    assertRangeInt(value, static_cast<int>(low), static_cast<int>(high));
  else
    assertRangeLong(value, low, high);
  writeBinaryOfLength(length, value, bigEndian);
}

void UniversalOutputRecord::writeBinaryLong(int length, long long value, bool isSigned, bool bigEndian) {
  auto const [low, high] = rangeOf(length, isSigned);
  assertRangeLong(value, low, high);
  writeBinaryOfLength(length, value, bigEndian);
}

void UniversalOutputRecord::writeBinaryOfLength(int length, long long value, bool bigEndian) {
  switch (length) {
    case 1:
      return writeBinary<int8_t>(value, bigEndian);
    case 2:
      return writeBinary<int16_t>(value, bigEndian);
    case 4:
      return writeBinary<int32_t>(value, bigEndian);
    default:
      return writeBinary<int64_t>(value, bigEndian);
  }
}

void UniversalOutputRecord::assertRangeInt(int value, int low, int high) {
  if (value < low || value > high)
    raise<TransformException>("Output value " + intToString(value) + " not in allowed range", SOURCE);
}
void UniversalOutputRecord::assertRangeLong(long long value, long long low, long long high) {
  if (value < low || value > high)
    raise<TransformException>("Cannot represent output value " + dlongToString(value), SOURCE);
}

// Packed decimals.

namespace {

[[noreturn]] TAVRONE_COLD void raisePackedOverflow() {
  raise<TransformException>("Packed decimal overflow", SOURCE);
}

constexpr int MOST_INT_DIGITS = 10;
constexpr int MOST_LONG_DIGITS = 19;

// What is too large for a count of digits. No digits ask for nothing: their one byte shows the sign alone.
constexpr auto PACKED_LIMITS = [] {
  std::array<uint64_t, MOST_LONG_DIGITS + 1> limits{UINT64_MAX, 10};
  for (size_t i = 2; i < limits.size(); ++i) limits[i] = limits[i - 1] * 10;
  return limits;
}();

template <std::signed_integral T>
constexpr uint64_t unsignedMagnitude(T value) {
  return value < 0 ? uint64_t{0} - static_cast<uint64_t>(value) : static_cast<uint64_t>(value);
}

}  // namespace

void UniversalOutputRecord::writePackedDecimalInt(int value, int digits) {
  onWriteField();
  writePacked(unsignedMagnitude(value), value < 0, digits, MOST_INT_DIGITS);
}
void UniversalOutputRecord::writePackedDecimalLong(long long value, int digits) {
  onWriteField();
  writePacked(unsignedMagnitude(value), value < 0, digits, MOST_LONG_DIGITS);
}

void UniversalOutputRecord::writePacked(uint64_t magnitude, bool negative, int digits, int mostDigits) {
  if (digits < 0) return;
  if (digits > mostDigits || magnitude >= PACKED_LIMITS[static_cast<size_t>(digits)]) raisePackedOverflow();
  appendPacked(magnitude, negative, static_cast<unsigned>(digits));
}

// The call that grows stands last, so that the fast path keeps no registers for it.
void UniversalOutputRecord::appendPacked(uint64_t magnitude, bool negative, unsigned digits) {
  int const length = buffer_.length();
  if (buffer_.capacity() - length < PackedDigits::ROOM) return growAndAppendPacked(magnitude, negative, digits);
  buffer_.chop(length + static_cast<int>(PackedDigits::bytesOf(digits)));
  PackedDigits::write(magnitude, negative, digits, buffer_.str() + length);
}
void UniversalOutputRecord::growAndAppendPacked(uint64_t magnitude, bool negative, unsigned digits) {
  buffer_.ensureFree(PackedDigits::ROOM);
  appendPacked(magnitude, negative, digits);
}

void UniversalOutputRecord::writePackedDecimalDouble(double value, int integerDigits, int fractionDigits) {
  writePackedDecimal(value, integerDigits, fractionDigits);
}
void UniversalOutputRecord::writePackedDecimalFloat(float value, int integerDigits, int fractionDigits) {
  writePackedDecimal(value, integerDigits, fractionDigits);
}

template <class Number>
void UniversalOutputRecord::writePackedDecimal(Number value, int integerDigits, int fractionDigits) {
  constexpr int MOST_SHORT_DIGITS = 8;
  long long const digits = static_cast<long long>(integerDigits) + fractionDigits;
  onWriteField();
  if (digits < 0) return;
  bool const isShort = digits <= MOST_SHORT_DIGITS;
  if (fractionDigits < 0 || fractionDigits >= (isShort ? MOST_INT_DIGITS : MOST_LONG_DIGITS) ||
      digits > MOST_LONG_DIGITS)
    raisePackedOverflow();
  Number const product = static_cast<Number>(LONG_POWERS_OF_10[static_cast<size_t>(fractionDigits)]) * value;
  double const rounded = std::floor(static_cast<double>(product) + 0.5);
  double const limit = isShort ? 0x1p31 : 0x1p63;
  if (!(rounded >= -limit && rounded < limit)) raisePackedOverflow();
  long long const whole = static_cast<long long>(rounded);
  writePacked(unsignedMagnitude(whole), whole < 0, static_cast<int>(digits), MOST_LONG_DIGITS);
}

}  // namespace tavrone

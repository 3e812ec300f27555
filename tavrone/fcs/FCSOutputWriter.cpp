#include "tavrone/fcs/FCSOutputWriter.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <climits>
#include <iterator>

#include "tavrone/core/Conversion.h"
#include "tavrone/core/DesignerTypes.h"
#include "tavrone/core/Wrappers.h"
#include "tavrone/dataobject/FieldWalk.h"

namespace tavrone {

namespace {

constinit tvstringliteral const DATE_PATTERN("MMddyyyy");
constexpr int EIGHTHS = 8;
constexpr std::array<char const *, EIGHTHS> FRACTIONS = {"", "1/8", "1/4", "3/8", "1/2", "5/8", "3/4", "7/8"};

enum TrailerField { ISN, TEXT };

// Room for a new text: in the old array, unless somebody else still holds a view on it.
void restart(tvstringbuffer &buffer) {
  constexpr size_t USUAL_LENGTH = 255, MAX_LENGTH = 1 << 20;
  buffer.getBuffer(static_cast<int>(std::clamp(buffer.length(), USUAL_LENGTH, MAX_LENGTH)));
}

bool isPresent(DataObject const *object, int index) {
  return object != nullptr && index < object->getFieldCount() && !object->isNull(index);
}

tvstring textOf(DataObject const &object, int index) {
  if (object.getFieldType(index) == DesignerTypes::STRING_TYPE) {
    Watched<StringObject> text;
    fill(object, index, text);
    if (text.isFilled()) return text.getValue();
  }
  SmartPtr<Object> const value(object.getField(index));
  return value.isNull() ? tvstring() : value->toString();
}

void appendFirmToCMSTrailer(tvstringbuffer &out, DataObject const *trailer) {
  if (isPresent(trailer, ISN)) out.append(textOf(*trailer, ISN));
  if (isPresent(trailer, TEXT)) out.append(' ').append(textOf(*trailer, TEXT));
}

}  // namespace

constinit tvstringliteral const FCSOutputWriter::LINE_FEED("\n");

FCSOutputWriter::FCSOutputWriter(FCSOutputWriter const &other)
    : AbstractSimpleOutputWriter(other),
      useFractions_(other.useFractions_),
      message_(static_cast<tvstring const &>(other.message_)),
      lineTokens_(other.lineTokens_) {}

FCSOutputWriter &FCSOutputWriter::operator=(FCSOutputWriter const &other) {
  if (this == &other) return *this;
  AbstractSimpleOutputWriter::operator=(other);
  useFractions_ = other.useFractions_;
  message_ = tvstringbuffer(static_cast<tvstring const &>(other.message_));
  lineTokens_ = other.lineTokens_;
  rendered_ = tvstringbuffer();
  return *this;
}

FCSOutputWriter::~FCSOutputWriter() noexcept(false) = default;

void FCSOutputWriter::initMessage() {
  restart(message_);
  lineTokens_.clear();
  restart(rendered_);
}

void FCSOutputWriter::writeTrailer(DataObject *trailer, TransformContext &) {
  appendFirmToCMSTrailer(message_, trailer);
}

tvstring FCSOutputWriter::writeFirmToCMSTrailer(DataObject *trailer, TransformContext &) {
  tvstringbuffer text;
  appendFirmToCMSTrailer(text, trailer);
  return text;
}

void FCSOutputWriter::writeToken(tvstring const &text) {
  lineTokens_.push_back(text);
}
void FCSOutputWriter::writeToken(tvstring const &first, tvstring const &second) {
  lineTokens_.push_back(first);
  lineTokens_.push_back(second);
}
void FCSOutputWriter::writeToken(int value) {
  char text[11];
  writeRendered(text, static_cast<size_t>(std::to_chars(text, std::end(text), value).ptr - text));
}
void FCSOutputWriter::writeToken(double value) {
  char text[352];
  doubleToString(value, text);
  writeRendered(text, std::strlen(text));
}
void FCSOutputWriter::writeToken(DateTime const &value) {
  char text[256];
  writeRendered(text, value.asString(text, sizeof text, DATE_PATTERN));
}

void FCSOutputWriter::writeRendered(char const *text, size_t length) {
  size_t const start = rendered_.length();
  rendered_.append(text, length);
  lineTokens_.push_back(rendered_.substr(start));
}

void FCSOutputWriter::writePrice(double value) {
  bool const hasWhole = value > INT_MIN - 1.0 && value < INT_MAX + 1.0;
  int const whole = hasWhole ? static_cast<int>(value) : 0;
  double const rest = value - whole;
  tvstring const fraction = hasWhole && useFractions_ ? getFraction(rest) : tvstring();
  if (hasWhole && (rest == 0 || !fraction.empty()))
    writeToken(whole);
  else
    writeToken(value);
  if (!fraction.empty()) writeToken(fraction);
}

tvstring FCSOutputWriter::getFraction(double rest) {
  double const eighths = rest * EIGHTHS;
  if (!(eighths > 0 && eighths < EIGHTHS)) return tvstring();
  int const count = static_cast<int>(eighths);
  return tvstringliteral(FRACTIONS[eighths == count ? static_cast<size_t>(count) : 0]);
}

tvstring *FCSOutputWriter::findPrevious(int i) {
  if (i < 1 || static_cast<size_t>(i) > lineTokens_.size()) return nullptr;
  return &lineTokens_[lineTokens_.size() - static_cast<size_t>(i)];
}
tvstring FCSOutputWriter::previousToken(int i) const {
  tvstring const *const token = const_cast<FCSOutputWriter *>(this)->findPrevious(i);
  return token == nullptr ? tvstring() : *token;
}
void FCSOutputWriter::setPreviousToken(tvstring const &text, int i) {
  if (tvstring *const token = findPrevious(i)) *token = text;
}
void FCSOutputWriter::addToPreviousToken(tvstring const &text, int i) {
  tvstring *const token = findPrevious(i);
  if (token == nullptr) return;
  size_t const start = rendered_.length();
  *token = rendered_.append(*token).append(text).substr(start);
}

void FCSOutputWriter::finishLine() {
  size_t length = LINE_FEED.length();
  for (tvstring const &token : lineTokens_) length += token.length() + (&token != lineTokens_.data());
  char *at = message_.extend(length);
  for (tvstring const &token : lineTokens_) {
    if (&token != lineTokens_.data()) *at++ = ' ';
    at = std::copy(token.data(), token.data() + token.length(), at);
  }
  std::copy(LINE_FEED.data(), LINE_FEED.data() + LINE_FEED.length(), at);
  lineTokens_.clear();
  if (!rendered_.empty()) restart(rendered_);
}

void FCSOutputWriter::handleException(TransformException &exception, DataObject *) {
  throw TransformException(exception);
}

}  // namespace tavrone

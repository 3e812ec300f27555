#pragma once

// What the tag=value messages of FIX and of SIAC Canonical share: a parser that reads header, body and trailer in one
// walk, a writer of record fields, and the check that the bytes are those that were sent. A Wire names the classes of
// the format, see FIXMessage.h and SIACMessage.h.

#include <cmath>
#include <memory>
#include <typeinfo>

#include "examples/messages/CodedRules.h"
#include "tavrone/core/Raise.h"

namespace examples {

// What closes a message, and what the parser counted.
// clang-format off
struct TagValueTrailer : Record<"TagValueTrailer",
                                Field<"CheckSum", tvstring>,           // 10
                                Field<"CheckSumIndicator", tvstring>,  // 25001 of SIAC Canonical, 33 for no CheckSum
                                Field<"CountedBodyLength", int>,       // bytes from behind BodyLength to CheckSum
                                Field<"CountedCheckSum", int>> {};     // sum of all bytes before CheckSum modulo 256
// clang-format on

// Fills the trailer for a message whose CheckSum field begins at `end`, or whose end that is.
void countBytes(TagValueTrailer &trailer, tvstring const &message, size_t end);

// "Integrity": BodyLength and CheckSum are those of the bytes. To be asked first: what fails by other rules may be
// nothing but a consequence.
template <class Wire>
class TagValueIntegrity : public CodedRules {
 public:
  using CodedRules::validateHeader;
  using CodedRules::validateTrailer;
  void validateHeader(DataObject *header) override {
    bodyLength_ = Wire::bodyLengthOf(*checkedCast<typename Wire::Header>(header));
  }
  void validateTrailer(DataObject *object) override {
    auto const &trailer = *checkedCast<TagValueTrailer>(object);
    check(bodyLength_ == trailer.get<"CountedBodyLength">(), Wire::BODY_LENGTH_CODE, "BodyLength", "BodyLength");
    if (trailer.isNull<"CheckSum">()) return;
    int const sum = trailer.get<"CountedCheckSum">();
    char const digits[] = {static_cast<char>('0' + sum / 100), static_cast<char>('0' + sum / 10 % 10),
                           static_cast<char>('0' + sum % 10)};
    check(trailer.get<"CheckSum">().compare(digits, sizeof digits) == 0, Wire::CHECK_SUM_CODE, "CheckSum", "CheckSum");
  }

 private:
  int bodyLength_ = -1;  // of the header that was checked last
};

// The base of a parser of Bodies. Values share the storage of the bytes.
//
// Self has, for the body and for each element of a group, bool parseField(record, pair, ...), which is false for a tag
// that the record does not have, and assertComplete(body).
template <class Self, class Body, class Wire>
class TagValueMessageParser : public Wire::InputParser {
 public:
  ~TagValueMessageParser() noexcept(false) override = default;

  using Wire::InputParser::parse;
  // An object that an earlier message was parsed into is filled again, its parts with it.
  void parse(ExternalObject *object, Binary const &bytes, TransformContext &) override {
    auto *header = partOf<Header>(object->getHeader());
    auto *body = partOf<Body>(object->getData());
    auto *trailer = partOf<TagValueTrailer>(object->getTrailer());
    if (header == nullptr || body == nullptr || trailer == nullptr) {
      SmartPtr<Header> const newHeader(header = new Header);
      SmartPtr<Body> const newBody(body = new Body);
      SmartPtr<TagValueTrailer> const newTrailer(trailer = new TagValueTrailer);
      object->setExternalObjects(header, body, trailer);
    } else {
      object->reset();
    }
    parseMessage(*header, *body, *trailer, bytes.asText());
  }
  ExternalObject *parse(Binary const &bytes, TransformContext &context) override {
    auto object = std::make_unique<ExternalObject>();
    parse(object.get(), bytes, context);
    return object.release();
  }

 protected:
  using Header = typename Wire::Header;
  using Tokenizer = typename Wire::Tokenizer;
  using Pair = TagValuePair;

  static constexpr char SOH = '\x01';

  // Stores a value that must not have come before.
  template <FixedText Name, class Type>
  void store(Type &record, Pair const &pair) const {
    this->assertTagNew(&record, Type::template index<Name>, pair.tag);
    using Value = std::remove_cvref_t<decltype(record.template get<Name>())>;
    record.template set<Name>(convert<Value>(pair.value));
  }

  Self const &self() const { return static_cast<Self const &>(*this); }

 private:
  static constexpr int CHECK_SUM = 10;

  // The part if it is exactly a Part, which is told faster than by a cast.
  template <class Part>
  static Part *partOf(DataObject *part) {
    return part != nullptr && typeid(*part) == typeid(Part) ? static_cast<Part *>(part) : nullptr;
  }

  template <class Value>
  static decltype(auto) convert(tvstring const &text) {
    if constexpr (std::is_same_v<Value, tvstring>)
      return (text);
    else if constexpr (std::is_same_v<Value, Binary>)
      return Binary(text);
    else if constexpr (std::is_same_v<Value, int>)
      return Parsing::parseInt(text);
    else if constexpr (std::is_same_v<Value, char>)
      return Parsing::parseChar(text);
    else if constexpr (std::is_same_v<Value, bool>)
      return Wire::Type::parseBoolean(text);
    else if constexpr (std::is_same_v<Value, double>)
      return Parsing::parseDouble(text);
    else
      return Wire::Type::parseUTCTimestamp(text);
  }

  void parseMessage(Header &header, Body &body, TagValueTrailer &trailer, tvstring const &message) const {
    Tokenizer tokens(message, SOH);
    Pair pair;
    bool more = tokens.next(pair);
    for (; more && header.setTag(pair.tag, pair.value); more = tokens.next(pair)) Wire::keep(header, trailer, pair);
    for (; more; more = tokens.next(pair)) {
      if (self().parseField(body, pair, tokens)) continue;
      if (pair.tag != CHECK_SUM) tokens.pushBack(pair);
      tokens.assertEmpty();
      self().assertComplete(body);
      trailer.template set<"CheckSum">(pair.value);
      return countBytes(trailer, message, static_cast<size_t>(tokens.getTokenIndex(pair)));
    }
    if (Wire::hasCheckSum(trailer)) this->missingTag(CHECK_SUM);
    self().assertComplete(body);
    countBytes(trailer, message, message.length());
  }
};

// The base of a writer: fields of records, in the order in which generated code asks for them. A null field writes
// nothing. A text that holds the delimiter would be read back as further fields, so it fails.
template <class Wire>
class TagValueMessageWriter : public Wire::Writer {
 public:
  ~TagValueMessageWriter() noexcept(false) override = default;

  // BodyLength and CheckSum come at the end, from the bytes.
  void writeTrailer(DataObject *, TransformContext &) override {}

 protected:
  template <FixedText Name, class Type>
  void write(char const *tag, Type const &record) {
    if (!record.template isNull<Name>()) append(Name.text, tag, record.template get<Name>());
  }
  // Nothing would be written of an empty text, so that it counts as none.
  template <FixedText Name, class Type>
  void writeRequired(char const *tag, Type &record) {
    if (record.template isNull<Name>() || isEmptyText(std::as_const(record).template get<Name>()))
      this->requiredFieldMissing(&record, Type::template index<Name>, Parsing::parseInt(tag));
    append(Name.text, tag, std::as_const(record).template get<Name>());
  }

  template <class Value>
  void append(char const *name, char const *tag, Value const &value) {
    if constexpr (std::is_same_v<Value, tvstring>) {
      requireNoDelimiter(name, value);
      this->appendField(tag, value);
    } else if constexpr (std::is_same_v<Value, DateTime>) {
      this->appendField(tag, Wire::Type::formatUTCTimestamp(value, scratch_));
    } else if constexpr (std::is_same_v<Value, double>) {
      appendNumber(tag, value);
    } else if constexpr (std::is_same_v<Value, bool>) {
      this->appendField(tag, Wire::Type::formatBoolean(value, scratch_));
    } else {
      this->appendField(tag, value);
    }
  }
  // The number of bytes, then the bytes, which may hold the delimiter.
  void appendData(char const *lengthTag, char const *tag, Binary const &value) {
    if (value.length() == 0) return;
    this->appendField(lengthTag, static_cast<int>(value.length()));
    this->appendField(tag, value.asText());
  }

 private:
  template <class Value>
  static bool isEmptyText(Value const &value) {
    if constexpr (std::is_same_v<Value, tvstring>) return value.empty();
    return false;
  }
  // A whole number without the ".0" that its text would end with.
  void appendNumber(char const *tag, double value) {
    constexpr double EXACT = 1e15;
    if (std::abs(value) < EXACT && value == std::floor(value))
      this->appendField(tag, static_cast<long long>(value));
    else
      this->appendField(tag, value);
  }
  static void requireNoDelimiter(char const *name, tvstring const &text) {
    if (text.find('\x01') == tvstring::npos) return;
    auto failure = failureAt<typename Wire::WriterException>(tvstring("Field '") + name + "' holds a delimiter",
                                                             "examples/TagValueMessageWriter", __LINE__);
    failure.setErrorType(ExceptionObject::ERROR_TYPE_OUTPUT);
    failure.setFFieldName(name);
    throw failure;
  }

  tvstring scratch_;
};

// A wire format as a whole, with the validators "Integrity" and "Default".
template <class Body, class Wire, class Parser, class Writer, class Rules>
class TagValueMessage : public AbstractExternalMessage {
 public:
  TagValueMessage() : AbstractExternalMessage(Body::typeMetaInfo()->getName()) {
    addValidator(tvstringliteral("Integrity"), new TagValueIntegrity<Wire>);
    addValidator(DEFAULT_VALIDATOR, new Rules);
  }
  ~TagValueMessage() noexcept(false) override = default;

  SmartPtr<ExternalObject> createExternalObject() override {
    SmartPtr<DataObject> const header(new typename Wire::Header), data(new Body), trailer(new TagValueTrailer);
    return SmartPtr<ExternalObject>(new ExternalObject(header.get(), data.get(), trailer.get()));
  }
  InputParser *getInputParser() override { return &parser_; }
  OutputWriter *getOutputWriter() override { return &writer_; }

 private:
  Parser parser_;
  Writer writer_;
};

}  // namespace examples

#include "tavrone/core/Parsing.h"

#include <istream>
#include <ostream>

#include "tavrone/core/Raise.h"
#include "tavrone/core/WritePatterns.h"
#include "tavrone/formula/TextFunctions.h"
#include "tavrone/pipeline/InputSources.h"

namespace tavrone {
namespace {

constexpr char const *SOURCE = "cpp/Parsing";

constinit tvstringliteral const READ_DATE("yyyyMMdd");
constinit tvstringliteral const READ_TIME("HH:mm:ss.SSS");
constinit tvstringliteral const READ_DATE_TIME("yyyyMMdd-HH:mm:ss.SSS");

constinit tvstringliteral const TRUE_TEXT("true");
constinit tvstringliteral const FALSE_TEXT("false");

template <class Wrapper, auto Parse>
Object *read(tvstring const &text) {
  return new Wrapper(Parse(text));
}

template <tvstringliteral const &Pattern>
Object *readDate(tvstring const &text) {
  return text.empty() ? nullptr : new DateObject(Parsing::parseDate(text, Pattern));
}

Object *readDateTime(tvstring const &text) {
  if (text.find(':') == tvstring::npos) return readDate<READ_DATE>(text);
  return text.find('-') == tvstring::npos ? readDate<READ_TIME>(text) : readDate<READ_DATE_TIME>(text);
}

BigInteger parseBigInteger(tvstring const &text) {
  return BigInteger(Parsing::parseBigDecimal(text));
}

Object *readCharacter(tvstring const &text) {
  if (text.length() > 1) raise<FieldParsingException>(text, SOURCE);  // replaced by toRuntimeObject
  return text.empty() ? nullptr : new CharObject(text[0]);
}

struct Reader {
  tvstring const &typeName;
  Object *(*read)(tvstring const &text);
};
constexpr Reader READERS[] = {
    {DesignerTypes::STRING_TYPE, read<StringObject, Parsing::stringToString>},
    {DesignerTypes::INT_TYPE, read<IntObject, Parsing::parseInt>},
    {DesignerTypes::LONG_TYPE, read<LongObject, Parsing::parseLong>},
    {DesignerTypes::BIG_INTEGER_TYPE, read<BigIntegerObject, parseBigInteger>},
    {DesignerTypes::BIG_DECIMAL_TYPE, read<BigDecimalObject, Parsing::parseBigDecimal>},
    {DesignerTypes::BINARY_TYPE, read<BinaryObject, Parsing::parseBinary>},
    {DesignerTypes::FLOAT_TYPE, read<FloatObject, Parsing::parseFloat>},
    {DesignerTypes::DOUBLE_TYPE, read<DoubleObject, Parsing::parseDouble>},
    {DesignerTypes::DATE_TIME_TYPE, readDateTime},
    {DesignerTypes::DATE_ONLY_TYPE, readDate<READ_DATE>},
    {DesignerTypes::TIME_ONLY_TYPE, readDate<READ_TIME>},
    {DesignerTypes::BOOLEAN_TYPE, read<BoolObject, Parsing::parseBool>},
    {DesignerTypes::CHAR_TYPE, readCharacter},
};

tvstring writeDate(DateTime const &value, WritePatterns const &patterns) {
  return value.toString(tvstringliteral(patterns.of(value.getMilliseconds())));
}

constexpr size_t MAX_UTF_LENGTH = 0xFFFF;

void readExactly(std::istream &in, char *to, size_t n) {
  in.read(to, static_cast<std::streamsize>(n));
  if (in.gcount() != static_cast<std::streamsize>(n)) raise<TransformException>("Out of bounds", SOURCE);
}

}  // namespace

constinit tvstring const &Parsing::TRUE_VALUE = TRUE_TEXT;
constinit tvstring const &Parsing::FALSE_VALUE = FALSE_TEXT;
constinit tvstring const &Parsing::EMPTY = tvstring::EMPTY;

bool Parsing::parseBool(tvstring const &text) {
  if (TextFunctions::equalIgnoreCase(text, TRUE_TEXT)) return true;
  if (TextFunctions::equalIgnoreCase(text, FALSE_TEXT)) return false;
  raise<TransformException>("Cannot convert " + text + " to boolean", SOURCE);
}

char Parsing::parseChar(tvstring const &text) {
  if (text.length() != 1) raise<TransformException>("Cannot convert " + text + " to char", SOURCE);
  return text[0];
}

DateTime Parsing::parseDate(tvstring const &text, tvstring const &pattern) {
  return DateTime::fromString(text, pattern);
}
tvstring Parsing::formatDate(DateTime const &value, tvstring const &pattern) {
  return value.toString(pattern);
}
tvstring &Parsing::formatDate(DateTime const &value, tvstring const &pattern, tvstring &out) {
  char text[256];
  size_t const length = value.asString(text, sizeof text, pattern);
  return out.assign(text, length);
}

Object *Parsing::toRuntimeObject(tvstring const &text, tvstring const &typeName) {
  try {
    for (Reader const &reader : READERS)
      if (typeName == reader.typeName) return reader.read(text);
  } catch (FieldParsingException const &) {
    raiseCannotConvert(text, typeName);
  }
  raiseCannotConvert(text, typeName);
}

tvstring Parsing::runtimeObjectToString(Object const *object, tvstring const &typeName) {
  if (typeName == DesignerTypes::DATE_TIME_TYPE) return writeDate(object->getDate(), WRITE_DATE_TIME);
  if (typeName == DesignerTypes::DATE_ONLY_TYPE) return writeDate(object->getDate(), WRITE_DATE);
  if (typeName == DesignerTypes::TIME_ONLY_TYPE) return writeDate(object->getDate(), WRITE_TIME);
  if (typeName == DesignerTypes::BINARY_TYPE) return object->getBinary().toHexString();
  return object->toString();
}

Object *Parsing::toRawMessageTypeObject(Object *object) {
  if (auto const *binary = dynamic_cast<BinaryObject *>(object))
    return new RawMessageObject(new ByteArrayInputSource(binary->getValue()));
  if (auto const *text = dynamic_cast<StringObject *>(object))
    return new RawMessageObject(new StringInputSource(text->getValue()));
  return object;
}

void Parsing::writeUTF(std::ostream &out, tvstring const &text) {
  size_t const length = text.length();
  if (length > MAX_UTF_LENGTH) raise<TransformException>("Out of bounds", SOURCE);
  out.put(static_cast<char>(length >> 8)).put(static_cast<char>(length & 0xFF));
  out.write(text.data(), static_cast<std::streamsize>(length));
}

tvstring Parsing::readUTF(std::istream &in) {
  unsigned char high, low;
  readExactly(in, reinterpret_cast<char *>(&high), 1);
  readExactly(in, reinterpret_cast<char *>(&low), 1);
  int const length = high << 8 | low;
  tvstring text;
  if (length == 0) return text;
  readExactly(in, text.getBuffer(length), static_cast<size_t>(length));
  text.setBufferLength(length);
  return text;
}

void Parsing::raiseCannotConvert(tvstring const &text, tvstring const &typeName) {
  raise<TransformException>("Cannot convert '" + text + "' to " + typeName, SOURCE);
}
void Parsing::raiseNullValue() {
  raise<TransformRuntimeException>("Null value", SOURCE);
}

}  // namespace tavrone

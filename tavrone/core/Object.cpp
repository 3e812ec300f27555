#include "tavrone/core/Object.h"

#include <cstdio>
#include <exception>
#include <typeinfo>

#include "tavrone/core/BigDecimal.h"
#include "tavrone/core/Binary.h"
#include "tavrone/core/Class.h"
#include "tavrone/core/DateTime.h"
#include "tavrone/core/DesignerTypes.h"
#include "tavrone/core/Raise.h"

namespace tavrone {

constinit tvstringliteral const Object::OBJECT_TYPE("Object");

void Object::addRef() {}

void Object::releaseRef() {
  delete this;
}

tvstring Object::toString() const {
  char address[2 * sizeof(uint32_t) + 1];
  std::snprintf(address, sizeof address, "%x", static_cast<uint32_t>(reinterpret_cast<uintptr_t>(this)));
  return Class(typeid(*this)).getName() + address;
}

Object *Object::clone() const {
  if (typeid(*this) == typeid(Object)) return new Object;
  raise<Exception>("Clone not implemented in " + Class(typeid(*this)).getName(), "cpp/Object");
}

// clang-format off
int Object::getInt() const { unsupportedConversionException(DesignerTypes::INT_TYPE); }
void Object::setInt(int) { unsupportedConversionException(DesignerTypes::INT_TYPE); }
long long Object::getLong() const { unsupportedConversionException(DesignerTypes::LONG_TYPE); }
void Object::setLong(long long) { unsupportedConversionException(DesignerTypes::LONG_TYPE); }
double Object::getDouble() const { unsupportedConversionException(DesignerTypes::DOUBLE_TYPE); }
void Object::setDouble(double) { unsupportedConversionException(DesignerTypes::DOUBLE_TYPE); }
float Object::getFloat() const { unsupportedConversionException(DesignerTypes::FLOAT_TYPE); }
void Object::setFloat(float) { unsupportedConversionException(DesignerTypes::FLOAT_TYPE); }
char Object::getCharacter() const { unsupportedConversionException(DesignerTypes::CHAR_TYPE); }
void Object::setCharacter(char) { unsupportedConversionException(DesignerTypes::CHAR_TYPE); }
bool Object::getBoolean() const { unsupportedConversionException(DesignerTypes::BOOLEAN_TYPE); }
void Object::setBoolean(bool) { unsupportedConversionException(DesignerTypes::BOOLEAN_TYPE); }
BigInteger Object::getBigInteger() const { unsupportedConversionException(DesignerTypes::BIG_INTEGER_TYPE); }
void Object::setBigInteger(BigInteger const &) { unsupportedConversionException(DesignerTypes::BIG_INTEGER_TYPE); }
BigDecimal Object::getBigDecimal() const { unsupportedConversionException(DesignerTypes::BIG_DECIMAL_TYPE); }
void Object::setBigDecimal(BigDecimal const &) { unsupportedConversionException(DesignerTypes::BIG_DECIMAL_TYPE); }
DateTime Object::getDate() const { unsupportedConversionException(DesignerTypes::DATE_TIME_TYPE); }
void Object::setDate(DateTime const &) { unsupportedConversionException(DesignerTypes::DATE_TIME_TYPE); }
ISODateTime Object::getISODate() const { unsupportedConversionException(DesignerTypes::ISO_DATE_TIME_TYPE); }
void Object::setISODate(ISODateTime const &) { unsupportedConversionException(DesignerTypes::ISO_DATE_TIME_TYPE); }
tvstring Object::getString() const { unsupportedConversionException(DesignerTypes::STRING_TYPE); }
void Object::setString(tvstring const &) { unsupportedConversionException(DesignerTypes::STRING_TYPE); }
Binary Object::getBinary() const { unsupportedConversionException(DesignerTypes::BINARY_TYPE); }
void Object::setBinary(Binary const &) { unsupportedConversionException(DesignerTypes::BINARY_TYPE); }
RawMessage const &Object::getRawMessage() const { unsupportedConversionException(DesignerTypes::RAW_MESSAGE_TYPE); }
void Object::setRawMessage(RawMessage const &) { unsupportedConversionException(DesignerTypes::RAW_MESSAGE_TYPE); }
// clang-format on

tvstring const &Object::getObjectType() const {
  return OBJECT_TYPE;
}

void Object::setObject(Object const *other) {
  unsupportedConversionException(other->getObjectType());
}

void Object::unsupportedConversionException(tvstring const &target) const {
  raise<TransformException>("Cannot convert " + getObjectType() + " to " + target, "cpp/Object");
}

ObjectRef::~ObjectRef() noexcept(false) {
  if (references_ != 0 && std::uncaught_exceptions() == 0)
    raise<TransformException>(
        "Ref count error. Illegal delete for class " + Class(type_ != nullptr ? *type_ : typeid(*this)).getName(),
        "cpp/Object", 70);
}

}  // namespace tavrone

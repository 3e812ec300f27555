#pragma once

#include <type_traits>

#include "tavrone/core/BigDecimal.h"
#include "tavrone/core/Binary.h"
#include "tavrone/core/DateTime.h"
#include "tavrone/core/DesignerTypes.h"
#include "tavrone/core/NumberConversion.h"
#include "tavrone/core/Object.h"

namespace tavrone {

class DataObjectSection;

// The base of the wrappers: one value each, as an Object with a single owner.
//
// A wrapper reads and writes as its own type, number wrappers as every plain number type; all else fails as Object
// does. Text is not among the conversions: IntObject(5).getString() fails, though toString() gives "5".
class TAVRONE_API WrapperObject : public Object {
 public:
  ~WrapperObject() noexcept(false) override = 0;
};

inline WrapperObject::~WrapperObject() noexcept(false) = default;

// A wrapper of one of the four plain number types, which reads as each of them.
class TAVRONE_API NumberObject : public WrapperObject {
 public:
  int getInt() const override = 0;
  long long getLong() const override = 0;
  double getDouble() const override = 0;
  float getFloat() const override = 0;

  int intValue() const { return getInt(); }
  long long longValue() const { return getLong(); }
  double doubleValue() const { return getDouble(); }
  float floatValue() const { return getFloat(); }
};

// What every wrapper of one value consists of. `Get` is the getter by which setObject reads another object, `Type` the
// name that getObjectType gives.
template <class Wrapper, class Value, Value (Object::*Get)() const, tvstringliteral const &Type,
          class Base = WrapperObject>
class TAVRONE_API ValueObject : public Base {
 public:
  using Parameter = std::conditional_t<std::is_arithmetic_v<Value>, Value, Value const &>;

  ValueObject() = default;
  ValueObject(Parameter value) : value_(value) {}

  Parameter getValue() const { return value_; }

  Object *clone() const override { return new Wrapper(value_); }
  tvstring const &getObjectType() const override { return Type; }
  void setObject(Object const *other) override { value_ = (other->*Get)(); }

 protected:
  Value value_{};
};

// A number that reads and writes as each of the four plain number types, by convertNumber.
template <class Wrapper, class Value, Value (Object::*Get)() const, tvstringliteral const &Type>
class TAVRONE_API NumberValueObject : public ValueObject<Wrapper, Value, Get, Type, NumberObject> {
 public:
  using ValueObject<Wrapper, Value, Get, Type, NumberObject>::ValueObject;

  int getInt() const override { return convertNumber<int>(this->value_); }
  void setInt(int value) override { this->value_ = convertNumber<Value>(value); }
  long long getLong() const override { return convertNumber<long long>(this->value_); }
  void setLong(long long value) override { this->value_ = convertNumber<Value>(value); }
  double getDouble() const override { return convertNumber<double>(this->value_); }
  void setDouble(double value) override { this->value_ = convertNumber<Value>(value); }
  float getFloat() const override { return convertNumber<float>(this->value_); }
  void setFloat(float value) override { this->value_ = convertNumber<Value>(value); }
};

class TAVRONE_API IntObject : public NumberValueObject<IntObject, int, &Object::getInt, DesignerTypes::INT_TYPE> {
 public:
  using NumberValueObject::NumberValueObject;
  tvstring toString() const override;
};

class TAVRONE_API LongObject
    : public NumberValueObject<LongObject, long long, &Object::getLong, DesignerTypes::LONG_TYPE> {
 public:
  using NumberValueObject::NumberValueObject;
  tvstring toString() const override;
};

class TAVRONE_API DoubleObject
    : public NumberValueObject<DoubleObject, double, &Object::getDouble, DesignerTypes::DOUBLE_TYPE> {
 public:
  using NumberValueObject::NumberValueObject;
  tvstring toString() const override;
};

class TAVRONE_API FloatObject
    : public NumberValueObject<FloatObject, float, &Object::getFloat, DesignerTypes::FLOAT_TYPE> {
 public:
  using NumberValueObject::NumberValueObject;
  tvstring toString() const override;
};

class TAVRONE_API CharObject : public ValueObject<CharObject, char, &Object::getCharacter, DesignerTypes::CHAR_TYPE> {
 public:
  using ValueObject::ValueObject;
  tvstring toString() const override;
  char getCharacter() const override { return value_; }
  void setCharacter(char value) override { value_ = value; }
};

class TAVRONE_API BoolObject : public ValueObject<BoolObject, bool, &Object::getBoolean, DesignerTypes::BOOLEAN_TYPE> {
 public:
  using ValueObject::ValueObject;
  tvstring toString() const override;
  bool getBoolean() const override { return value_; }
  void setBoolean(bool value) override { value_ = value; }
};

class TAVRONE_API StringObject
    : public ValueObject<StringObject, tvstring, &Object::getString, DesignerTypes::STRING_TYPE> {
 public:
  using ValueObject::ValueObject;
  tvstring toString() const override;
  tvstring getString() const override { return value_; }
  void setString(tvstring const &value) override { value_ = value; }
};

class TAVRONE_API BinaryObject
    : public ValueObject<BinaryObject, Binary, &Object::getBinary, DesignerTypes::BINARY_TYPE> {
 public:
  using ValueObject::ValueObject;
  tvstring toString() const override;
  Binary getBinary() const override { return value_; }
  void setBinary(Binary const &value) override { value_ = value; }
};

// Its text has the pattern "yyyy-MM-ddTHH:mm:ss.SSS".
class TAVRONE_API DateObject
    : public ValueObject<DateObject, DateTime, &Object::getDate, DesignerTypes::DATE_TIME_TYPE> {
 public:
  using ValueObject::ValueObject;
  tvstring toString() const override;
  DateTime getDate() const override { return value_; }
  void setDate(DateTime const &value) override { value_ = value; }
};

// The text is a DateObject's: it does not show the zone.
class TAVRONE_API ISODateObject
    : public ValueObject<ISODateObject, ISODateTime, &Object::getISODate, DesignerTypes::ISO_DATE_TIME_TYPE> {
 public:
  using ValueObject::ValueObject;
  tvstring toString() const override;
  ISODateTime getISODate() const override { return value_; }
  void setISODate(ISODateTime const &value) override { value_ = value; }
};

class TAVRONE_API BigIntegerObject
    : public ValueObject<BigIntegerObject, BigInteger, &Object::getBigInteger, DesignerTypes::BIG_INTEGER_TYPE> {
 public:
  using ValueObject::ValueObject;
  tvstring toString() const override;
  BigInteger getBigInteger() const override { return value_; }
  void setBigInteger(BigInteger const &value) override { value_ = value; }
};

class TAVRONE_API BigDecimalObject
    : public ValueObject<BigDecimalObject, BigDecimal, &Object::getBigDecimal, DesignerTypes::BIG_DECIMAL_TYPE> {
 public:
  using ValueObject::ValueObject;
  tvstring toString() const override;
  BigDecimal getBigDecimal() const override { return value_; }
  void setBigDecimal(BigDecimal const &value) override { value_ = value; }
};

// A section as a field value. The section is owned or borrowed; an owned one is deleted with this object or when
// another takes its place. Copies, assignments and clones borrow.
class TAVRONE_API SectionObject : public WrapperObject {
 public:
  SectionObject() = default;
  SectionObject(DataObjectSection &section) : section_(&section) {}
  SectionObject(DataObjectSection *section, bool owns) : section_(section), owns_(owns) {}
  SectionObject(SectionObject const &other) : WrapperObject(other), section_(other.section_) {}
  SectionObject &operator=(SectionObject const &other);
  ~SectionObject() noexcept(false) override;

  DataObjectSection *getSection() const { return section_; }
  // Setting the section that is already held keeps it and its ownership; only `owns` makes a section owned.
  void setSection(DataObjectSection *section) { setSection(section, false); }
  void setSection(DataObjectSection &section) { setSection(&section, false); }
  void setSection(DataObjectSection *section, bool owns);

  // The section's text; empty without a section.
  tvstring toString() const override;
  Object *clone() const override { return new SectionObject(*this); }
  tvstring const &getObjectType() const override;
  // Borrows the section of another SectionObject; raises ClassCastException for any other object, null included.
  void setObject(Object const *other) override;

 private:
  DataObjectSection *section_ = nullptr;
  bool owns_ = false;
};

}  // namespace tavrone

#pragma once

#include <cstdint>
#include <typeinfo>

#include "tavrone/core/tvstring.h"

namespace tavrone {

class BigDecimal;
class BigInteger;
class Binary;
class DateTime;
class ISODateTime;
class RawMessage;

// The root of the value model. Two tiers of ownership share addRef and releaseRef:
//  - a plain Object, the wrappers among them, has one owner: addRef does nothing, releaseRef deletes;
//  - an ObjectRef is counted and goes with its last reference.
//
// Every typed getter and setter fails by default with TransformException "Cannot convert <own type> to <asked type>";
// a class overrides those that it supports. Objects belong to one thread at a time.
class TAVRONE_API Object {
 public:
  static tvstringliteral const OBJECT_TYPE;  // "Object"

  Object() = default;
  Object(Object const &) = default;
  Object &operator=(Object const &) = default;
  virtual ~Object() noexcept(false) = default;

  virtual void addRef();
  virtual void releaseRef();

  // By default the run-time type's name directly followed by the low 32 bits of the address in hexadecimal.
  virtual tvstring toString() const;
  // A new object, the caller's. Raises Exception "Clone not implemented in <class>" unless overridden.
  virtual Object *clone() const;

  // The value as the type of the name, and from it; a text is never read as a number, nor a number as a text.
  virtual int getInt() const;
  virtual void setInt(int value);
  virtual long long getLong() const;
  virtual void setLong(long long value);
  virtual double getDouble() const;
  virtual void setDouble(double value);
  virtual float getFloat() const;
  virtual void setFloat(float value);
  virtual char getCharacter() const;
  virtual void setCharacter(char value);
  virtual bool getBoolean() const;
  virtual void setBoolean(bool value);
  virtual BigInteger getBigInteger() const;
  virtual void setBigInteger(BigInteger const &value);
  virtual BigDecimal getBigDecimal() const;
  virtual void setBigDecimal(BigDecimal const &value);
  virtual DateTime getDate() const;
  virtual void setDate(DateTime const &value);
  virtual ISODateTime getISODate() const;
  virtual void setISODate(ISODateTime const &value);
  virtual tvstring getString() const;
  virtual void setString(tvstring const &value);
  virtual Binary getBinary() const;
  virtual void setBinary(Binary const &value);
  // Valid as long as the object holds that message.
  virtual RawMessage const &getRawMessage() const;
  virtual void setRawMessage(RawMessage const &value);

  // One of the DesignerTypes, or OBJECT_TYPE.
  virtual tvstring const &getObjectType() const;
  // Takes the other's value, read as this object's own type. REQUIRES: other is not null
  virtual void setObject(Object const *other);

  // Raises TransformException "Cannot convert " + getObjectType() + " to " + target.
  [[noreturn]] void unsupportedConversionException(tvstring const &target) const;
};

// An Object with an intrusive count that starts at 0: the first reference makes it 1, and dropping from 1 deletes.
// Interfaces derive from it by public virtual inheritance, so that an object has one count however many it implements.
//
// Its copy constructor copies the source's count, which is meant; concrete classes leave it out of their own copy
// constructors, so that a copy starts at 0.
class TAVRONE_API ObjectRef : public virtual Object {
 public:
  // Raises TransformException "Ref count error. Illegal delete for class <class>" if the count is not 0, unless another
  // failure is already on its way.
  ~ObjectRef() noexcept(false) override;

  void addRef() override {
    checkThreadOwner();
    if (references_++ == 0) type_ = &typeid(*this);
  }
  // At a count of 0 it goes on to -1 and deletes nothing.
  void releaseRef() override {
    checkThreadOwner();
    if (--references_ == 0)
      delete this;
    else if (references_ < 0)
      type_ = &typeid(*this);
  }

  // Decrements a count above 0; never deletes.
  void decRef() {
    if (references_ > 0) --references_;
  }
  bool unique() const { return references_ == 1; }
  int getRefCount() const { return references_; }

  // Both take null.
  static void addRef(Object *object) {
    if (object != nullptr) object->addRef();
  }
  static void releaseRef(Object *object) {
    if (object != nullptr) object->releaseRef();
  }

  // Leaves both counts alone.
  ObjectRef &operator=(ObjectRef const &) { return *this; }

 protected:
  ObjectRef() = default;
  ObjectRef(ObjectRef const &) = default;

 private:
  void checkThreadOwner() const {}

  int32_t references_ = 0;
  // The class as the count's leaving 0 found it: in the destructor the run-time type is already this one.
  std::type_info const *type_ = nullptr;
};

}  // namespace tavrone

#pragma once

#include <type_traits>
#include <typeinfo>

#include "tavrone/core/Conversion.h"
#include "tavrone/dataobject/FieldWalk.h"

// Internal: one field of a record, or of every record of a collection, as a reader sees it. A reader has two
// operations, which tell whether it likes the value:
//  - plain(KindTag<Kind>, value), the value that belongs to the field's kind, where the record keeps it;
//  - wrapped(Object const &), whatever else a field gives.
// A null field is false, and no reader is asked. An index must not be negative; one that a record doesn't have fails as
// that record's access does.

namespace tavrone {

// The type of a declared record; null for any other.
inline DataObjectMetaInfo const *declaredType(DataObject const &record) {
  if (!record.hasFieldOffsets()) return nullptr;
  return static_cast<AbstractDataObject const &>(record).AbstractDataObject::getMetaInfo();
}

// Where records of a declared type keep the field; OTHER where only the accessors know, and for no such type or field.
inline FieldPlace placeIn(DataObjectMetaInfo const *type, int index) {
  if (type == nullptr || index >= type->getFieldCount()) return {FieldKind::OTHER, -1};
  return type->getFieldPlaces()[static_cast<size_t>(index)];
}

// What a generic record holds, not a clone of it.
template <class Reader>
bool readHeld(DataObject &record, int index, Reader &reader) {
  if (record.isNull(index)) return false;
  Object const &value = *record.getFieldCheckNull(index);
  return withKind(record.getMetaInfo()->getFieldMetaInfo(index)->getKind(), [&](auto kind) TAVRONE_INLINED {
    constexpr FieldKind KIND = kind;
    if constexpr (HasPlainValue<KIND>) {
      using Wrapper = typename FieldOf<KIND>::Wrapper;
      if (typeid(value) == typeid(Wrapper)) return reader.plain(kind, static_cast<Wrapper const &>(value).getValue());
    }
    return reader.wrapped(value);
  });
}

// A field that only the accessors know.
template <class Reader>
bool readWrapped(DataObject &record, int index, Reader &reader) {
  if (isPlainGeneric(record)) return readHeld(record, index, reader);
  SmartPtr<Object> const value(record.getField(index));
  return !value.isNull() && reader.wrapped(*value);
}

// The field of any record.
template <class Reader>
[[gnu::noinline]] bool readField(DataObject &record, int index, Reader &reader) {
  FieldPlace const place = placeIn(declaredType(record), index);
  return withKind(place.kind, [&](auto kind) TAVRONE_INLINED {
    constexpr FieldKind KIND = kind;
    if constexpr (HasPlainValue<KIND>)
      return !record.isNull(index) &&
             reader.plain(kind, storedValue<typename FieldOf<KIND>::Value>(record, place.offset));
    else
      return readWrapped(record, index, reader);
  });
}

// Goes over the elements; true as soon as visit(what the reader says, position) is. The first element tells the type
// and the kind: elements of that type are read in a loop of that kind. REQUIRES: there is an element
template <class Reader, class Visit>
bool findField(DataObjectCollection &collection, int index, Reader &reader, Visit const &visit) {
  int const count = collection.getElementCount();
  DataObjectMetaInfo const *const type = declaredType(*collection.getElement(0));
  FieldPlace const place = placeIn(type, index);
  return withKind(place.kind, [&](auto kind) {
    constexpr FieldKind KIND = kind;
    auto const read = [&](DataObject &element) TAVRONE_INLINED {
      if constexpr (HasPlainValue<KIND>)
        if (declaredType(element) == type)
          return static_cast<AbstractDataObject &>(element).isNotNull(index) &&
                 reader.plain(kind, storedValue<typename FieldOf<KIND>::Value>(element, place.offset));
      return readField(element, index, reader);
    };
    for (int i = 0; i < count; ++i)
      if (visit(read(*collection.getElement(i)), i)) return true;
    return false;
  });
}

// The section of a field, borrowed; null for a null field. It is never asked for before its flag: a generic record
// would make one.
inline DataObjectSection *nestedSection(DataObject &record, int index) {
  FieldPlace const place = placeIn(declaredType(record), index);
  if (place.kind == FieldKind::SECTION)
    return static_cast<AbstractDataObject &>(record).isNotNull(index)
               ? &storedValue<DataObjectSectionImpl>(record, place.offset)
               : nullptr;
  if (index < record.getFieldCount() && record.isNull(index)) return nullptr;
  return record.getSection(index);
}

// Likes any value.
struct AnyValue {
  template <class Kind, class Value>
  bool plain(Kind, Value const &) const {
    return true;
  }
  bool wrapped(Object const &) const { return true; }
};

// The value's toString().
template <FieldKind Kind, class Value>
tvstring textOf(Value const &value) {
  if constexpr (std::is_same_v<Value, tvstring>)
    return value;
  else
    return typename FieldOf<Kind>::Wrapper(value).toString();
}

// Likes any value, and keeps its text.
struct TextFrom {
  template <class Kind, class Value>
  bool plain(Kind, Value const &value) {
    text = textOf<Kind::value>(value);
    return true;
  }
  bool wrapped(Object const &value) {
    text = value.toString();
    return true;
  }

  tvstring text;
};

// Likes a value with this text, that of its toString().
struct EqualText {
  template <class Kind, class Value>
  bool plain(Kind, Value const &value) const {
    char buffer[352];  // for a double
    if constexpr (std::is_same_v<Value, tvstring>)
      return value == text;
    else if constexpr (std::is_same_v<Value, char>)
      return text.length() == 1 && text[0] == value;
    else if constexpr (std::is_same_v<Value, int>)
      return text == intToString(value, buffer);
    else if constexpr (std::is_same_v<Value, long long>)
      return t_ltoa(value, buffer), text == buffer;
    else if constexpr (std::is_same_v<Value, float>)
      return text == floatToString(value, buffer);
    else if constexpr (std::is_same_v<Value, double>)
      return text == doubleToString(value, buffer);
    else
      return text == textOf<Kind::value>(value);
  }
  bool wrapped(Object const &value) const { return text == value.toString(); }

  tvstring const &text;
};

// Likes the value of a NumberObject, and keeps it, read as a Number: int or double.
template <class Number>
struct AnyNumber {
  template <class Kind, class Value>
  bool plain(Kind, Value const &value) {
    constexpr bool IS_NUMBER = std::is_base_of_v<NumberObject, typename FieldOf<Kind::value>::Wrapper>;
    if constexpr (IS_NUMBER) number = convertNumber<Number>(value);
    return IS_NUMBER;
  }
  bool wrapped(Object const &value) {
    auto const *wrapper = dynamic_cast<NumberObject const *>(&value);
    if (wrapper == nullptr) return false;
    if constexpr (std::is_same_v<Number, int>)
      number = wrapper->getInt();
    else
      number = wrapper->getDouble();
    return true;
  }

  Number number;
};

}  // namespace tavrone

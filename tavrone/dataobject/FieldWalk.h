#pragma once

#include <type_traits>
#include <typeinfo>
#include <utility>

#include "tavrone/core/Exceptions.h"
#include "tavrone/dataobject/FieldAccess.h"
#include "tavrone/dataobject/FieldKinds.h"
#include "tavrone/dataobject/GenericDataObject.h"

// Internal: the values of a record's fields, in index order and without a wrapper on the heap, for code that appends
// them to a buffer. `at`, where the next byte goes, is handed in and comes back moved on. Null fields are left out, and
// so is one that counts as set but reads null. A Sink has three operations, each of them given `at`, the field's index
// and its FieldMetaInfo:
//  - plain(KindTag<Kind>, ...), the value that belongs to the kind;
//  - section(...), a DataObjectSection *, which may be null;
//  - other(...), whatever else a field gives, as an Object &.

#define TAVRONE_INLINED __attribute__((always_inline))

namespace tavrone {

template <class Sink>
char *walkValue(char *at, int index, FieldMetaInfo const &field, Object &value, Sink &&sink) {
  if (auto *wrapper = dynamic_cast<SectionObject *>(&value))
    return sink.section(at, index, field, wrapper->getSection());
  return sink.other(at, index, field, value);
}

// A field that only the accessors know, as a wrapper of their own.
template <class Sink>
[[gnu::noinline]] char *walkMade(char *at, DataObject const &object, int index, FieldMetaInfo const &field,
                                 Sink &&sink) {
  SmartPtr<Object> const value(object.getField(index));
  return value.isNull() ? at : walkValue(at, index, field, *value, sink);
}

// A declared record: where it keeps the values.
template <class Sink>
char *walkStored(char *at, AbstractDataObject &object, Sink &&sink) {
  DataObjectMetaInfo const &type = *object.AbstractDataObject::getMetaInfo();
  FieldPlace const *const places = type.getFieldPlaces().data();
  int const count = type.getFieldCount();
  for (int i = 0; i < count; ++i) {
    if (!object.isNotNull(i)) continue;
    FieldPlace const place = places[i];
    auto const field = [&]() -> FieldMetaInfo const & { return *type.begin()[i]; };
    at = withKind(place.kind, [&](auto kind) TAVRONE_INLINED {
      constexpr FieldKind KIND = kind;
      if constexpr (KIND == FieldKind::SECTION)
        return sink.section(at, i, field(), &storedValue<DataObjectSectionImpl>(object, place.offset));
      else if constexpr (KIND == FieldKind::DATA_OBJECT)
        return sink.section(at, i, field(), &storedValue<DataObjectSingleElementSectionImpl>(object, place.offset));
      else if constexpr (HasPlainValue<KIND>)
        return sink.plain(kind, at, i, field(), storedValue<typename FieldOf<KIND>::Value>(object, place.offset));
      else
        return walkMade(at, object, i, field(), sink);
    });
  }
  return at;
}

// A generic record: the wrappers that it holds, not clones of them.
template <class Sink>
char *walkHeld(char *at, DataObject &object, Sink &&sink) {
  DataObjectMetaInfo const &type = *object.getMetaInfo();
  int const count = type.getFieldCount();
  for (int i = 0; i < count; ++i) {
    if (object.isNull(i)) continue;
    FieldMetaInfo const &field = *type.getFieldMetaInfo(i);
    Object &value = *object.getFieldCheckNull(i);
    at = withKind(field.getKind(), [&](auto kind) {
      constexpr FieldKind KIND = kind;
      if constexpr (HasPlainValue<KIND>) {
        using Wrapper = typename FieldOf<KIND>::Wrapper;
        if (typeid(value) == typeid(Wrapper))
          return sink.plain(kind, at, i, field, static_cast<Wrapper const &>(value).getValue());
      }
      return walkValue(at, i, field, value, sink);
    });
  }
  return at;
}

// A wrapper that tells whether anybody has filled it with a value of its own type, and so one that no setter changed.
template <class Wrapper>
class Watched final : public Wrapper {
 public:
  bool isFilled() const { return isFilled_; }

#define TAVRONE_WATCHED(set, Parameter)                                \
  void set(Parameter value) override {                                 \
    Wrapper::set(value);                                               \
    isFilled_ = std::is_same_v<std::remove_cvref_t<Parameter>, Value>; \
  }
  TAVRONE_WATCHED(setInt, int)
  TAVRONE_WATCHED(setLong, long long)
  TAVRONE_WATCHED(setDouble, double)
  TAVRONE_WATCHED(setFloat, float)
  TAVRONE_WATCHED(setCharacter, char)
  TAVRONE_WATCHED(setBoolean, bool)
  TAVRONE_WATCHED(setBigInteger, BigInteger const &)
  TAVRONE_WATCHED(setBigDecimal, BigDecimal const &)
  TAVRONE_WATCHED(setDate, DateTime const &)
  TAVRONE_WATCHED(setISODate, ISODateTime const &)
  TAVRONE_WATCHED(setString, tvstring const &)
  TAVRONE_WATCHED(setBinary, Binary const &)
#undef TAVRONE_WATCHED
  void setObject(Object const *value) override {
    Wrapper::setObject(value);
    isFilled_ = value != nullptr && typeid(*value) == typeid(Wrapper);
  }

 private:
  using Value = std::remove_cvref_t<decltype(std::declval<Wrapper const &>().getValue())>;

  bool isFilled_ = false;
};

// A class may know how to make wrappers only: then it fails, or leaves this one as it is.
inline void fill(DataObject const &object, int index, Object &wrapper) {
  try {
    object.getField(index, wrapper);
  } catch (Exception const &) {  // getField(index) tells better
  }
}

// Any other record: the accessors, with a wrapper on the stack where they fill it.
template <class Sink>
char *walkAccessed(char *at, DataObject &object, Sink &&sink) {
  DataObjectMetaInfo const &type = *object.getMetaInfo();
  int const count = object.getFieldCount();
  for (int i = 0; i < count; ++i) {
    if (object.isNull(i)) continue;
    FieldMetaInfo const &field = *type.getFieldMetaInfo(i);
    at = withKind(field.getKind(), [&](auto kind) {
      constexpr FieldKind KIND = kind;
      if constexpr (HasPlainValue<KIND>) {
        Watched<typename FieldOf<KIND>::Wrapper> wrapper;
        fill(object, i, wrapper);
        if (wrapper.isFilled()) return sink.plain(kind, at, i, field, wrapper.getValue());
      } else if constexpr (KIND == FieldKind::SECTION) {
        SectionObject wrapper;
        fill(object, i, wrapper);
        if (wrapper.getSection() != nullptr) return sink.section(at, i, field, wrapper.getSection());
      }
      return walkMade(at, object, i, field, sink);
    });
  }
  return at;
}

// Whether exactly a GenericDataObject: what derives from it may keep its values elsewhere.
inline bool isPlainGeneric(DataObject const &object) {
  return typeid(object) == typeid(GenericDataObject);
}

template <class Sink>
char *walkFields(char *at, DataObject &object, Sink &&sink) {
  if (object.hasFieldOffsets()) return walkStored(at, static_cast<AbstractDataObject &>(object), sink);
  return isPlainGeneric(object) ? walkHeld(at, object, sink) : walkAccessed(at, object, sink);
}

}  // namespace tavrone

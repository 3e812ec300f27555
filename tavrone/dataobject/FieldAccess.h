#pragma once

#include <type_traits>

#include "tavrone/dataobject/AbstractDataObject.h"
#include "tavrone/dataobject/DataObjectSectionImpl.h"
#include "tavrone/dataobject/FieldKinds.h"
#include "tavrone/dataobject/MetaInfo.h"

// The values of declared records (Record.h) where they stand, for code that walks over all fields of a record: no
// wrapper, no virtual call. Null flags are not looked at: a null field has a value here too, meaningless but valid.
//
//   if (!visitStored(*record, field, [&](auto const &value) { append(value); })) ... by getField(i, out)

namespace tavrone {

// Calls visit(value) with the field's value where the record keeps it, const for a const record; false without a call
// where only the accessors know. The class of the value follows from the field's kind:
//   tvstring, int, long long, float, double, char, bool, Binary, BigInteger, BigDecimal, RawMessage;
//   DateTime for DATE_TIME, DATE_ONLY and TIME_ONLY; ISODateTime for ISO_DATE_TIME, ISO_DATE and ISO_TIME;
//   DataObjectSectionImpl for SECTION, DataObjectSingleElementSectionImpl for DATA_OBJECT.
// REQUIRES: `field` is one of the record's own metadata
template <class Holder, class Visitor>
bool visitStored(Holder &record, FieldMetaInfo const &field, Visitor &&visit);

// The value itself. REQUIRES: the field has an offset, and Value is the class that its kind tells
template <class Value>
Value const &storedValue(DataObject const &record, FieldMetaInfo const &field) {
  return *reinterpret_cast<Value const *>(reinterpret_cast<char const *>(&record) + field.getOffset());
}
template <class Value>
Value &storedValue(DataObject &record, int offset) {
  return *reinterpret_cast<Value *>(reinterpret_cast<char *>(&record) + offset);
}
template <class Value>
Value &storedValue(DataObject &record, FieldMetaInfo const &field) {
  return storedValue<Value>(record, field.getOffset());
}

// Marks the field as set, after a value was written in place. REQUIRES: record.hasFieldOffsets()
inline void setStoredNotNull(DataObject &record, int index) {
  static_cast<AbstractDataObject &>(record).setNotNull(index);
}

template <class Holder, class Visitor>
bool visitStored(Holder &record, FieldMetaInfo const &field, Visitor &&visit) {
  std::conditional_t<std::is_const_v<Holder>, DataObject const, DataObject> &base = record;
  if (!base.hasFieldOffsets() || field.getOffset() < 0) return false;
  return withKind(field.getKind(), [&](auto kind) {
    constexpr FieldKind KIND = kind;
    if constexpr (KIND == FieldKind::SECTION)
      visit(storedValue<DataObjectSectionImpl>(base, field));
    else if constexpr (KIND == FieldKind::DATA_OBJECT)
      visit(storedValue<DataObjectSingleElementSectionImpl>(base, field));
    else if constexpr (HasValue<KIND>)
      visit(storedValue<typename FieldOf<KIND>::Value>(base, field));
    else
      return false;
    return true;
  });
}

}  // namespace tavrone

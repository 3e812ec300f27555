#pragma once

#include <type_traits>

#include "tavrone/core/BigDecimal.h"
#include "tavrone/core/Binary.h"
#include "tavrone/core/DateTime.h"
#include "tavrone/dataobject/AbstractDataObject.h"
#include "tavrone/dataobject/DataObjectSectionImpl.h"
#include "tavrone/dataobject/MetaInfo.h"

// The values of declared records (Record.h) where they stand, for code that walks over all fields of a record: no
// wrapper, no virtual call. Null flags are not looked at: a null field has a value here too, meaningless but valid.
//
//   if (!visitStored(*record, field, [&](auto const &value) { append(value); })) ... by getField(i, out)

namespace tavrone {

// Calls visit(value) with the field's value where the record keeps it, const for a const record; false without a call
// where only the accessors know. The class of the value follows from the field's kind:
//   tvstring, int, long long, float, double, char, bool, Binary, BigInteger, BigDecimal;
//   DateTime for DATE_TIME, DATE_ONLY and TIME_ONLY; ISODateTime for ISO_DATE_TIME, ISO_DATE and ISO_TIME;
//   DataObjectSectionImpl for SECTION, DataObjectSingleElementSectionImpl for DATA_OBJECT.
// REQUIRES: `field` is one of the record's own metadata
template <class Record, class Visitor>
bool visitStored(Record &record, FieldMetaInfo const &field, Visitor &&visit);

// The value itself. REQUIRES: the field has an offset, and Value is the class that its kind tells
template <class Value>
Value const &storedValue(DataObject const &record, FieldMetaInfo const &field) {
  return *reinterpret_cast<Value const *>(reinterpret_cast<char const *>(&record) + field.getOffset());
}
template <class Value>
Value &storedValue(DataObject &record, FieldMetaInfo const &field) {
  return *reinterpret_cast<Value *>(reinterpret_cast<char *>(&record) + field.getOffset());
}

// Marks the field as set, after a value was written in place. REQUIRES: record.hasFieldOffsets()
inline void setStoredNotNull(DataObject &record, int index) {
  static_cast<AbstractDataObject &>(record).setNotNull(index);
}

template <class Record, class Visitor>
bool visitStored(Record &record, FieldMetaInfo const &field, Visitor &&visit) {
  using Base = std::conditional_t<std::is_const_v<Record>, DataObject const, DataObject>;
  Base &base = record;
  if (!base.hasFieldOffsets() || field.getOffset() < 0) return false;
  switch (field.getKind()) {
    case FieldKind::STRING:
      return visit(storedValue<tvstring>(base, field)), true;
    case FieldKind::INTEGER:
      return visit(storedValue<int>(base, field)), true;
    case FieldKind::LONG:
      return visit(storedValue<long long>(base, field)), true;
    case FieldKind::FLOAT:
      return visit(storedValue<float>(base, field)), true;
    case FieldKind::DOUBLE:
      return visit(storedValue<double>(base, field)), true;
    case FieldKind::CHARACTER:
      return visit(storedValue<char>(base, field)), true;
    case FieldKind::BOOLEAN:
      return visit(storedValue<bool>(base, field)), true;
    case FieldKind::BINARY:
      return visit(storedValue<Binary>(base, field)), true;
    case FieldKind::DATE_TIME:
    case FieldKind::DATE_ONLY:
    case FieldKind::TIME_ONLY:
      return visit(storedValue<DateTime>(base, field)), true;
    case FieldKind::ISO_DATE_TIME:
    case FieldKind::ISO_DATE:
    case FieldKind::ISO_TIME:
      return visit(storedValue<ISODateTime>(base, field)), true;
    case FieldKind::BIG_INTEGER:
      return visit(storedValue<BigInteger>(base, field)), true;
    case FieldKind::BIG_DECIMAL:
      return visit(storedValue<BigDecimal>(base, field)), true;
    case FieldKind::SECTION:
      return visit(storedValue<DataObjectSectionImpl>(base, field)), true;
    case FieldKind::DATA_OBJECT:
      return visit(storedValue<DataObjectSingleElementSectionImpl>(base, field)), true;
    case FieldKind::RAW_MESSAGE:
    case FieldKind::OTHER:
      break;
  }
  return false;
}

}  // namespace tavrone

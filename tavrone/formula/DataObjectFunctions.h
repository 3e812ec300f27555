#pragma once

#include "tavrone/core/DateTime.h"
#include "tavrone/dataobject/DataObject.h"

namespace tavrone {

// What formulas ask of a record. A field's name may be a path, "Owner.Address.City": a nested record or a section leads
// on to its first element, a part of an ExternalObject to that part.
//
// A null record, an unknown path and one through records that are not there read as a null field; storing into them
// changes nothing, but that setField makes the nested records on the way. Records are borrowed.
class TAVRONE_API DataObjectFunctions {
 public:
  static bool isNull(DataObject *record, tvstring const &path);
  static bool isNotNull(DataObject *record, tvstring const &path) { return !isNull(record, path); }
  // Whether there is such a field, null or not, be the records on the way there or not.
  static bool exists(DataObject *record, tvstring const &path);

  // A new wrapper, the caller's (a part of an ExternalObject: itself, so hold the result in a SmartPtr). Null for a
  // null field.
  static Object *getField(DataObject *record, tvstring const &path);
  // The field's toString(); empty for a null field.
  static tvstring getText(DataObject *record, tvstring const &path);
  // `otherwise` for a null field and for a value that is no number. Numbers convert as wrappers do; big numbers and
  // texts, as they do; what fails there is no number, nor is an empty text.
  static int getInt(DataObject *record, tvstring const &path, int otherwise);
  static long long getLong(DataObject *record, tvstring const &path, long long otherwise);
  static double getDouble(DataObject *record, tvstring const &path, double otherwise);
  // `otherwise` for a null field and for a value that is no date.
  static DateTime getDate(DataObject *record, tvstring const &path, DateTime const &otherwise);

  // A null value makes the field null. A value that the field doesn't take fails as the record's setField does, and a
  // null field stays null.
  static void setField(DataObject *record, tvstring const &path, Object const *value);
  static void setNull(DataObject *record, tvstring const &path);

  // Field by field, by index; for records of one type.
  static void copy(DataObject const *from, DataObject *to);
  // The fields that both have by name, and by type or as plain numbers of any type; sections element by element in the
  // same way. What is null in the source becomes null. Other fields stay.
  static void copyMatching(DataObject const *from, DataObject *to);
  // Whether both have the same fields by name with the same values, sections element by element. True for two nulls.
  static bool equal(DataObject *a, DataObject *b);
  // True for a null record.
  static bool isEmpty(DataObject *record);

  // Null for a null record; parent also for one that no section holds.
  static DataObject *root(DataObject *record);
  static DataObject *parent(DataObject *record);
  // 0 for a null record; empty for an index without a field.
  static int fieldCount(DataObject *record);
  static tvstring fieldName(DataObject *record, int index);
  static tvstring fieldType(DataObject *record, int index);
  static tvstring toXML(DataObject *record);
};

}  // namespace tavrone

#pragma once

#include "tavrone/dataobject/DataObjectSection.h"

// Internal: where dotted paths lead in a record.

namespace tavrone {

enum class MissingRecords { STAY, ARE_MADE };

// The record that holds the last field of a path, and that field's index.
struct LocatedField {
  bool isKnown() const { return record != nullptr; }

  DataObject *record = nullptr;  // null where the path leads nowhere; borrowed from the record that was asked
  int index = -1;
};

// -1 for an unknown name.
int findIndex(DataObject const &record, tvstring const &name);

// The section of a field; null for a plain field, and for a null one that is not made.
DataObjectSection *findSection(DataObject &record, int index, MissingRecords missing);

// A new element, added; the section's.
DataObject *addNewElement(DataObjectSection &section);

// Follows "field.field.field": a section leads on to its first element, made where there is none if so asked, and a
// part of an ExternalObject to that part. `record` may be null.
LocatedField followPath(DataObject *record, tvstring const &path, MissingRecords missing = MissingRecords::STAY);

// Whether the records that a path goes through have such fields, be they there or not.
bool isPathKnown(DataObject *record, tvstring const &path);

}  // namespace tavrone

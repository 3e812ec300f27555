#include "tavrone/formula/FieldPaths.h"

#include "tavrone/core/Exceptions.h"
#include "tavrone/core/Wrappers.h"
#include "tavrone/dataobject/DataObjectSectionImpl.h"
#include "tavrone/formula/FieldReaders.h"

namespace tavrone {
namespace {

// A path's first name, and what stands behind it.
struct FirstName {
  explicit FirstName(tvstring const &path) {
    size_t const dot = path.find('.');
    isLast = dot == tvstring::npos;
    name = isLast ? path : path.substr(0, dot);
    if (!isLast) rest = path.substr(dot + 1);
  }

  tvstring name;
  tvstring rest;
  bool isLast;
};

bool holdsSection(DataObject const &record, int index) {
  FieldKind const kind = FieldMetaInfo::kindOf(record.getFieldType(index));
  return kind == FieldKind::SECTION || kind == FieldKind::DATA_OBJECT;
}

DataObject *findPart(DataObject const &record, int index) {
  SmartPtr<Object> const part(record.getField(index));
  auto *counted = dynamic_cast<DataObject *>(part.get());
  // One that the record doesn't hold, too, is gone in a moment.
  return counted == nullptr || counted->unique() ? nullptr : counted;
}

DataObject *findNested(DataObject &record, int index, MissingRecords missing) {
  if (!holdsSection(record, index)) return record.isNull(index) ? nullptr : findPart(record, index);
  DataObjectSection *section = findSection(record, index, missing);
  if (section == nullptr) return nullptr;
  if (section->getElementCount() != 0) return section->getElement(0);
  return missing == MissingRecords::ARE_MADE ? addNewElement(*section) : nullptr;
}

bool isPathKnown(DataObjectMetaInfo const *type, tvstring const &path) {
  if (type == nullptr) return false;
  FirstName const first(path);
  int const index = type->getFieldIndexIfExists(first.name);
  if (index < 0 || first.isLast) return index >= 0;
  auto const *section = dynamic_cast<SectionMetaInfo const *>(type->getFieldMetaInfo(index));
  return section != nullptr && isPathKnown(section->getDataObjectMetaInfo(), first.rest);
}

}  // namespace

int findIndex(DataObject const &record, tvstring const &name) {
  try {
    return record.getFieldIndex(name);
  } catch (FieldNotFoundException const &) {
    return -1;
  }
}

DataObjectSection *findSection(DataObject &record, int index, MissingRecords missing) {
  if (!holdsSection(record, index)) return nullptr;
  if (!record.isNull(index)) return nestedSection(record, index);
  if (missing == MissingRecords::STAY) return nullptr;
  // A typed record keeps the section of a null field, with what it held.
  auto *typed = dynamic_cast<AbstractDataObject *>(&record);
  if (typed != nullptr) typed->setNotNull(index);
  DataObjectSection *section = record.getSection(index);
  if (typed != nullptr) section->clear();
  return section;
}

DataObject *addNewElement(DataObjectSection &section) {
  if (auto *known = dynamic_cast<AbstractDataObjectSection *>(&section)) return known->addNewElement();
  SmartPtr<DataObject> const element(section.createElement());
  section.addElement(element.get());
  return element.get();
}

LocatedField followPath(DataObject *record, tvstring const &path, MissingRecords missing) {
  tvstring rest = path;
  while (record != nullptr) {
    FirstName const first(rest);
    int const index = findIndex(*record, first.name);
    if (index < 0) break;
    if (first.isLast) return {record, index};
    record = findNested(*record, index, missing);
    rest = first.rest;
  }
  return {};
}

bool isPathKnown(DataObject *record, tvstring const &path) {
  tvstring rest = path;
  while (record != nullptr) {
    FirstName const first(rest);
    int const index = findIndex(*record, first.name);
    if (index < 0 || first.isLast) return index >= 0;
    DataObject *const nested = findNested(*record, index, MissingRecords::STAY);
    if (nested == nullptr) return isPathKnown(record->getMetaInfo(), rest);
    record = nested;
    rest = first.rest;
  }
  return false;
}

}  // namespace tavrone

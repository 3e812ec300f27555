#pragma once

#include "tavrone/dataobject/DataObjectSection.h"
#include "tavrone/formula/TextFunctions.h"

namespace tavrone {

// What formulas ask of a section, and do to it. Positions are 0-based; elements are borrowed. A field's name may be a
// path, as DataObjectFunctions follows it from each element. A null section has no elements and takes none; an unknown
// field is null in all elements.
class TAVRONE_API SectionFunctions {
 public:
  static int count(DataObjectSection *section) { return section == nullptr ? 0 : section->getElementCount(); }
  // Whether there is no element, or none that is not empty.
  static bool isEmpty(DataObjectSection *section) { return section == nullptr || section->isEmpty(); }
  // Null for a position out of range.
  static DataObject *element(DataObjectSection *section, int index);
  static DataObject *first(DataObjectSection *section) { return element(section, 0); }
  static DataObject *last(DataObjectSection *section) { return element(section, count(section) - 1); }

  // A new element, added. Fails as createElement and addElement do.
  static DataObject *addElement(DataObjectSection *section);
  // False for a position out of range.
  static bool removeElement(DataObjectSection *section, int index);
  static void clear(DataObjectSection *section);
  // Replaces the elements of `to` by copies of the others, which its own record makes and DataObjectBase::copy fills.
  // When one can't be made, `to` is as it was.
  static void copy(DataObjectSection *from, DataObjectSection *to);

  // The first element whose field has this text, that of its toString(): its position or -1, and itself or null.
  static int indexOf(DataObjectSection *section, tvstring const &field, tvstring const &value);
  static DataObject *find(DataObjectSection *section, tvstring const &field, tvstring const &value);
  // By the field's value: numbers by size, dates in time (as they stand, without their zone), texts and bytes as
  // tvstring orders them, null before all. Elements that are equal keep their order, in descending order too.
  static void sort(DataObjectSection *section, tvstring const &field, bool ascending);
  // Whether no two elements have an equal value; null fields don't count.
  static bool isUnique(DataObjectSection *section, tvstring const &field);
  // Whether the number of elements keeps to the section's least and greatest.
  static bool withinLimits(DataObjectSection *section);
  // The texts of the fields that are not null.
  static TList<std::vector<tvstring>, tvstring> values(DataObjectSection *section, tvstring const &field);
};

}  // namespace tavrone

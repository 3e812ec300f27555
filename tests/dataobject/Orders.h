#pragma once

#include "tavrone/core/Wrappers.h"
#include "tavrone/dataobject/DataObjectSection.h"

namespace tavrone {

// Sets fields that follow one another.
template <class... Values>
void setFields(DataObject &record, int first, Values const &...values) {
  (record.setField(first++, values), ...);
}

// Adds a leg with the value in its one field that is set.
inline DataObject *addLeg(DataObject &order, char const *field, Object const &value) {
  DataObjectSection *legs = order.getSection("Legs");
  SmartPtr<DataObject> const leg(legs->createElement());
  leg->setField(field, value);
  legs->addElement(leg.get());
  return leg.get();
}
inline DataObject *addLeg(DataObject &order, int ratio) {
  return addLeg(order, "Ratio", IntObject(ratio));
}

}  // namespace tavrone

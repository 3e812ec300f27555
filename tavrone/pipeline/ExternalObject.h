#pragma once

#include "tavrone/core/SmartPtr.h"
#include "tavrone/dataobject/AbstractDataObject.h"

namespace tavrone {

// The parsed form of any external message: three records, of which header and trailer may be null. getField hands out
// the part itself, so hold every result in a SmartPtr.
class TAVRONE_API ExternalObject : public AbstractDataObject {
 public:
  // All three null.
  ExternalObject();
  // Holds a reference on each and marks all three as set.
  ExternalObject(DataObject *header, DataObject *data, DataObject *trailer);
  ExternalObject(ExternalObject const &other);
  ExternalObject &operator=(ExternalObject const &other);
  ~ExternalObject() noexcept(false) override;

  // Replaces all three: adds the new references before it releases the old ones.
  void setExternalObjects(DataObject *header, DataObject *data, DataObject *trailer);

  // Borrowed, possibly null.
  DataObject *getHeader() const { return header.get(); }
  DataObject *getData() const { return data.get(); }
  DataObject *getTrailer() const { return trailer.get(); }

  // With clones of the parts.
  Object *clone() const override;
  // Resets each part and keeps it, so that an object can be parsed into again.
  void reset() override;
  tvstring toXMLString() override;
  tvstring toXMLString(int level) override;

  // The parts by index, whatever their flags say: each borrowed, or null. A wrapper of the caller's cannot take one: it
  // fails by its own setObject.
  using AbstractDataObject::getField0;
  Object *getField0(int index, Object *out) const override;
  // Takes a reference on the value, which must be a DataObject: else ClassCastException. Leaves the flag as it is.
  void setField0(int index, Object const *value) override;

  SmartPtr<DataObject> header;
  SmartPtr<DataObject> data;
  SmartPtr<DataObject> trailer;

 private:
  using Part = SmartPtr<DataObject> ExternalObject::*;

  static constexpr int PART_COUNT = 3;
  static constexpr Part PARTS[PART_COUNT] = {&ExternalObject::header, &ExternalObject::data, &ExternalObject::trailer};

  static bool isPart(int index) { return index >= 0 && index < PART_COUNT; }

  bool flags_[PART_COUNT];
};

}  // namespace tavrone

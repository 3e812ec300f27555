#pragma once

#include "tavrone/core/Object.h"

namespace tavrone {

// One structured record of typed fields: a parsed message, its header, or one element of a repeating section. Counted;
// held by SmartPtr<DataObject>.
class TAVRONE_API DataObject : public virtual ObjectRef {
 public:
  // A new wrapper, the caller's, or null for a null field. Raises FieldNotFoundException for an unknown name.
  virtual Object *getField(tvstring const &name) const = 0;
  virtual tvstring toXMLString() = 0;
};

}  // namespace tavrone

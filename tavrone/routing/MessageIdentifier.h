#pragma once

#include "tavrone/dataobject/DataObject.h"
#include "tavrone/pipeline/InputSource.h"

namespace tavrone {

// Recognises the messages of one kind.
class TAVRONE_API MessageIdentifier : public Object {
 public:
  // The header as a new object, or null when the input is not of this kind. The caller adds its reference.
  virtual DataObject *identifyMessage(InputSource &input) = 0;
  virtual void setProperty(tvstring const & /*name*/, tvstring const & /*value*/) {}
};

}  // namespace tavrone

#pragma once

#include "tavrone/context/IService.h"
#include "tavrone/context/TransformContext.h"
#include "tavrone/dataobject/DataObject.h"
#include "tavrone/pipeline/InputSource.h"

namespace tavrone {

// One input channel: turns raw input into an object and hands it on. It keeps the object of the message in progress, so
// it serves one message at a time.
class TAVRONE_API IInputFormat : public IService {
 public:
  // Parses and stops there. Returns a new object with a count of 0, the caller's. Borrows input and context, as below.
  virtual DataObject *handleInput(InputSource &input, TransformContext &context) = 0;
  // Parses and hands the object to whatever stands behind this format; failures of both reach the caller.
  virtual void processInput(InputSource &input, TransformContext &context) = 0;
  // For generated code; nothing in the library asks.
  virtual tvstring getName() { return tvstring(); }
};

}  // namespace tavrone

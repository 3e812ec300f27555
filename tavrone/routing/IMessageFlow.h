#pragma once

#include <vector>

#include "tavrone/context/IService.h"
#include "tavrone/context/TransformContext.h"
#include "tavrone/core/ObjectList.h"
#include "tavrone/core/Result.h"
#include "tavrone/core/SmartPtr.h"
#include "tavrone/dataobject/DataObject.h"
#include "tavrone/pipeline/InputSource.h"
#include "tavrone/pipeline/OutputDevice.h"

namespace tavrone {

// A designed sequence of activities. The plain forms stop at the first failure, the `2` forms collect what activities
// report and go on. Keeps the state of the run in progress, so it runs one message at a time.
class TAVRONE_API IMessageFlow : public IService {
 public:
  ~IMessageFlow() noexcept(false) override;

  // What comes back is what the flow's body gives. The context is borrowed for the run.
  virtual SmartPtr<DataObject> run(SmartPtr<DataObject> const &object, TransformContext &context) = 0;
  // The list that the flow gets has one element, a BinaryObject with a copy of the payload.
  virtual ObjectList run(InputSource &input, TransformContext &context) = 0;
  virtual ObjectList run(ObjectList const &inputs, TransformContext &context) = 0;
  virtual Result<SmartPtr<DataObject>> run2(SmartPtr<DataObject> const &object, TransformContext &context) = 0;
  virtual Result<ObjectList> run2(ObjectList const &inputs, TransformContext &context) = 0;
  // For generated code; nothing in the library asks.
  virtual tvstring getSourceMessageName() { return tvstring(); }
  virtual tvstring getDestinationMessageName() { return tvstring(); }
  virtual std::vector<OutputPortDef> getOutputPorts() = 0;
};

}  // namespace tavrone

#pragma once

#include "tavrone/context/IService.h"
#include "tavrone/context/TransformContext.h"
#include "tavrone/dataobject/DataObject.h"

namespace tavrone {

class OutputDevice;

// Delivers a finished record to a device.
class TAVRONE_API IOutputFormat : public IService {
 public:
  ~IOutputFormat() noexcept(false) override;

  // Borrowed.
  virtual void setOutputDevice(OutputDevice *device) = 0;
  // Renders the record, which is only read, and delivers it; failures of both reach the caller.
  virtual void write(DataObject *source, TransformContext &context) = 0;
};

}  // namespace tavrone

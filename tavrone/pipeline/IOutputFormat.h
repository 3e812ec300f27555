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

  virtual void setOutputDevice(OutputDevice *device) = 0;
  virtual void write(DataObject *source, TransformContext &context) = 0;
};

}  // namespace tavrone

#pragma once

#include <climits>

#include "tavrone/core/Binary.h"
#include "tavrone/core/Raise.h"
#include "tavrone/pipeline/OutputDevice.h"

namespace tavrone {

// One write of all the bytes. Raises TransformException "Out of bounds" for more than a device's int can say.
inline void writeAll(OutputDevice &device, Binary const &bytes) {
  if (bytes.length() > INT_MAX) raise<TransformException>("Out of bounds", "cpp/OutputDevice");
  device.write(bytes.data(), static_cast<int>(bytes.length()));
}

}  // namespace tavrone

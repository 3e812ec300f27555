#pragma once

#include "tavrone/fix/FIXFormat.h"
#include "tavrone/fix/TagValueWriter.h"

namespace tavrone {

extern template class TagValueWriter<FIXFormat>;

// The base of generated FIX writers, which implement writeHeader, writeData and writeTrailer on appendField.
class TAVRONE_API FIXOutputWriter : public TagValueWriter<FIXFormat> {
 public:
  ~FIXOutputWriter() noexcept(false) override;
};

}  // namespace tavrone

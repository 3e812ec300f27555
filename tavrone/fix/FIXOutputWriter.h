#pragma once

#include "tavrone/core/Exceptions.h"
#include "tavrone/fix/TagValueWriter.h"

namespace tavrone {

struct FIXWriterNames {
  using Failure = FIXWriterException;
  static constexpr char const *SOURCE = "cpp/fix/FIXOutputWriter";
  static constexpr char const *BODY_LENGTH_TAG = "9";
};

extern template class TAVRONE_API TagValueWriter<FIXWriterNames>;

// The base of generated FIX writers, which implement writeHeader, writeData and writeTrailer on appendField.
class TAVRONE_API FIXOutputWriter : public TagValueWriter<FIXWriterNames> {
 public:
  ~FIXOutputWriter() noexcept(false) override;
};

}  // namespace tavrone

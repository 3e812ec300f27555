#pragma once

#include "tavrone/fix/FIXFormat.h"
#include "tavrone/fix/TagValueInputParser.h"

namespace tavrone {

extern template class TagValueInputParser<FIXFormat>;

// The base of generated FIX parsers, which implement the two Binary forms of InputParser.
class TAVRONE_API FIXInputParser : public TagValueInputParser<FIXFormat> {
 public:
  FIXInputParser();
  FIXInputParser(FIXInputParser const &other);
  FIXInputParser &operator=(FIXInputParser const &) = default;
  ~FIXInputParser() noexcept(false) override;

 protected:
  // The failure of assertTagNew.
  [[noreturn]] void throwDuplicateTagException(AbstractDataObject *object, int index, int tag) const {
    raiseDuplicateTag(object, index, tag);
  }
};

}  // namespace tavrone

#pragma once

#include "tavrone/fix/FIXHeader.h"
#include "tavrone/fix/FIXTokenizer.h"
#include "tavrone/fix/TagValueHeaderParser.h"

namespace tavrone {

// What TagValueHeaderParser needs to know of FIX.
struct TAVRONE_API FIXHeaderBinding {
  using Format = FIXFormat;
  using Header = FIXHeader;
  using Tokenizer = FIXTokenizer;

  [[noreturn]] static void fail(TransformException &failure);
};

extern template class TagValueHeaderParser<FIXHeaderBinding>;

// Fills a FIXHeader. A failure in bytes is thrown again as it is, with this class's source path.
class TAVRONE_API FIXHeaderParser : public TagValueHeaderParser<FIXHeaderBinding> {};

}  // namespace tavrone

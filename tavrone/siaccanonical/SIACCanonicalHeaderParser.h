#pragma once

#include "tavrone/fix/TagValueHeaderParser.h"
#include "tavrone/siaccanonical/SIACCanonicalHeader.h"
#include "tavrone/siaccanonical/SIACCanonicalTokenizer.h"

namespace tavrone {

// What TagValueHeaderParser needs to know of SIAC Canonical.
struct TAVRONE_API SIACCanonicalHeaderBinding {
  using Format = SIACCanonicalFormat;
  using Header = SIACCanonicalHeader;
  using Tokenizer = SIACCanonicalTokenizer;

  [[noreturn]] static void fail(TransformException &failure);
};

extern template class TagValueHeaderParser<SIACCanonicalHeaderBinding>;

// Fills a SIACCanonicalHeader. A failure in bytes becomes a SIACCanonicalParsingException of phase "Input" and type
// "Parsing".
class TAVRONE_API SIACCanonicalHeaderParser : public TagValueHeaderParser<SIACCanonicalHeaderBinding> {};

}  // namespace tavrone

#pragma once

#include "tavrone/core/Export.h"

namespace tavrone {

// Fills a header from the first fields of a message. Binding names the Header and the Tokenizer of a format and its
// Format; Binding::fail takes a failure of the form that reads bytes, its text complete, and throws what it becomes.
template <class Binding>
class TAVRONE_API TagValueHeaderParser {
 public:
  using Header = typename Binding::Header;
  using Tokenizer = typename Binding::Tokenizer;

  // Reads until the first field that is none of the header's, which goes back to the tokenizer, or until the end. A
  // field that comes twice counts the last time; fields that don't come stay as they are. Raises as the tokenizer and
  // the header's setters do, and as t_atoi for a number.
  static void parseHeader(Header *header, Tokenizer &tokenizer);

  // The same for the first bytes of a message whose delimiter is SOH. The header shares one copy of its part of the
  // bytes. A failure's message begins with "[col N] ", the tokenizer's position.
  static void parseHeader(Header &header, char const *bytes, int length);
};

}  // namespace tavrone

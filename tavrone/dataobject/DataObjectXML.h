#pragma once

#include "tavrone/core/tvstring.h"

namespace tavrone {

// Makes text safe for XML. Text that needs no work is shared, not copied.
class TAVRONE_API DataObjectXML {
 public:
  // Whether the text holds <, >, &, an apostrophe, a double quote, or a byte below 32 other than CR, LF and TAB.
  static bool hasNonXMLCharacters(tvstring const &text);
  // &amp; &quot; &lt; &gt; and &#n; for control bytes. An apostrophe stays, though it alone has the text rebuilt:
  // meant.
  static tvstring fixXMLCharData(tvstring const &text);

 private:
  static tvstring replaceXMLEntities(tvstring const &text, bool escapeApostrophe);
};

}  // namespace tavrone

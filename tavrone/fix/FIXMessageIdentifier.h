#pragma once

#include "tavrone/fix/FIXHeader.h"
#include "tavrone/fix/TagValueIdentifier.h"

namespace tavrone {

struct FIXIdentifierNames {
  using Header = FIXHeader;
  static constexpr std::string_view PREFIX = "8=FIX";
  static constexpr char const *MESSAGE_FORMAT = FIXHeaderLayout::MESSAGE_FORMAT;
};

// Knows FIX messages. Known by its class name as soon as the library is loaded.
class TAVRONE_API FIXMessageIdentifier : public TagValueIdentifier<FIXIdentifierNames> {};

// Makes the class known by its name; done at load.
TAVRONE_API void registerClassFIXMessageIdentifier();

}  // namespace tavrone

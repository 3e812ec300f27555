#pragma once

#include "tavrone/routing/MessageIdentifier.h"

namespace tavrone {

// Names the FCS format. FCS text has no mark to be known by, so no input is ever identified as FCS: a host that takes
// FCS configures an identifier of its own or hands the input to the format directly. Known by its class name as soon as
// the library is loaded, but no part of the default service.
class TAVRONE_API FCSMessageIdentifier : public MessageIdentifier {
 public:
  // Always null, and that is meant; fetches the payload.
  DataObject *identifyMessage(InputSource &input) override;

  static tvstring getMessageFormat();  // "FCS"
  // Both true for every input: any text may be FCS.
  static bool isMatch(char const *bytes, int length);
  static bool checkFCS(char const *bytes, int length);
};

// Registers "FCSMessageIdentifier"; runs while the library loads.
TAVRONE_API void registerClassFCSMessageIdentifier();

}  // namespace tavrone

#pragma once

#include "tavrone/context/LookupContext.h"
#include "tavrone/core/SmartPtr.h"
#include "tavrone/pipeline/IInputFormat.h"
#include "tavrone/routing/MessageIdentifier.h"

namespace tavrone {

// Identifies a message by running a whole input format over it: the parsed message is the header. Known by its class
// name as soon as the library is loaded.
class TAVRONE_API CartridgeMessageIdentifier : public MessageIdentifier {
 public:
  // Never null for a format that parses; a parse failure is no miss but leaves as it is. Raises TransformException "The
  // property 'input.format' not set for CartridgeMessageIdentifier".
  DataObject *identifyMessage(InputSource &input) override;
  // Knows "input.format", which has no effect any more once the format has been looked up.
  void setProperty(tvstring const &name, tvstring const &value) override;

 private:
  IInputFormat *getInputFormat();

  tvstring inputFormatName_;
  SmartPtr<ILookupContext> lookupContext_;
  SmartPtr<IInputFormat> inputFormat_;
};

}  // namespace tavrone

#pragma once

#include <map>
#include <memory>
#include <vector>

#include "examples/messages/OrderFormats.h"

namespace examples {

// What was found when a message was taken step by step.
struct Inspection {
  SmartPtr<DataObject> header;  // null if no format knows the message
  SmartPtr<DataObject> record;  // as its format parsed it, or null
  SmartPtr<DataObject> order;   // as the desk has it, or null
  std::vector<std::unique_ptr<ExceptionDataObject>> failures{};
};

// Looks at a message once more by the forms that collect, for those who want to know all of it: the pipeline stops at
// the first failure, and good messages don't pay for more. Ends where a step has failures, since those of the next one
// would only follow from them.
class Inspector {
 public:
  // Borrows the service.
  explicit Inspector(MessageIdentificationService &service);

  // The context is that of a message which was just routed; a context without an input format leaves it at the header.
  Inspection inspect(InputSource &input, TransformContext &context);

 private:
  using Failures = std::vector<std::unique_ptr<ExceptionDataObject>>;

  void inspectRecord(Inspection &found, OrderChannel &channel, InputSource &input, TransformContext &context);
  void inspectOrder(Inspection &found, OrderChannel &channel, TransformContext &context);
  OrderChannel *channelOf(tvstring const &inputFormat);

  MessageIdentificationService &service_;
  SmartPtr<IInternalMessage> order_;
  std::map<tvstring, SmartPtr<IInputFormat>> formats_;
};

}  // namespace examples

#pragma once

#include "tavrone/context/LookupContext.h"
#include "tavrone/pipeline/IInputFormat.h"
#include "tavrone/pipeline/IMessage.h"

namespace tavrone {

// An input channel as generated code describes it. Parses every message into one object that it keeps and resets, so
// that nothing is allocated for the object tree from the second message on, and hands it to its internal message. A
// failure leaves the object half filled until the next message.
class TAVRONE_API AbstractInputFormat : public IInputFormat {
 public:
  AbstractInputFormat(AbstractInputFormat const &) = delete;
  AbstractInputFormat &operator=(AbstractInputFormat const &) = delete;
  ~AbstractInputFormat() noexcept(false) override;

  // The kept object has no part in it, nor has the internal message. The object goes when parsing fails.
  DataObject *handleInput(InputSource &input, TransformContext &context) override;
  // A failure that has no phase yet gets "Input".
  void processInput(InputSource &input, TransformContext &context) override;

  // Fills the object, which is new or reset.
  virtual void parseInput(InputSource &input, DataObject *object, TransformContext &context) = 0;
  // A new, empty normalized object with a count of 0.
  virtual DataObject *createInputObject() = 0;

 protected:
  // Raises NamingException if no internal message is bound under the name.
  explicit AbstractInputFormat(tvstring const &businessTransactionName);

  SmartPtr<ILookupContext> lookupContext_;
  SmartPtr<IInternalMessage> businessTransaction_;
  SmartPtr<DataObject> normalizedObject_;  // null until the first processInput
};

}  // namespace tavrone

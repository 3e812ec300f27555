#pragma once

#include <map>

#include "tavrone/pipeline/IOutputFormat.h"
#include "tavrone/pipeline/OutputContext.h"
#include "tavrone/routing/TriggerContext.h"

namespace tavrone {

// A trigger with a context of its own, filled from its configured properties: what stands behind it sees those, and no
// property of the message. The output of the message is another matter: for the length of an event the trigger's
// context collects into the message's output context.
class TAVRONE_API AbstractTrigger : public ITrigger {
 public:
  ~AbstractTrigger() noexcept(false) override;

  // Copies the properties of the trigger context, and its name as "output.destination".
  void setContext(TriggerContext *context) override;
  // Raises TransformException "Nothing to execute".
  Object *execute(Properties &properties) override;

  // The trigger's own context. Notes the message's, and no more: the output context is an event's affair.
  TransformContext &getTransformContext(TransformContext &message);
  // Looked up once for each name, and kept. Raises TransformException "RouterTrigger: Output format is not configured
  // (null)" for an empty name.
  SmartPtr<IOutputFormat> getOutputFormat(tvstring name);

 protected:
  // One event, as long as it lives: notes the message's context, and lends its output context, or none, to the
  // trigger's own. Both get back what they held, so that a trigger may be entered again from within its own event.
  class TAVRONE_API Event {
   public:
    Event(AbstractTrigger &trigger, TransformContext &message);
    Event(Event const &) = delete;
    Event &operator=(Event const &) = delete;
    ~Event() noexcept(false);

   private:
    AbstractTrigger &trigger_;
    TransformContext *messageBefore_;
    SmartPtr<IOutputContext> outputBefore_;
  };

  AbstractTrigger() = default;
  // The copy is in no event; what is assigned to stays in its own.
  AbstractTrigger(AbstractTrigger const &other);
  AbstractTrigger &operator=(AbstractTrigger const &other);

  TriggerContext *context_ = nullptr;  // borrowed; null before setContext
  TransformContext transformContext_;
  TransformContext *messageContext_ = &TransformContext::EMPTY;
  std::map<tvstring, SmartPtr<IOutputFormat>> outputFormats_;
};

}  // namespace tavrone

#pragma once

#include <map>

#include "tavrone/context/LookupContext.h"
#include "tavrone/core/SmartPtr.h"
#include "tavrone/pipeline/IMessage.h"
#include "tavrone/routing/ITrigger.h"

namespace tavrone {

// One configured trigger: its name, its properties, and the directory in which it looks services up.
class TAVRONE_API TriggerContext : public ILookupContext {
 public:
  ~TriggerContext() noexcept(false) override;

  // False for an absent name; `value` stays as it is then.
  virtual bool getProperty(tvstring const &name, tvstring &value) const = 0;
  // Raises TransformException "Property <name> not found".
  virtual tvstring getProperty(tvstring const &name) = 0;
  virtual std::map<tvstring, tvstring> const &getProperties() const = 0;
  // The message type that the trigger hangs on.
  virtual SmartPtr<IInternalMessage> getBusinessTransaction() const = 0;
  virtual tvstring getName() = 0;
};

// Filled at load time by generated code. It keeps the trigger object, which Triggers makes at the first event.
class TAVRONE_API AbstractTriggerContext : public TriggerContext {
 public:
  AbstractTriggerContext() = default;
  AbstractTriggerContext(SmartPtr<IInternalMessage> businessTransaction, tvstring const &triggerClassName,
                         tvstring const &name);
  // Copies have no trigger object yet: a trigger belongs to one context.
  AbstractTriggerContext(AbstractTriggerContext const &other);
  AbstractTriggerContext &operator=(AbstractTriggerContext const &other);
  ~AbstractTriggerContext() noexcept(false) override;

  // What the constructor sets, later.
  void init(SmartPtr<IInternalMessage> businessTransaction, tvstring const &triggerClassName, tvstring const &name);
  // The first value of a name stays.
  void addProperty(tvstring name, tvstring value);

  bool getProperty(tvstring const &name, tvstring &value) const override;
  tvstring getProperty(tvstring const &name) override;
  std::map<tvstring, tvstring> const &getProperties() const override { return properties_; }
  SmartPtr<IInternalMessage> getBusinessTransaction() const override { return businessTransaction_; }
  tvstring getName() override { return name_; }

  tvstring getTriggerClassName() const { return triggerClassName_; }
  // Borrowed; null before the first event.
  ITrigger *getTriggerObject() const { return triggerObject_.get(); }
  // Adds a reference and releases the trigger that was there; null is one, too.
  void setTriggerObject(ITrigger *trigger);

 private:
  std::map<tvstring, tvstring> properties_;
  SmartPtr<IInternalMessage> businessTransaction_;
  tvstring name_;
  tvstring triggerClassName_;
  SmartPtr<ITrigger> triggerObject_;
};

// Looks up in the process-wide directory, by a handle made on first need.
class TAVRONE_API TriggerContextImpl : public AbstractTriggerContext {
 public:
  TriggerContextImpl() = default;
  using AbstractTriggerContext::AbstractTriggerContext;
  TriggerContextImpl(TriggerContextImpl const &other);
  TriggerContextImpl &operator=(TriggerContextImpl const &) = default;
  ~TriggerContextImpl() noexcept(false) override;

  SmartPtr<ILookupContext> getLookupContext();

  Object *lookupComponent(tvstring const &name) override;
  SmartPtr<INormalizedObjectMappingFormat> lookupNormalizedObjectMappingFormat(tvstring const &name) override;
  SmartPtr<IMessage> lookupMessage(tvstring const &name) override;
  SmartPtr<IExternalMessage> lookupExternalMessage(tvstring const &name) override;
  SmartPtr<IInternalMessage> lookupBusinessTransaction(tvstring const &name) override;
  SmartPtr<IMessageMapping> lookupMessageMapping(tvstring const &name) override;
  SmartPtr<IMessageFlow> lookupMessageFlow(tvstring const &name) override;
  SmartPtr<IInternalMessage> lookupInternalMessage(tvstring const &name) override;
  SmartPtr<IInputFormat> lookupInputFormat(tvstring const &name) override;
  SmartPtr<IOutputFormat> lookupOutputFormat(tvstring const &name) override;
  IOutputProtocol *lookupOutputProtocol(tvstring const &name) override;
  TList<tvstring> getMessages() override;
  TList<tvstring> getExternalMessages() override;
  TList<tvstring> getInternalMessages() override;
  TList<tvstring> getMessageMappings() override;
  TList<tvstring> getMessageFlows() override;
  TList<tvstring> getInputFormats() override;
  TList<tvstring> getOutputFormats() override;
  TList<tvstring> getNormalizedObjectMappings() override;
  void bind(tvstring const &name, Object *object) override;
  void rebind(tvstring const &name, Object *object) override;
  Object *lookup(tvstring const &name) override;
  void unbind(tvstring const &name) override;

 private:
  ILookupContext &directory();

  SmartPtr<ILookupContext> lookupContext_;
};

}  // namespace tavrone

#pragma once

#include "tavrone/context/ObjectPtrMap.h"
#include "tavrone/core/SmartPtr.h"
#include "tavrone/core/TList.h"

namespace tavrone {

class IExternalMessage;
class IInputFormat;
class IInternalMessage;
class IMessage;
class IMessageFlow;
class IMessageMapping;
class INormalizedObjectMappingFormat;
class IOutputFormat;
class IOutputProtocol;

// The directory of generated components: factories and shared objects bound under names. It is process-wide and without
// a lock: bind while libraries load, look up afterwards. Its entries live until unbind, rebind or process exit.
class TAVRONE_API ILookupContext : public virtual ObjectRef {
 public:
  // The same as lookup.
  virtual Object *lookupComponent(tvstring const &name) = 0;

  // A typed look-up gives a new component at each call, made by the ObjectFactory bound under the name. Whatever else
  // is or isn't bound there raises NamingException: "NormalizedObjectMappingFormat not available at <name>" for the
  // first, "Unable to lookup '<name>'" for all others.
  virtual SmartPtr<INormalizedObjectMappingFormat> lookupNormalizedObjectMappingFormat(tvstring const &name) = 0;
  virtual SmartPtr<IMessage> lookupMessage(tvstring const &name) = 0;
  virtual SmartPtr<IExternalMessage> lookupExternalMessage(tvstring const &name) = 0;
  // The same as lookupInternalMessage.
  virtual SmartPtr<IInternalMessage> lookupBusinessTransaction(tvstring const &name) = 0;
  virtual SmartPtr<IMessageMapping> lookupMessageMapping(tvstring const &name) = 0;
  virtual SmartPtr<IMessageFlow> lookupMessageFlow(tvstring const &name) = 0;
  virtual SmartPtr<IInternalMessage> lookupInternalMessage(tvstring const &name) = 0;
  virtual SmartPtr<IInputFormat> lookupInputFormat(tvstring const &name) = 0;
  virtual SmartPtr<IOutputFormat> lookupOutputFormat(tvstring const &name) = 0;
  // The bound protocol itself, borrowed: protocols have no factories. Raises NamingException "Device not available at
  // <name>".
  virtual IOutputProtocol *lookupOutputProtocol(tvstring const &name) = 0;

  // The names, in order, under which components of a kind can be looked up. Each call runs every factory once.
  virtual TList<tvstring> getMessages() = 0;
  virtual TList<tvstring> getExternalMessages() = 0;
  virtual TList<tvstring> getInternalMessages() = 0;
  virtual TList<tvstring> getMessageMappings() = 0;
  virtual TList<tvstring> getMessageFlows() = 0;
  virtual TList<tvstring> getInputFormats() = 0;
  virtual TList<tvstring> getOutputFormats() = 0;
  virtual TList<tvstring> getNormalizedObjectMappings() = 0;

  // Adds a reference. A name that is taken raises NamingException "<name> already bound", and `object` is released all
  // the same: bind takes it over in any case. The very object that is bound there stays as it is.
  virtual void bind(tvstring const &name, Object *object) = 0;
  // Binds, and releases what the name was bound to, unless that is this very object.
  virtual void rebind(tvstring const &name, Object *object) = 0;
  // The bound object, borrowed, or null.
  virtual Object *lookup(tvstring const &name) = 0;
  // Releases the object, if the name is bound.
  virtual void unbind(tvstring const &name) = 0;
};

// A handle on the directory; all of them see the same bindings.
class TAVRONE_API LookupContextImpl : public ILookupContext {
 public:
  LookupContextImpl() = default;
  LookupContextImpl(LookupContextImpl const &other);
  LookupContextImpl &operator=(LookupContextImpl const &) = default;

  Object *clone() const override;

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
  static ObjectPtrMap<Object> &getLookupContextList();

  template <class T>
  static SmartPtr<T> create(Object *factory);
  template <class T>
  SmartPtr<T> lookupService(tvstring const &name);
  template <class T>
  static TList<tvstring> getNames();
};

// Where handles on the directory come from.
class TAVRONE_API LookupContextFactory {
 public:
  static LookupContextFactory *getLookupContextFactory();
  // A new handle at each call, so that no count is shared between threads.
  static SmartPtr<ILookupContext> getLookupContext();

  SmartPtr<ILookupContext> createLookupContext();
};

}  // namespace tavrone

#pragma once

#include "tavrone/context/TransformContext.h"
#include "tavrone/context/UserClassManager.h"
#include "tavrone/core/ObjectList.h"

namespace tavrone {

class DataObject;
class ExternalObject;

// The interfaces of classes that users write by hand and name in the design; each is made once for its owner.

// A function that formulas and activities call.
class TAVRONE_API IInvokable : public ICustomClass {
 public:
  ~IInvokable() noexcept(false) override;
  // Arguments are borrowed and may be null. The result is the caller's; may be null.
  virtual Object *invoke(ObjectList const &arguments, TransformContext &context) = 0;
};

// A test of one field.
class TAVRONE_API IFieldValidation : public ICustomClass {
 public:
  ~IFieldValidation() noexcept(false) override;
  // Whether the value, which may be null, is valid for that field of the object. Both are borrowed.
  virtual bool validate(tvstring const &fieldName, Object const *value, DataObject *object) = 0;
};

// A step of processing.
class TAVRONE_API IProcessing : public ICustomClass {
 public:
  ~IProcessing() noexcept(false) override;
  // Changes the object in place; borrowed.
  virtual void process(DataObject *object, TransformContext &context) = 0;
};

// The mappings run after the generated assignments, so that they can overwrite them. Sources and targets are borrowed.

// From a parsed message to a normalized object.
class TAVRONE_API IInputMapping : public ICustomClass {
 public:
  ~IInputMapping() noexcept(false) override;
  virtual void map(ExternalObject *source, DataObject *target, TransformContext &context) = 0;
};

// Between two normalized objects.
class TAVRONE_API INormalizedObjectMapping : public ICustomClass {
 public:
  ~INormalizedObjectMapping() noexcept(false) override;
  virtual void map(DataObject *source, DataObject *target, TransformContext &context) = 0;
};

// Between two external messages.
class TAVRONE_API IExternalMapping : public ICustomClass {
 public:
  ~IExternalMapping() noexcept(false) override;
  virtual void map(ExternalObject *source, ExternalObject *target, TransformContext &context) = 0;
};

// From a normalized object to the parts of an external message.
class TAVRONE_API IOutputMapping : public ICustomClass {
 public:
  ~IOutputMapping() noexcept(false) override;
  // Each after the generated mapping of its part, which is null where the format has none.
  virtual void mapHeader(DataObject *source, DataObject *header, TransformContext &context) = 0;
  virtual void mapData(DataObject *source, DataObject *data, TransformContext &context) = 0;
  virtual void mapTrailer(DataObject *source, DataObject *data, DataObject *trailer, TransformContext &context) = 0;
};

}  // namespace tavrone

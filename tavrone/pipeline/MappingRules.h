#pragma once

#include "tavrone/pipeline/ExternalObject.h"
#include "tavrone/pipeline/Rules.h"

namespace tavrone {

// A tag.
class TAVRONE_API MappingInfo {};

// A mapping that may have a user's class behind it. Each public operation stores the context for the length of the
// call, runs the generated body, then the custom class, which sees what the body assigned and may overwrite it. The
// bodies do nothing unless generated.
//
// The custom class is made at the first mapped message and kept. Raises TransformException "Class not found <name>", or
// "Error creating custom class instance - <name> is not of expected type" for a class that is no Custom.
template <class Custom>
class TAVRONE_API CustomMappingRules : public MappingRules {
 protected:
  CustomMappingRules() = default;
  explicit CustomMappingRules(tvstring const &className) : customClassName(className) {}

  template <class Body, class CallCustom>
  void mapPart(TransformContext &context, Body const &body, CallCustom const &callCustom);

  tvstring customClassName;  // empty if there is none

 private:
  Custom *getCustomMappingClass();

  SmartPtr<Custom> customMapping_;  // null until first needed
};

// From a parsed external message to a normalized object. A failure that passes gets the error type "Mapping".
class TAVRONE_API InputMappingRules : public CustomMappingRules<IInputMapping> {
 public:
  InputMappingRules() = default;
  explicit InputMappingRules(tvstring const &className) : CustomMappingRules(className) {}
  ~InputMappingRules() noexcept(false) override;

  // Borrows both; the target is changed in place, as in all of these classes.
  void mapFields(ExternalObject *source, DataObject *target, TransformContext &context);

 protected:
  virtual void mapFields0(ExternalObject *source, DataObject *target);
};

// Between two normalized objects.
class TAVRONE_API NormalizedObjectMappingRules : public CustomMappingRules<INormalizedObjectMapping> {
 public:
  NormalizedObjectMappingRules() = default;
  explicit NormalizedObjectMappingRules(tvstring const &className) : CustomMappingRules(className) {}
  ~NormalizedObjectMappingRules() noexcept(false) override;

  void mapFields(DataObject *source, DataObject *target, TransformContext &context);

 protected:
  virtual void mapFields0(DataObject *source, DataObject *target);
};

// Between two external messages, part by part: header, data, trailer, then the custom class once with the wholes. A
// part that a format does not have is null.
class TAVRONE_API ExternalToExternalMappingRules : public CustomMappingRules<IExternalMapping> {
 public:
  ExternalToExternalMappingRules() = default;
  explicit ExternalToExternalMappingRules(tvstring const &className) : CustomMappingRules(className) {}
  ~ExternalToExternalMappingRules() noexcept(false) override;

  void mapFields(ExternalObject *source, ExternalObject *target, TransformContext &context);

 protected:
  virtual void mapHeaderFields0(DataObject *sourceHeader, DataObject *targetHeader);
  virtual void mapDataFields0(DataObject *sourceData, DataObject *targetData);
  virtual void mapTrailerFields0(DataObject *sourceTrailer, DataObject *targetTrailer);
};

// From a normalized object to the parts of an external message, the custom class after each part.
class TAVRONE_API OutputMappingRules : public CustomMappingRules<IOutputMapping> {
 public:
  OutputMappingRules() = default;
  explicit OutputMappingRules(tvstring const &className) : CustomMappingRules(className) {}
  ~OutputMappingRules() noexcept(false) override;

  // Header, data, trailer, in this order. A part that the format does not have is null.
  void mapFields(DataObject *source, ExternalObject *target, TransformContext &context);
  void mapHeaderFields(DataObject *source, DataObject *header, TransformContext &context);
  void mapDataFields(DataObject *source, DataObject *data, TransformContext &context);
  // The data part is mapped already.
  void mapTrailerFields(DataObject *source, DataObject *data, DataObject *trailer, TransformContext &context);

 protected:
  virtual void mapHeaderFields0(DataObject *source, DataObject *header);
  virtual void mapDataFields0(DataObject *source, DataObject *data);
  virtual void mapTrailerFields0(DataObject *source, DataObject *data, DataObject *trailer);
};

}  // namespace tavrone

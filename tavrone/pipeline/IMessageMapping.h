#pragma once

#include "tavrone/context/IService.h"
#include "tavrone/context/LookupContext.h"
#include "tavrone/context/TransformContext.h"
#include "tavrone/core/SmartPtr.h"
#include "tavrone/dataobject/DataObject.h"

namespace tavrone {

class MappingInfo;

// Turns an object of one message into an object of another. Kept by whoever looked it up; serves one call at a time.
class TAVRONE_API IMessageMapping : public IService {
 public:
  ~IMessageMapping() noexcept(false) override;

  // A new object; the source is only read.
  virtual SmartPtr<DataObject> map(SmartPtr<DataObject> const &source, TransformContext &context) = 0;
  virtual tvstring getSourceMessageName() = 0;
  virtual tvstring getDestinationMessageName() = 0;
  // For generated code; nothing in the library asks. Borrowed, may be null.
  virtual MappingInfo *getMappingInfo() { return nullptr; }
};

// The base of generated mappings, which implement map.
class TAVRONE_API AbstractMessageMapping : public IMessageMapping {
 public:
  ~AbstractMessageMapping() noexcept(false) override;

  tvstring getSourceMessageName() override { return sourceMessageName; }
  tvstring getDestinationMessageName() override { return destinationMessageName; }

  void setSourceMessageName(tvstring const &messageName) { sourceMessageName = messageName; }
  void setDestinationMessageName(tvstring const &messageName) { destinationMessageName = messageName; }

 protected:
  explicit AbstractMessageMapping(tvstring const &mappingName);

  tvstring name;
  tvstring sourceMessageName;
  tvstring destinationMessageName;
  SmartPtr<ILookupContext> lookupContext;
};

// Turns one normalized object into another.
class TAVRONE_API INormalizedObjectMappingFormat : public IService {
 public:
  ~INormalizedObjectMappingFormat() noexcept(false) override;

  // Maps each source in order. The array is the caller's, freed by delete[], and so are its elements.
  virtual DataObject **map(DataObject **sources, int count, TransformContext &context) = 0;
  // The mapped object with a count of 0, the caller's.
  virtual DataObject *map(DataObject *source, TransformContext &context) = 0;
  virtual tvstring getDestinationMessageName() = 0;
  virtual tvstring getSourceMessageName() = 0;
};

// The base of generated mapping formats, which implement map for one object.
class TAVRONE_API AbstractNormalizedObjectMappingFormat : public INormalizedObjectMappingFormat {
 public:
  AbstractNormalizedObjectMappingFormat(tvstring const &sourceMessageName, tvstring const &destinationMessageName);
  ~AbstractNormalizedObjectMappingFormat() noexcept(false) override;

  // What was mapped before a failure is freed.
  DataObject **map(DataObject **sources, int count, TransformContext &context) override;
  using INormalizedObjectMappingFormat::map;
  tvstring getDestinationMessageName() override { return destinationMessageName_; }
  tvstring getSourceMessageName() override { return sourceMessageName_; }

  // Made on first need.
  SmartPtr<ILookupContext> getLookupContext();

 private:
  tvstring sourceMessageName_;
  tvstring destinationMessageName_;
  SmartPtr<ILookupContext> lookupContext_;
};

}  // namespace tavrone

#include "tavrone/pipeline/IMessageMapping.h"

#include <algorithm>
#include <memory>

namespace tavrone {

namespace {

// Mapped objects on their way to the caller; those that don't get there are freed.
class MappedObjects {
 public:
  explicit MappedObjects(size_t capacity) : objects_(new DataObject *[capacity]) {}
  MappedObjects(MappedObjects const &) = delete;
  MappedObjects &operator=(MappedObjects const &) = delete;
  ~MappedObjects() noexcept(false) {
    while (size_ > 0) ObjectRef::releaseRef(objects_[--size_]);
  }

  void add(DataObject *object) {
    ObjectRef::addRef(object);
    objects_[size_++] = object;
  }

  // The array with the counts that the objects came with.
  DataObject **handOver() {
    while (size_ > 0)
      if (DataObject *const object = objects_[--size_]) object->decRef();
    return objects_.release();
  }

 private:
  std::unique_ptr<DataObject *[]> objects_;
  size_t size_ = 0;
};

}  // namespace

IMessageMapping::~IMessageMapping() noexcept(false) = default;
AbstractMessageMapping::~AbstractMessageMapping() noexcept(false) = default;
INormalizedObjectMappingFormat::~INormalizedObjectMappingFormat() noexcept(false) = default;
AbstractNormalizedObjectMappingFormat::~AbstractNormalizedObjectMappingFormat() noexcept(false) = default;

AbstractMessageMapping::AbstractMessageMapping(tvstring const &mappingName)
    : name(mappingName), lookupContext(LookupContextFactory::getLookupContext()) {}

AbstractNormalizedObjectMappingFormat::AbstractNormalizedObjectMappingFormat(tvstring const &sourceMessageName,
                                                                             tvstring const &destinationMessageName)
    : sourceMessageName_(sourceMessageName), destinationMessageName_(destinationMessageName) {}

DataObject **AbstractNormalizedObjectMappingFormat::map(DataObject **sources, int count, TransformContext &context) {
  MappedObjects mapped(static_cast<size_t>(std::max(count, 0)));
  for (int i = 0; i < count; ++i) mapped.add(map(sources[i], context));
  return mapped.handOver();
}

SmartPtr<ILookupContext> AbstractNormalizedObjectMappingFormat::getLookupContext() {
  if (lookupContext_.isNull()) lookupContext_ = LookupContextFactory::getLookupContext();
  return lookupContext_;
}

}  // namespace tavrone

#pragma once

#include "tavrone/core/SmallStringMap.h"
#include "tavrone/pipeline/CustomClasses.h"

namespace tavrone {

// The custom classes that one rule, mapping or flow calls by name, each made at its first call and kept.
class TAVRONE_API CustomClassSupport {
 public:
  // Asks the IFieldValidation of that name; a class of another kind raises ClassCastException.
  bool validate(tvstring const &className, tvstring const &fieldName, Object const *value, DataObject *object);
  // Calls the IInvokable of that name; a class of another kind raises TransformException, catalogue key SRT185. The
  // result is the caller's and may be null.
  Object *invoke(tvstring const &className, ObjectList const &arguments, TransformContext &context);

  // A new instance of a registered class as a T. One of another kind goes to `refuse`, which raises; it is freed then.
  template <class T, class Refuse>
  static SmartPtr<T> create(tvstring const &className, Refuse const &refuse) {
    SmartPtr<Object> const instance(UserClassManager::createInstance(className));
    T *const custom = dynamic_cast<T *>(instance.get());
    if (custom == nullptr) refuse(instance.get());
    return custom;
  }

 private:
  SmallStringMap validators_;
  SmallStringMap invokables_;
};

}  // namespace tavrone

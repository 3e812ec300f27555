#pragma once

#include "tavrone/pipeline/CustomClassSupport.h"

namespace tavrone {

// The base of the function classes that the design tool generates.
class TAVRONE_API FunctionDefs {
 public:
  virtual ~FunctionDefs() noexcept(false);

 protected:
  // Calls the user's IInvokable of that name, made once for this object, in an empty context. The result is the
  // caller's.
  Object *invokeCustomExternalClass(tvstring const &className, ObjectList const &arguments);

 private:
  CustomClassSupport customClasses_;
};

}  // namespace tavrone

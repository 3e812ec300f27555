#include "tavrone/formula/FunctionDefs.h"

namespace tavrone {

FunctionDefs::~FunctionDefs() noexcept(false) = default;

Object *FunctionDefs::invokeCustomExternalClass(tvstring const &className, ObjectList const &arguments) {
  TransformContext context;
  return customClasses_.invoke(className, arguments, context);
}

}  // namespace tavrone

#pragma once

#include "tavrone/core/tvstring.h"

namespace tavrone {

class DataObject;
class DataObjectCollection;
class Exception;

// What the aggregate functions need of a section.
class TAVRONE_API SectionHelper {
 public:
  // Raise FieldNotFoundException for an unknown name. A collection is asked through its first element; without one: -1.
  static int getFieldIndex(DataObject *object, tvstring const &name);
  static int getFieldIndex(DataObjectCollection *collection, tvstring const &name);

  // Raise what a formula reports for a failure while it reads a field: FieldNotFoundException and FieldNullException as
  // they are, ClassCastException and FieldTypeMismatchException as TransformRuntimeException "Field '...' is not of
  // specified type.", everything else as "Unexpected error during formula evaluation ; nested exception is: \n\t...".
  [[noreturn]] static void handleFieldAccessException(tvstring const &name, Exception *exception);
  [[noreturn]] static void handleFieldAccessException(int index, Exception *exception);
};

}  // namespace tavrone

#include "tavrone/dataobject/SectionHelper.h"

#include "tavrone/core/Conversion.h"
#include "tavrone/core/Raise.h"
#include "tavrone/dataobject/DataObject.h"
#include "tavrone/dataobject/DataObjectSection.h"

namespace tavrone {

namespace {

constexpr char const *SOURCE = "cpp/SectionHelper";

// `field` is how the failure names the field: "Field '...'" or "Field at index '...'".
[[noreturn]] void reraise(tvstring const &field, Exception *exception) {
  if (auto *notFound = dynamic_cast<FieldNotFoundException *>(exception)) throw FieldNotFoundException(*notFound);
  if (auto *null = dynamic_cast<FieldNullException *>(exception)) throw FieldNullException(*null);
  bool const wrongType = dynamic_cast<ClassCastException *>(exception) != nullptr ||
                         dynamic_cast<FieldTypeMismatchException *>(exception) != nullptr;
  if (wrongType) raise<TransformRuntimeException>(field + " is not of specified type.", SOURCE);
  raise<TransformRuntimeException>("Unexpected error during formula evaluation ; nested exception is: \n\t" +
                                       (exception == nullptr ? tvstring() : exception->getMessage()),
                                   SOURCE);
}

}  // namespace

int SectionHelper::getFieldIndex(DataObject *object, tvstring const &name) {
  return object->getFieldIndex(name);
}

int SectionHelper::getFieldIndex(DataObjectCollection *collection, tvstring const &name) {
  return collection->getElementCount() == 0 ? -1 : collection->getElement(0)->getFieldIndex(name);
}

void SectionHelper::handleFieldAccessException(tvstring const &name, Exception *exception) {
  reraise("Field '" + name + "'", exception);
}

void SectionHelper::handleFieldAccessException(int index, Exception *exception) {
  reraise("Field at index '" + intToString(index) + "'", exception);
}

}  // namespace tavrone

#include "tavrone/pipeline/InputParser.h"

#include "tavrone/core/Raise.h"
#include "tavrone/dataobject/DataObject.h"

namespace tavrone {

InputParser::~InputParser() noexcept(false) = default;

void InputParser::parse(ExternalObject *object, InputSource &input, TransformContext &context) {
  parse(object, input.getAsBinary(), context);
}

ExternalObject *InputParser::parse(InputSource &input, TransformContext &context) {
  return parse(input.getAsBinary(), context);
}

void InputParser::ensureNotNull0(tvstring const &value, DataObject *object, int fieldIndex, TransformContext &) {
  if (!isNull(value)) return;
  raise<FieldParsingException>("Field '" + object->getFieldName(fieldIndex) + "' cannot be null.", "cpp/InputParser");
}

}  // namespace tavrone

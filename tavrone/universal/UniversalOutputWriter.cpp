#include "tavrone/universal/UniversalOutputWriter.h"

#include "tavrone/core/Raise.h"
#include "tavrone/dataobject/DataObjectSection.h"
#include "tavrone/dataobject/MetaInfo.h"
#include "tavrone/universal/FieldFailures.h"
#include "tavrone/universal/UniversalOutputRecord.h"

namespace tavrone {

namespace {

constexpr char const *SOURCE = "cpp/universal/UniversalOutputWriter";

bool hasValue(AbstractDataObject const &object, int index) {
  if (object.isNull(index)) return false;
  return !object.getMetaInfo()->isSection(index) || object.getSection(index)->getElementCount() > 0;
}

}  // namespace

UniversalOutputWriter::UniversalOutputWriter(UniversalOutputWriter const &other)
    : AbstractSimpleOutputWriter(other), message_(static_cast<tvstring const &>(other.message_)) {}

UniversalOutputWriter &UniversalOutputWriter::operator=(UniversalOutputWriter const &other) {
  AbstractSimpleOutputWriter::operator=(other);
  message_ = tvstringbuffer(static_cast<tvstring const &>(other.message_));
  return *this;
}

UniversalOutputWriter::~UniversalOutputWriter() noexcept(false) = default;

void UniversalOutputWriter::appendMessage(char const *bytes, int n) {
  if (n > 0) message_.append(bytes, static_cast<size_t>(n));
}

void UniversalOutputWriter::handleException(TransformException &exception, UniversalOutputRecord *record,
                                            AbstractDataObject *object) {
  if (exception.isNull("FieldName")) nameField(exception, record->getCurrentFieldIndex(), object);
  throw TransformException(exception);
}

void UniversalOutputWriter::assertLength(int length, int minimum, int maximum) {
  assertFieldLength(length, minimum, maximum, SOURCE);
}

bool UniversalOutputWriter::ensureChoice(AbstractDataObject *object, bool mandatory) {
  int values = 0;
  for (int i = 0; i < object->getFieldCount(); ++i) values += hasValue(*object, i) ? 1 : 0;
  if (values > 1) raise<TransformException>("More than one choice has a non-null value", SOURCE);
  if (values == 0 && mandatory)
    raise<TransformException>("At least one of the choices must have non-null value", SOURCE);
  return values == 0;
}

void UniversalOutputWriter::requiredFieldMissing(AbstractDataObject *object, int index) {
  raise<TransformException>("The mandatory field '" + object->getQualifiedName(index) + "' is missing.", SOURCE);
}

}  // namespace tavrone

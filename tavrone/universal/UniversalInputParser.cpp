#include "tavrone/universal/UniversalInputParser.h"

#include "tavrone/core/Conversion.h"
#include "tavrone/core/Raise.h"
#include "tavrone/dataobject/DataObjectSection.h"
#include "tavrone/universal/FieldFailures.h"

namespace tavrone {
namespace {

constexpr char const *SOURCE = "cpp/universal/UniversalInputParser";

}  // namespace

UniversalInputParser::UniversalInputParser(UniversalInputParser const &other)
    : InputParser(other), recordPool_(other.recordPool_) {
  for (UniversalInputRecord *record : recordPool_) record->addRef();
}

UniversalInputParser &UniversalInputParser::operator=(UniversalInputParser const &other) {
  InputParser::operator=(other);
  return *this;
}

UniversalInputParser::~UniversalInputParser() noexcept(false) {
  for (UniversalInputRecord *record : recordPool_) record->releaseRef();
}

UniversalInputRecord *UniversalInputParser::freeRecord(UniversalInputRecord const *parent) {
  for (UniversalInputRecord *record : recordPool_) {
    if (!record->unique() || record == parent) continue;
    record->reset();
    return record;
  }
  recordPool_.ensureFree(1);
  UniversalInputRecord *const record = new UniversalInputRecord;
  record->addRef();
  recordPool_.push_back(record);
  return record;
}

UniversalInputRecord *UniversalInputParser::createInputRecord(Binary const &message) {
  UniversalInputRecord *const record = freeRecord(nullptr);
  record->init(message);
  return record;
}

UniversalInputRecord *UniversalInputParser::getDelimitedRecord(UniversalInputRecord *parent, tvstring const &delimiter,
                                                               bool recordFlag, bool dropLastDelimiter) {
  return parent->getDelimitedRecord(freeRecord(parent), delimiter, recordFlag, dropLastDelimiter);
}

void UniversalInputParser::assertNotNull(AbstractDataObject *object, int index) {
  if (object->isNull(index))
    raise<TransformException>("Mandatory field '" + object->getFieldName(index) + "' missing.", SOURCE);
}

void UniversalInputParser::assertFieldNew(AbstractDataObject *object, int index) {
  if (!object->isNull(index))
    raise<TransformException>("Duplicate field '" + object->getFieldName(index) + "'.", SOURCE);
}

void UniversalInputParser::assertConstraints(AbstractDataObject *object, int index) {
  object->getSection(index)->assertConstraints();
}

void UniversalInputParser::assertLength(int length, int minimum, int maximum) {
  assertFieldLength(length, minimum, maximum, SOURCE);
}

void UniversalInputParser::checkFillerValue(tvstring const &actual, tvstring const &expected) {
  if (actual != expected)
    raise<TransformException>("Incorrect filler value. Expected '" + expected + "' , found '" + actual + "'", SOURCE);
}

void UniversalInputParser::missingChoice(AbstractDataObject *object) {
  DataObjectSection const *const section = object->getParentSection();
  raise<TransformException>("Missing choice element " + (section == nullptr ? tvstring() : section->getName()) +
                                ". None of choices match with the message",
                            SOURCE);
}

void UniversalInputParser::handleException(TransformException &exception, UniversalInputRecord *record,
                                           AbstractDataObject *object) {
  if (exception.getContextProperty(ExceptionObject::getINDEX()).empty()) {
    if (object != nullptr) nameField(exception, record->getCurrentFieldIndex(), object);
    int const index = record->getPreviousIndex();
    auto const [line, offset] = record->getLineOffsetAt(index);
    exception.setContextProperty(ExceptionObject::getINDEX(), intToString(index));
    exception.setContextProperty(ExceptionObject::getLINE(), intToString(line + 1));
    exception.setContextProperty(ExceptionObject::getCOLUMN(), intToString(offset + 1));
  }
  throw TransformException(exception);
}

}  // namespace tavrone

#include "tavrone/universal/UniversalRecord.h"

#include "tavrone/core/Raise.h"
#include "tavrone/dataobject/AbstractDataObject.h"

namespace tavrone {

constinit tvstringliteral const UniversalRecord::EMPTY_STRING("");

// The copy is a record of its own, which nobody holds yet.
UniversalRecord::UniversalRecord(UniversalRecord const &other)
    : Object(other),
      ObjectRef(),
      sequenceStack_(other.sequenceStack_),
      trailingFields_(other.trailingFields_),
      recordFlag_(other.recordFlag_),
      delimiter_(other.delimiter_),
      current_(other.current_),
      dropLastDelimiter_(other.dropLastDelimiter_) {}

UniversalRecord::~UniversalRecord() noexcept(false) = default;

void UniversalRecord::reset() {
  while (sequenceStack_.size() > 0) sequenceStack_.pop_back();
  delimiter_ = EMPTY_STRING;
  trailingFields_ = false;
  dropLastDelimiter_ = false;
}

SequenceInfo UniversalRecord::createSequenceState() {
  return SequenceInfo();
}

void UniversalRecord::startSection(short type) {
  sequenceStack_.push_back(current_);
  current_ = {getCurrentIndex(), type, -1};
}

void UniversalRecord::endSection(short) {
  int const enclosing = sequenceStack_.size() - 1;
  if (enclosing < 0) return;
  current_ = sequenceStack_.at(enclosing);
  sequenceStack_.pop_back();
}

void UniversalRecord::requiredFieldMissing(AbstractDataObject *object, int index) {
  setCurrentFieldIndex(index);
  raise<TransformException>("The mandatory field '" + object->getQualifiedName(index) + "' is missing.",
                            "cpp/universal/UniversalRecord");
}

}  // namespace tavrone

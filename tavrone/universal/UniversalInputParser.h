#pragma once

#include "tavrone/core/ArrayList.h"
#include "tavrone/pipeline/InputParser.h"
#include "tavrone/universal/UniversalInputRecord.h"

namespace tavrone {

class AbstractDataObject;
class TransformException;

// The base of generated parsers of the Universal format: the records that they read from, the checks of fields, and the
// place of a failure. A generated parse makes the top record, opens groups, reads fields, closes the groups and asserts
// that the message is used up; what fails on the way is caught at each level and goes through handleException.
//
// Failures are TransformExceptions. One message and one thread at a time.
class TAVRONE_API UniversalInputParser : public InputParser {
 public:
  UniversalInputParser() = default;
  // The copy holds the same records, which neither hands out again while both live.
  UniversalInputParser(UniversalInputParser const &other);
  // The records of each stay its own.
  UniversalInputParser &operator=(UniversalInputParser const &other);
  ~UniversalInputParser() noexcept(false) override;

 protected:
  // A record over the message, and one cut from `parent`. Both come from the parser's own store, which holds a
  // reference: hold another one, in a SmartPtr, as long as the record is used. One that nobody else holds is free for
  // the next call, except that a record is never cut into itself.
  UniversalInputRecord *createInputRecord(Binary const &message);
  UniversalInputRecord *getDelimitedRecord(UniversalInputRecord *parent, tvstring const &delimiter, bool recordFlag,
                                           bool dropLastDelimiter);

  static bool checkNull(tvstring const &value) { return value.empty(); }
  // "Mandatory field 'F' missing."
  static void assertNotNull(AbstractDataObject *object, int index);
  // "Duplicate field 'F'."
  static void assertFieldNew(AbstractDataObject *object, int index);
  // The limits of the section at the index.
  static void assertConstraints(AbstractDataObject *object, int index);
  // "The length of the length preceded field (L) is less than the minimum length (M)" or "... (L) exceeds the maximum
  // length (M) allowed."; a maximum of 0 or less is none.
  static void assertLength(int length, int minimum, int maximum);
  // "Incorrect filler value. Expected 'E' , found 'A'"
  static void checkFillerValue(tvstring const &actual, tvstring const &expected);
  // "Missing choice element S. None of choices match with the message", with the name of the object's section.
  [[noreturn]] static void missingChoice(AbstractDataObject *object);

  // Throws a copy of the failure, with the qualified name of the field at which the record's walk stands, and with the
  // index, line and column (both from 1) at which that field begins as context properties. A failure that has an index
  // already was located by an inner level and passes as it is. The object may be null: then no field is named.
  [[noreturn]] static void handleException(TransformException &exception, UniversalInputRecord *record,
                                           AbstractDataObject *object);

 private:
  UniversalInputRecord *freeRecord(UniversalInputRecord const *parent);

  ArrayList<UniversalInputRecord *> recordPool_;  // a reference on each
};

}  // namespace tavrone

#pragma once

#include "tavrone/core/tvstringbuffer.h"
#include "tavrone/pipeline/OutputWriter.h"

namespace tavrone {

class AbstractDataObject;
class TransformException;
class UniversalOutputRecord;

// The base of generated writers of the Universal format, which build records for header, data and trailer and append
// each to the message. Holds the message in progress; a copy has one of its own.
class TAVRONE_API UniversalOutputWriter : public AbstractSimpleOutputWriter {
 public:
  UniversalOutputWriter() = default;
  UniversalOutputWriter(UniversalOutputWriter const &other);
  UniversalOutputWriter &operator=(UniversalOutputWriter const &other);
  ~UniversalOutputWriter() noexcept(false) override;

  void initMessage() override { message_.clear(); }
  // A copy, which later messages don't change.
  tvstring endMessage() override { return tvstring(message_.data(), message_.length()); }

 protected:
  // Nothing for n below 1.
  void appendMessage(char const *bytes, int n);

  // Throws a copy of the failure, trace and properties kept. Names the field at which the record stands, if no field is
  // named yet. REQUIRES: object is not null, unless the record stands at no field
  [[noreturn]] static void handleException(TransformException &exception, UniversalOutputRecord *record,
                                           AbstractDataObject *object);
  // Raises TransformException "The length of the length preceded field (<length>) is less than the minimum length
  // (<minimum>)", or "... exceeds the maximum length (<maximum>) allowed."; a maximum below 1 is none.
  static void assertLength(int length, int minimum, int maximum);
  // Of the object's fields at most one may have a value, exactly one if `mandatory`: else TransformException "At least
  // one of the choices must have non-null value" or "More than one choice has a non-null value". A section without
  // elements has none. True if no field has one, so that there is nothing to write.
  static bool ensureChoice(AbstractDataObject *object, bool mandatory);
  // Raises TransformException "The mandatory field '<qualified name>' is missing."
  [[noreturn]] static void requiredFieldMissing(AbstractDataObject *object, int index);

 private:
  tvstringbuffer message_;
};

}  // namespace tavrone

#pragma once

#include "tavrone/context/TransformContext.h"
#include "tavrone/core/Binary.h"
#include "tavrone/core/ExceptionHandler.h"
#include "tavrone/pipeline/InputSource.h"

namespace tavrone {

class DataObject;
class ExternalObject;

// Knows one wire format: fills an ExternalObject from bytes. Generated classes implement the two Binary forms. Serves
// one message at a time.
class TAVRONE_API InputParser : public Object {
 public:
  ~InputParser() noexcept(false) override;

  // The InputSource forms take the source's binary value and go on as the Binary forms. What comes back is new, with a
  // count of 0.
  virtual void parse(ExternalObject *object, InputSource &input, TransformContext &context);
  virtual ExternalObject *parse(InputSource &input, TransformContext &context);
  virtual void parse(ExternalObject *object, Binary const &bytes, TransformContext &context) = 0;
  virtual ExternalObject *parse(Binary const &bytes, TransformContext &context) = 0;

  // An empty text is a null value throughout parsing; a blank is not.
  static bool isNull(tvstring const &value) { return value.empty(); }
  // Raises FieldParsingException "Field '<name>' cannot be null." for an empty value.
  static void ensureNotNull(tvstring const &value, DataObject *object, int fieldIndex, TransformContext &context) {
    if (value.empty()) ensureNotNull0(value, object, fieldIndex, context);
  }
  static void ensureNotNull0(tvstring const &value, DataObject *object, int fieldIndex, TransformContext &context);

  // Who gets the failures of the call in progress; borrowed, set by the caller.
  ExceptionHandler *exceptionHandler = ExceptionHandler::DRACONIAN_EXCEPTION_HANDLER;
};

}  // namespace tavrone

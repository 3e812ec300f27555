#pragma once

#include "tavrone/context/TransformContext.h"
#include "tavrone/core/ExceptionHandler.h"
#include "tavrone/pipeline/RawMessage.h"

namespace tavrone {

class DataObject;
class ExternalObject;

// Renders messages of one wire format. Not an Object.
class TAVRONE_API OutputWriter {
 public:
  virtual ~OutputWriter() noexcept(false);
};

// A writer of whole messages as text. Keeps the text in progress, so it serves one message at a time.
class TAVRONE_API SimpleOutputWriter : public OutputWriter {
 public:
  ~SimpleOutputWriter() noexcept(false) override;

  // Store the handler, which then stays, and render as the forms below.
  virtual tvstring write(ExternalObject &object, ExceptionHandler *handler, TransformContext &context);
  virtual RawMessage writeMessage(ExternalObject &object, ExceptionHandler *handler, TransformContext &context);
  // The whole message as text; the object is only read.
  virtual tvstring writeExternal(ExternalObject &object, TransformContext &context) = 0;
  // The text of writeExternal as a raw message.
  virtual RawMessage writeExternalMessage(ExternalObject &object, TransformContext &context);

  // Who gets the failures of the call in progress; borrowed.
  ExceptionHandler *exceptionHandler = ExceptionHandler::DRACONIAN_EXCEPTION_HANDLER;
};

// Renders header, data and trailer in turn. Header and trailer may be null.
class TAVRONE_API AbstractSimpleOutputWriter : public SimpleOutputWriter {
 public:
  ~AbstractSimpleOutputWriter() noexcept(false) override;

  tvstring writeExternal(ExternalObject &object, TransformContext &context) override;
  // Append the part to the text in progress; parts are borrowed.
  virtual void writeHeader(DataObject *header, TransformContext &context) = 0;
  virtual void writeData(DataObject *data, TransformContext &context) = 0;
  virtual void writeTrailer(DataObject *trailer, TransformContext &context) = 0;
  // Clears whatever is left of the last message.
  virtual void initMessage() = 0;
  // The finished text.
  virtual tvstring endMessage() = 0;
};

}  // namespace tavrone

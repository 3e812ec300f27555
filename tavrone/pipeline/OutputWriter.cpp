#include "tavrone/pipeline/OutputWriter.h"

#include "tavrone/pipeline/ExternalObject.h"
#include "tavrone/pipeline/InputSources.h"

namespace tavrone {

OutputWriter::~OutputWriter() noexcept(false) = default;
SimpleOutputWriter::~SimpleOutputWriter() noexcept(false) = default;
AbstractSimpleOutputWriter::~AbstractSimpleOutputWriter() noexcept(false) = default;

tvstring SimpleOutputWriter::write(ExternalObject &object, ExceptionHandler *handler, TransformContext &context) {
  exceptionHandler = handler;
  return writeExternal(object, context);
}

RawMessage SimpleOutputWriter::writeMessage(ExternalObject &object, ExceptionHandler *handler,
                                            TransformContext &context) {
  exceptionHandler = handler;
  return writeExternalMessage(object, context);
}

RawMessage SimpleOutputWriter::writeExternalMessage(ExternalObject &object, TransformContext &context) {
  return new StringInputSource(writeExternal(object, context));
}

tvstring AbstractSimpleOutputWriter::writeExternal(ExternalObject &object, TransformContext &context) {
  initMessage();
  writeHeader(object.getHeader(), context);
  writeData(object.getData(), context);
  writeTrailer(object.getTrailer(), context);
  return endMessage();
}

}  // namespace tavrone

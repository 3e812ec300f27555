#pragma once

#include "tavrone/context/LookupContext.h"
#include "tavrone/core/RememberedCast.h"
#include "tavrone/pipeline/IOutputFormat.h"

namespace tavrone {

class ExternalObject;
class OutputWriter;
class SimpleOutputWriter;

// Builds header, data and trailer, maps the source into them, has the writer render them, and only then opens the
// device that "output.device" names: a failed render opens none. Devices are the protocol's. Every TransformException
// that passes gets the phase "Output", NamingException for a device that no protocol is bound to among them.
class TAVRONE_API AbstractOutputFormat : public IOutputFormat {
 public:
  ~AbstractOutputFormat() noexcept(false) override;

  // Kept; write() does not read it.
  void setOutputDevice(OutputDevice *device) override { outputDevice_ = device; }
  void write(DataObject *source, TransformContext &context) override;

  // New parts with a count of 0; by default null.
  virtual DataObject *createRecordData() { return nullptr; }
  virtual DataObject *createHeader() { return nullptr; }
  virtual DataObject *createTrailer() { return nullptr; }
  // By default nothing.
  virtual void mapData(DataObject *source, DataObject *target, TransformContext &context);
  virtual void mapHeader(DataObject *source, DataObject *target, TransformContext &context);
  virtual void mapTrailer(DataObject *source, DataObject *data, DataObject *trailer, TransformContext &context);
  // The format's own, kept by generated code. Must be a SimpleOutputWriter: else ClassCastException.
  virtual OutputWriter *getOutputWriter() = 0;

 protected:
  AbstractOutputFormat();
  AbstractOutputFormat(AbstractOutputFormat const &other);

  // The writer by the checked cast.
  SimpleOutputWriter *getSimpleOutputWriter();
  tvstring writeOutput(ExternalObject &object, TransformContext &context);

  SmartPtr<ILookupContext> lookupContext_;
  OutputDevice *outputDevice_ = nullptr;

 private:
  RememberedCast<SimpleOutputWriter, OutputWriter> simpleWriter_;
};

// Writes the source's XML to the device that "output.device" names; maps nothing and has no writer.
class TAVRONE_API SimpleXMLOutputFormat : public AbstractOutputFormat {
 public:
  SimpleXMLOutputFormat() = default;
  SimpleXMLOutputFormat(SimpleXMLOutputFormat const &other) : Object(), ObjectRef(), AbstractOutputFormat(other) {}
  ~SimpleXMLOutputFormat() noexcept(false) override;

  void write(DataObject *source, TransformContext &context) override;
  OutputWriter *getOutputWriter() override { return nullptr; }
};

}  // namespace tavrone

#include "tavrone/pipeline/OutputFormat.h"

#include "tavrone/core/Class.h"
#include "tavrone/core/Raise.h"
#include "tavrone/pipeline/ExternalObject.h"
#include "tavrone/pipeline/OutputDevice.h"
#include "tavrone/pipeline/OutputWriter.h"
#include "tavrone/pipeline/WriteAll.h"

namespace tavrone {

namespace {

// Where a message goes. Found before anything is rendered; its device is made after that.
class Destination {
 public:
  // Raises NamingException if no protocol is bound under the name of the device.
  Destination(ILookupContext &directory, TransformContext &context)
      : info_(deviceInfo(context)), protocol_(directory.lookupOutputProtocol(info_.getDeviceName())) {}

  OutputDevice *open(TransformContext &context) { return protocol_->createDevice(info_, context); }

 private:
  static DeviceInfo deviceInfo(TransformContext &context) {
    tvstring const source = context.getProperty(TransformContext::INPUT_SOURCE_PROPERTY);
    tvstring const device = context.getProperty(TransformContext::OUTPUT_DEVICE_PROPERTY);
    tvstring const format = context.getProperty(TransformContext::OUTPUT_FORMAT_PROPERTY);
    return {device, source, format};
  }

  DeviceInfo info_;
  IOutputProtocol *protocol_;
};

void deliver(tvstring const &text, OutputDevice *device) {
  writeAll(*device, text);
  device->close();
}

}  // namespace

AbstractOutputFormat::AbstractOutputFormat() : lookupContext_(LookupContextFactory::getLookupContext()) {}
AbstractOutputFormat::AbstractOutputFormat(AbstractOutputFormat const &other)
    : Object(),
      ObjectRef(),
      IOutputFormat(),
      lookupContext_(other.lookupContext_),
      outputDevice_(other.outputDevice_) {}

AbstractOutputFormat::~AbstractOutputFormat() noexcept(false) = default;
SimpleXMLOutputFormat::~SimpleXMLOutputFormat() noexcept(false) = default;

void AbstractOutputFormat::mapData(DataObject *, DataObject *, TransformContext &) {}
void AbstractOutputFormat::mapHeader(DataObject *, DataObject *, TransformContext &) {}
void AbstractOutputFormat::mapTrailer(DataObject *, DataObject *, DataObject *, TransformContext &) {}

void AbstractOutputFormat::write(DataObject *source, TransformContext &context) {
  try {
    Destination destination(*lookupContext_, context);
    SmartPtr<DataObject> const header(createHeader());
    mapHeader(source, header.get(), context);
    SmartPtr<DataObject> const data(createRecordData());
    mapData(source, data.get(), context);
    SmartPtr<DataObject> const trailer(createTrailer());
    mapTrailer(source, data.get(), trailer.get(), context);
    ExternalObject object(header.get(), data.get(), trailer.get());
    tvstring const text = writeOutput(object, context);
    deliver(text, destination.open(context));
  } catch (TransformException &e) {
    e.setErrorPhase(ExceptionObject::OUTPUT_PHASE);
    throw;
  }
}

SimpleOutputWriter *AbstractOutputFormat::getSimpleOutputWriter() {
  OutputWriter *const writer = getOutputWriter();
  SimpleOutputWriter *const simple = simpleWriter_(writer);
  return simple != nullptr ? simple : checkedCast<SimpleOutputWriter>(writer);
}

tvstring AbstractOutputFormat::writeOutput(ExternalObject &object, TransformContext &context) {
  return getSimpleOutputWriter()->writeExternal(object, context);
}

void SimpleXMLOutputFormat::write(DataObject *source, TransformContext &context) {
  Destination destination(*lookupContext_, context);
  OutputDevice *const device = destination.open(context);
  deliver(source->toXMLString(), device);
}

}  // namespace tavrone

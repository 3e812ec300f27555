#include "tavrone/pipeline/MappingRules.h"

#include "tavrone/core/Raise.h"
#include "tavrone/pipeline/StoredContext.h"

namespace tavrone {

template <class Custom>
Custom *CustomMappingRules<Custom>::getCustomMappingClass() {
  if (customMapping_.isNull())
    customMapping_ = CustomClassSupport::create<Custom>(customClassName, [this](Object *) {
      raise<TransformException>(
          "Error creating custom class instance - " + customClassName + " is not of expected type", "cpp/MappingRules");
    });
  return customMapping_.get();
}

template <class Custom>
template <class Body, class CallCustom>
void CustomMappingRules<Custom>::mapPart(TransformContext &context, Body const &body, CallCustom const &callCustom) {
  withStoredContext(transformContext, context, [&] {
    body();
    if (!customClassName.empty()) callCustom(*getCustomMappingClass());
  });
}

InputMappingRules::~InputMappingRules() noexcept(false) = default;
NormalizedObjectMappingRules::~NormalizedObjectMappingRules() noexcept(false) = default;
ExternalToExternalMappingRules::~ExternalToExternalMappingRules() noexcept(false) = default;
OutputMappingRules::~OutputMappingRules() noexcept(false) = default;

void InputMappingRules::mapFields(ExternalObject *source, DataObject *target, TransformContext &context) {
  try {
    mapPart(
        context, [&] { mapFields0(source, target); },
        [&](IInputMapping &custom) { custom.map(source, target, context); });
  } catch (TransformException &e) {
    e.setErrorType(ExceptionObject::ERROR_TYPE_MAPPING);
    throw;
  }
}

void NormalizedObjectMappingRules::mapFields(DataObject *source, DataObject *target, TransformContext &context) {
  mapPart(
      context, [&] { mapFields0(source, target); },
      [&](INormalizedObjectMapping &custom) { custom.map(source, target, context); });
}

void ExternalToExternalMappingRules::mapFields(ExternalObject *source, ExternalObject *target,
                                               TransformContext &context) {
  mapPart(
      context,
      [&] {
        mapHeaderFields0(source->getHeader(), target->getHeader());
        mapDataFields0(source->getData(), target->getData());
        mapTrailerFields0(source->getTrailer(), target->getTrailer());
      },
      [&](IExternalMapping &custom) { custom.map(source, target, context); });
}

void OutputMappingRules::mapFields(DataObject *source, ExternalObject *target, TransformContext &context) {
  mapHeaderFields(source, target->getHeader(), context);
  mapDataFields(source, target->getData(), context);
  mapTrailerFields(source, target->getData(), target->getTrailer(), context);
}

void OutputMappingRules::mapHeaderFields(DataObject *source, DataObject *header, TransformContext &context) {
  mapPart(
      context, [&] { mapHeaderFields0(source, header); },
      [&](IOutputMapping &custom) { custom.mapHeader(source, header, context); });
}

void OutputMappingRules::mapDataFields(DataObject *source, DataObject *data, TransformContext &context) {
  mapPart(
      context, [&] { mapDataFields0(source, data); },
      [&](IOutputMapping &custom) { custom.mapData(source, data, context); });
}

void OutputMappingRules::mapTrailerFields(DataObject *source, DataObject *data, DataObject *trailer,
                                          TransformContext &context) {
  mapPart(
      context, [&] { mapTrailerFields0(source, data, trailer); },
      [&](IOutputMapping &custom) { custom.mapTrailer(source, data, trailer, context); });
}

void InputMappingRules::mapFields0(ExternalObject *, DataObject *) {}
void NormalizedObjectMappingRules::mapFields0(DataObject *, DataObject *) {}
void ExternalToExternalMappingRules::mapHeaderFields0(DataObject *, DataObject *) {}
void ExternalToExternalMappingRules::mapDataFields0(DataObject *, DataObject *) {}
void ExternalToExternalMappingRules::mapTrailerFields0(DataObject *, DataObject *) {}
void OutputMappingRules::mapHeaderFields0(DataObject *, DataObject *) {}
void OutputMappingRules::mapDataFields0(DataObject *, DataObject *) {}
void OutputMappingRules::mapTrailerFields0(DataObject *, DataObject *, DataObject *) {}

}  // namespace tavrone

#include "examples/orderdesk/Inspector.h"

#include <utility>

namespace examples {

namespace {

using Failures = std::vector<std::unique_ptr<ExceptionDataObject>>;

void add(Failures &failures, TransformException const &failure, tvstring const &type, tvstring const &phase) {
  auto record = std::make_unique<TransformException>(failure);
  record->fillErrorType(type);
  record->fillPhase(phase);
  failures.push_back(std::move(record));
}

// Runs one step, whose result has the records that it collected; a step that cannot go on raises instead.
template <class Step>
SmartPtr<DataObject> collect(Failures &failures, tvstring const &type, tvstring const &phase, Step const &step) {
  try {
    Result<SmartPtr<DataObject>> result = step();
    for (ExceptionDataObject *&collected : result.exceptions) {
      std::unique_ptr<ExceptionDataObject> record(std::exchange(collected, nullptr));
      record->fillErrorType(type);
      record->fillPhase(phase);
      failures.push_back(std::move(record));
    }
    return result.value;
  } catch (TransformException const &failure) {
    add(failures, failure, type, phase);
    return nullptr;
  }
}

}  // namespace

Inspector::Inspector(MessageIdentificationService &service)
    : service_(service), order_(LookupContextFactory::getLookupContext()->lookupInternalMessage("Order")) {}

Inspection Inspector::inspect(InputSource &input, TransformContext &context) {
  Inspection found;
  try {
    found.header = service_.identifyMessage(input);
  } catch (TransformException const &failure) {
    add(found.failures, failure, ExceptionObject::ERROR_TYPE_PARSING, ExceptionObject::INPUT_PHASE);
    return found;
  }
  OrderChannel *const channel = channelOf(context.getProperty(TransformContext::INPUT_FORMAT_PROPERTY));
  if (channel == nullptr) return found;
  inspectRecord(found, *channel, input, context);
  if (found.failures.empty()) inspectOrder(found, *channel, context);
  return found;
}

void Inspector::inspectRecord(Inspection &found, OrderChannel &channel, InputSource &input, TransformContext &context) {
  IExternalMessage &message = channel.message();
  tvstring const &phase = ExceptionObject::INPUT_PHASE;
  found.record = collect(found.failures, ExceptionObject::ERROR_TYPE_PARSING, phase,
                         [&] { return message.parse2(input, context); });
  if (!found.failures.empty()) return;
  for (char const *validator : {"Integrity", "Default"})
    collect(found.failures, ExceptionObject::ERROR_TYPE_VALIDATION, phase,
            [&] { return message.validate2(validator, found.record, context); });
}

void Inspector::inspectOrder(Inspection &found, OrderChannel &channel, TransformContext &context) {
  found.order = channel.createInputObject();
  collect(found.failures, ExceptionObject::ERROR_TYPE_MAPPING, ExceptionObject::INPUT_PHASE, [&] {
    channel.mapping().mapFields(checkedCast<ExternalObject>(found.record.get()), found.order.get(), context);
    return Result<SmartPtr<DataObject>>();
  });
  if (!found.failures.empty()) return;
  tvstring const &phase = ExceptionObject::INTERNAL_MESSAGE_PHASE;
  collect(found.failures, ExceptionObject::ERROR_TYPE_PROCESSING, phase,
          [&] { return order_->preprocess2(found.order, context); });
  if (!found.failures.empty()) return;
  collect(found.failures, ExceptionObject::ERROR_TYPE_VALIDATION, phase,
          [&] { return order_->validate2(found.order, context); });
}

OrderChannel *Inspector::channelOf(tvstring const &inputFormat) {
  if (inputFormat.empty()) return nullptr;
  auto known = formats_.find(inputFormat);
  if (known == formats_.end())
    known =
        formats_.emplace(inputFormat, LookupContextFactory::getLookupContext()->lookupInputFormat(inputFormat)).first;
  return dynamic_cast<OrderChannel *>(known->second.get());
}

}  // namespace examples

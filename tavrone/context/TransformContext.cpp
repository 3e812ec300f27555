#include "tavrone/context/TransformContext.h"

namespace tavrone {

constinit tvstringliteral const TransformContext::INPUT_FORMAT_PROPERTY("input.format");
constinit tvstringliteral const TransformContext::INPUT_SOURCE_PROPERTY("input.source");
constinit tvstringliteral const TransformContext::INPUT_MODE_PROPERTY("input.mode");
constinit tvstringliteral const TransformContext::INPUT_BATCH_CONTEXT_PROPERTY("input.batch.context");
constinit tvstringliteral const TransformContext::INPUT_BATCH_ID_PROPERTY("input.batch.id");
constinit tvstringliteral const TransformContext::INPUT_BATCH_SIZE_PROPERTY("input.batch.size");
constinit tvstringliteral const TransformContext::OUTPUT_DESTINATION_PROPERTY("output.destination");
constinit tvstringliteral const TransformContext::DEFAULT_OUTPUT_DESTINATION_PROPERTY("output.destination.default");
constinit tvstringliteral const TransformContext::OUTPUT_FORMAT_PROPERTY("output.format");
constinit tvstringliteral const TransformContext::OUTPUT_PROTOCOL_PROPERTY("output.protocol");
constinit tvstringliteral const TransformContext::OUTPUT_DEVICE_PROPERTY("output.device");
constinit tvstringliteral const TransformContext::OUTPUT_FORMAT_SUFFIX("output.format.suffix");
constinit tvstringliteral const TransformContext::BATCH_MODE("batch");
constinit tvstringliteral const TransformContext::RECORD_MODE("record");

TransformContext::TransformContext() = default;
TransformContext::TransformContext(TransformContext const &other) : Object(other) {
  *this = other;
}
TransformContext::~TransformContext() noexcept(false) = default;

TransformContext &TransformContext::operator=(TransformContext const &other) {
  if (this != &other) strings_ = other.strings_ == nullptr ? nullptr : std::make_unique<Strings>(*other.strings_);
  return *this;
}

void TransformContext::setProperty(tvstring const &key, tvstring const &value) {
  strings().insert_or_assign(key, value);
}

tvstring TransformContext::getProperty(tvstring const &key) {
  Strings const &values = strings();
  auto const entry = values.find(key);
  return entry == values.end() ? tvstring() : entry->second;
}

TransformContext::Strings &TransformContext::strings() {
  if (strings_ == nullptr) strings_ = std::make_unique<Strings>();
  return *strings_;
}

}  // namespace tavrone

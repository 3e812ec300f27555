#include "tavrone/context/TransformContext.h"

#include <typeinfo>
#include <utility>

#include "tavrone/core/Raise.h"
#include "tavrone/pipeline/OutputContext.h"

namespace tavrone {

// All of these are initialised before any code runs, so that other libraries may use them while they load.
constexpr TransformContext::TransformContext(Constant) noexcept {}
constinit TransformContext TransformContext::EMPTY{Constant()};

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

namespace {

// Gives each of the names above a slot of its own among 16.
size_t slotOf(tvstring const &key) {
  return key.empty() ? 0 : key.length() + 5UL * static_cast<unsigned char>(key[key.length() - 1]);
}

uint64_t bitOf(tvstring const &key) {
  return uint64_t{1} << slotOf(key) % 64;
}

}  // namespace

TransformContext::TransformContext() = default;
TransformContext::TransformContext(TransformContext const &other) : TransformContext() {
  *this = other;
}
TransformContext &TransformContext::operator=(TransformContext const &other) {
  if (this == &other) return *this;
  found_.fill(nullptr);
  if (other.strings_ != nullptr) strings();
  keyBits_ = other.keyBits_;
  if (other.strings_ == nullptr)
    strings_.reset();
  else
    *strings_ = *other.strings_;
  outputContext_ = other.outputContext_;
  return *this;
}
TransformContext::~TransformContext() noexcept(false) {
  delete objects_;
}

void TransformContext::setContextProperty(tvstring const &key, tvstring const &value) {
  setProperty(key, value);
}

void TransformContext::setProperty(tvstring const &key, tvstring const &value) {
  if (tvstring *stored = findProperty(key)) {
    *stored = value;
    return;
  }
  Strings &all = strings();  // before its bits: where there are bits, there is a map
  keyBits_ |= bitOf(key);
  all.emplace(key, value);
}

void TransformContext::setObjectProperty(tvstring const &key, Object *value) {
  Object *&stored = getObjectPropertyMap()[key];
  if (stored == value) return;
  ObjectRef::releaseRef(std::exchange(stored, nullptr));
  ObjectRef::addRef(value);
  stored = value;
}

tvstring TransformContext::getProperty(tvstring const &key) {
  if (strings_ == nullptr && this != &EMPTY) strings();  // threads share EMPTY: reading it leaves it as it is
  tvstring const *value = findProperty(key);
  return value == nullptr ? tvstring() : *value;
}

Object *TransformContext::getObjectProperty(tvstring const &key) {
  if (objects_ == nullptr) return nullptr;
  auto const entry = objects_->find(key);
  return entry == objects_->end() ? nullptr : entry->second;
}

void TransformContext::createOutputContext() {
  if (outputContext_.isNull())
    outputContext_ = new IOutputContextImpl;
  else
    outputContext_->clear();
}

SmartPtr<IOutputContext> TransformContext::getOutputContext() {
  if (outputContext_.isNull())
    raise<TransformException>(
        "The transform context cannot accept output. Make sure that you call createOutputContext() on the "
        "TransformContext if output is expected",
        "cpp/TransformContext", 56);
  return outputContext_;
}

// A subclass may give another one, or none, by getOutputContext.
SmartPtr<IOutputContext> TransformContext::findOutputContext() {
  if (typeid(*this) == typeid(TransformContext)) return outputContext_;
  try {
    return getOutputContext();
  } catch (TransformException const &) {
    return nullptr;
  }
}

SmartPtr<IOutputContext> TransformContext::exchangeOutputContext(SmartPtr<IOutputContext> output) {
  return std::exchange(outputContext_, std::move(output));
}

void TransformContext::copyTo(TransformContext &target) {
  target.TransformContext::operator=(*this);
}

void TransformContext::clear() {
  found_.fill(nullptr);
  keyBits_ = 0;
  if (strings_ != nullptr) strings_->clear();
  outputContext_.release();
}

void TransformContext::putAll(Strings const &properties) {
  Strings &all = strings();
  for (auto const &[key, value] : properties) keyBits_ |= bitOf(key);
  all.insert(properties.begin(), properties.end());
}

ObjectPtrMap<Object> &TransformContext::getObjectPropertyMap() {
  if (objects_ == nullptr) objects_ = new ObjectPtrMap<Object>;
  return *objects_;
}

tvstring *TransformContext::findProperty(tvstring const &key) const {
  if ((keyBits_ & bitOf(key)) == 0) return nullptr;
  Strings::value_type *&found = found_[slotOf(key) % found_.size()];
  if (found == nullptr || found->first != key) {
    auto const entry = strings_->find(key);
    if (entry == strings_->end()) return nullptr;
    found = &*entry;
  }
  return &found->second;
}

TransformContext::Strings &TransformContext::strings() {
  if (strings_ == nullptr) strings_ = std::make_unique<Strings>();
  return *strings_;
}

TransformContextWrapper::~TransformContextWrapper() noexcept(false) = default;

tvstring TransformContextWrapper::getProperty(tvstring const &key) {
  tvstring const *own = findProperty(key);
  return own == nullptr ? context_->getProperty(key) : *own;
}

void TransformContextWrapper::createOutputContext() {
  context_->createOutputContext();
}
SmartPtr<IOutputContext> TransformContextWrapper::getOutputContext() {
  return context_->getOutputContext();
}
void TransformContextWrapper::clear() {
  context_->clear();
}
SmartPtr<IOutputContext> TransformContextWrapper::findOutputContext() {
  return context_->findOutputContext();
}
SmartPtr<IOutputContext> TransformContextWrapper::exchangeOutputContext(SmartPtr<IOutputContext> output) {
  return context_->exchangeOutputContext(std::move(output));
}

}  // namespace tavrone

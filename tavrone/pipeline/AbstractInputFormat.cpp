#include "tavrone/pipeline/AbstractInputFormat.h"

#include "tavrone/core/Exceptions.h"

namespace tavrone {

AbstractInputFormat::AbstractInputFormat(tvstring const &businessTransactionName)
    : lookupContext_(LookupContextFactory::getLookupContext()),
      businessTransaction_(lookupContext_->lookupBusinessTransaction(businessTransactionName)) {}
AbstractInputFormat::~AbstractInputFormat() noexcept(false) = default;

DataObject *AbstractInputFormat::handleInput(InputSource &input, TransformContext &context) {
  DataObject *const object = createInputObject();
  ObjectRef::addRef(object);  // while it is parsed into; handed out without
  try {
    parseInput(input, object, context);
  } catch (...) {
    ObjectRef::releaseRef(object);
    throw;
  }
  if (object != nullptr) object->decRef();
  return object;
}

void AbstractInputFormat::processInput(InputSource &input, TransformContext &context) {
  try {
    if (normalizedObject_.isNull())
      normalizedObject_ = createInputObject();
    else
      normalizedObject_->reset();
    parseInput(input, normalizedObject_.get(), context);
    businessTransaction_->handleNormalizedObject(normalizedObject_.get(), context);
  } catch (TransformException &e) {
    e.fillPhase(ExceptionObject::INPUT_PHASE);
    throw;
  }
}

}  // namespace tavrone

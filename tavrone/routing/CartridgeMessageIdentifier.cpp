#include "tavrone/routing/CartridgeMessageIdentifier.h"

#include "tavrone/context/Factory.h"
#include "tavrone/core/Raise.h"

namespace tavrone {

namespace {

bool const registered = registerClass<CartridgeMessageIdentifier>("CartridgeMessageIdentifier");

}  // namespace

DataObject *CartridgeMessageIdentifier::identifyMessage(InputSource &input) {
  TransformContext context;
  context.setProperty(TransformContext::INPUT_SOURCE_PROPERTY, tvstringliteral("MessageID"));
  return getInputFormat()->handleInput(input, context);
}

void CartridgeMessageIdentifier::setProperty(tvstring const &name, tvstring const &value) {
  if (name == TransformContext::INPUT_FORMAT_PROPERTY) inputFormatName_ = value;
}

IInputFormat *CartridgeMessageIdentifier::getInputFormat() {
  if (inputFormatName_.empty())
    raise<TransformException>("The property 'input.format' not set for CartridgeMessageIdentifier",
                              "cpp/CartridgeMessageIdentifier", 34);
  if (inputFormat_.isNull()) {
    if (lookupContext_.isNull()) lookupContext_ = LookupContextFactory::getLookupContext();
    inputFormat_ = lookupContext_->lookupInputFormat(inputFormatName_);
  }
  return inputFormat_.get();
}

}  // namespace tavrone

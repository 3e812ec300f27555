#include "tavrone/formula/MessageFunctions.h"

#include "tavrone/context/LookupContext.h"
#include "tavrone/pipeline/IMessage.h"
#include "tavrone/pipeline/InputSources.h"

namespace tavrone {
namespace {

SmartPtr<IMessage> messageBy(tvstring const &name) {
  return LookupContextFactory::getLookupContext()->lookupMessage(name);
}

}  // namespace

tvstring MessageFunctions::toText(RawMessage const &message) {
  return message.isNull() ? tvstring() : message->getAsString();
}
Binary MessageFunctions::toBinary(RawMessage const &message) {
  return message.isNull() ? Binary() : message->getAsBinary();
}
RawMessage MessageFunctions::fromText(tvstring const &text) {
  return new StringInputSource(text);
}
RawMessage MessageFunctions::fromBinary(Binary const &bytes) {
  return new ByteArrayInputSource(bytes);
}

tvstring MessageFunctions::getName(RawMessage const &message) {
  return message.isNull() ? tvstring() : message->getName();
}
tvstring MessageFunctions::getEncoding(RawMessage const &message) {
  return message.isNull() ? tvstring() : message->getEncoding();
}

tvstring MessageFunctions::getProperty(RawMessage const &message, tvstring const &name) {
  return message.isNull() ? tvstring() : message->getStringProperty(name, tvstring::EMPTY);
}
bool MessageFunctions::hasProperty(RawMessage const &message, tvstring const &name) {
  return !message.isNull() && message->hasProperty(name);
}
void MessageFunctions::setProperty(RawMessage const &message, tvstring const &name, tvstring const &value) {
  if (message.isNull()) return;
  // A map drops nothing that is replaced: it belongs to whoever replaces it.
  Object *const replaced = message->getProperty(name);
  message->setStringProperty(name, value);
  ObjectRef::releaseRef(replaced);
}

RawMessage MessageFunctions::getAttachment(RawMessage const &message, tvstring const &name) {
  // Asked first, since an unknown name would get an entry.
  return hasAttachment(message, name) ? message->getAttachment(name) : RawMessage();
}
bool MessageFunctions::hasAttachment(RawMessage const &message, tvstring const &name) {
  return !message.isNull() && message->hasAttachment(name);
}
void MessageFunctions::addAttachment(RawMessage const &message, tvstring const &name, RawMessage const &attachment) {
  if (!message.isNull()) message->addAttachment(name, attachment);
}

SmartPtr<DataObject> MessageFunctions::parse(tvstring const &message, Binary const &bytes, TransformContext &context) {
  return messageBy(message)->parse(bytes, context);
}
Binary MessageFunctions::serialize(tvstring const &message, SmartPtr<DataObject> const &object,
                                   TransformContext &context) {
  SmartPtr<IMessage> const type = messageBy(message);
  return object.isNull() ? Binary() : type->serialize(object, context);
}
bool MessageFunctions::isValid(tvstring const &message, SmartPtr<DataObject> const &object, TransformContext &context) {
  SmartPtr<IMessage> const type = messageBy(message);
  return !object.isNull() && type->validate2(object, context).exceptions.empty();
}

tvstring MessageFunctions::getContextProperty(TransformContext &context, tvstring const &key) {
  return context.getProperty(key);
}
void MessageFunctions::setContextProperty(TransformContext &context, tvstring const &key, tvstring const &value) {
  context.setContextProperty(key, value);
}

}  // namespace tavrone

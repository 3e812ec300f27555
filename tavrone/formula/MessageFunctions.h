#pragma once

#include "tavrone/context/TransformContext.h"
#include "tavrone/dataobject/DataObject.h"
#include "tavrone/pipeline/RawMessage.h"

namespace tavrone {

// What formulas ask of messages. A null handle reads as a message without anything, and takes nothing.
class TAVRONE_API MessageFunctions {
 public:
  // The payload, byte for byte.
  static tvstring toText(RawMessage const &message);
  static Binary toBinary(RawMessage const &message);
  // A new message, which shares the payload.
  static RawMessage fromText(tvstring const &text);
  static RawMessage fromBinary(Binary const &bytes);

  static tvstring getName(RawMessage const &message);
  static tvstring getEncoding(RawMessage const &message);
  // The property's text; empty for an unknown name.
  static tvstring getProperty(RawMessage const &message, tvstring const &name);
  static bool hasProperty(RawMessage const &message, tvstring const &name);
  // Releases the value that it replaces.
  static void setProperty(RawMessage const &message, tvstring const &name, tvstring const &value);
  // A null handle for an unknown name.
  static RawMessage getAttachment(RawMessage const &message, tvstring const &name);
  static bool hasAttachment(RawMessage const &message, tvstring const &name);
  static void addAttachment(RawMessage const &message, tvstring const &name, RawMessage const &attachment);

  // By the message type bound under the name; NamingException without one. Failures of parsing and writing pass
  // through. A null object is written as no bytes.
  static SmartPtr<DataObject> parse(tvstring const &message, Binary const &bytes, TransformContext &context);
  static Binary serialize(tvstring const &message, SmartPtr<DataObject> const &object, TransformContext &context);
  // Whether the validator "Default" reports nothing; false for a null object. What no rule can report (no such
  // validator, a wrong object) is raised.
  static bool isValid(tvstring const &message, SmartPtr<DataObject> const &object, TransformContext &context);

  // Empty for an unknown key.
  static tvstring getContextProperty(TransformContext &context, tvstring const &key);
  static void setContextProperty(TransformContext &context, tvstring const &key, tvstring const &value);
};

}  // namespace tavrone

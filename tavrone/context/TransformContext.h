#pragma once

#include <map>
#include <memory>

#include "tavrone/core/Object.h"

namespace tavrone {

// What one transformation carries from input to output. A context may be reused from message to message: the keys that
// stand stay allocated. It belongs to one thread at a time.
class TAVRONE_API TransformContext : public Object {
 public:
  static tvstringliteral const INPUT_FORMAT_PROPERTY;                // "input.format"
  static tvstringliteral const INPUT_SOURCE_PROPERTY;                // "input.source"
  static tvstringliteral const INPUT_MODE_PROPERTY;                  // "input.mode"
  static tvstringliteral const INPUT_BATCH_CONTEXT_PROPERTY;         // "input.batch.context"
  static tvstringliteral const INPUT_BATCH_ID_PROPERTY;              // "input.batch.id"
  static tvstringliteral const INPUT_BATCH_SIZE_PROPERTY;            // "input.batch.size"
  static tvstringliteral const OUTPUT_DESTINATION_PROPERTY;          // "output.destination"
  static tvstringliteral const DEFAULT_OUTPUT_DESTINATION_PROPERTY;  // "output.destination.default"
  static tvstringliteral const OUTPUT_FORMAT_PROPERTY;               // "output.format"
  static tvstringliteral const OUTPUT_PROTOCOL_PROPERTY;             // "output.protocol"
  static tvstringliteral const OUTPUT_DEVICE_PROPERTY;               // "output.device"
  static tvstringliteral const OUTPUT_FORMAT_SUFFIX;                 // "output.format.suffix"
  static tvstringliteral const BATCH_MODE;                           // "batch"
  static tvstringliteral const RECORD_MODE;                          // "record"

  TransformContext();
  TransformContext(TransformContext const &other);
  TransformContext &operator=(TransformContext const &other);
  ~TransformContext() noexcept(false) override;

  // The last write under a key wins.
  virtual void setProperty(tvstring const &key, tvstring const &value);
  // Empty for an unknown key.
  virtual tvstring getProperty(tvstring const &key);

 private:
  using Strings = std::map<tvstring, tvstring>;
  Strings &strings();

  std::unique_ptr<Strings> strings_;  // null until first needed
};

}  // namespace tavrone

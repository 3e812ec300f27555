#pragma once

#include "tavrone/core/tvstring.h"

namespace tavrone {

// Each constant of the failure vocabulary with its text; the static getters get<NAME>() come from the same list.
#define TAVRONE_EXCEPTION_VOCABULARY(X)         \
  X(ERROR_TYPE_PARSING, "Parsing")              \
  X(ERROR_TYPE_REQUIRED, "Required")            \
  X(ERROR_TYPE_VALIDATION, "Validation")        \
  X(ERROR_TYPE_MAPPING, "Mapping")              \
  X(ERROR_TYPE_PROCESSING, "Processing")        \
  X(ERROR_TYPE_OUTPUT, "Output Writing")        \
  X(ERROR_FIELD, "Error-Field")                 \
  X(INPUT_PHASE, "Input")                       \
  X(OUTPUT_PHASE, "Output")                     \
  X(INTERNAL_MESSAGE_PHASE, "Internal Message") \
  X(ERROR_PHASE, "Error-Phase")                 \
  X(ERROR_TYPE, "Error-Type")                   \
  X(EXCEPTION_SEVERITY_FATAL, "fatal")          \
  X(EXCEPTION_SEVERITY_ERROR, "error")          \
  X(EXCEPTION_SEVERITY_WARN, "warn")            \
  X(LINE, "line")                               \
  X(COLUMN, "column")                           \
  X(INDEX, "index")                             \
  X(INTERNAL_CODE, "Internal-Code")

// The vocabulary of failure records: error types, phases, severities, and the keys of context properties.
class TAVRONE_API ExceptionObject {
 public:
#define TAVRONE_DECLARE(NAME, TEXT)    \
  static tvstringliteral const NAME;   \
  static tvstring const &get##NAME() { \
    return NAME;                       \
  }
  TAVRONE_EXCEPTION_VOCABULARY(TAVRONE_DECLARE)
#undef TAVRONE_DECLARE

  ExceptionObject() = default;
  ExceptionObject(ExceptionObject const &) = default;
  ExceptionObject &operator=(ExceptionObject const &) = default;
  virtual ~ExceptionObject() noexcept(false);
};

}  // namespace tavrone

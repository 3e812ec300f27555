#pragma once

#include "tavrone/tavrone.h"

namespace examples {

using namespace tavrone;

// Rules of an external message whose failed checks go to the exception handler with a code for the sender in
// "Internal-Code", so that validate2 reports all of them.
class CodedRules : public FieldsValidationRules {
 public:
  using FieldsValidationRules::validateData;
  using FieldsValidationRules::validateHeader;
  using FieldsValidationRules::validateTrailer;
  void validateHeader(DataObject *) override {}
  void validateData(DataObject *, DataObject *) override {}
  void validateTrailer(DataObject *) override {}

 protected:
  // The field's name becomes a text only when the check fails.
  template <class Name>
  void check(bool holds, char const *code, char const *rule, Name const &field) {
    if (!holds) report(code, rule, field);
  }

 private:
  void report(char const *code, char const *rule, tvstring const &field) {
    // A handler that collects lets the next check run; the one that stops throws from here.
    try {
      throwFieldInvalid(rule, field);
    } catch (TransformException &failure) {
      failure.setInternalCode(code);
      failure.setFFieldName(field);
      failure.fillErrorType(ExceptionObject::ERROR_TYPE_VALIDATION);
      exceptionHandler->onException(&failure);
    }
  }
};

}  // namespace examples

#pragma once

#include <span>

#include "tavrone/tavrone.h"

namespace examples {

using namespace tavrone;

// One check of a message: its code for the sender, the rule and the field that its failure names.
template <class Message>
struct Check {
  char const *code;
  char const *rule;
  char const *field;
  bool (*holds)(Message const &message);
};

// Validation by a table. Each check that does not hold goes to the exception handler with its code in "Internal-Code",
// so that validate2 reports all of them.
template <class Message>
class TableChecks : public ValidationRules {
 public:
  explicit TableChecks(std::span<Check<Message> const> checks) : checks_(checks) {}

  using ValidationRules::validate;
  void validate(DataObject *object) override {
    Message const &message = *checkedCast<Message>(object);
    for (Check<Message> const &check : checks_) {
      // A handler that collects lets the next check run; the one that stops throws from here.
      try {
        if (!check.holds(message)) throwFieldInvalid(check.rule, check.field);
      } catch (TransformException &failure) {
        failure.setInternalCode(check.code);
        failure.fillErrorType(ExceptionObject::ERROR_TYPE_VALIDATION);
        exceptionHandler->onException(&failure);
      }
    }
  }

 private:
  std::span<Check<Message> const> checks_;
};

}  // namespace examples

#include "tavrone/pipeline/Rules.h"

#include <gtest/gtest.h>

#include <functional>

#include "tavrone/core/Wrappers.h"
#include "tests/Failure.h"

namespace tavrone {
namespace {

std::function<void(char const *step)> body;

struct Fields : FieldsValidationRules {
  using FieldsValidationRules::throwFieldInvalid, FieldsValidationRules::invokeCustomExternalClass,
      FieldsValidationRules::getTransformContext;
  void validateData(DataObject *, DataObject *) override { body("data "); }
  void validateHeader(DataObject *) override { body("header "); }
  void validateTrailer(DataObject *) override { body("trailer "); }
};
struct Validation : ValidationRules {
  using ValidationRules::throwFieldInvalid;
  void validate(DataObject *) override { body("validate "); }
};
struct Normalized : NormalizedObjectValidationRules {
  using NormalizedObjectValidationRules::throwFieldInvalid;
};
struct Processing : ProcessingRules {
  void preprocess(DataObject *) override { body("preprocess "); }
  void postprocess(DataObject *) override { body("postprocess "); }
  void validate(DataObject *) override { body("validate "); }
  void checkNotNull(DataObject *) override { body("checkNotNull "); }
};
struct Business : BusinessProcessingRules {
  void process(DataObject *) override { body("process "); }
};

// The steps of a call, then the error type that its failures leave with: one that came without a type, one that had it.
std::string traced(std::function<void()> const &call) {
  std::string steps;
  body = [&](char const *step) { steps += step; };
  call();
  for (tvstring const type : {"", "Mapping"}) {
    body = [&](char const *) {
      TransformException failure("body");
      failure.setErrorType(type);
      throw failure;
    };
    try {
      call();
    } catch (TransformException const &e) {
      steps += "[" + std::string(e.getErrorType().c_str()) + "]";
    }
  }
  return steps;
}

TEST(Rules, RunTheirBodiesInOrderAndClassifyWhatPasses) {
  Fields fields;
  Validation validation;
  Processing processing;
  Business business;
  ProcessingRules empty;
  FieldsValidationRules &f = fields;
  ValidationRules &v = validation;
  ProcessingRules &p = processing, &b = business;
  TransformContext c;
  struct {
    std::function<void()> call;
    char const *expected;
  } const cases[] = {
      {[&] { v.validate(nullptr, c); }, "validate [][Mapping]"},
      {[&] { f.validateHeader(nullptr, c); }, "header [Validation][Mapping]"},
      {[&] { f.validateData(nullptr, nullptr, c); }, "data [Validation][Mapping]"},
      {[&] { f.validateTrailer(nullptr, c); }, "trailer [Validation][Mapping]"},
      {[&] { p.process(nullptr, c); }, "preprocess validate postprocess checkNotNull [Processing][Mapping]"},
      {[&] { p.preprocess(nullptr, c); }, "preprocess [][Mapping]"},
      {[&] { b.process(nullptr, c); }, "process [Processing][Mapping]"},
      {[&] { empty.process(nullptr, c); }, ""}};
  for (auto const &call : cases) EXPECT_EQ(traced(call.call), call.expected);
}

TEST(Rules, HoldTheContextForTheCallAndAfterAFailure) {
  Fields rules;
  TransformContext context;
  auto const call = [&] { static_cast<FieldsValidationRules &>(rules).validateHeader(nullptr, context); };
  auto const stored = [&] { return &rules.getTransformContext() == &context; };
  body = [&](char const *) { EXPECT_TRUE(stored()); };
  call();
  EXPECT_EQ(failureOf<TransformRuntimeException>(stored).text, "No transform context outside of a call");
  body = [](char const *) { throw 1; };
  EXPECT_THROW(call(), int);
  EXPECT_TRUE(stored());
}

TEST(Rules, NameTheRuleAndTheFieldThatIsNotValid) {
  auto const sourceOf = [](std::function<void()> const &call) {
    Failure const failure = failureOf<FieldValidationException>(call);
    EXPECT_EQ(failure.text, "Validation 'R' failed. Field 'F' is not valid");
    return failure.source;
  };
  EXPECT_EQ(sourceOf([] { Validation::throwFieldInvalid("R", "F"); }), "cpp/AbstractValidationRules");
  EXPECT_EQ(sourceOf([] { Normalized::throwFieldInvalid("R", "F"); }), "cpp/NormalizedObjectValidationRules");
  EXPECT_EQ(sourceOf([] { Fields::throwFieldInvalid("R", "F"); }), "cpp/FieldsValidationRules");
  try {
    Fields::throwFieldInvalid("R", "F", "E7", "unused", false, nullptr, 3);
  } catch (FieldValidationException const &e) {
    EXPECT_EQ(e.getFFieldName() + e.getContextProperty("Internal-Code") + e.getContextProperty("index"), "FE73");
    EXPECT_FALSE(e.getCascadable());
  }
}

struct Custom : IFieldValidation, IInvokable {
  Custom() { ++made; }
  bool validate(tvstring const &field, Object const *value, DataObject *) override {
    return field == value->getString();
  }
  Object *invoke(ObjectList const &arguments, TransformContext &context) override {
    return new StringObject(context.getProperty("key") + arguments.get(0)->getString());
  }
  static inline int made = 0;
};
struct OtherCustom : IProcessing {
  void process(DataObject *, TransformContext &) override {}
};

TEST(CustomClassSupport, MakesEachClassOnceForItsOwnerAndKind) {
  UserClassManager::registerClass<Custom>("rules.Custom");
  UserClassManager::registerClass<OtherCustom>("rules.Other");
  TransformContext context;
  context.setProperty("key", "value");
  StringObject const field("F");
  ObjectList arguments;
  arguments.add(field);
  Fields rules;
  for (int i = 0; i < 2; ++i) {
    EXPECT_TRUE(rules.customValidation("rules.Custom", &field, "F", nullptr));
    SmartPtr<Object> const result(rules.invokeCustomExternalClass("rules.Custom", arguments, context));
    EXPECT_EQ(result->getString(), "valueF");
  }
  EXPECT_EQ(Custom::made, 2);
  auto const invokeOther = [&] { rules.invokeCustomExternalClass("rules.Other", arguments, context); };
  EXPECT_EQ(failureOf<TransformException>(invokeOther).text,
            "Error instantiating custom class instance 'rules.Other'. The class does not implement 'IInvokable'.");
  EXPECT_THROW(rules.customValidation("rules.Other", &field, "F", nullptr), ClassCastException);
}

}  // namespace
}  // namespace tavrone

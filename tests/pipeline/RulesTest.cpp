#include "tavrone/context/Factory.h"
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
struct Processing : ProcessingRules {
  void preprocess(DataObject *) override { body("preprocess "); }
  void postprocess(DataObject *) override { body("postprocess "); }
  void validate(DataObject *) override { body("validate "); }
  void checkNotNull(DataObject *) override { body("checkNotNull "); }
};
struct Business : BusinessProcessingRules {
  void process(DataObject *) override { body("process "); }
};
struct WholeProcessing : ProcessingRules {
  void process0(DataObject *, TransformContext &context) override { stored = transformContext == &context; }
  bool stored = false;
};

// The steps of a call, then the error type that a failure leaves it with.
std::string traced(std::function<void()> const &call) {
  std::string steps;
  body = [&](char const *step) { steps += step; };
  call();
  body = [](char const *) { throw TransformException("body"); };
  try {
    call();
  } catch (TransformException const &e) {
    steps += e.getErrorType().c_str();
  }
  return steps;
}

TEST(Rules, RunTheirBodiesInOrderAndClassifyWhatPasses) {
  Fields fields;
  Processing processing;
  Business business;
  FieldsValidationRules &f = fields;
  ProcessingRules &p = processing, &b = business, empty;
  TransformContext c;
  EXPECT_EQ(traced([&] { f.validateHeader(nullptr, c); }), "header Validation");
  EXPECT_EQ(traced([&] { f.validateData(nullptr, nullptr, c); }), "data Validation");
  EXPECT_EQ(traced([&] { f.validateTrailer(nullptr, c); }), "trailer Validation");
  EXPECT_EQ(traced([&] { p.process(nullptr, c); }), "preprocess validate postprocess checkNotNull Processing");
  EXPECT_EQ(traced([&] { p.preprocess(nullptr, c); }), "preprocess ");
  EXPECT_EQ(traced([&] { b.process(nullptr, c); }), "process Processing");
  EXPECT_EQ(traced([&] { empty.process(nullptr, c); }), "");
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

TEST(Rules, HoldTheContextForAProcessingThatReplacesTheSteps) {
  WholeProcessing rules;
  TransformContext context;
  rules.process(nullptr, context);
  EXPECT_TRUE(rules.stored);
}

TEST(Rules, NameTheRuleAndTheFieldThatIsNotValid) {
  struct {
    void (*raise)();
    char const *source, *codeAndIndex;
    bool cascadable;
  } const cases[] = {
      {[] { AbstractValidationRules::throwFieldInvalid("R", "F"); }, "cpp/AbstractValidationRules", "", true},
      {[] { NormalizedObjectValidationRules::throwFieldInvalid("R", "F"); }, "cpp/NormalizedObjectValidationRules", "",
       true},
      {[] { Fields::throwFieldInvalid("R", "F"); }, "cpp/FieldsValidationRules", "", true},
      {[] { Fields::throwFieldInvalid("R", "F", true, nullptr, 3); }, "cpp/FieldsValidationRules", "3", true},
      {[] { Fields::throwFieldInvalid("R", "F", "unused", false, nullptr, 3); }, "cpp/FieldsValidationRules", "3",
       false},
      {[] { Fields::throwFieldInvalid("R", "F", "E7", "unused", false, nullptr, 3); }, "cpp/FieldsValidationRules",
       "E73", false},
  };
  for (auto const &c : cases) try {
      c.raise();
    } catch (FieldValidationException const &e) {
      EXPECT_EQ(e.getMessage() + e.getTrace().getFileName(),
                "Validation 'R' failed. Field 'F' is not valid" + tvstring(c.source));
      EXPECT_EQ(e.getFFieldName(), "F");
      EXPECT_EQ(e.getContextProperty("Internal-Code") + e.getContextProperty("index"), c.codeAndIndex);
      EXPECT_EQ(e.getCascadable(), c.cascadable);
    }
}

struct Custom : IFieldValidation, IInvokable {
  Custom() { ++made; }
  bool validate(tvstring const &field, Object const *, DataObject *) override { return field == "F"; }
  Object *invoke(ObjectList const &arguments, TransformContext &) override { return arguments.clone(); }
  static inline int made = 0;
};

TEST(CustomClassSupport, MakesEachClassOnceForItsOwnerAndKind) {
  registerClass<Custom>("rules.Custom");
  registerClass<StringObject>("rules.Other");
  TransformContext context;
  ObjectList arguments;
  Fields rules;
  for (tvstring const field : {"F", "G"}) {
    EXPECT_EQ(rules.customValidation("rules.Custom", nullptr, field, nullptr), field == "F");
    SmartPtr<Object> const result(rules.invokeCustomExternalClass("rules.Custom", arguments, context));
    EXPECT_EQ(result->toString(), "[]");
  }
  EXPECT_EQ(Custom::made, 2);
  Fields named;
  std::string bytes = "rules.Custom";
  EXPECT_TRUE(named.customValidation(tvstringliteral(bytes.c_str()), nullptr, "F", nullptr));
  bytes.assign(bytes.size(), '-');
  EXPECT_TRUE(named.customValidation("rules.Custom", nullptr, "F", nullptr));
  EXPECT_EQ(Custom::made, 3);
  auto const invokeOther = [&] { rules.invokeCustomExternalClass("rules.Other", arguments, context); };
  EXPECT_EQ(failureOf<TransformException>(invokeOther).text,
            "Error instantiating custom class instance 'rules.Other'. The class does not implement 'IInvokable'.");
  EXPECT_THROW(rules.customValidation("rules.Other", nullptr, "F", nullptr), ClassCastException);
}

}  // namespace
}  // namespace tavrone

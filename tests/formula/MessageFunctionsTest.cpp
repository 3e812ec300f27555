#include "tavrone/formula/MessageFunctions.h"

#include "tavrone/context/Factory.h"
#include "tests/pipeline/Walk.h"

namespace tavrone {
namespace {

struct Validator : ValidationRules {
  void validate(DataObject *object) override { walk(exceptionHandler, textOf(object)); }
};
struct Message : AbstractInternalMessage {
  Message() : AbstractInternalMessage("formula.message") { addValidator("Default", new Validator); }
  DataObject *createNormalizedObject() override { return new Line; }
};

TEST(MessageFunctions, WorkThroughTheMessageTypeOfTheName) {
  bindFactory<Message>("formula.message");
  TransformContext context;
  EXPECT_TRUE(MessageFunctions::isValid("formula.message", line("fine"), context));
  EXPECT_FALSE(MessageFunctions::isValid("formula.message", line("a!b!"), context));
  EXPECT_FALSE(MessageFunctions::isValid("formula.message", nullptr, context));
  EXPECT_TRUE(MessageFunctions::serialize("formula.message", nullptr, context).empty());
  EXPECT_EQ(str(MessageFunctions::serialize("formula.message", line("fine"), context)),
            str(line("fine")->toXMLString()));
  EXPECT_EQ(failureOf<TransformException>([&] { MessageFunctions::parse("formula.message", Binary(), context); }).text,
            "unsupported operation parse for internal messages");
  LookupContextFactory::getLookupContext()->unbind("formula.message");
}

}  // namespace
}  // namespace tavrone

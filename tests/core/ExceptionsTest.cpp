#include "tavrone/core/Exceptions.h"

#include <gmock/gmock.h>

#include "tavrone/core/Class.h"
#include "tavrone/core/Raise.h"
#include "tavrone/core/SmartPtr.h"
#include "tests/Failure.h"

namespace tavrone {
namespace {

template <class E>
class ExceptionClasses : public testing::Test {};
using Classes = testing::Types<Exception, IllegalArgumentException, ClassNotFoundException, ClassCastException,
                               LocalInitializationException, InternalError, TransformException,
                               UnhandledMessageException, UnrecognizedMessageException, TransformRuntimeException,
                               TransformNullValueException, FieldNotFoundException, FieldTypeMismatchException,
                               FieldNullException, NamingException, SectionConstraintException, FieldParsingException>;
TYPED_TEST_SUITE(ExceptionClasses, Classes);

TYPED_TEST(ExceptionClasses, KeepsClassTextAndTraceInItsClone) {
  try {
    raise<TypeParam>("the text", "cpp/Source", 12);
  } catch (Exception const &e) {
    SmartPtr<Object> const clone(e.clone());
    auto const *copy = checkedCast<Exception>(clone.get());
    EXPECT_EQ(Class(typeid(*copy)), Class(typeid(TypeParam)));
    EXPECT_EQ(copy->getMessage(), "the text");
    EXPECT_EQ(copy->getTraceString(), "cpp/Source:12:");
  }
}

TEST(Exceptions, ShowClassAndText) {
  EXPECT_EQ(IllegalArgumentException("wrong").toString(), tvstring(typeid(IllegalArgumentException).name()) + ":wrong");
}

TEST(Exceptions, HaveNoTraceWithoutALine) {
  ExceptionTrace trace;
  trace.setFileName("cpp/Source");
  EXPECT_FALSE(trace.isValid());
  EXPECT_EQ(trace.getTraceString(), "");
}

TEST(Exceptions, RaiseStampsTheCallersLine) {
  int const line = __LINE__ + 1;
  auto const failure = failureOf<InternalError>([] { raise<InternalError>("x", "cpp/Here"); });
  EXPECT_EQ(failure.source, "cpp/Here");
  EXPECT_EQ(failure.line, line);
}

TEST(Exceptions, CopiesShareTheNestedFailure) {
  auto *detail = new InternalError("inner");
  auto outer = std::make_unique<Exception>("outer", detail);
  Exception const copy(*outer);
  Exception assigned("other", new InternalError("dropped"));
  assigned = *outer;
  outer.reset();
  EXPECT_EQ(copy.getDetail(), detail);
  EXPECT_EQ(assigned.getDetail(), detail);
  EXPECT_EQ(assigned.getMessage(), "outer");
}

TEST(Exceptions, NestACloneOfTheirDetail) {
  Exception outer("outer");
  EXPECT_EQ(outer.getDetail(), nullptr);
  {
    InternalError inner("inner");
    outer.setDetail(inner);
  }
  EXPECT_EQ(outer.getDetail()->getMessage(), "inner");
  EXPECT_TRUE(typeid(*outer.getDetail()) == typeid(InternalError));
}

}  // namespace
}  // namespace tavrone

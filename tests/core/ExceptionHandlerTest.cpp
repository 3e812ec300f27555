#include "tavrone/core/ExceptionHandler.h"

#include <gtest/gtest.h>

#include "tavrone/core/Raise.h"
#include "tavrone/core/Result.h"

namespace tavrone {
namespace {

TEST(DraconianExceptionHandler, ReducesAnExceptionToItsRecordAndTrace) {
  auto e = failureAt<FieldNullException>("null", "cpp/Source", 12, "SRT500");
  char file[] = "cpp/Source";
  e.getTrace().setFileName(file);
  file[0] = 'x';  // the text was copied
  e.fillPhase("Input");
  ExceptionDataObject record(e);
  for (ExceptionDataObject *given : {static_cast<ExceptionDataObject *>(&e), &record}) {
    try {
      ExceptionHandler::DRACONIAN_EXCEPTION_HANDLER->onException(given);
      ADD_FAILURE();
    } catch (TransformException const &thrown) {
      EXPECT_TRUE(typeid(thrown) == typeid(TransformException));
      EXPECT_EQ(thrown.toString(), e.toString());
      EXPECT_EQ(thrown.getTraceString(), given == &record ? "" : "cpp/Source:12:");
    }
  }
}

// A record of each kind, collected: clones, which later changes leave alone.
std::vector<ExceptionDataObject *> collect() {
  CascadingExceptionHandler handler;
  FieldValidationException e("first", "F1");
  handler.onException(&e);
  e.setMessage("second");
  ExceptionDataObject record(e);
  handler.onException(&record);
  e.setMessage("changed");
  return handler.getExceptions();
}

TEST(Results, OwnTheirRecordsThroughCopiesAndMoves) {
  Result<tvstring> first("value", collect());
  ASSERT_EQ(first.exceptions.size(), 2u);
  EXPECT_EQ(first.exceptions[0]->getMessage() + first.exceptions[1]->getMessage(), "firstsecond");
  Result<tvstring> second(first);
  EXPECT_NE(second.exceptions[0], first.exceptions[0]);
  ExceptionDataObject const &clone = *second.exceptions[0];
  EXPECT_TRUE(typeid(clone) == typeid(FieldValidationException));
  Result<tvstring> const third(std::move(first));
  EXPECT_TRUE(first.exceptions.empty());
  second = third;
  EXPECT_EQ(second.value, "value");
  EXPECT_EQ(second.exceptions.size() + third.exceptions.size(), 4u);
}

struct Uncloneable : ExceptionDataObject {
  Object *clone() const override { throw std::bad_alloc(); }
};

TEST(Results, LeaveNothingBehindWhenACopyFails) {
  Result<tvstring> first("value", collect());
  first.exceptions.push_back(new Uncloneable);
  EXPECT_THROW(Result<tvstring> copy(first), std::bad_alloc);
  EXPECT_EQ(first.exceptions.size(), 3u);
}

}  // namespace
}  // namespace tavrone

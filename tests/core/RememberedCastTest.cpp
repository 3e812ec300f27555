#include "tavrone/core/RememberedCast.h"

#include <gtest/gtest.h>

namespace tavrone {
namespace {

struct Source {
  virtual ~Source() = default;
};
struct Target : Source {};
struct Plain : Source {};
struct Part : Source {};
struct LeftPart : Part {};
struct RightPart : Part {};
struct Twice : LeftPart, RightPart, Target {};

TEST(RememberedCast, FollowsTheClassAndThePart) {
  Target target;
  Plain plain;
  Twice twice;
  Source *const sources[] = {
      &target, &plain, static_cast<LeftPart *>(&twice), static_cast<RightPart *>(&twice), static_cast<Target *>(&twice),
      nullptr, &target};
  RememberedCast<RightPart, Source> toPart;
  RememberedCast<Target, Source> toTarget;
  for (Source *source : sources)
    for (int again = 0; again < 2; ++again) {
      EXPECT_EQ(toPart(source), dynamic_cast<RightPart *>(source));
      EXPECT_EQ(toTarget(source), dynamic_cast<Target *>(source));
    }
}

}  // namespace
}  // namespace tavrone

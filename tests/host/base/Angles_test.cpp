#include <zowidgets/host/base/Angles.h>

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>

namespace {

TEST(Angles, DegreesAndRadiansOfTheQuarterTurns) {
  EXPECT_DOUBLE_EQ(deg(std::numbers::pi / 2), 90.0);
  EXPECT_DOUBLE_EQ(deg(std::numbers::pi), 180.0);
  EXPECT_DOUBLE_EQ(rad(270.0), 3 * std::numbers::pi / 2);
  EXPECT_DOUBLE_EQ(rad(-90.0), -std::numbers::pi / 2);
  EXPECT_EQ(deg(0.0), 0.0);
}

TEST(Angles, EachUndoesTheOther) {
  for (double degrees : {-720.0, -33.5, 0.0, 1.0, 45.0, 359.99, 1000.0})
    EXPECT_NEAR(deg(rad(degrees)), degrees, 1e-9);
}

TEST(Angles, TheArcTangentOfOneIsFortyFiveDegrees) { EXPECT_DOUBLE_EQ(deg(std::atan(1.0)), 45.0); }

static_assert(deg(std::numbers::pi) == 180.0, "usable in constant expressions");

} // namespace

#include <zowidgets/host/drawing/Colour.h>

#include <gtest/gtest.h>

#include <limits>

namespace {

TEST(ColourScale, MultipliesEachChannel) {
  Colour const scaled = scale(Colour(0.5, 0.25, 0.1), 1.6);
  EXPECT_DOUBLE_EQ(scaled.red(), 0.8);
  EXPECT_DOUBLE_EQ(scaled.green(), 0.4);
  EXPECT_DOUBLE_EQ(scaled.blue(), 0.16);
}

TEST(ColourScale, ClampsToTheUnitRange) {
  Colour const bright = scale(Colour(0.8, 0.9, 1.0), 1.6);
  EXPECT_EQ(bright, Colour(1.0, 1.0, 1.0));
  Colour const dark = scale(Colour(0.8, 0.9, 1.0), -2.0);
  EXPECT_EQ(dark, Colour(0.0, 0.0, 0.0));
  Colour const nan = scale(Colour(0.8, 0.9, 1.0), std::numeric_limits<double>::quiet_NaN());
  EXPECT_EQ(nan, Colour(0.0, 0.0, 0.0));
}

TEST(ColourScale, KeepsAlphaFlagAndValidity) {
  Colour translucent(0.2, 0.4, 0.6, 7);
  translucent.setAlpha(0.5);
  Colour const scaled = scale(translucent, 0.5);
  EXPECT_DOUBLE_EQ(scaled.alpha(), 0.5);
  EXPECT_EQ(scaled.flag(), 7);
  EXPECT_DOUBLE_EQ(scaled.red(), 0.1);
  EXPECT_FALSE(scale(Colour::invalid(), 2.0).use());
}

} // namespace

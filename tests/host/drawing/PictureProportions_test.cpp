#include <zowidgets/host/drawing/PictureProportions.h>

#include <gtest/gtest.h>

TEST(AspectRatio, IsTheWidthOverTheHeight) {
  EXPECT_DOUBLE_EQ(Zo::getAspectRatio(Zo::Image::kAspect16x9), 16.0 / 9.0);
  EXPECT_DOUBLE_EQ(Zo::getAspectRatio(Zo::Image::kAspect4x3), 4.0 / 3.0);
  EXPECT_DOUBLE_EQ(Zo::getAspectRatio(Zo::Image::AspectRatio{2, 1}), 2.0);
}

TEST(AspectRatio, ASideOfZeroOrLessReadsAsWideScreen) {
  EXPECT_DOUBLE_EQ(Zo::getAspectRatio(Zo::Image::AspectRatio{0, 9}), 16.0 / 9.0);
  EXPECT_DOUBLE_EQ(Zo::getAspectRatio(Zo::Image::AspectRatio{4, 0}), 16.0 / 9.0);
  EXPECT_DOUBLE_EQ(Zo::getAspectRatio(Zo::Image::AspectRatio{-4, 3}), 16.0 / 9.0);
}

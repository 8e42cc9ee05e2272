#include <zowidgets/host/drawing/FallbackIcon.h>

#include "host/drawing/DrawingTestSupport.h"

#include <gtest/gtest.h>

namespace {

Colour const kTint(0.3, 0.8, 0.5);

TEST(IconFallback, IsAFrameRoundAQuestionMarkInTheTint) {
  for (int scale : {1, 2}) {
    int const side = 16 * scale;
    Zo::Image::Surface const icon = drawFallbackIcon(side, kTint);
    ASSERT_EQ(icon.width(), side);
    ASSERT_EQ(icon.height(), side);
    std::uint32_t const solid = kTint.get_vlib_colour();
    // The frame's one-unit line lies on whole pixels at whole scales: every
    // pixel of the left and top sides is solid.
    for (int along = 2 * scale; along < 14 * scale; ++along) {
      EXPECT_EQ(icon.pixel(scale, along), solid) << "left side, " << along;
      EXPECT_EQ(icon.pixel(along, scale), solid) << "top side, " << along;
    }
    // Clear between the frame and the mark.
    EXPECT_EQ(icon.pixel(3 * scale, 8 * scale), 0u);
    // The dot under the hook, and the top of the hook.
    EXPECT_EQ(icon.pixel(8 * scale, 12 * scale), solid);
    EXPECT_EQ(icon.pixel(8 * scale, 3 * scale), solid);
    // Nothing but the tint, at some coverage.
    for (int row = 0; row < side; ++row)
      for (int x = 0; x < side; ++x)
        if (int const alpha = alphaOf(icon.pixel(x, row)); alpha >= 64) {
          EXPECT_NEAR(greenOf(icon.pixel(x, row)), 0.8 * alpha, 2.0);
        }
  }
}

TEST(IconFallback, IsDrawnAtEverySizeAskedFor) {
  for (int side : {1, 7, 24, 100}) {
    Zo::Image::Surface const icon = drawFallbackIcon(side, kTint);
    EXPECT_EQ(icon.width(), side);
    EXPECT_GT(countNonTransparent(icon), 0) << side;
  }
  EXPECT_TRUE(drawFallbackIcon(0, kTint).empty());
  EXPECT_TRUE(drawFallbackIcon(1025, kTint).empty());
  EXPECT_EQ(countNonTransparent(drawFallbackIcon(16, Colour::invalid())), 0);
}

} // namespace

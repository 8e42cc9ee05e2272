#include <zowidgets/host/drawing/ImageOperations.h>

#include <gtest/gtest.h>

namespace {

using Zo::Image::Surface;

TEST(ImageOperations, GreyscaleKeepsAlphaAndWeighsGreenMost) {
  Surface colours(3, 1);
  colours.setPixel(0, 0, 0xFFFF0000u);
  colours.setPixel(1, 0, 0xFF00FF00u);
  colours.setPixel(2, 0, 0x80000080u);
  Surface const grey = Zo::Image::greyscale(colours);
  EXPECT_EQ(grey.pixel(0, 0), 0xFF4C4C4Cu); // 0.299 of 255
  EXPECT_EQ(grey.pixel(1, 0), 0xFF969696u); // 0.587 of 255
  EXPECT_EQ(grey.pixel(2, 0), 0x800F0F0Fu); // 0.114 of 128, alpha kept
  EXPECT_TRUE(Zo::Image::greyscale(Surface()).empty());
}

// A one-pixel checkerboard shrunk by 4 averages to mid grey everywhere; a
// nearest-neighbour shrink would give pure black or pure white.
TEST(ImageOperations, ShrinkingAveragesRatherThanPicking) {
  Surface board(64, 64);
  for (int y = 0; y < 64; ++y)
    for (int x = 0; x < 64; ++x)
      board.setPixel(x, y, (x + y) % 2 ? 0xFFFFFFFFu : 0xFF000000u);
  Surface const small = Zo::Image::resize(board, 16, 16);
  ASSERT_EQ(small.width(), 16);
  for (int y = 0; y < 16; ++y) {
    for (int x = 0; x < 16; ++x) {
      std::uint32_t const p = small.pixel(x, y);
      EXPECT_EQ(p >> 24, 0xFFu);
      EXPECT_NEAR(int(p & 0xFF), 128, 4) << x << "," << y;
    }
  }
}

TEST(ImageOperations, EnlargingInterpolatesBetweenPixels) {
  Surface pair(2, 1);
  pair.setPixel(0, 0, 0xFF000000u);
  pair.setPixel(1, 0, 0xFFFFFFFFu);
  Surface const wide = Zo::Image::resize(pair, 8, 1);
  ASSERT_EQ(wide.width(), 8);
  int previous = -1;
  int distinct = 0;
  for (int x = 0; x < 8; ++x) {
    int const value = int(wide.pixel(x, 0) & 0xFF);
    EXPECT_GE(value, previous);
    distinct += value != previous;
    previous = value;
  }
  EXPECT_GE(distinct, 4); // a ramp, not two blocks
  EXPECT_TRUE(Zo::Image::resize(pair, 0, 5).empty());
  EXPECT_TRUE(Zo::Image::resize(Surface(), 5, 5).empty());
}

TEST(ImageOperations, FitSizeKeepsProportionsAndNeverEnlarges) {
  EXPECT_EQ(Zo::Image::fitSize({4000, 3000}, {160, 90}), XY<int>(120, 90));
  EXPECT_EQ(Zo::Image::fitSize({3000, 4000}, {160, 160}), XY<int>(120, 160));
  EXPECT_EQ(Zo::Image::fitSize({100, 50}, {160, 90}), XY<int>(100, 50));
  EXPECT_EQ(Zo::Image::fitSize({10000, 1}, {100, 100}), XY<int>(100, 1));
}

TEST(ImageOperations, OrientationCodesTurnAndMirror) {
  // 2x1: red on the left, blue on the right.
  Surface pair(2, 1);
  pair.setPixel(0, 0, 0xFFFF0000u);
  pair.setPixel(1, 0, 0xFF0000FFu);
  Surface const mirrored = Zo::Image::orient(pair, 2);
  EXPECT_EQ(mirrored.pixel(0, 0), 0xFF0000FFu);
  Surface const clockwise = Zo::Image::orient(pair, 6);
  ASSERT_EQ(clockwise.width(), 1);
  ASSERT_EQ(clockwise.height(), 2);
  EXPECT_EQ(clockwise.pixel(0, 0), 0xFFFF0000u); // the left end goes to the top
  Surface const anticlockwise = Zo::Image::orient(pair, 8);
  EXPECT_EQ(anticlockwise.pixel(0, 0), 0xFF0000FFu);
  EXPECT_TRUE(Zo::Image::orient(pair, 1).sharesPixelsWith(pair));
}

} // namespace

#include <zowidgets/host/drawing/IconTheme.h>
#include <zowidgets/host/drawing/SvgIcon.h>

#include "host/drawing/DrawingTestSupport.h"
#include "host/drawing/IconTestSupport.h"

#include <gtest/gtest.h>

#include <string>

namespace {

struct IconRendering : ::testing::Test {
  ScopedEnv noOverride{"ZOWIDGETS_ICON_THEME_DIR", std::nullopt};
  ScopedEnv defaultDataDirs{"XDG_DATA_DIRS", std::nullopt};

  static Zo::Image::Surface themeIcon(char const* name, int side, Colour const& tint, double turn = 0.0) {
    std::string const path = getIconPath(name);
    EXPECT_FALSE(path.empty()) << name;
    return SvgIcon::renderFile(path, side, tint, turn);
  }
};

Colour const kOrange(0.9, 0.4, 0.1);
Colour const kBlue(0.2, 0.4, 1.0);

// Left half of a 4x4 document filled, in a colour the tint must replace.
constexpr char const* kHalfSquare = R"(<svg xmlns="http://www.w3.org/2000/svg" width="4" height="4" viewBox="0 0 4 4">)"
                                    R"(<rect x="0" y="0" width="2" height="4" fill="#00ff00"/></svg>)";
// A wide document: fitted into a square it is centred, with room above and
// below.
constexpr char const* kWide = R"(<svg xmlns="http://www.w3.org/2000/svg" width="8" height="4" viewBox="0 0 8 4">)"
                              R"(<rect x="0" y="0" width="8" height="4" fill="#000"/></svg>)";

TEST_F(IconRendering, TheSurfaceHasTheRequestedPixelSize) {
  for (int side : {16, 24, 32, 17, 1, 64}) {
    Zo::Image::Surface const icon = themeIcon("eye-open.png", side, kOrange);
    EXPECT_EQ(icon.width(), side);
    EXPECT_EQ(icon.height(), side);
    if (side >= 16) {
      EXPECT_GT(countNonTransparent(icon), side * side / 8) << side;
    }
  }
}

TEST_F(IconRendering, EveryPaintedPixelTakesTheTint) {
  Zo::Image::Surface const icon = themeIcon("eye-open.png", 32, kOrange);
  std::uint32_t const solid = kOrange.get_vlib_colour();
  int opaque = 0;
  for (int row = 0; row < icon.height(); ++row)
    for (int x = 0; x < icon.width(); ++x) {
      std::uint32_t const pixel = icon.pixel(x, row);
      int const alpha = alphaOf(pixel);
      if (alpha == 255) {
        ++opaque;
        EXPECT_EQ(pixel, solid) << x << "," << row;
      } else if (alpha >= 64) {
        // Premultiplied: each channel is the tint's times the coverage.
        EXPECT_NEAR(redOf(pixel), 0.9 * alpha, 2.0);
        EXPECT_NEAR(greenOf(pixel), 0.4 * alpha, 2.0);
        EXPECT_NEAR(blueOf(pixel), 0.1 * alpha, 2.0);
      }
    }
  EXPECT_GT(opaque, 100);
}

TEST_F(IconRendering, TheTintChangesTheColourNotTheShape) {
  Zo::Image::Surface const orange = themeIcon("magnify.png", 24, kOrange);
  Zo::Image::Surface const blue = themeIcon("magnify.png", 24, kBlue);
  int differentColour = 0;
  for (int row = 0; row < orange.height(); ++row)
    for (int x = 0; x < orange.width(); ++x) {
      EXPECT_EQ(alphaOf(orange.pixel(x, row)), alphaOf(blue.pixel(x, row)));
      differentColour += orange.pixel(x, row) != blue.pixel(x, row) ? 1 : 0;
    }
  EXPECT_EQ(differentColour, countNonTransparent(orange));
}

TEST_F(IconRendering, TheTintsAlphaFadesTheIcon) {
  Colour faded = kOrange;
  faded.setAlpha(0.5);
  Zo::Image::Surface const icon = themeIcon("eye-open.png", 16, faded);
  int most = 0;
  for (int row = 0; row < icon.height(); ++row)
    for (int x = 0; x < icon.width(); ++x)
      most = std::max(most, alphaOf(icon.pixel(x, row)));
  EXPECT_NEAR(most, 128, 1);
}

TEST_F(IconRendering, ADocumentIsFittedIntoTheSquareAndPaintedInTheTint) {
  Zo::Image::Surface const half = SvgIcon::render(kHalfSquare, 8, kBlue);
  ASSERT_EQ(half.width(), 8);
  for (int row = 0; row < 8; ++row)
    for (int x = 0; x < 8; ++x)
      EXPECT_EQ(half.pixel(x, row), x < 4 ? kBlue.get_vlib_colour() : 0u) << x << "," << row;

  Zo::Image::Surface const wide = SvgIcon::render(kWide, 8, kBlue);
  ASSERT_EQ(wide.height(), 8);
  for (int row = 0; row < 8; ++row)
    EXPECT_EQ(wide.pixel(3, row), row >= 2 && row < 6 ? kBlue.get_vlib_colour() : 0u) << row;
}

TEST_F(IconRendering, ATurnOfAQuarterTurnsThePictureClockwise) {
  Zo::Image::Surface const turned = SvgIcon::render(kHalfSquare, 8, kBlue, 90.0);
  // The filled left half is on top once turned clockwise.
  for (int row = 0; row < 8; ++row)
    for (int x = 0; x < 8; ++x)
      EXPECT_EQ(turned.pixel(x, row), row < 4 ? kBlue.get_vlib_colour() : 0u) << x << "," << row;
  // With theme artwork: a quarter turn about the centre moves pixel (x, row)
  // to (side - 1 - row, x). The rasteriser's antialiasing samples are not
  // laid out alike in both directions, so edges may differ a little.
  Zo::Image::Surface const arrow = themeIcon("tree-collapsed.png", 16, kOrange);
  Zo::Image::Surface const down = themeIcon("tree-collapsed.png", 16, kOrange, 90.0);
  Zo::Image::Surface turnedByHand(16, 16);
  for (int row = 0; row < 16; ++row)
    for (int x = 0; x < 16; ++x)
      turnedByHand.setPixel(15 - row, x, arrow.pixel(x, row));
  EXPECT_LE(largestDifference(down, turnedByHand), 16);
  EXPECT_GT(countDifferentBy(down, arrow, 128), 10) << "the arrow points another way";
}

TEST_F(IconRendering, AtTwiceTheSizeTheArtworkIsDrawnAgainNotMagnified) {
  for (char const* name : {"eye-open.png", "magnify.png", "tree-collapsed.png", "eyedropper.png"}) {
    Zo::Image::Surface const one = themeIcon(name, 16, kOrange);
    Zo::Image::Surface const two = themeIcon(name, 32, kOrange);
    Zo::Image::Surface const magnified = doubledByNearest(one);
    // Edges are a pixel wide at every size: twice the length of edge, so
    // about twice the antialiased pixels, where magnifying gives four times.
    int const edgeOne = countPartlyCovered(one);
    int const edgeTwo = countPartlyCovered(two);
    EXPECT_GT(edgeOne, 0) << name;
    EXPECT_LT(edgeTwo, 3 * edgeOne) << name;
    EXPECT_GE(countDifferentBy(two, magnified, 16), edgeOne) << name;
    // Fine detail: 2x2 blocks that are not one colour, which a magnified
    // picture never has; about one for each edge pixel at the small size.
    int mixedBlocks = 0;
    for (int row = 0; row < 32; row += 2)
      for (int x = 0; x < 32; x += 2) {
        std::uint32_t const p = two.pixel(x, row);
        mixedBlocks += (two.pixel(x + 1, row) != p || two.pixel(x, row + 1) != p || two.pixel(x + 1, row + 1) != p);
      }
    EXPECT_GE(mixedBlocks, edgeOne / 2) << name;
  }
}

TEST_F(IconRendering, AtOneAndAHalfTheEdgesStayAPixelWide) {
  // Curved artwork: straight edges off the pixel grid (an arrow's at 1.5
  // units) may fall half on a column of pixels at one size and not another.
  for (char const* name : {"eye-open.png", "magnify.png", "eyedropper.png"}) {
    int const edgeOne = countPartlyCovered(themeIcon(name, 16, kOrange));
    int const edgeOneAndHalf = countPartlyCovered(themeIcon(name, 24, kOrange));
    // 1.5 times the edge's length; a magnified bitmap's edges widen too.
    EXPECT_LT(edgeOneAndHalf, 2 * edgeOne) << name;
  }
}

TEST_F(IconRendering, WhatIsNotAnIconGivesAnEmptySurface) {
  EXPECT_TRUE(SvgIcon::render("", 16, kBlue).empty());
  EXPECT_TRUE(SvgIcon::render("not an svg at all", 16, kBlue).empty());
  EXPECT_TRUE(SvgIcon::render("<svg xmlns=\"http://www.w3.org/2000/svg\"><rect", 16, kBlue).empty());
  EXPECT_TRUE(SvgIcon::render(kHalfSquare, 0, kBlue).empty());
  EXPECT_TRUE(SvgIcon::render(kHalfSquare, SvgIcon::kMaxIconSide + 1, kBlue).empty());
  EXPECT_FALSE(SvgIcon::render(kHalfSquare, SvgIcon::kMaxIconSide, kBlue).empty());
  EXPECT_TRUE(SvgIcon::renderFile("/no/such/icon.svg", 16, kBlue).empty());
  ScratchFolder scratch;
  EXPECT_TRUE(SvgIcon::renderFile(scratch.write("broken.svg", "<svg").string(), 16, kBlue).empty());
  EXPECT_FALSE(SvgIcon::renderFile(scratch.write("half.svg", kHalfSquare).string(), 16, kBlue).empty());
}

TEST_F(IconRendering, ADocumentCannotPullInOtherFiles) {
  ScratchFolder scratch;
  Zo::Image::Surface red(4, 4);
  red.fill(Colour(1.0, 0.0, 0.0));
  std::string const png = (scratch.path() / "red.png").string();
  ASSERT_TRUE(red.savePNG(png));
  std::string const svg = R"(<svg xmlns="http://www.w3.org/2000/svg" viewBox="0 0 4 4">)"
                          R"(<image href="file://)" +
                          png + R"(" width="4" height="4"/><image href="red.png" width="4" height="4"/></svg>)";
  Zo::Image::Surface const fromMemory = SvgIcon::render(svg, 8, kBlue);
  EXPECT_EQ(countNonTransparent(fromMemory), 0);
  Zo::Image::Surface const fromFile = SvgIcon::renderFile(scratch.write("pulls.svg", svg).string(), 8, kBlue);
  EXPECT_EQ(countNonTransparent(fromFile), 0);
}

TEST_F(IconRendering, AnInvalidTintDrawsNothing) {
  Zo::Image::Surface const icon = SvgIcon::render(kHalfSquare, 8, Colour::invalid());
  ASSERT_FALSE(icon.empty());
  EXPECT_EQ(countNonTransparent(icon), 0);
}

} // namespace

#include <zowidgets/host/drawing/CanvasRenderer.h>

#include "host/drawing/DrawingTestSupport.h"

#include <gtest/gtest.h>

#include <cmath>

using Zo::Box;
using Zo::Image::Surface;

namespace {

Colour const kRed(1.0, 0.0, 0.0);
Colour const kGreen(0.0, 1.0, 0.0);
Colour const kBlue(0.0, 0.0, 1.0);
constexpr std::uint32_t kRedPixel = 0xFFFF0000u;
constexpr std::uint32_t kGreenPixel = 0xFF00FF00u;
constexpr std::uint32_t kBluePixel = 0xFF0000FFu;

// True when exactly the pixels of `box` (bottom-up) hold `value` and all
// others are transparent.
::testing::AssertionResult coversExactly(Surface const& surface, Box<int> const& box, std::uint32_t value) {
  for (int y = 0; y < surface.height(); ++y) {
    for (int x = 0; x < surface.width(); ++x) {
      std::uint32_t const expected = box.contains(XY<int>(x, y)) ? value : 0u;
      if (pixelAt(surface, x, y) != expected)
        return ::testing::AssertionFailure() << "pixel (" << x << ", " << y << ") is " << std::hex
                                             << pixelAt(surface, x, y) << ", expected " << expected;
    }
  }
  return ::testing::AssertionSuccess();
}

} // namespace

TEST(CanvasRenderer, RectFillsExactlyItsBoxBottomUp) {
  Surface surface(10, 10);
  CanvasRenderer renderer(surface);
  renderer.renderPrimitive(Glib::RectDescription(Box<int>(2, 3, 5, 7), kRed));
  EXPECT_TRUE(coversExactly(surface, Box<int>(2, 3, 5, 7), kRedPixel));
  // The flip: bottom-up row 3 is row 10 - 1 - 3 = 6 from the top.
  EXPECT_EQ(surface.pixel(2, 6), kRedPixel);
  EXPECT_EQ(surface.pixel(2, 7), 0u);
  EXPECT_EQ(surface.pixel(2, 3), kRedPixel);
  EXPECT_EQ(surface.pixel(2, 2), 0u);
}

TEST(CanvasRenderer, RendererSharesTheSurfacePixels) {
  Surface surface(4, 4);
  CanvasRenderer renderer(surface);
  EXPECT_TRUE(renderer.surface().sharesPixelsWith(surface));
  EXPECT_EQ(renderer.surfaceHeight(), 4);
}

TEST(CanvasRenderer, OriginMovesPrimitives) {
  Surface surface(12, 12);
  CanvasRenderer renderer(surface);
  renderer.setOrigin(XY<int>(5, 6));
  renderer.renderPrimitive(Glib::RectDescription(Box<int>(0, 0, 2, 3), kGreen));
  EXPECT_TRUE(coversExactly(surface, Box<int>(5, 6, 7, 9), kGreenPixel));
}

TEST(CanvasRenderer, ClipBoxLimitsDrawing) {
  Surface surface(10, 10);
  CanvasRenderer renderer(surface);
  renderer.setClipBox(Box<int>(3, 4, 8, 6));
  EXPECT_EQ(renderer.clipBox(), Box<int>(3, 4, 8, 6));
  renderer.renderPrimitive(Glib::RectDescription(Box<int>(0, 0, 10, 10), kBlue));
  EXPECT_TRUE(coversExactly(surface, Box<int>(3, 4, 8, 6), kBluePixel));
}

TEST(CanvasRenderer, ClipBoxIsCutToTheSurfaceAndResets) {
  Surface surface(10, 8);
  CanvasRenderer renderer(surface);
  EXPECT_EQ(renderer.clipBox(), Box<int>(0, 0, 10, 8));
  renderer.setClipBox(Box<int>(-5, 4, 50, 60));
  EXPECT_EQ(renderer.clipBox(), Box<int>(0, 4, 10, 8));
  renderer.resetClipBox();
  EXPECT_EQ(renderer.clipBox(), Box<int>(0, 0, 10, 8));
}

TEST(CanvasRenderer, ClipRegionMeetsTheClipBox) {
  Surface surface(10, 10);
  CanvasRenderer renderer(surface);
  renderer.setClipBox(Box<int>(0, 0, 6, 10));
  renderer.setClipRegion(Zo::make<iRegion>(std::vector{Box<int>(4, 0, 10, 2), Box<int>(0, 8, 2, 10)}));
  renderer.renderPrimitive(Glib::RectDescription(Box<int>(0, 0, 10, 10), kRed));
  EXPECT_EQ(countPixels(surface, kRedPixel), 2 * 2 + 2 * 2);
  EXPECT_EQ(pixelAt(surface, 4, 0), kRedPixel);
  EXPECT_EQ(pixelAt(surface, 6, 0), 0u);
  EXPECT_EQ(pixelAt(surface, 1, 9), kRedPixel);
  renderer.setClipRegion(nullptr);
  renderer.renderPrimitive(Glib::RectDescription(Box<int>(0, 0, 10, 10), kRed));
  EXPECT_EQ(countPixels(surface, kRedPixel), 60);
}

TEST(CanvasRenderer, NothingIsDrawnWhileNotAccepting) {
  Surface surface(6, 6);
  CanvasRenderer renderer(surface);
  renderer.setAcceptingDrawing(false);
  EXPECT_FALSE(renderer.isAcceptingDrawing());
  renderer.renderPrimitive(Glib::RectDescription(Box<int>(0, 0, 6, 6), kRed));
  Glib::drawRoundedRect(renderer, Box<double>(0, 0, 6, 6), kRed, kRed, 2.0);
  EXPECT_EQ(countNonTransparent(surface), 0);
  renderer.setAcceptingDrawing(true);
  renderer.renderPrimitive(Glib::RectDescription(Box<int>(0, 0, 6, 6), kRed));
  EXPECT_EQ(countPixels(surface, kRedPixel), 36);
}

TEST(CanvasRenderer, ModifiedAreaIsTheUnionCutToTheSurface) {
  Surface surface(20, 10);
  CanvasRenderer renderer(surface);
  EXPECT_TRUE(renderer.modifiedArea().empty());
  renderer.addModifiedArea(Box<int>(2, 2, 4, 4));
  renderer.addModifiedArea(Box<int>(10, 5, 12, 6));
  EXPECT_EQ(renderer.modifiedArea(), Box<int>(2, 2, 12, 6));
  renderer.addModifiedArea(Box<int>(15, -3, 30, 1));
  EXPECT_EQ(renderer.modifiedArea(), Box<int>(2, 0, 20, 6));
  renderer.addModifiedArea(Box<int>());
  EXPECT_EQ(renderer.takeModifiedArea(), Box<int>(2, 0, 20, 6));
  EXPECT_TRUE(renderer.modifiedArea().empty());
}

TEST(CanvasRenderer, RectOutlineLiesInsideTheBox) {
  Surface surface(8, 8);
  CanvasRenderer renderer(surface);
  Glib::RectDescription frame(Box<int>(1, 1, 7, 7), Colour::invalid());
  frame.outline = kRed;
  frame.outlineWidth = 1.0;
  renderer.renderPrimitive(frame);
  EXPECT_EQ(countPixels(surface, kRedPixel), 6 * 6 - 4 * 4);
  EXPECT_EQ(pixelAt(surface, 1, 1), kRedPixel);
  EXPECT_EQ(pixelAt(surface, 6, 6), kRedPixel);
  EXPECT_EQ(pixelAt(surface, 2, 2), 0u);
  EXPECT_EQ(pixelAt(surface, 0, 0), 0u);
}

TEST(CanvasRenderer, RectFillAndOutline) {
  Surface surface(6, 6);
  CanvasRenderer renderer(surface);
  Glib::RectDescription rect(Box<int>(0, 0, 6, 6), kBlue);
  rect.outline = kRed;
  rect.outlineWidth = 2.0;
  renderer.renderPrimitive(rect);
  EXPECT_EQ(countPixels(surface, kRedPixel), 36 - 4);
  EXPECT_EQ(countPixels(surface, kBluePixel), 4);
}

TEST(CanvasRenderer, DiscAndRingCoverTheRightRadii) {
  Surface surface(40, 40);
  CanvasRenderer renderer(surface);
  renderer.renderPrimitive(Glib::EllipseDescription::disc(XY<double>(10, 10), 5.0, kRed));
  EXPECT_EQ(pixelAt(surface, 10, 10), kRedPixel);
  EXPECT_EQ(pixelAt(surface, 13, 10), kRedPixel);
  EXPECT_EQ(pixelAt(surface, 16, 10), 0u);
  EXPECT_EQ(pixelAt(surface, 14, 14), 0u);
  // Area of the disc: about pi r^2 = 78.5 fully covered pixels' worth.
  double coverage = 0.0;
  for (int y = 0; y < 20; ++y)
    for (int x = 0; x < 20; ++x)
      coverage += alphaOf(pixelAt(surface, x, y)) / 255.0;
  EXPECT_NEAR(coverage, 3.14159 * 25.0, 1.0);

  // A ring of radius 8, 4 wide: covers 6 to 10 from its centre.
  renderer.renderPrimitive(Glib::EllipseDescription::ring(XY<double>(25, 25), 8.0, 4.0, kBlue));
  EXPECT_EQ(pixelAt(surface, 25, 25), 0u);
  EXPECT_EQ(pixelAt(surface, 29, 25), 0u);
  EXPECT_EQ(pixelAt(surface, 32, 25), kBluePixel);
  EXPECT_EQ(pixelAt(surface, 25, 17), kBluePixel);
  EXPECT_EQ(pixelAt(surface, 36, 25), 0u);
}

TEST(CanvasRenderer, ArcAnglesRunAnticlockwiseFromTheRight) {
  Surface surface(20, 20);
  CanvasRenderer renderer(surface);
  Glib::EllipseDescription quarter = Glib::EllipseDescription::disc(XY<double>(10, 10), 8.0, kRed);
  quarter.startAngle = 0.0;
  quarter.endAngle = 90.0;
  renderer.renderPrimitive(quarter);
  EXPECT_EQ(pixelAt(surface, 13, 13), kRedPixel); // upper right, bottom-up
  EXPECT_EQ(pixelAt(surface, 6, 13), 0u);
  EXPECT_EQ(pixelAt(surface, 6, 6), 0u);
  EXPECT_EQ(pixelAt(surface, 13, 6), 0u);
}

TEST(CanvasRenderer, EllipseInBoxTouchesItsSides) {
  Surface surface(30, 20);
  CanvasRenderer renderer(surface);
  renderer.renderPrimitive(Glib::EllipseDescription::inBox(Box<double>(0, 0, 30, 20), 0.0, Colour::invalid(), kRed));
  for (XY<int> const& side : {XY<int>(0, 10), XY<int>(29, 10), XY<int>(15, 0), XY<int>(15, 19)})
    EXPECT_GT(alphaOf(pixelAt(surface, side.x, side.y)), 200) << side.x << ", " << side.y;
  EXPECT_EQ(pixelAt(surface, 15, 10), kRedPixel);
  EXPECT_EQ(pixelAt(surface, 0, 0), 0u);
  EXPECT_EQ(pixelAt(surface, 29, 19), 0u);
}

TEST(CanvasRenderer, WithoutAntialiasingEdgesAreHard) {
  Surface surface(30, 30);
  CanvasRenderer renderer(surface);
  renderer.setAntialiasingEnabled(false);
  renderer.renderPrimitive(Glib::EllipseDescription::disc(XY<double>(15, 15), 9.3, kRed));
  EXPECT_GT(countPixels(surface, kRedPixel), 200);
  EXPECT_EQ(countPixels(surface, kRedPixel) + countPixels(surface, 0u), 900);
}

TEST(CanvasRenderer, WholePixelLinesCoverWholePixels) {
  Surface surface(10, 10);
  CanvasRenderer renderer(surface);
  renderer.renderPrimitive(Glib::LineDescription(XY<double>(2, 5), XY<double>(8, 5), 1.0, kRed));
  EXPECT_TRUE(coversExactly(surface, Box<int>(2, 5, 8, 6), kRedPixel));

  Surface column(10, 10);
  CanvasRenderer columnRenderer(column);
  columnRenderer.renderPrimitive(Glib::LineDescription(XY<double>(3, 1), XY<double>(3, 9), 3.0, kGreen));
  EXPECT_TRUE(coversExactly(column, Box<int>(2, 1, 5, 9), kGreenPixel));

  Surface even(10, 10);
  CanvasRenderer evenRenderer(even);
  evenRenderer.renderPrimitive(Glib::LineDescription(XY<double>(0, 4), XY<double>(10, 4), 2.0, kBlue));
  EXPECT_TRUE(coversExactly(even, Box<int>(0, 3, 10, 5), kBluePixel));
}

TEST(CanvasRenderer, DiagonalLineIsAntialiased) {
  Surface surface(20, 20);
  CanvasRenderer renderer(surface);
  renderer.renderPrimitive(Glib::LineDescription(XY<double>(0, 0), XY<double>(20, 20), 2.0, kRed));
  EXPECT_EQ(pixelAt(surface, 10, 10), kRedPixel);
  EXPECT_EQ(pixelAt(surface, 10, 15), 0u);
  bool partial = false;
  for (int x = 0; x < 20; ++x) {
    int const alpha = alphaOf(pixelAt(surface, x, 11));
    partial = partial || (alpha > 0 && alpha < 255);
  }
  EXPECT_TRUE(partial);
}

TEST(CanvasRenderer, AlphaRectBlendsOverWhatIsThere) {
  Surface surface(4, 4);
  surface.fill(Colour(0.0, 0.0, 0.0));
  CanvasRenderer renderer(surface);
  renderer.renderPrimitive(Glib::AlphaRectDescription(Box<double>(0, 0, 2, 4), Colour(1.0, 1.0, 1.0), 0.5));
  std::uint32_t const washed = pixelAt(surface, 0, 0);
  EXPECT_EQ(alphaOf(washed), 255);
  EXPECT_NEAR(redOf(washed), 128, 1);
  EXPECT_EQ(redOf(washed), greenOf(washed));
  EXPECT_EQ(pixelAt(surface, 2, 0), 0xFF000000u);
}

TEST(CanvasRenderer, RectHonoursItsColoursAlpha) {
  Surface surface(2, 2);
  CanvasRenderer renderer(surface);
  Colour seeThrough(0.0, 0.0, 1.0);
  seeThrough.setAlpha(0.25);
  renderer.renderPrimitive(Glib::RectDescription(Box<int>(0, 0, 2, 2), seeThrough));
  EXPECT_NEAR(alphaOf(pixelAt(surface, 0, 0)), 64, 1);
  EXPECT_EQ(alphaOf(pixelAt(surface, 0, 0)), blueOf(pixelAt(surface, 0, 0)));
}

TEST(CanvasRenderer, BezierFollowsItsControlPoints) {
  Surface surface(40, 40);
  CanvasRenderer renderer(surface);
  // A symmetric arch: its apex, at t = 1/2, is at y = 5 + 0.75 * 30 = 27.5.
  renderer.renderPrimitive(Glib::BezierCurveDescription(XY<double>(5, 5), XY<double>(5, 35), XY<double>(35, 35),
                                                        XY<double>(35, 5), 3.0, kRed));
  EXPECT_EQ(pixelAt(surface, 20, 27), kRedPixel);
  EXPECT_EQ(pixelAt(surface, 20, 31), 0u);
  EXPECT_EQ(pixelAt(surface, 20, 20), 0u);
  EXPECT_GT(alphaOf(pixelAt(surface, 5, 6)), 200);
}

TEST(CanvasRenderer, ImageAtItsOwnSizeIsCopiedExactly) {
  Surface image(3, 2);
  image.setPixel(0, 0, kRedPixel); // top-left of the picture
  image.setPixel(2, 1, kBluePixel);
  image.setPixel(1, 0, 0x80008000u);
  Surface surface(10, 10);
  CanvasRenderer renderer(surface);
  renderer.renderPrimitive(Glib::ImageDescription(image, XY<double>(4, 5)));
  // The picture's top row lands at bottom-up row 5 + 2 - 1 = 6.
  EXPECT_EQ(pixelAt(surface, 4, 6), kRedPixel);
  EXPECT_EQ(pixelAt(surface, 5, 6), 0x80008000u);
  EXPECT_EQ(pixelAt(surface, 6, 5), kBluePixel);
  EXPECT_EQ(countNonTransparent(surface), 3);
}

TEST(CanvasRenderer, ScaledImageUsesNearestPixels) {
  Surface image(2, 2);
  image.setPixel(0, 0, kRedPixel);
  image.setPixel(1, 0, kGreenPixel);
  image.setPixel(0, 1, kBluePixel);
  image.setPixel(1, 1, 0xFFFFFFFFu);
  Surface surface(8, 8);
  CanvasRenderer renderer(surface);
  renderer.renderPrimitive(Glib::ImageDescription(image, Box<double>(0, 0, 8, 8)));
  EXPECT_EQ(countPixels(surface, kRedPixel), 16);
  EXPECT_EQ(countPixels(surface, kGreenPixel), 16);
  EXPECT_EQ(pixelAt(surface, 0, 7), kRedPixel);
  EXPECT_EQ(pixelAt(surface, 7, 7), kGreenPixel);
  EXPECT_EQ(pixelAt(surface, 0, 0), kBluePixel);
  EXPECT_EQ(pixelAt(surface, 7, 0), 0xFFFFFFFFu);
}

TEST(CanvasRenderer, ImageExDrawsPartOfAPicture) {
  Surface image(4, 4);
  image.setPixel(2, 1, kRedPixel);
  image.setPixel(3, 1, kGreenPixel);
  Surface surface(8, 8);
  CanvasRenderer renderer(surface);
  EXPECT_TRUE(renderer.getCaps() & iGraphicPrimitivesRenderer::kCapsFilteredImageScaling);
  renderer.renderPrimitive(Glib::ImageDescriptionEx(image, Glib::TopDownRect(2, 1, 2, 1), Box<double>(0, 0, 8, 2),
                                                    Glib::eImageFilter::Nearest));
  EXPECT_EQ(countPixels(surface, kRedPixel), 8);
  EXPECT_EQ(countPixels(surface, kGreenPixel), 8);
  EXPECT_EQ(pixelAt(surface, 3, 1), kRedPixel);
  EXPECT_EQ(pixelAt(surface, 4, 0), kGreenPixel);
  EXPECT_EQ(pixelAt(surface, 0, 2), 0u);
}

TEST(CanvasRenderer, FilteredImageExBlendsNeighbours) {
  Surface image(2, 1);
  image.setPixel(0, 0, kRedPixel);
  image.setPixel(1, 0, kBluePixel);
  Surface surface(20, 1);
  CanvasRenderer renderer(surface);
  renderer.renderPrimitive(Glib::ImageDescriptionEx(image, Glib::TopDownRect(0, 0, 2, 1), Box<double>(0, 0, 20, 1),
                                                    Glib::eImageFilter::Bilinear));
  std::uint32_t const middle = pixelAt(surface, 10, 0);
  EXPECT_GT(redOf(middle), 60);
  EXPECT_GT(blueOf(middle), 60);
  EXPECT_EQ(pixelAt(surface, 0, 0), kRedPixel);
  EXPECT_EQ(pixelAt(surface, 19, 0), kBluePixel);
}

TEST(CanvasRenderer, DrawingASurfaceOntoItself) {
  Surface surface(4, 1);
  surface.setPixel(0, 0, kRedPixel);
  CanvasRenderer renderer(surface);
  renderer.renderPrimitive(Glib::ImageDescription(surface, Box<double>(1, 0, 5, 1)));
  EXPECT_EQ(pixelAt(surface, 1, 0), kRedPixel);
  EXPECT_EQ(pixelAt(surface, 2, 0), 0u);
}

TEST(CanvasRenderer, RoundedRectWithoutRadiusIsARect) {
  Surface surface(10, 10);
  CanvasRenderer renderer(surface);
  renderer.renderPrimitive(Glib::RoundedRectDescription(Box<double>(1, 2, 9, 7), 0.0, kRed));
  EXPECT_TRUE(coversExactly(surface, Box<int>(1, 2, 9, 7), kRedPixel));
}

TEST(CanvasRenderer, RoundedRectCutsItsCorners) {
  Surface surface(20, 20);
  CanvasRenderer renderer(surface);
  Glib::drawRoundedRect(renderer, Box<double>(0, 0, 20, 20), kRed, kBlue, 6.0);
  EXPECT_EQ(pixelAt(surface, 0, 0), 0u);
  EXPECT_EQ(pixelAt(surface, 19, 19), 0u);
  EXPECT_EQ(pixelAt(surface, 10, 0), kRedPixel);
  EXPECT_EQ(pixelAt(surface, 0, 10), kRedPixel);
  EXPECT_EQ(pixelAt(surface, 10, 10), kBluePixel);
  EXPECT_EQ(pixelAt(surface, 1, 10), kBluePixel);
}

TEST(CanvasRenderer, RoundedRectOutlineLeavesTheMiddle) {
  Surface surface(20, 20);
  CanvasRenderer renderer(surface);
  Glib::drawRoundedRectOutline(renderer, Box<double>(0, 0, 20, 20), kGreen, 5.0, 2.0);
  EXPECT_EQ(pixelAt(surface, 10, 10), 0u);
  EXPECT_EQ(pixelAt(surface, 10, 0), kGreenPixel);
  EXPECT_EQ(pixelAt(surface, 10, 1), kGreenPixel);
  EXPECT_EQ(pixelAt(surface, 10, 2), 0u);
  EXPECT_EQ(pixelAt(surface, 19, 10), kGreenPixel);
  EXPECT_EQ(pixelAt(surface, 0, 0), 0u);
}

TEST(CanvasRenderer, TriangleStripOfASquareHasNoSeam) {
  Surface surface(12, 12);
  CanvasRenderer renderer(surface);
  Glib::TriangleStripDescription strip;
  strip.points = {{1, 1}, {11, 1}, {1, 11}, {11, 11}};
  strip.colours = {kRed};
  renderer.renderPrimitive(strip);
  EXPECT_TRUE(coversExactly(surface, Box<int>(1, 1, 11, 11), kRedPixel));
}

TEST(CanvasRenderer, TriangleFanBlendsCornerColours) {
  Surface surface(60, 60);
  CanvasRenderer renderer(surface);
  Glib::TriangleFanDescription fan;
  fan.points = {{0, 0}, {60, 0}, {0, 60}};
  fan.colours = {kRed, kGreen, kBlue};
  renderer.renderPrimitive(fan);
  // At the centre of pixel (20, 20) the weights are 20.5 / 60 for green and
  // blue and the rest for red.
  std::uint32_t const centroid = pixelAt(surface, 20, 20);
  EXPECT_EQ(alphaOf(centroid), 255);
  EXPECT_NEAR(redOf(centroid), 255 * (1 - 41.0 / 60), 5);
  EXPECT_NEAR(greenOf(centroid), 255 * 20.5 / 60, 5);
  EXPECT_NEAR(blueOf(centroid), 255 * 20.5 / 60, 5);
  std::uint32_t const nearRed = pixelAt(surface, 1, 1);
  EXPECT_GT(redOf(nearRed), 230);
  EXPECT_EQ(pixelAt(surface, 50, 50), 0u);
}

TEST(CanvasRenderer, FlatFanCoversItsPolygon) {
  Surface surface(10, 10);
  CanvasRenderer renderer(surface);
  Glib::TriangleFanDescription fan;
  fan.points = {{2, 2}, {8, 2}, {8, 8}, {2, 8}};
  fan.colours = {kBlue};
  renderer.renderPrimitive(fan);
  EXPECT_TRUE(coversExactly(surface, Box<int>(2, 2, 8, 8), kBluePixel));
}

TEST(CanvasRenderer, LineStripColoursEachSegment) {
  Surface surface(10, 10);
  CanvasRenderer renderer(surface);
  Glib::LineStripDescription strip;
  strip.points = {{0.5, 0.5}, {8.5, 0.5}, {8.5, 8.5}};
  strip.colours = {kRed, kGreen};
  strip.width = 1.0;
  renderer.renderPrimitive(strip);
  EXPECT_EQ(pixelAt(surface, 3, 0), kRedPixel);
  EXPECT_EQ(pixelAt(surface, 8, 4), kGreenPixel);
  EXPECT_EQ(pixelAt(surface, 4, 4), 0u);
}

TEST(CanvasRenderer, ShaderRectRunsBetweenItsCornerColours) {
  Surface surface(10, 100);
  CanvasRenderer renderer(surface);
  renderer.renderPrimitive(Glib::ShaderRectDescription::vertical(Box<double>(0, 0, 10, 100), kBlue, kRed));
  std::uint32_t const bottom = pixelAt(surface, 5, 0);
  std::uint32_t const top = pixelAt(surface, 5, 99);
  EXPECT_GT(blueOf(bottom), 245);
  EXPECT_LT(redOf(bottom), 10);
  EXPECT_GT(redOf(top), 245);
  EXPECT_LT(blueOf(top), 10);
  int previousRed = -1;
  for (int y = 0; y < 100; ++y) {
    int const red = redOf(pixelAt(surface, 5, y));
    EXPECT_GE(red, previousRed);
    previousRed = red;
    EXPECT_EQ(alphaOf(pixelAt(surface, 5, y)), 255);
  }
  EXPECT_NEAR(redOf(pixelAt(surface, 5, 50)), 128, 4);
}

TEST(CanvasRenderer, TextStaysInsideItsBox) {
  Surface surface(200, 40);
  CanvasRenderer renderer(surface);
  Glib::FontDesc font("DejaVu Sans", 20, 0);
  Glib::TextDescription text(L"Overflowing text that goes on", Box<double>(10, 10, 80, 30), font, kRed);
  renderer.renderPrimitive(text);
  int inside = 0;
  for (int y = 0; y < 40; ++y) {
    for (int x = 0; x < 200; ++x) {
      if (pixelAt(surface, x, y) == 0u)
        continue;
      EXPECT_TRUE(Box<int>(10, 10, 80, 30).contains(XY<int>(x, y))) << x << ", " << y;
      ++inside;
    }
  }
  EXPECT_GT(inside, 100);
  EXPECT_GT(countPixels(surface, kRedPixel), 20);
}

TEST(CanvasRenderer, TextAtABaselineSitsOnIt) {
  Surface surface(100, 40);
  CanvasRenderer renderer(surface);
  renderer.setOrigin(XY<int>(10, 5));
  Glib::FontDesc font("DejaVu Sans", 20, 0);
  // "x" has no descender: its ink lies on and above the baseline.
  renderer.renderPrimitive(Glib::TextDescription(L"xxxx", XY<double>(0, 10), font, kBlue));
  int lowest = 40;
  int highest = -1;
  int leftmost = 100;
  for (int y = 0; y < 40; ++y) {
    for (int x = 0; x < 100; ++x) {
      if (alphaOf(pixelAt(surface, x, y)) > 128) {
        lowest = std::min(lowest, y);
        highest = std::max(highest, y);
        leftmost = std::min(leftmost, x);
      }
    }
  }
  EXPECT_EQ(lowest, 15);
  EXPECT_NEAR(highest, 15 + 10, 2); // x-height of a 20-pixel DejaVu Sans is about 10.9
  EXPECT_GE(leftmost, 10);
  EXPECT_LE(leftmost, 11);
}

TEST(CanvasRenderer, TextRespectsTheClipBox) {
  Surface surface(100, 40);
  CanvasRenderer renderer(surface);
  renderer.setClipBox(Box<int>(0, 0, 30, 40));
  renderer.renderPrimitive(
      Glib::TextDescription(L"MMMMMMMM", XY<double>(2, 10), Glib::FontDesc("DejaVu Sans", 20, 0), kRed));
  for (int y = 0; y < 40; ++y)
    for (int x = 30; x < 100; ++x)
      EXPECT_EQ(pixelAt(surface, x, y), 0u);
  EXPECT_GT(countNonTransparent(surface), 50);
}

namespace {

// Forwards the basic primitives and leaves the composite ones to the base
// class, as a pass-through renderer does.
class ForwardingRenderer : public iGraphicPrimitivesRenderer {
public:
  explicit ForwardingRenderer(CanvasRenderer& inner) : inner_(inner) {}

  void setClipRegion(Zo::Ptr<iRegion> region) override { inner_.setClipRegion(region); }
  void setAntialiasingEnabled(bool enabled) override { inner_.setAntialiasingEnabled(enabled); }
  unsigned int getCaps() const override { return inner_.getCaps(); }
  void renderMulti(Glib::RectDescription const* items, unsigned int count) override {
    rects += count;
    inner_.renderMulti(items, count);
  }
  void renderMulti(Glib::EllipseDescription const* items, unsigned int count) override {
    inner_.renderMulti(items, count);
  }
  void renderMulti(Glib::LineDescription const* items, unsigned int count) override {
    lines += count;
    inner_.renderMulti(items, count);
  }
  void renderMulti(Glib::TextDescription const* items, unsigned int count) override {
    inner_.renderMulti(items, count);
  }
  void renderMulti(Glib::AlphaRectDescription const* items, unsigned int count) override {
    inner_.renderMulti(items, count);
  }
  void renderMulti(Glib::BezierCurveDescription const* items, unsigned int count) override {
    inner_.renderMulti(items, count);
  }
  void renderMulti(Glib::ImageDescription const* items, unsigned int count) override {
    images += count;
    inner_.renderMulti(items, count);
  }
  void renderMulti(Glib::ImageDescriptionEx const* items, unsigned int count) override {
    inner_.renderMulti(items, count);
  }
  void renderMulti(Glib::ShaderRectDescription const* items, unsigned int count) override {
    inner_.renderMulti(items, count);
  }
  using iGraphicPrimitivesRenderer::renderMulti;

  unsigned int rects = 0;
  unsigned int lines = 0;
  unsigned int images = 0;

private:
  CanvasRenderer& inner_;
};

} // namespace

TEST(GraphicPrimitivesRendererDefaults, TriangleStripBecomesAPicture) {
  Surface surface(12, 12);
  CanvasRenderer canvas(surface);
  ForwardingRenderer forwarding(canvas);
  Glib::TriangleStripDescription strip;
  strip.points = {{1, 1}, {11, 1}, {1, 11}, {11, 11}};
  strip.colours = {kRed};
  forwarding.renderMulti(&strip, 1);
  EXPECT_EQ(forwarding.images, 1u);
  EXPECT_EQ(forwarding.rects, 0u);
  EXPECT_TRUE(coversExactly(surface, Box<int>(1, 1, 11, 11), kRedPixel));
}

TEST(GraphicPrimitivesRendererDefaults, BlendedFanMatchesTheCairoOne) {
  Glib::TriangleFanDescription fan;
  fan.points = {{10, 10}, {19, 10}, {14.5, 18}, {5.5, 18}, {1, 10}, {5.5, 2}, {14.5, 2}, {19, 10}};
  fan.colours = {Colour(1, 1, 1), kRed, kGreen, kBlue, kRed, kGreen, kBlue, kRed};
  Surface direct(20, 20);
  CanvasRenderer directRenderer(direct);
  directRenderer.renderPrimitive(fan);

  Surface composed(20, 20);
  CanvasRenderer composedCanvas(composed);
  ForwardingRenderer forwarding(composedCanvas);
  forwarding.renderMulti(&fan, 1);
  EXPECT_EQ(forwarding.images, 1u);
  EXPECT_GT(countNonTransparent(composed), 200);
  // Drawn once more through a picture: only rounding may differ.
  Surface::Difference const difference = Surface::compare(direct, composed, 2);
  EXPECT_EQ(difference.differingPixels, 0) << "max channel difference " << difference.maxChannel;
}

TEST(GraphicPrimitivesRendererDefaults, RoundedRectMatchesTheCairoOneClosely) {
  Surface direct(30, 20);
  CanvasRenderer directRenderer(direct);
  Glib::RoundedRectDescription shape(Box<double>(2, 2, 28, 18), 5.0, kBlue, kRed, 2.0);
  directRenderer.renderPrimitive(shape);

  Surface composed(30, 20);
  CanvasRenderer composedCanvas(composed);
  ForwardingRenderer forwarding(composedCanvas);
  forwarding.renderMulti(&shape, 1);
  EXPECT_GT(forwarding.rects, 0u);
  EXPECT_GT(forwarding.lines, 0u);
  // Straight parts agree exactly; the corners are built from other arcs.
  EXPECT_EQ(pixelAt(composed, 15, 10), kBluePixel);
  EXPECT_EQ(pixelAt(composed, 15, 2), kRedPixel);
  EXPECT_EQ(pixelAt(composed, 15, 3), kRedPixel);
  EXPECT_EQ(pixelAt(composed, 2, 10), kRedPixel);
  EXPECT_EQ(pixelAt(composed, 2, 2), 0u);
  EXPECT_LT(Surface::compare(direct, composed, 64).differingPixels, 12);
}

TEST(GraphicPrimitivesRendererDefaults, LineStripBecomesLines) {
  Surface surface(10, 10);
  CanvasRenderer canvas(surface);
  ForwardingRenderer forwarding(canvas);
  Glib::LineStripDescription strip;
  strip.points = {{0, 2}, {6, 2}, {6, 9}};
  strip.colours = {kRed, kBlue};
  forwarding.renderMulti(&strip, 1);
  EXPECT_EQ(forwarding.lines, 2u);
  EXPECT_EQ(pixelAt(surface, 3, 2), kRedPixel);
  EXPECT_EQ(pixelAt(surface, 6, 5), kBluePixel);
}

TEST(Region, ContainsAndIntersects) {
  iRegion region(std::vector{Box<int>(0, 0, 4, 4), Box<int>(10, 10, 12, 12), Box<int>()});
  EXPECT_EQ(region.boxes().size(), 2u);
  EXPECT_TRUE(region.contains(XY<int>(3, 3)));
  EXPECT_FALSE(region.contains(XY<int>(4, 4)));
  EXPECT_TRUE(region.contains(XY<int>(11, 10)));
  EXPECT_TRUE(region.intersects(Box<int>(3, 3, 20, 5)));
  EXPECT_FALSE(region.intersects(Box<int>(4, 0, 10, 10)));
  EXPECT_EQ(region.intersect(Box<int>(2, 2, 11, 11)), (std::vector{Box<int>(2, 2, 4, 4), Box<int>(10, 10, 11, 11)}));
  EXPECT_EQ(region.bounds(), Box<int>(0, 0, 12, 12));
  EXPECT_TRUE(iRegion().empty());
}

TEST(Region, OverlappingBoxesUniteIntoBoxesThatDoNotOverlap) {
  iRegion region(std::vector{Box<int>(0, 0, 4, 4), Box<int>(2, 2, 6, 6)});
  long long area = 0;
  for (Box<int> const& box : region.boxes())
    area += static_cast<long long>(box.width()) * box.height();
  EXPECT_EQ(area, 16 + 16 - 4);
  for (std::size_t i = 0; i < region.boxes().size(); ++i)
    for (std::size_t j = i + 1; j < region.boxes().size(); ++j)
      EXPECT_TRUE(region.boxes()[i].intersect(region.boxes()[j]).empty());
  EXPECT_TRUE(region.contains(XY<int>(5, 5)));
  EXPECT_FALSE(region.contains(XY<int>(5, 1)));
  EXPECT_EQ(region.bounds(), Box<int>(0, 0, 6, 6));
}

TEST(Region, NeighbouringBoxesMerge) {
  iRegion region;
  region.add(Box<int>(0, 0, 2, 2));
  region.add(Box<int>(2, 0, 4, 2));
  region.add(Box<int>(1, 1, 3, 2));
  EXPECT_EQ(region.boxes(), (std::vector{Box<int>(0, 0, 4, 2)}));
  EXPECT_TRUE(region.intersect(Box<int>(4, 0, 8, 2)).empty());
}

TEST(TopDownRect, ConvertsToBottomUpBoxes) {
  Glib::TopDownRect const rect(2, 1, 3, 4);
  EXPECT_EQ(rect.toBottomUp(10), Box<int>(2, 5, 5, 9));
  EXPECT_EQ(Glib::TopDownRect::fromBottomUp(Box<int>(2, 5, 5, 9), 10), rect);
  EXPECT_TRUE(Glib::TopDownRect(0, 0, 0, 5).empty());
}

TEST(CanvasRenderer, BoxesAndTextFarOffTheSurfaceDrawNothing) {
  Surface surface(20, 20);
  CanvasRenderer renderer(surface);
  double const far = 1e12;
  renderer.renderPrimitive(Glib::RectDescription(Box<double>(far, far, far + 10, far + 10), kRed));
  renderer.renderPrimitive(Glib::RoundedRectDescription(Box<double>(-far, 2, -far + 12, 9), 3.0, kGreen));
  renderer.renderPrimitive(
      Glib::TextDescription(L"far", XY<double>(far, -far), Glib::FontDesc("DejaVu Sans", 13, 0), kBlue));
  // A box reaching in from far away is still drawn where it meets the surface.
  renderer.renderPrimitive(Glib::RectDescription(Box<double>(-far, 0, 5, 4), kBlue));
  EXPECT_TRUE(coversExactly(surface, Box<int>(0, 0, 5, 4), kBluePixel));
}

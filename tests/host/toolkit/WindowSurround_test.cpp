#include "support/Swatch.h"
#include "support/WidgetTestSupport.h"

#include <zowidgets/host/drawing/CanvasRenderer.h>
#include <zowidgets/host/drawing/GraphicPrimitives.h>
#include <zowidgets/host/toolkit/UifStd.h>

namespace {

Colour const desktop(0.2, 0.22, 0.25);
Colour const red(1, 0, 0), white(1, 1, 1);

// A red window of 100 by 60 at (300, 200): its box is [300, 400) x [200, 260).
struct WindowSurroundTest : HeadlessScreenTest {
  Swatch* window = nullptr;

  void SetUp() override {
    HeadlessScreenTest::SetUp();
    Glob::setupRootPos(nullptr, XY<int>(300, 200));
    window = new Swatch(XY<int>(100, 60), red);
    GlobManager::realize(window);
  }
  int brightness(XY<int> point) {
    Rgb const rgb = rgbOf(screenPixel(point));
    return rgb.r + rgb.g + rgb.b;
  }
  int desktopBrightness() const {
    Rgb const rgb = rgbOf(desktop);
    return rgb.r + rgb.g + rgb.b;
  }
};

TEST_F(WindowSurroundTest, AWindowCastsNoShadowUnlessAsked) {
  EXPECT_TRUE(window->getWindowSurround().empty());
  EXPECT_EQ(rgbOf(screenPixel(XY<int>(400, 230))), rgbOf(desktop));
  EXPECT_EQ(rgbOf(screenPixel(XY<int>(350, 199))), rgbOf(desktop));
}

TEST_F(WindowSurroundTest, AShadowDarkensJustOutsideTheNamedEdgesOnly) {
  int const width = 8;
  window->addSurround(width, Colour(0, 0, 0), 0.35f, Glob::kEdgeLeft | Glob::kEdgeRight | Glob::kEdgeBottom);
  int const bare = desktopBrightness();
  EXPECT_LT(brightness(XY<int>(299, 230)), bare) << "left";
  EXPECT_LT(brightness(XY<int>(400, 230)), bare) << "right";
  EXPECT_LT(brightness(XY<int>(350, 199)), bare) << "bottom";
  EXPECT_EQ(rgbOf(screenPixel(XY<int>(350, 260))), rgbOf(desktop)) << "the top edge has none";
  EXPECT_EQ(rgbOf(screenPixel(XY<int>(400 + width, 230))), rgbOf(desktop)) << "nothing beyond its width";
  EXPECT_EQ(rgbOf(screenPixel(XY<int>(350, 230))), rgbOf(red)) << "the window itself is untouched";
}

TEST_F(WindowSurroundTest, TheShadowFadesAwayFromTheEdge) {
  window->addSurround(8, Colour(0, 0, 0), 0.35f, Glob::kAllEdges);
  int const atEdge = brightness(XY<int>(400, 230));
  int const further = brightness(XY<int>(403, 230));
  int const furthest = brightness(XY<int>(407, 230));
  EXPECT_LT(atEdge, further);
  EXPECT_LT(further, furthest);
  EXPECT_LE(furthest, desktopBrightness());
  // At the edge the strength is what was asked: 35% black over the desktop.
  Rgb const expected = rgbOf(Colour::mix(Colour(0, 0, 0), desktop, 0.35));
  EXPECT_TRUE(near(rgbOf(screenPixel(XY<int>(400, 230))), expected, 2)) << rgbOf(screenPixel(XY<int>(400, 230)));
  EXPECT_LT(brightness(XY<int>(350, 260)), desktopBrightness()) << "all four edges";
}

TEST_F(WindowSurroundTest, TheSurroundFallsOnWindowsBehind) {
  Glob::setupRootPos(nullptr, XY<int>(250, 100));
  auto* behind = new Swatch(XY<int>(200, 200), white);
  GlobManager::realize(behind);
  window->canvas()->popToTop();
  window->addSurround(8, Colour(0, 0, 0), 0.35f, Glob::kEdgeRight);
  EXPECT_LT(brightness(XY<int>(400, 230)), 3 * 255);
  EXPECT_EQ(rgbOf(screenPixel(XY<int>(410, 230))), rgbOf(white));
}

TEST_F(WindowSurroundTest, TheStandardShadowLiesBelowAndRight) {
  window->addShadow();
  Glob::Surround const& shadow = window->getWindowSurround();
  EXPECT_EQ(shadow.edges, unsigned(Glob::kEdgeRight | Glob::kEdgeBottom));
  EXPECT_EQ(shadow.width, 2 * UifStd::getWidgetGap());
  EXPECT_LT(brightness(XY<int>(400, 230)), desktopBrightness());
  EXPECT_LT(brightness(XY<int>(350, 199)), desktopBrightness());
  EXPECT_EQ(rgbOf(screenPixel(XY<int>(299, 230))), rgbOf(desktop));
  EXPECT_EQ(rgbOf(screenPixel(XY<int>(350, 260))), rgbOf(desktop));
  window->removeSurround();
  EXPECT_EQ(rgbOf(screenPixel(XY<int>(400, 230))), rgbOf(desktop));
}

TEST_F(WindowSurroundTest, CurvedCornersShowWhatLiesBehind) {
  window->setWindowCornerRadius(10);
  EXPECT_EQ(rgbOf(screenPixel(XY<int>(300, 200))), rgbOf(desktop)) << "bottom-left corner";
  EXPECT_EQ(rgbOf(screenPixel(XY<int>(399, 259))), rgbOf(desktop)) << "top-right corner";
  EXPECT_EQ(rgbOf(screenPixel(XY<int>(301, 259))), rgbOf(desktop)) << "top-left corner";
  EXPECT_EQ(rgbOf(screenPixel(XY<int>(398, 201))), rgbOf(desktop)) << "bottom-right corner";
  EXPECT_EQ(rgbOf(screenPixel(XY<int>(305, 205))), rgbOf(red)) << "inside the curve";
  EXPECT_EQ(rgbOf(screenPixel(XY<int>(350, 200))), rgbOf(red)) << "along an edge";
  EXPECT_EQ(rgbOf(screenPixel(XY<int>(300, 230))), rgbOf(red));
  // The window's own pixels are whole; only the screen cuts them.
  EXPECT_EQ(rgbOf(HeadlessScreen::windowShot(*window).pixel(0, 59)), rgbOf(red));
  window->setWindowCornerRadius(0);
  EXPECT_EQ(rgbOf(screenPixel(XY<int>(300, 200))), rgbOf(red));
}

} // namespace

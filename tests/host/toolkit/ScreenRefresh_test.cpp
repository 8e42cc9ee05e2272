#include "support/Swatch.h"
#include "support/WidgetTestSupport.h"

#include <zowidgets/host/drawing/CanvasRenderer.h>
#include <zowidgets/host/drawing/GraphicPrimitives.h>
#include <zowidgets/host/toolkit/ScreenRefresh.h>

namespace {

Colour const red(1, 0, 0), blue(0, 0, 1);

struct ScreenRefreshTest : HeadlessScreenTest {
  Swatch* swatch = nullptr;
  XY<int> spot;

  void SetUp() override {
    HeadlessScreenTest::SetUp();
    Glob::setupRootPos(nullptr, XY<int>(200, 200));
    swatch = new Swatch(XY<int>(60, 40), red);
    GlobManager::realize(swatch);
    spot = XY<int>(220, 220);
  }
  void TearDown() override {
    // A failed expectation must not leave the screen frozen for the next test.
    while (refresh_is_off())
      refresh_on();
    HeadlessScreenTest::TearDown();
  }
};

TEST_F(ScreenRefreshTest, WhileOffTheScreenKeepsShowingWhatItShowed) {
  ASSERT_EQ(rgbOf(screenPixel(spot)), rgbOf(red));
  refresh_off();
  swatch->setColour(blue);
  swatch->update();
  GlobManager::redisplay();
  EXPECT_EQ(rgbOf(screenPixel(spot)), rgbOf(red));
  refresh_on();
  EXPECT_EQ(rgbOf(screenPixel(spot)), rgbOf(blue));
}

TEST_F(ScreenRefreshTest, OnlyTheOutermostOnShowsTheChanges) {
  refresh_off();
  refresh_off();
  swatch->setColour(blue);
  refresh_on();
  EXPECT_TRUE(refresh_is_off());
  EXPECT_EQ(rgbOf(screenPixel(spot)), rgbOf(red));
  refresh_on();
  EXPECT_FALSE(refresh_is_off());
  int const paints = swatch->paintCount();
  EXPECT_EQ(rgbOf(screenPixel(spot)), rgbOf(blue));
  EXPECT_EQ(swatch->paintCount(), paints) << "painted by refresh_on itself, not later";
}

TEST_F(ScreenRefreshTest, ReleasingHeldRedrawsDoesNotRefreshTheScreen) {
  refresh_off();
  {
    Drawable::Suspender holdRedraws;
    swatch->setColour(blue);
  }
  EXPECT_EQ(rgbOf(screenPixel(spot)), rgbOf(red));
  refresh_on();
  EXPECT_EQ(rgbOf(screenPixel(spot)), rgbOf(blue));
}

TEST_F(ScreenRefreshTest, AnUnmatchedOnChangesNothing) {
  refresh_on();
  EXPECT_FALSE(refresh_is_off());
  refresh_off();
  EXPECT_TRUE(refresh_is_off());
  refresh_on();
  EXPECT_FALSE(refresh_is_off());
}

} // namespace

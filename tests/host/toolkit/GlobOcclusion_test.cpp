// A widget that declares it paints opaquely hides what lies under it: when
// only it is repainted, its parent's drawing and the siblings before it are
// left out.

#include "support/WidgetTestSupport.h"

#include <zowidgets/host/drawing/CanvasRenderer.h>
#include <zowidgets/host/drawing/GraphicPrimitives.h>
#include <zowidgets/host/drawing/Palette.h>

namespace {

// Fills itself with one colour and counts how often its own drawing ran.
class CountingSwatch : public Glob {
public:
  CountingSwatch(XY<int> size, Colour colour) : Glob(GlobCreationInfo(size)), colour_(colour) {}
  int drawn = 0;

protected:
  void drawBackground(CanvasRenderer& renderer) override {
    ++drawn;
    renderer.renderPrimitive(Glib::RectDescription(Zo::Box<int>(0, 0, width(), height()), colour_));
  }

private:
  Colour colour_;
};

// A panel that counts the runs of its own drawing.
class CountingPanel : public StandardPanel {
public:
  CountingPanel() : StandardPanel(InitArgs(GlobCreationInfo(XY<int>(200, 120)))) {}
  int drawn = 0;

protected:
  void draw(CanvasRenderer& renderer) override {
    ++drawn;
    StandardPanel::draw(renderer);
  }
};

Colour const kRed(1, 0, 0), kGreen(0, 1, 0), kBlue(0, 0, 1);

class GlobOcclusionTest : public HeadlessScreenTest {
protected:
  void SetUp() override {
    HeadlessScreenTest::SetUp();
    panel = new CountingPanel;
    under = static_cast<CountingSwatch*>(
        panel->addChild(new CountingSwatch(XY<int>(60, 40), kRed), Glob::UserBottomLeft(10, 10)));
    over = static_cast<CountingSwatch*>(
        panel->addChild(new CountingSwatch(XY<int>(60, 40), kGreen), Glob::UserBottomLeft(10, 10)));
    beside = static_cast<CountingSwatch*>(
        panel->addChild(new CountingSwatch(XY<int>(30, 30), kBlue), Glob::UserBottomLeft(100, 10)));
    GlobManager::realize(panel);
    pump();
  }

  struct Counts {
    int panel, under, over;
  };
  Counts counts() const { return {panel->drawn, under->drawn, over->drawn}; }

  CountingPanel* panel = nullptr;
  CountingSwatch* under = nullptr;
  CountingSwatch* over = nullptr;
  CountingSwatch* beside = nullptr;
};

} // namespace

TEST_F(GlobOcclusionTest, AnOpaqueWidgetRepaintedAloneHidesItsParentAndTheSiblingsUnder) {
  over->setPaintsOpaquely(true);
  Counts const before = counts();
  over->invalidate();
  EXPECT_EQ(panel->drawn, before.panel);
  EXPECT_EQ(under->drawn, before.under);
  EXPECT_EQ(over->drawn, before.over + 1);
  EXPECT_EQ(rgbOf(widgetPixel(*over, XY<int>(30, 20))), rgbOf(kGreen));
}

TEST_F(GlobOcclusionTest, AWidgetThatDoesNotDeclareItLetsEverythingUnderItPaint) {
  Counts const before = counts();
  over->invalidate();
  EXPECT_EQ(panel->drawn, before.panel + 1);
  EXPECT_EQ(under->drawn, before.under + 1);
  EXPECT_EQ(over->drawn, before.over + 1);
  EXPECT_EQ(rgbOf(widgetPixel(*over, XY<int>(30, 20))), rgbOf(kGreen));
}

TEST_F(GlobOcclusionTest, AnAreaOnlyPartlyCoveredPaintsTheParent) {
  over->setPaintsOpaquely(true);
  Counts const before = counts();
  // Reaches 5 pixels past the opaque widget's right edge.
  panel->invalidate(Zo::Box<int>(over->canvasBox().x0 + 50, over->canvasBox().y0 + 5, over->canvasBox().x1 + 5,
                                 over->canvasBox().y0 + 15));
  EXPECT_EQ(panel->drawn, before.panel + 1);
  EXPECT_EQ(under->drawn, before.under + 1);
  EXPECT_EQ(over->drawn, before.over + 1);
  EXPECT_EQ(rgbOf(widgetPixel(*over, XY<int>(55, 10))), rgbOf(kGreen));
  EXPECT_EQ(rgbOf(widgetPixel(*over, XY<int>(62, 10))), rgbOf(panel->getPalette().window()));
}

TEST_F(GlobOcclusionTest, AHiddenOpaqueWidgetHidesNothing) {
  over->setPaintsOpaquely(true);
  over->setVisible(false);
  pump();
  Counts const before = counts();
  under->invalidate();
  EXPECT_EQ(panel->drawn, before.panel + 1);
  EXPECT_EQ(under->drawn, before.under + 1);
  EXPECT_EQ(over->drawn, before.over);
  EXPECT_EQ(rgbOf(widgetPixel(*under, XY<int>(30, 20))), rgbOf(kRed));
}

TEST_F(GlobOcclusionTest, AnOpaqueWidgetUnderAnotherStillLetsThatOneShow) {
  under->setPaintsOpaquely(true);
  Counts const before = counts();
  under->invalidate();
  // The panel is hidden by the opaque one, the one above it still paints.
  EXPECT_EQ(panel->drawn, before.panel);
  EXPECT_EQ(under->drawn, before.under + 1);
  EXPECT_EQ(over->drawn, before.over + 1);
  EXPECT_EQ(rgbOf(widgetPixel(*under, XY<int>(30, 20))), rgbOf(kGreen));
}

TEST_F(GlobOcclusionTest, AWholePaintStillDrawsEverything) {
  over->setPaintsOpaquely(true);
  beside->setPaintsOpaquely(true);
  Counts const before = counts();
  panel->invalidate();
  EXPECT_EQ(panel->drawn, before.panel + 1);
  EXPECT_EQ(under->drawn, before.under + 1);
  EXPECT_EQ(over->drawn, before.over + 1);
  EXPECT_EQ(rgbOf(widgetPixel(*beside, XY<int>(5, 5))), rgbOf(kBlue));
}

// A widget that declares it paints opaquely hides what lies under it: when
// only it is repainted, its parent's drawing and the siblings before it are
// left out. Opaque widgets side by side hide what they cover together.

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

TEST_F(GlobOcclusionTest, OpaqueWidgetsThatTogetherCoverTheAreaHideTheParent) {
  // Two opaque halves side by side over `under`; an area across both is
  // hidden though neither covers it alone.
  auto* left = static_cast<CountingSwatch*>(
      panel->addChild(new CountingSwatch(XY<int>(30, 40), kBlue), Glob::UserBottomLeft(10, 10)));
  auto* right = static_cast<CountingSwatch*>(
      panel->addChild(new CountingSwatch(XY<int>(30, 40), kRed), Glob::UserBottomLeft(40, 10)));
  left->setPaintsOpaquely(true);
  right->setPaintsOpaquely(true);
  pump();
  Counts const before = counts();
  int const leftBefore = left->drawn, rightBefore = right->drawn;
  Zo::Box<int> const across(left->canvasBox().x0 + 20, left->canvasBox().y0 + 5, right->canvasBox().x0 + 10,
                            left->canvasBox().y0 + 30);
  panel->invalidate(across);
  EXPECT_EQ(panel->drawn, before.panel);
  EXPECT_EQ(under->drawn, before.under);
  EXPECT_EQ(over->drawn, before.over);
  EXPECT_EQ(left->drawn, leftBefore + 1);
  EXPECT_EQ(right->drawn, rightBefore + 1);
  EXPECT_EQ(rgbOf(widgetPixel(*left, XY<int>(25, 20))), rgbOf(kBlue));
  EXPECT_EQ(rgbOf(widgetPixel(*right, XY<int>(5, 20))), rgbOf(kRed));
}

TEST_F(GlobOcclusionTest, AGapBetweenOpaqueWidgetsLetsTheParentPaint) {
  auto* left = static_cast<CountingSwatch*>(
      panel->addChild(new CountingSwatch(XY<int>(25, 40), kBlue), Glob::UserBottomLeft(10, 10)));
  auto* right = static_cast<CountingSwatch*>(
      panel->addChild(new CountingSwatch(XY<int>(25, 40), kRed), Glob::UserBottomLeft(45, 10)));
  left->setPaintsOpaquely(true);
  right->setPaintsOpaquely(true);
  pump();
  Counts const before = counts();
  // Ten pixels of `over` show between the two.
  Zo::Box<int> const across(left->canvasBox().x0 + 20, left->canvasBox().y0 + 5, right->canvasBox().x0 + 10,
                            left->canvasBox().y0 + 30);
  panel->invalidate(across);
  EXPECT_EQ(panel->drawn, before.panel + 1);
  EXPECT_EQ(over->drawn, before.over + 1);
  EXPECT_EQ(rgbOf(widgetPixel(*over, XY<int>(30, 20))), rgbOf(kGreen));
  EXPECT_EQ(rgbOf(widgetPixel(*left, XY<int>(22, 20))), rgbOf(kBlue));
}

// Two opaque widgets on the same spot offer twice their area: enough by
// area alone for a larger repaint, which they still do not hide.
TEST_F(GlobOcclusionTest, OpaqueWidgetsWhoseAreasAddUpButOverlapStillLetTheParentPaint) {
  under->setPaintsOpaquely(true);
  over->setPaintsOpaquely(true);
  pump();
  Counts const before = counts();
  Zo::Box<int> const box = over->canvasBox();
  // 80 x 40: more than one widget's 60 x 40, less than the two together.
  Zo::Box<int> const wider(box.x0, box.y0, box.x0 + 80, box.y1);
  panel->invalidate(wider);
  EXPECT_EQ(panel->drawn, before.panel + 1);
  EXPECT_EQ(under->drawn, before.under + 1) << "the region test, not the area sum, decides what is hidden";
  EXPECT_EQ(over->drawn, before.over + 1);
  EXPECT_EQ(rgbOf(widgetPixel(*over, XY<int>(30, 20))), rgbOf(kGreen));
}

namespace {

// Declares that it paints every pixel opaquely, and paints none: what shows
// where it lies is what its parent left there.
class BlankOpaque : public Glob {
public:
  explicit BlankOpaque(XY<int> size) : Glob(GlobCreationInfo(size)) { setPaintsOpaquely(true); }

protected:
  void drawBackground(CanvasRenderer&) override {}
};

} // namespace

TEST_F(GlobOcclusionTest, AParentsBackgroundIsLeftOutWhereAnOpaqueChildLies) {
  // Made with the child, so that the first paint is the one looked at: a new
  // window's pixels start out clear.
  auto* window = new StandardPanel(StandardPanel::InitArgs(GlobCreationInfo(XY<int>(200, 120))));
  auto* blank = window->addChild(new BlankOpaque(XY<int>(40, 30)), Glob::UserBottomLeft(140, 60));
  GlobManager::realize(window);
  pump();
  // Read from the window's own pixels: the screen would show what lies
  // under a pixel left clear.
  Zo::Image::Surface const& pixels = window->canvas()->surface();
  auto pixelAt = [&](XY<int> canvasPoint) { return pixels.pixel(canvasPoint.x, pixels.height() - 1 - canvasPoint.y); };
  XY<int> const corner = blank->canvasPosition();
  for (XY<int> const& inside : {XY<int>(20, 15), XY<int>(0, 0), XY<int>(39, 29)})
    EXPECT_EQ(pixelAt(corner + inside), 0u)
        << "the background went under the child at " << inside.x << ", " << inside.y;
  Rgb const background = rgbOf(window->getPalette().window());
  EXPECT_EQ(rgbOf(pixelAt(corner + XY<int>(-1, 15))), background);
  EXPECT_EQ(rgbOf(pixelAt(corner + XY<int>(40, 15))), background);
  GlobManager::requestDeletion(window);
  pump();
}

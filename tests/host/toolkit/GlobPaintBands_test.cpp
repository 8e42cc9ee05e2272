// A repaint of a tall window is painted in bands that fit the cache. The
// picture must come out as one paint would make it, and a widget that spans
// several bands still counts one paint a repaint.

#include "support/WidgetTestSupport.h"

#include <zowidgets/host/drawing/CanvasRenderer.h>
#include <zowidgets/host/drawing/GraphicPrimitives.h>

namespace {

// Fills itself with one colour, a line of another across its middle row.
class StripedSwatch : public Glob {
public:
  StripedSwatch(XY<int> size, Colour fill, Colour line) : Glob(GlobCreationInfo(size)), fill_(fill), line_(line) {}

protected:
  void drawBackground(CanvasRenderer& renderer) override {
    renderer.renderPrimitive(Glib::RectDescription(Zo::Box<int>(0, 0, width(), height()), fill_));
    int const middle = height() / 2;
    renderer.renderPrimitive(Glib::RectDescription(Zo::Box<int>(0, middle, width(), middle + 1), line_));
  }

private:
  Colour fill_;
  Colour line_;
};

Colour const kRed(1, 0, 0), kBlue(0, 0, 1);

// Several megabytes of pixels: far more than one band.
constexpr int kWidth = 600;
constexpr int kHeight = 4000;

class GlobPaintBandsTest : public HeadlessScreenTest {
protected:
  void SetUp() override {
    HeadlessScreenTest::SetUp();
    // All of the window on the screen: a window paints only what shows.
    useScreenOfSize(XY<int>(kWidth + 200, kHeight + 200));
    panel = new StandardPanel(StandardPanel::InitArgs(GlobCreationInfo(XY<int>(kWidth, kHeight))));
    tall = static_cast<StripedSwatch*>(
        panel->addChild(new StripedSwatch(XY<int>(40, kHeight - 40), kRed, kBlue), Glob::UserBottomLeft(10, 10)));
    for (int y = 10; y + 30 < kHeight; y += 50)
      small.push_back(static_cast<StripedSwatch*>(
          panel->addChild(new StripedSwatch(XY<int>(30, 30), kBlue, kRed), Glob::UserBottomLeft(100, y))));
    GlobManager::realize(panel);
    pump();
  }

  StandardPanel* panel = nullptr;
  StripedSwatch* tall = nullptr;
  std::vector<StripedSwatch*> small;
};

} // namespace

TEST_F(GlobPaintBandsTest, AWidgetAcrossManyBandsIsDrawnWholeEveryRowOfIt) {
  panel->invalidate();
  pump();
  int const middle = tall->height() / 2;
  for (int y = 0; y < tall->height(); ++y)
    ASSERT_EQ(rgbOf(widgetPixel(*tall, XY<int>(20, y))), rgbOf(y == middle ? kBlue : kRed)) << "row " << y;
}

TEST_F(GlobPaintBandsTest, EverySmallWidgetIsDrawnWholeWhereverTheBandsFall) {
  panel->invalidate();
  pump();
  for (StripedSwatch const* swatch : small)
    for (int y = 0; y < swatch->height(); ++y)
      ASSERT_EQ(rgbOf(widgetPixel(*swatch, XY<int>(15, y))), rgbOf(y == swatch->height() / 2 ? kRed : kBlue))
          << "swatch at " << swatch->getY() << ", row " << y;
}

TEST_F(GlobPaintBandsTest, AWidgetAcrossManyBandsCountsOnePaintARepaint) {
  int const panelBefore = panel->paintCount();
  int const tallBefore = tall->paintCount();
  std::vector<int> smallBefore;
  for (StripedSwatch const* swatch : small)
    smallBefore.push_back(swatch->paintCount());
  panel->invalidate();
  pump();
  EXPECT_EQ(panel->paintCount(), panelBefore + 1);
  EXPECT_EQ(tall->paintCount(), tallBefore + 1);
  for (std::size_t i = 0; i < small.size(); ++i)
    EXPECT_EQ(small[i]->paintCount(), smallBefore[i] + 1) << "swatch at " << small[i]->getY();
}

TEST_F(GlobPaintBandsTest, APartOfTheWindowRepaintedIsPaintedOnce) {
  int const tallBefore = tall->paintCount();
  // Across the window and most of its height: still several bands, the tall
  // widget's top row lying below the first of them.
  panel->invalidate(Zo::Box<int>(0, 200, panel->width(), panel->height() - 100));
  pump();
  EXPECT_EQ(tall->paintCount(), tallBefore + 1);
  EXPECT_EQ(rgbOf(widgetPixel(*tall, XY<int>(5, tall->height() / 2))), rgbOf(kBlue));
}

TEST_F(GlobPaintBandsTest, AWidgetHiddenInTheBandOfItsTopRowStillCountsOnePaint) {
  // An opaque sibling over the whole top band: there the tall widget is not
  // painted at all, below it is.
  auto* cover = new StripedSwatch(XY<int>(kWidth + 100, 1200), kBlue, kBlue);
  cover->setPaintsOpaquely(true);
  panel->addChild(cover, Glob::BottomLeft(-50, kHeight - 1100));
  pump();
  ASSERT_GT(tall->getY() + tall->height(), cover->getY()) << "the cover must hide the tall widget's top";
  int const tallBefore = tall->paintCount();
  int const coverBefore = cover->paintCount();
  panel->invalidate();
  pump();
  EXPECT_EQ(tall->paintCount(), tallBefore + 1);
  EXPECT_EQ(cover->paintCount(), coverBefore + 1);
  EXPECT_EQ(rgbOf(widgetPixel(*tall, XY<int>(20, 10))), rgbOf(kRed));
}

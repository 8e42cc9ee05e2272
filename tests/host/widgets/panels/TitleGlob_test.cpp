#include "support/WidgetTestSupport.h"

#include <zowidgets/host/drawing/GraphicPrimitives.h>
#include <zowidgets/host/toolkit/UifStd.h>
#include <zowidgets/host/widgets/panels/TitleGlob.h>
#include <zowidgets/host/widgets/values/Slider.h>

#include <cmath>

namespace {

struct TitleGlobTest : HeadlessScreenTest {
  StandardPanel* panel = nullptr;
  TitleGlob* row = nullptr;
  int const rowHeight = UifStd::getRowHeight();

  void SetUp() override {
    HeadlessScreenTest::SetUp();
    panel = openPanel(XY<int>(320, 120));
    TitleGlob::InitArgs args(XY<int>(300, rowHeight));
    args.legend = L"Opacity";
    row = panel->createWidget<TitleGlob>(args, Glob::UserTopLeft(0, 0));
  }

  Slider* makeChild(int width) {
    return new Slider(Slider::InitArgs(XY<int>(width, rowHeight - 2 * UifStd::getIndentWidth())));
  }
};

TEST_F(TitleGlobTest, LegendWidthIsTheTextWidthAndAGap) {
  Zo::Box<double> const text = Glib::TextDescription::calcBounds(L"Opacity", UifStd::getFont());
  EXPECT_EQ(row->legendWidth(), static_cast<int>(std::ceil(text.width())) + UifStd::getWidgetGap());
  EXPECT_EQ(TitleGlob::calcLegendWidth(L"Opacity"), row->legendWidth());
  EXPECT_EQ(TitleGlob::calcLegendWidth(UIString()), 0);
}

TEST_F(TitleGlobTest, TheChildSitsAtTheRightEdgeCentredVertically) {
  int const childWidth = row->width() - row->legendWidth();
  Slider* child = makeChild(childWidth);
  row->setChildGlob(child);
  EXPECT_EQ(row->getChildGlob(), child);
  EXPECT_EQ(child->parent(), row);
  EXPECT_EQ(child->getX() + child->width(), row->width());
  EXPECT_EQ(child->getX(), row->legendWidth());
  EXPECT_EQ(child->getY(), (row->height() - child->height()) / 2 / 2 * 2); // centred on a grid of 2
}

TEST_F(TitleGlobTest, ByDefaultTheChildTakesAWidthChange) {
  Slider* child = makeChild(200);
  row->setChildGlob(child);
  row->resize(400, rowHeight);
  EXPECT_EQ(child->width(), 300);
  EXPECT_EQ(child->getX() + child->width(), 400);
}

TEST_F(TitleGlobTest, AChildThatKeepsItsSizeStaysAtTheRightEdge) {
  Slider* child = makeChild(200);
  row->setChildGlob(child);
  row->setResizeBehaviour(TitleGlob::kChildKeepsSize);
  row->resize(400, rowHeight);
  EXPECT_EQ(child->width(), 200);
  EXPECT_EQ(child->getX(), 200);
}

TEST_F(TitleGlobTest, ARemovedChildIsForgotten) {
  Slider* child = makeChild(200);
  row->setChildGlob(child);
  row->removeWidget(child);
  EXPECT_EQ(row->getChildGlob(), nullptr);
  row->resize(350, rowHeight); // must not touch the dead child
  EXPECT_EQ(row->width(), 350);
}

TEST_F(TitleGlobTest, AnInactiveRowMakesItsChildInactiveAndAClickOnItChangesNothing) {
  Slider* child = makeChild(200);
  row->setChildGlob(child);
  child->setValueRange(0, 100);
  double value = 50;
  child->setNewWidgetValue(value, kRedrawNow);
  row->setActive(false, kRedrawNow);
  EXPECT_FALSE(child->isActive());
  HeadlessInput::clickOn(*child, XY<int>(child->width() - 4, child->height() / 2));
  EXPECT_EQ(child->getWidgetValue(), 50);
  row->setActive(true, kRedrawNow);
  EXPECT_TRUE(child->isActive());
  HeadlessInput::clickOn(*child, XY<int>(child->width() - 4, child->height() / 2));
  EXPECT_GT(child->getWidgetValue(), 50);
}

TEST_F(TitleGlobTest, TheLegendIsDrawnLeftOfTheChild) {
  row->setChildGlob(makeChild(200));
  Zo::Image::Surface const shot = HeadlessScreen::windowShot(*panel);
  Rgb const background = rgbOf(panel->getPalette().window());
  Zo::Box<int> const box = row->canvasBox();
  int inkRight = -1;
  for (int y = 0; y < row->height(); ++y)
    for (int x = 0; x < row->width() - 200; ++x)
      if (!near(rgbOf(shot.pixel(box.x0 + x, shot.height() - 1 - (box.y0 + y))), background, 24))
        inkRight = std::max(inkRight, x);
  EXPECT_GT(inkRight, row->legendWidth() / 2);
  EXPECT_LT(inkRight, row->legendWidth());
}

TEST_F(TitleGlobTest, TheWidgetPaletteIsAChildBoxOfTheRows) {
  EXPECT_EQ(row->getWidgetPalette(), makeChildPalette(row->getPalette(), kChildPanel));
}

} // namespace

#include "support/WidgetTestSupport.h"

#include <zowidgets/host/drawing/Palette.h>
#include <zowidgets/host/widgets/popups/TipWindowBase.h>

namespace {

struct TipWindowPointer : HeadlessScreenTest {
  static TipWindowBase* open(eWidgetRelativity side, int pointerOffset) {
    TipWindowBase::InitArgs args(XY<int>(120, 80));
    args.relativity = side;
    args.pointerOffset = pointerOffset;
    args.screenPosition = XY<int>(200, 200);
    auto* window = new TipWindowBase(args);
    GlobManager::realize(window);
    return window;
  }
  Rgb at(TipWindowBase const& window, XY<int> local) { return rgbOf(widgetPixel(window, local)); }
};

TEST_F(TipWindowPointer, ThereIsNoPointerUnlessAnOffsetIsGiven) {
  EXPECT_EQ(TipWindowBase::InitArgs().pointerOffset, -1);
  TipWindowBase* window = open(kRelativeRight, -1);
  EXPECT_EQ(window->getPointerOffset(), -1);
  int const depth = TipWindowBase::getTipDepth();
  for (int y = 2; y < window->height() - 2; y += 7)
    EXPECT_TRUE(near(at(*window, XY<int>(depth - 2, y)), rgbOf(window->getPalette().selection()))) << y;
}

TEST_F(TipWindowPointer, OnASideTipThePointerPointsOutAtTheOffset) {
  TipWindowBase* window = open(kRelativeRight, 30);
  EXPECT_EQ(window->getPointerOffset(), 30);
  // The band runs up the left edge; the pointer is twice as deep.
  int const depth = 2 * TipWindowBase::getTipDepth();
  Rgb const text = rgbOf(window->getPalette().text());
  Rgb const band = rgbOf(window->getPalette().selection());
  // Wide at its base inside the window, a point at the band's outer edge.
  EXPECT_TRUE(near(at(*window, XY<int>(depth - 1, 30)), text));
  EXPECT_TRUE(near(at(*window, XY<int>(depth - 1, 30 + depth - 2)), text));
  EXPECT_TRUE(near(at(*window, XY<int>(0, 30 + depth - 2)), band)) << "narrow towards the point";
  EXPECT_FALSE(near(at(*window, XY<int>(depth - 1, 30 + depth + 2)), text, 40));
  EXPECT_FALSE(near(at(*window, XY<int>(depth - 1, 30 - depth - 2)), text, 40));
}

TEST_F(TipWindowPointer, OnATopTipItRunsAlongXAndStaysWhole) {
  TipWindowBase* window = open(kRelativeBelow, 0);
  Zo::Box<int> const tip = window->getTipBox();
  int const depth = 2 * TipWindowBase::getTipDepth();
  Rgb const text = rgbOf(window->getPalette().text());
  // An offset at the very end is drawn a pointer's depth in, whole.
  EXPECT_TRUE(near(at(*window, XY<int>(depth, tip.y1 - depth)), text));
  EXPECT_TRUE(near(at(*window, XY<int>(depth, tip.y1 - 2)), text)) << "towards the point at the top edge";
  EXPECT_FALSE(near(at(*window, XY<int>(depth, tip.y1 - depth - 2)), text, 40)) << "nothing below its base";
}

} // namespace

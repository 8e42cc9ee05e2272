#include "support/WidgetTestSupport.h"

#include <zowidgets/host/drawing/Palette.h>
#include <zowidgets/host/toolkit/UifStd.h>

namespace {

struct BorderStylesTest : HeadlessScreenTest {
  // The colour a panel of the standard palette shows at a point for a border.
  Rgb edgePixel(Border const& border, XY<int> local) {
    StandardPanel* panel = openPanel(XY<int>(120, 80), XY<int>(100, 100));
    panel->setBorder(border);
    panel->update();
    Rgb const pixel = rgbOf(widgetPixel(*panel, local));
    delete panel;
    return pixel;
  }
};

TEST(BorderStyle, EachNamedStyleHasItsOwnEdgeAndTheStandardMargin) {
  int const edge = UifStd::getWidgetGap();
  EXPECT_EQ(Border::forStyle(Border::kNoBorder), Border());
  EXPECT_EQ(Border::forStyle(Border::kSquarePanelBorder), StandardPanel::getDefaultBorder());
  EXPECT_EQ(Border::forStyle(Border::kLineBorder), Border(Border::kFlat, 1, edge));
  EXPECT_EQ(Border::forStyle(Border::kMenuBorder), Border(Border::kMenu, 1, edge));
  EXPECT_EQ(Border::forStyle(Border::kDropMenuBorder), Border(Border::kDropMenu, 2, edge));
  EXPECT_EQ(Border::forStyle(Border::kCurvedPanelBorder), Border(Border::kRounded, 1, edge));
  EXPECT_EQ(Border::forStyle(Border::kDarkenedRoundedRect), Border(Border::kDarkenedRounded, 2, edge));
  for (int style = 0; style < Border::kStyleCount; ++style)
    EXPECT_EQ(Border::forStyle(style).style(), style);
}

TEST(BorderStyle, OutOfRangeStylesGiveNoBorderAndUnnamedTypesNoStyle) {
  EXPECT_EQ(Border::forStyle(-1), Border());
  EXPECT_EQ(Border::forStyle(Border::kStyleCount), Border());
  EXPECT_EQ(Border(Border::kSunken, 1, 2).style(), -1);
  EXPECT_EQ(Border(12, 1, 2).style(), -1);
  EXPECT_EQ(Border(4).style(), Border::kNoBorder) << "a margin alone draws no edge";
}

TEST(BorderStyle, TheShadowIsPartOfTheBorderValue) {
  Border shadowed = Border::forStyle(Border::kLineBorder);
  EXPECT_FALSE(shadowed.hasShadow());
  shadowed.setShadow(true);
  EXPECT_TRUE(shadowed.hasShadow());
  EXPECT_NE(shadowed, Border::forStyle(Border::kLineBorder));
  EXPECT_EQ(shadowed.left(), Border::forStyle(Border::kLineBorder).left()) << "it takes no room";
}

TEST_F(BorderStylesTest, TheNewEdgesDrawInTheirOwnColours) {
  Palette const palette;
  XY<int> const topMiddle(60, 79);
  EXPECT_EQ(edgePixel(Border::forStyle(Border::kNoBorder), topMiddle), rgbOf(palette.window()));
  EXPECT_EQ(edgePixel(Border::forStyle(Border::kDropMenuBorder), topMiddle), rgbOf(palette.selection()));
  EXPECT_TRUE(near(edgePixel(Border::forStyle(Border::kMenuBorder), topMiddle),
                   rgbOf(palette.text().mix(palette.window(), 0.5)), 2));
  EXPECT_TRUE(near(edgePixel(Border::forStyle(Border::kCurvedPanelBorder), topMiddle), rgbOf(palette.window(4)), 2));
  EXPECT_TRUE(near(edgePixel(Border::forStyle(Border::kDarkenedRoundedRect), topMiddle), rgbOf(palette.window(-6)), 2));
  // A rounded edge leaves its corner to the window behind the curve.
  EXPECT_EQ(edgePixel(Border::forStyle(Border::kCurvedPanelBorder), XY<int>(0, 79)), rgbOf(palette.window()));
}

TEST_F(BorderStylesTest, AShadowDarkensTheBottomAndRightEdgesOnly) {
  Border shadowed = Border::forStyle(Border::kNoBorder);
  shadowed.setShadow(true);
  Palette const palette;
  Rgb const window = rgbOf(palette.window());
  EXPECT_LT(edgePixel(shadowed, XY<int>(60, 0)).r, window.r);
  EXPECT_LT(edgePixel(shadowed, XY<int>(119, 40)).r, window.r);
  EXPECT_EQ(edgePixel(shadowed, XY<int>(0, 40)), window);
  EXPECT_EQ(edgePixel(shadowed, XY<int>(60, 79)), window);
  EXPECT_EQ(edgePixel(shadowed, XY<int>(60, 40)), window);
}

} // namespace

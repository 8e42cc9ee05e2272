#include "EditorTestSupport.h"

#include <zowidgets/editor/CornerHighlight.h>
#include <zowidgets/editor/RibbonWidget.h>
#include <zowidgets/editor/SimpleTimeMarker.h>
#include <zowidgets/host/base/ResourceStrings.h>
#include <zowidgets/host/drawing/Colour.h>

namespace {

using namespace HeadlessInput;

using SmallEditorWidgetsTest = EditorWidgetTest;

TEST_F(SmallEditorWidgetsTest, TheTimeMarkerIsARedCoreWithDarkEdges) {
  openHeader();
  auto* marker = add<SimpleTimeMarker>(GlobCreationInfo(SimpleTimeMarker::calcWidth(), 40), Glob::UserTopLeft(20, 5));
  pump();
  EXPECT_STREQ(marker->idstring(), "SimpleTimeMarker");
  EXPECT_EQ(SimpleTimeMarker::calcWidth(), 3);
  EXPECT_EQ(rgbOf(widgetPixel(*marker, XY<int>(1, 20))), (Rgb{255, 0, 0}));
  Rgb const edge = rgbOf(Colour::mix(Colour(1.0, 0.0, 0.0), Colour(), 0.3));
  EXPECT_TRUE(near(rgbOf(widgetPixel(*marker, XY<int>(0, 20))), edge));
  EXPECT_TRUE(near(rgbOf(widgetPixel(*marker, XY<int>(2, 0))), edge));
}

TEST_F(SmallEditorWidgetsTest, TheTimeMarkerTakesItsColourFromItsPalette) {
  openHeader();
  auto* marker = add<SimpleTimeMarker>(GlobCreationInfo(3, 40), Glob::UserTopLeft(20, 5));
  marker->setPalette(makeWindowPalette(marker->getPalette(), Colour(0.0, 1.0, 0.0)));
  pump();
  EXPECT_EQ(rgbOf(widgetPixel(*marker, XY<int>(1, 20))), (Rgb{0, 255, 0}));
}

TEST_F(SmallEditorWidgetsTest, TheCornerFlagIsATriangleInTheTopLeftCorner) {
  openHeader();
  XY<int> const size = CornerHighlight::calcSize();
  EXPECT_EQ(size, XY<int>(UifStd::getRowHeight() / 2, UifStd::getRowHeight() / 2));
  Colour const flag(1.0, 0.8, 0.0);
  auto* corner = add<CornerHighlight>(CornerHighlight::InitArgs(size, flag), Glob::UserTopLeft(20, 5));
  pump();
  EXPECT_EQ(corner->getColour(), flag);
  int const w = size.x, h = size.y;
  EXPECT_EQ(rgbOf(widgetPixel(*corner, XY<int>(0, h - 1))), rgbOf(flag));     // the corner
  EXPECT_EQ(rgbOf(widgetPixel(*corner, XY<int>(w - 1, h - 1))), rgbOf(flag)); // the top row is full
  EXPECT_EQ(rgbOf(widgetPixel(*corner, XY<int>(0, 0))), rgbOf(flag));         // and so is the left column
  // The row i below the top ends at w - i: the diagonal.
  EXPECT_EQ(rgbOf(widgetPixel(*corner, XY<int>(w - 3, h - 3))), rgbOf(flag));
  EXPECT_NE(rgbOf(widgetPixel(*corner, XY<int>(w - 2, h - 3))), rgbOf(flag));
  EXPECT_NE(rgbOf(widgetPixel(*corner, XY<int>(w - 1, 0))), rgbOf(flag));
  corner->setColour(Colour(0.0, 0.5, 1.0));
  pump();
  EXPECT_EQ(rgbOf(widgetPixel(*corner, XY<int>(0, h - 1))), rgbOf(Colour(0.0, 0.5, 1.0)));
}

TEST_F(SmallEditorWidgetsTest, ANarrowAreaHalvesTheRibbonTruncatingTowardsZero) {
  int const rows5 = 5 * UifStd::getRowHeight();
  EXPECT_EQ(RibbonWidget::calcRibbonSize(XY<int>(rows5, 61)), XY<int>(3 * UifStd::getWidgetGap(), 61));
  EXPECT_EQ(RibbonWidget::calcRibbonSize(XY<int>(rows5 - 1, 61)), XY<int>(3 * UifStd::getWidgetGap() / 2, 30));
  UifStd::setScale(1.5); // a widget gap of 6: a width of 18, halved to 9
  EXPECT_EQ(RibbonWidget::calcRibbonSize(XY<int>(10, 7)), XY<int>(9, 3));
}

TEST_F(SmallEditorWidgetsTest, TheRibbonSizeForAHeightDependsOnTheAppearance) {
  EXPECT_EQ(RibbonWidget::calcRibbonSize(static_cast<unsigned short>(30)), XY<int>(15, 25));
  UifStd::getTheme().set(RibbonWidget::kThemeKey, RibbonWidget::kSquare);
  EXPECT_EQ(RibbonWidget::calcRibbonSize(static_cast<unsigned short>(30)), XY<int>(15, 30));
}

TEST_F(SmallEditorWidgetsTest, TheRibbonAreaSitsInsetFromTheTopLeft) {
  Zo::Box<int> const thumbnail(100, 50, 300, 200); // wide: no halving
  Zo::Box<int> const area = RibbonWidget::calcRibbonArea(thumbnail, 5);
  int const w = 3 * UifStd::getWidgetGap();
  EXPECT_EQ(area.x0, 100 + 5 + w / 3);
  EXPECT_EQ(area.y1, 200 - 5);
  EXPECT_EQ(area.width(), w);
  EXPECT_EQ(area.height(), 150);
}

TEST_F(SmallEditorWidgetsTest, WithTheThemeKeyAbsentTheAppearanceIsRibbons) {
  ASSERT_FALSE(UifStd::getTheme().has(RibbonWidget::kThemeKey));
  EXPECT_EQ(RibbonWidget::getDefaultAppearance(), RibbonWidget::kRibbon);
  UifStd::getTheme().set(RibbonWidget::kThemeKey, RibbonWidget::kDot);
  EXPECT_EQ(RibbonWidget::getDefaultAppearance(), RibbonWidget::kDot);
}

TEST_F(SmallEditorWidgetsTest, TheThemeParameterOffersThreeAppearances) {
  GenericParam::ChoiceParam const& param = RibbonWidget::registerUIThemeParams();
  EXPECT_EQ(param.getID().str(), "assetindicators");
  EXPECT_EQ(param.getValueType().str(), "int");
  EXPECT_EQ(param.getLegend().getString().str(), resourceStrW(13597).str());
  ASSERT_EQ(param.getChoices().size(), 3u);
  EXPECT_EQ(param.getChoices()[0].value, 0u);
  EXPECT_EQ(param.getChoices()[0].label.getString().str(), L"Squares");
  EXPECT_EQ(param.getChoices()[1].value, 1u);
  EXPECT_EQ(param.getChoices()[1].label.getString().str(), L"Ribbons");
  EXPECT_EQ(param.getChoices()[2].value, 2u);
  EXPECT_EQ(param.getChoices()[2].label.getString().str(), L"Dots");
  EXPECT_TRUE(UifStd::getTheme().has(RibbonWidget::kThemeKey));
  EXPECT_EQ(RibbonWidget::getDefaultAppearance(), RibbonWidget::kRibbon);
  UifStd::getTheme().set(RibbonWidget::kThemeKey, RibbonWidget::kDot);
  RibbonWidget::registerUIThemeParams();
  EXPECT_EQ(RibbonWidget::getDefaultAppearance(), RibbonWidget::kDot) << "a value the theme has is kept";
}

class RibbonTest : public EditorWidgetTest {
protected:
  void SetUp() override {
    EditorWidgetTest::SetUp();
    openHeader();
  }
  RibbonWidget* addRibbon(bool selected = false) {
    return add<RibbonWidget>(RibbonWidget::InitArgs(XY<int>(12, 20), colour, selected), Glob::UserTopLeft(30, 10));
  }
  Colour const colour = Colour(0.2, 0.6, 1.0);
};

TEST_F(RibbonTest, ARibbonShadesDownwardsAndEndsInASwallowTail) {
  RibbonWidget* ribbon = addRibbon();
  pump();
  EXPECT_STREQ(ribbon->idstring(), "RibbonWidget");
  int const R = std::min(20, UifStd::getRowHeight()); // 20
  Colour const c0 = scale(colour, 0.7);
  // Row i below the top is mix(c0, colour, i / R).
  EXPECT_TRUE(near(rgbOf(widgetPixel(*ribbon, XY<int>(0, 19))), rgbOf(colour)));
  EXPECT_TRUE(near(rgbOf(widgetPixel(*ribbon, XY<int>(6, 10))), rgbOf(Colour::mix(c0, colour, 9.0 / R))));
  // The last W / 2 = 6 rows have a notch in the middle: the bottom row only
  // has its outer pixels.
  EXPECT_TRUE(near(rgbOf(widgetPixel(*ribbon, XY<int>(0, 0))), rgbOf(Colour::mix(c0, colour, 19.0 / R))));
  Rgb const under = rgbOf(header->getPalette().window());
  EXPECT_TRUE(near(rgbOf(widgetPixel(*ribbon, XY<int>(6, 0))), under));
  EXPECT_TRUE(near(rgbOf(widgetPixel(*ribbon, XY<int>(5, 1))), under));
  EXPECT_FALSE(near(rgbOf(widgetPixel(*ribbon, XY<int>(5, 7))), under));
}

TEST_F(RibbonTest, ASelectedRibbonHasALightBandUnderItsTopEdge) {
  RibbonWidget* ribbon = addRibbon(true);
  pump();
  Rgb const band = rgbOf(Colour::mix(Colour(1.0, 1.0, 1.0), colour, 0.8));
  EXPECT_TRUE(near(rgbOf(widgetPixel(*ribbon, XY<int>(4, 17))), band));
  EXPECT_TRUE(near(rgbOf(widgetPixel(*ribbon, XY<int>(4, 18))), band));
  EXPECT_FALSE(near(rgbOf(widgetPixel(*ribbon, XY<int>(4, 19))), band));
  ribbon->setSelected(false);
  pump();
  EXPECT_FALSE(near(rgbOf(widgetPixel(*ribbon, XY<int>(4, 18))), band));
}

TEST_F(RibbonTest, SquaresAndDotsSitCentredInTheBox) {
  UifStd::getTheme().set(RibbonWidget::kThemeKey, RibbonWidget::kSquare);
  RibbonWidget* ribbon = addRibbon();
  pump();
  EXPECT_TRUE(near(rgbOf(widgetPixel(*ribbon, XY<int>(6, 10))), rgbOf(colour)));
  Rgb const under = rgbOf(header->getPalette().window());
  EXPECT_TRUE(near(rgbOf(widgetPixel(*ribbon, XY<int>(6, 19))), under)) << "nothing at the top";
  UifStd::getTheme().set(RibbonWidget::kThemeKey, RibbonWidget::kDot);
  ribbon->invalidate();
  pump();
  EXPECT_TRUE(near(rgbOf(widgetPixel(*ribbon, XY<int>(6, 10))), rgbOf(colour), 2));
  EXPECT_TRUE(near(rgbOf(widgetPixel(*ribbon, XY<int>(1, 1))), under));
}

// The ribbon takes no input: a drag over it reaches the widget beneath.
TEST_F(RibbonTest, ADragOverARibbonGoesToTheWidgetBeneath) {
  struct Thumbnail : Glob {
    using Glob::Glob;
    int react(Event const& event) override {
      if (event.type == Event::kMouseDown || event.type == Event::kMouseUp)
        ++presses;
      return event.isMouse() ? 1 : 0;
    }
    int presses = 0;
  };
  auto* thumbnail = static_cast<Thumbnail*>(
      header->addChild(new Thumbnail(GlobCreationInfo(XY<int>(80, 60))), Glob::UserTopLeft(20, 0)));
  RibbonWidget::InitArgs args(XY<int>(12, 20), colour);
  args.setParent(thumbnail);
  auto* ribbon = static_cast<RibbonWidget*>(thumbnail->addChild(new RibbonWidget(args), Glob::UserTopLeft(10, 0)));
  XY<int> const on = pointOn(*ribbon, XY<int>(6, 15));
  drag(on, XY<int>(on.x + 30, on.y - 20));
  EXPECT_EQ(thumbnail->presses, 2);
  EXPECT_EQ(ribbon->getColour(), colour);
  EXPECT_FALSE(ribbon->isSelected());
}

} // namespace

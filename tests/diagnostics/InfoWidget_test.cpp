#include "diagnostics/ProbeTestSupport.h"

#include <zowidgets/host/drawing/Palette.h>
#include <zowidgets/host/toolkit/UifStd.h>
#include <zowidgets/host/widgets/popups/SelectionRectangle.h>

namespace {

struct InfoWidgetTest : InspectorTest {
  GlobInspector* inspector = nullptr;

  // An inspector on the swatch, out of the panel's way.
  void inspectSwatch() {
    inspector = openInspectorAt(swatchCentreOnScreen(*swatch));
    chordAt(titlePoint(*inspector));
    ASSERT_EQ(inspector->getTarget(), swatch);
    dragHotSpotTo(*inspector, XY<int>(450, 330));
  }
  GlobInspector::InfoWidget& swatchRow() const { return *inspector->getInfoWidgets().at(0); }
  GlobInspector::InfoWidget& panelRow() const { return *inspector->getInfoWidgets().at(1); }
  int countSelectionRectangles() const {
    int count = 0;
    for (Glob* child : panel->getChildren())
      count += is_good_glob_ptr(child, "SelectionRectangle") ? 1 : 0;
    return count;
  }
};

TEST_F(InfoWidgetTest, ARowIsThreeRowsHighAndTellsTypeSizePositionAndBorder) {
  inspectSwatch();
  EXPECT_EQ(GlobInspector::InfoWidget::calcHeight(), 3 * UifStd::getRowHeight());
  EXPECT_EQ(swatchRow().height(), GlobInspector::InfoWidget::calcHeight());
  // Placed at (40, 30) inside the panel's border.
  int const edge = panel->getBorder().left();
  ASSERT_EQ(swatch->getPosition(), kSwatchAt + XY<int>(edge, edge));
  std::wstring const at = std::to_wstring(40 + edge) + L", " + std::to_wstring(30 + edge);
  EXPECT_EQ(rowText(swatchRow()), (std::vector<std::wstring>{L"Type Swatch", L"Size 60 x 40|Position " + at,
                                                             L"NoBorder|Shadow No|Visible Yes"}));
  EXPECT_EQ(rowText(panelRow()),
            (std::vector<std::wstring>{L"Type StandardPanel", L"Size 300 x 200|Position 100, 100 (heavy)",
                                       L"SquarePanelBorder|Shadow No|Title Yes|Visible Yes"}));
  EXPECT_GE(swatchRow().width(), GlobInspector::InfoWidget::calcWidth(*panel)) << "room for the longest row";
}

TEST_F(InfoWidgetTest, TheRowsAreDrawnAgainWhenTheInspectedWindowMoves) {
  inspectSwatch();
  GlobManager::redisplay();
  int const paints = inspector->canvas()->paintCount();
  panel->canvas()->move(XY<int>(60, 80));
  GlobManager::redisplay();
  EXPECT_GT(inspector->canvas()->paintCount(), paints);
  EXPECT_EQ(rowText(panelRow())[1], L"Size 300 x 200|Position 60, 80 (heavy)");
}

TEST_F(InfoWidgetTest, TheMenuOffersBorderShadowStandardWidgetsAndVisibility) {
  inspectSwatch();
  openMenuOn(panelRow());
  EXPECT_EQ(menuTexts(panelRow()), (std::vector<std::wstring>{L"Border",
                                                              L"NoBorder",
                                                              L"MenuBorder",
                                                              L"DropMenuBorder",
                                                              L"CurvedPanelBorder",
                                                              L"SquarePanelBorder",
                                                              L"DarkenedRoundedRect",
                                                              L"LineBorder",
                                                              L"Shadow",
                                                              L"Yes",
                                                              L"No",
                                                              L"Widgets",
                                                              L"Title",
                                                              L"Poot",
                                                              L"Pin",
                                                              L"Cogs",
                                                              L"DoIt",
                                                              L"Visible",
                                                              L"Yes",
                                                              L"No"}));
  HeadlessInput::key(kKeyEscape);
  pump();
  openMenuOn(swatchRow());
  std::vector<std::wstring> const plain = menuTexts(swatchRow());
  EXPECT_EQ(std::count(plain.begin(), plain.end(), L"Title"), 0) << "only a panel has standard widgets";
  EXPECT_EQ(plain.back(), L"No");
}

TEST_F(InfoWidgetTest, ChoosingABorderChangesThePanelAtOnceAndTheRowSaysSo) {
  inspectSwatch();
  Rgb const raisedTop = rgbOf(widgetPixel(*panel, XY<int>(150, 199)));
  choose(swatchRow(), L"Border", L"LineBorder");
  EXPECT_EQ(panel->getBorder().style(), Border::kLineBorder) << "the swatch's window, a panel, takes the border";
  EXPECT_EQ(swatch->getBorder().style(), Border::kNoBorder);
  EXPECT_TRUE(near(rgbOf(widgetPixel(*panel, XY<int>(150, 199))), rgbOf(panel->getPalette().window(-2))));
  EXPECT_NE(rgbOf(widgetPixel(*panel, XY<int>(150, 199))), raisedTop);
  EXPECT_EQ(rowText(panelRow())[2], L"LineBorder|Shadow No|Title Yes|Visible Yes");

  choose(panelRow(), L"Border", L"NoBorder");
  EXPECT_EQ(panel->getBorder().left(), 0);
  EXPECT_EQ(panel->getUserArea().x0, 0) << "laid out again without margins";
  EXPECT_EQ(rgbOf(widgetPixel(*panel, XY<int>(150, 0))), rgbOf(panel->getPalette().window()));
}

TEST_F(InfoWidgetTest, ShadowYesDarkensTheBottomAndRightEdgesAndNoTakesItAway) {
  inspectSwatch();
  XY<int> const bottomEdge(150, 0), rightEdge(299, 100), middle(150, 100);
  Rgb const bottomBefore = rgbOf(widgetPixel(*panel, bottomEdge));
  Rgb const rightBefore = rgbOf(widgetPixel(*panel, rightEdge));
  Rgb const middleBefore = rgbOf(widgetPixel(*panel, middle));
  choose(panelRow(), L"Shadow", L"Yes");
  EXPECT_TRUE(panel->getBorder().hasShadow());
  EXPECT_LT(rgbOf(widgetPixel(*panel, bottomEdge)).r, bottomBefore.r);
  EXPECT_LT(rgbOf(widgetPixel(*panel, rightEdge)).g, rightBefore.g);
  EXPECT_EQ(rgbOf(widgetPixel(*panel, middle)), middleBefore);
  EXPECT_EQ(rowText(panelRow())[2], L"SquarePanelBorder|Shadow Yes|Title Yes|Visible Yes");
  choose(panelRow(), L"Border", L"CurvedPanelBorder");
  EXPECT_TRUE(panel->getBorder().hasShadow()) << "a new border keeps the shadow";
  choose(panelRow(), L"Shadow", L"No");
  choose(panelRow(), L"Border", L"SquarePanelBorder");
  EXPECT_EQ(rgbOf(widgetPixel(*panel, bottomEdge)), bottomBefore);
  EXPECT_EQ(rgbOf(widgetPixel(*panel, rightEdge)), rightBefore);
}

TEST_F(InfoWidgetTest, TheTitleToggleTakesThePanelsTitleBarAwayAndBack) {
  inspectSwatch();
  Zo::Box<int> const bar = panel->getTitleArea();
  XY<int> const inBar((bar.x0 + bar.x1) / 2, bar.y0 + 1);
  Rgb const barColour = rgbOf(widgetPixel(*panel, inBar));
  choose(panelRow(), L"Widgets", L"Title");
  EXPECT_EQ(panel->getStandardWidgets() & StandardPanel::kTitle, 0u);
  EXPECT_TRUE(panel->getTitleArea().empty());
  EXPECT_NE(rgbOf(widgetPixel(*panel, inBar)), barColour);
  EXPECT_EQ(rowText(panelRow())[2], L"SquarePanelBorder|Shadow No|Title No|Visible Yes");
  choose(panelRow(), L"Widgets", L"Poot");
  EXPECT_NE(panel->getStandardWidgets() & StandardPanel::kPoot, 0u);
  choose(panelRow(), L"Widgets", L"Title");
  EXPECT_EQ(rgbOf(widgetPixel(*panel, inBar)), barColour);
}

TEST_F(InfoWidgetTest, VisibleNoHidesTheWidgetAndYesShowsItAgain) {
  inspectSwatch();
  XY<int> const inSwatch = swatch->getPosition() + XY<int>(30, 20);
  Rgb const red = rgbOf(widgetPixel(*panel, inSwatch));
  choose(swatchRow(), L"Visible", L"No");
  EXPECT_FALSE(swatch->isVisible());
  EXPECT_EQ(rgbOf(widgetPixel(*panel, inSwatch)), rgbOf(panel->getPalette().window()));
  EXPECT_EQ(rowText(swatchRow())[2], L"NoBorder|Shadow No|Visible No");
  choose(swatchRow(), L"Visible", L"Yes");
  EXPECT_TRUE(swatch->isVisible());
  EXPECT_EQ(rgbOf(widgetPixel(*panel, inSwatch)), red);
}

TEST_F(InfoWidgetTest, ToggledHighlightRestoresTheTargetsPaletteExactly) {
  inspectSwatch();
  Palette own = panel->getPalette();
  own.setWindow(Colour(0.2, 0.3, 0.25));
  panel->setPalette(own);
  pump();
  Zo::Image::Surface const before = screen().grab(panel->canvas()->screenBox());
  ASSERT_FALSE(swatch->hasOwnPalette());

  for (GlobInspector::InfoWidget* row : {&swatchRow(), &panelRow()}) {
    Glob* target = row->getTarget();
    bool const hadOwn = target->hasOwnPalette();
    Palette const saved = target->getPalette();
    HeadlessInput::clickOn(*row);
    pump();
    EXPECT_TRUE(row->isHighlighted());
    EXPECT_EQ(countSelectionRectangles(), 1);
    EXPECT_NE(target->getPalette(), saved);
    HeadlessInput::clickOn(*row);
    pump();
    EXPECT_FALSE(row->isHighlighted());
    EXPECT_EQ(countSelectionRectangles(), 0);
    EXPECT_EQ(target->getPalette(), saved);
    EXPECT_EQ(target->hasOwnPalette(), hadOwn) << "an inherited palette is inherited again";
  }
  panel->update();
  Zo::Image::Surface const after = screen().grab(panel->canvas()->screenBox());
  int differing = 0;
  for (int row = 0; row < before.height(); ++row)
    for (int x = 0; x < before.width(); ++x)
      differing += before.pixel(x, row) != after.pixel(x, row) ? 1 : 0;
  EXPECT_EQ(differing, 0) << "the window looks as it did";
}

TEST_F(InfoWidgetTest, TheHighlightCoversTheTargetHalfTransparently) {
  inspectSwatch();
  XY<int> const inSwatch = swatch->getPosition() + XY<int>(30, 20);
  Rgb const plain = rgbOf(widgetPixel(*panel, inSwatch));
  HeadlessInput::clickOn(swatchRow());
  pump();
  Glob* band = panel->getChildren().back();
  ASSERT_TRUE(is_good_glob_ptr(band, "SelectionRectangle"));
  EXPECT_EQ(band->screenPosition(), swatch->screenPosition());
  EXPECT_EQ(band->getSize(), swatch->getSize());
  EXPECT_DOUBLE_EQ(static_cast<SelectionRectangle*>(band)->getOpacity(), 0.5);
  EXPECT_NE(rgbOf(widgetPixel(*panel, inSwatch)), plain);
  EXPECT_EQ(Canvas::widgetAtScreenPoint(HeadlessInput::pointOn(*swatch)), swatch) << "clicks still reach it";
}

TEST_F(InfoWidgetTest, AHighlightGoesWithItsRowAndATargetThatDiedLeavesNothingBehind) {
  inspectSwatch();
  HeadlessInput::clickOn(panelRow());
  pump();
  ASSERT_EQ(countSelectionRectangles(), 1);
  inspector->setTarget(nullptr);
  pump();
  EXPECT_EQ(countSelectionRectangles(), 0);
  EXPECT_FALSE(panel->hasOwnPalette());

  chordAt(titlePoint(*inspector)); // the hot spot is over empty screen
  inspector->setTarget(swatch);
  inspector->fitToTarget();
  HeadlessInput::clickOn(swatchRow());
  pump();
  ASSERT_EQ(countSelectionRectangles(), 1);
  panel->removeWidget(swatch);
  inspector->invalidate();
  inspector->update();
  pump();
  EXPECT_TRUE(inspector->getInfoWidgets().empty());
  EXPECT_EQ(countSelectionRectangles(), 0);
}

} // namespace

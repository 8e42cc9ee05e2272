#include "support/WidgetTestSupport.h"

#include <zowidgets/host/drawing/CanvasRenderer.h>
#include <zowidgets/host/drawing/Palette.h>

namespace {

using GlobExaminationTest = HeadlessScreenTest;

TEST_F(GlobExaminationTest, OnlyAWidgetWithAWindowOfItsOwnIsHeavy) {
  StandardPanel* panel = openPanel(XY<int>(100, 80));
  Glob* child = panel->addChild(new Glob(GlobCreationInfo(XY<int>(10, 10))), Glob::Centre(0, 0));
  EXPECT_FALSE(panel->isLightweight());
  EXPECT_TRUE(child->isLightweight());
  Glob unrealized(GlobCreationInfo(XY<int>(10, 10)));
  EXPECT_TRUE(unrealized.isLightweight()) << "no window yet";
}

TEST_F(GlobExaminationTest, AWidgetCanGoBackToItsParentsPalette) {
  StandardPanel* panel = openPanel(XY<int>(100, 80));
  Glob* child = panel->addChild(new Glob(GlobCreationInfo(XY<int>(10, 10))), Glob::Centre(0, 0));
  EXPECT_FALSE(child->hasOwnPalette());
  Palette own;
  own.setWindow(Colour(0.9, 0.1, 0.1));
  child->setPalette(own);
  EXPECT_TRUE(child->hasOwnPalette());
  child->inheritPalette();
  EXPECT_FALSE(child->hasOwnPalette());
  EXPECT_EQ(child->getPalette(), panel->getPalette());
  Palette parents;
  parents.setWindow(Colour(0.1, 0.1, 0.9));
  panel->setPalette(parents);
  EXPECT_EQ(child->getPalette().window(), Colour(0.1, 0.1, 0.9)) << "it follows the parent again";
}

TEST_F(GlobExaminationTest, TheWidgetAtAScreenPointIsFoundInTheFrontWindowOrLookingThroughOne) {
  StandardPanel* back = openPanel(XY<int>(100, 80), XY<int>(100, 100));
  Glob* inBack = back->addChild(new Glob(GlobCreationInfo(XY<int>(40, 40))), Glob::BottomLeft(10, 10));
  StandardPanel* front = openPanel(XY<int>(100, 80), XY<int>(120, 100));
  XY<int> const point(135, 115); // in both windows, over inBack
  EXPECT_EQ(Canvas::widgetAtScreenPoint(point), front);
  EXPECT_EQ(Canvas::widgetAtScreenPoint(point, front->canvas()), inBack);
  EXPECT_EQ(Canvas::widgetAtScreenPoint(XY<int>(105, 175), front->canvas()), back);
  EXPECT_EQ(Canvas::widgetAtScreenPoint(XY<int>(900, 700)), nullptr);
  inBack->setVisible(false);
  EXPECT_EQ(Canvas::widgetAtScreenPoint(point, front->canvas()), back) << "hidden widgets are not found";
}

} // namespace

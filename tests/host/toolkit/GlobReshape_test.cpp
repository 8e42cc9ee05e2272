#include "support/Swatch.h"
#include "support/WidgetTestSupport.h"

#include <zowidgets/host/drawing/CanvasRenderer.h>
#include <zowidgets/host/drawing/GraphicPrimitives.h>
#include <zowidgets/host/toolkit/StateSaver.h>
#include <zowidgets/host/toolkit/UifStd.h>

namespace {

Colour const red(1, 0, 0), blue(0, 0, 1);

using GlobReshapeTest = HeadlessScreenTest;

TEST_F(GlobReshapeTest, ReshapePlacesTheChildrenAgainAndRepaints) {
  StandardPanel* panel = openPanel(XY<int>(200, 100));
  auto* swatch = static_cast<Swatch*>(panel->addChild(new Swatch(XY<int>(20, 20), red), Glob::UserTopRight(0, 0)));
  XY<int> const placed = swatch->getPosition();
  int const paints = swatch->paintCount();
  {
    Drawable::Suspender holdRedraws;
    swatch->setColourQuietly(blue);
    panel->reshape();
    EXPECT_EQ(swatch->paintCount(), paints) << "held until redraws are released";
  }
  EXPECT_EQ(swatch->getPosition(), placed);
  EXPECT_GT(swatch->paintCount(), paints);
  EXPECT_EQ(rgbOf(widgetPixel(*swatch, XY<int>(5, 5))), rgbOf(blue));
}

TEST_F(GlobReshapeTest, ReshapeAndDrawWithTheUnsetPositionKeepsTheWindowWhereItIs) {
  StandardPanel* panel = openPanel(XY<int>(200, 100), XY<int>(300, 200));
  auto* swatch = static_cast<Swatch*>(panel->addChild(new Swatch(XY<int>(20, 20), red), Glob::UserTopLeft(0, 0)));
  Drawable::Suspender holdRedraws; // painting happens anyway: it is asked for
  swatch->setColourQuietly(blue);
  panel->reshapeAndDraw(XY<int>(-1234, -1234));
  EXPECT_EQ(panel->screenPosition(), XY<int>(300, 200));
  EXPECT_EQ(rgbOf(screenPixel(swatch->screenPosition() + XY<int>(5, 5))), rgbOf(blue));
}

TEST_F(GlobReshapeTest, ReshapeAndDrawMovesATopLevelWindowOnTheScreen) {
  StandardPanel* panel = openPanel(XY<int>(200, 100), XY<int>(300, 200));
  std::vector<int> moves;
  auto guard =
      GlobManager::notifier().addListener(Zo::Ptr<iCallbackBase<int, GlobManagerEvent>>(
                                              new FunctionCallback<GlobManagerEvent>([&](GlobManagerEvent const& e) {
                                                if (e.kind == GlobManagerEvent::kMoved && e.glob == panel)
                                                  moves.push_back(e.kind);
                                                return 0;
                                              })),
                                          NotifyMsgTypeDictionary::instance().anyType());
  panel->reshapeAndDraw(XY<int>(50, 60));
  EXPECT_EQ(panel->screenPosition(), XY<int>(50, 60));
  EXPECT_EQ(moves.size(), 1u);
  EXPECT_EQ(rgbOf(screenPixel(XY<int>(150, 110))), rgbOf(panel->getPalette().window()));
  EXPECT_EQ(rgbOf(screenPixel(XY<int>(450, 250))), rgbOf(Colour(0.2, 0.22, 0.25))) << "the desktop where it was";
}

TEST_F(GlobReshapeTest, ReshapeAndDrawMovesAChildWithinItsParent) {
  StandardPanel* panel = openPanel(XY<int>(200, 100));
  auto* swatch = static_cast<Swatch*>(panel->addChild(new Swatch(XY<int>(20, 20), red), Glob::UserTopLeft(0, 0)));
  swatch->reshapeAndDraw(XY<int>(40, 30));
  EXPECT_EQ(swatch->getPosition(), XY<int>(40, 30));
  EXPECT_EQ(rgbOf(screenPixel(panel->screenPosition() + XY<int>(45, 35))), rgbOf(red));
  swatch->reshapeAndDraw(XY<int>::unset());
  EXPECT_EQ(swatch->getPosition(), XY<int>(40, 30)) << "the unset position keeps a child where it is too";
}

TEST_F(GlobReshapeTest, MakeCanvasCurrentNamesTheWidgetsWindowUntilItGoes) {
  StandardPanel* first = openPanel(XY<int>(100, 100), XY<int>(10, 10));
  StandardPanel* second = openPanel(XY<int>(100, 100), XY<int>(300, 10));
  auto* child = first->addChild(new Swatch(XY<int>(10, 10), red), Glob::UserTopLeft(0, 0));
  EXPECT_EQ(child->makeCanvasCurrent(), first->canvas());
  EXPECT_EQ(Glib::currentCanvas(), first->canvas());
  EXPECT_EQ(second->makeCanvasCurrent(), second->canvas());
  EXPECT_EQ(Glib::currentCanvas(), second->canvas());
  delete second;
  EXPECT_EQ(Glib::currentCanvas(), nullptr) << "a window that went is no longer current";
  Swatch unrealized(XY<int>(5, 5), red);
  EXPECT_EQ(unrealized.makeCanvasCurrent(), nullptr);
  EXPECT_EQ(Glib::currentCanvas(), nullptr);
}

TEST_F(GlobReshapeTest, TheThemeOfAWidgetIsTheApplicationsTheme) {
  Swatch swatch(XY<int>(5, 5), red);
  swatch.theme().set("reshape-test-key", 3.5);
  EXPECT_EQ(&swatch.theme(), &UifStd::getTheme());
  EXPECT_EQ(UifStd::getTheme().get("reshape-test-key", 0.0), 3.5);
}

} // namespace

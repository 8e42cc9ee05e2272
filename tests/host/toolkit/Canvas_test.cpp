#include "support/Swatch.h"
#include "support/WidgetTestSupport.h"

#include <zowidgets/host/drawing/CanvasRenderer.h>
#include <zowidgets/host/drawing/GraphicPrimitives.h>
#include <zowidgets/host/drawing/Palette.h>

#include <filesystem>

namespace {

Colour const red(1, 0, 0), green(0, 1, 0), blue(0, 0, 1);

using CanvasTest = HeadlessScreenTest;

TEST_F(CanvasTest, AWindowShowsOnTheScreenWhereItWasPut) {
  StandardPanel* panel = openPanel(XY<int>(100, 50), XY<int>(10, 20));
  auto* swatch = panel->addChild(new Swatch(XY<int>(20, 10), red), Glob::BottomLeft(0, 0));
  EXPECT_EQ(rgbOf(widgetPixel(*swatch, XY<int>(0, 0))), rgbOf(red));
  EXPECT_EQ(rgbOf(widgetPixel(*swatch, XY<int>(19, 9))), rgbOf(red));
  // Bottom-up: the swatch is at the panel's bottom left, which is the screen
  // point (10 + border, 20 + border).
  int b = panel->getBorder().left();
  EXPECT_EQ(swatch->screenPosition(), XY<int>(10 + b, 20 + b));
  EXPECT_EQ(rgbOf(screenPixel(XY<int>(10 + b + 20, 20 + b))), rgbOf(panel->getPalette().window()));
  EXPECT_EQ(rgbOf(screenPixel(XY<int>(5, 5))), rgbOf(Colour(0.2, 0.22, 0.25))); // the desktop
}

TEST_F(CanvasTest, AWindowCarriesItsPanelsTitleAndTheScreenHearsItChange) {
  StandardPanel* panel = openPanel(XY<int>(100, 50), XY<int>(10, 20), StandardPanel::kTitle, UIString(L"Levels"));
  ASSERT_NE(panel->canvas(), nullptr);
  EXPECT_EQ(panel->canvas()->title(), L"Levels");
  int const changes = screen().titleChangesShown();
  panel->setTitle(UIString(L"Curves"));
  EXPECT_EQ(panel->canvas()->title(), L"Curves");
  EXPECT_EQ(screen().titleChangesShown(), changes + 1);
  // A panel inside the window is not the window.
  StandardPanel::InitArgs inner(XY<int>(40, 20));
  inner.title = UIString(L"Inner");
  inner.standardWidgets = StandardPanel::kTitle;
  auto* child = panel->createChild<StandardPanel>(inner, Glob::BottomLeft(0, 0));
  child->setTitle(UIString(L"Still inner"));
  EXPECT_EQ(panel->canvas()->title(), L"Curves");
  EXPECT_EQ(screen().titleChangesShown(), changes + 1);
}

TEST_F(CanvasTest, AWindowOfAPlainWidgetHasNoTitleOfItsOwn) {
  StandardPanel* panel = openPanel(XY<int>(100, 50));
  EXPECT_TRUE(panel->canvas()->title().empty());
  auto* swatch = panel->addChild(new Swatch(XY<int>(20, 10), red), Glob::BottomLeft(0, 0));
  EXPECT_TRUE(swatch->windowTitle().empty());
}

TEST_F(CanvasTest, AChangeRepaintsOnlyWhatChanged) {
  StandardPanel* panel = openPanel(XY<int>(200, 100));
  auto* a = static_cast<Swatch*>(panel->addChild(new Swatch(XY<int>(20, 20), red), Glob::BottomLeft(0, 0)));
  auto* b = static_cast<Swatch*>(panel->addChild(new Swatch(XY<int>(20, 20), green), Glob::BottomRight(0, 0)));
  int const aBefore = a->paintCount(), bBefore = b->paintCount();
  a->setColour(blue);
  EXPECT_EQ(a->paintCount(), aBefore + 1);
  EXPECT_EQ(b->paintCount(), bBefore); // far away: not repainted
  EXPECT_EQ(rgbOf(widgetPixel(*a, XY<int>(5, 5))), rgbOf(blue));
}

// A window taller than the screen, its top on the screen: a swatch at its
// bottom lies below the screen's edge, one at its top on the screen.
struct TallWindow {
  StandardPanel* panel;
  Swatch* bottom;
  Swatch* top;
};
TallWindow openTallWindow(int screenHeight) {
  StandardPanel::InitArgs args(XY<int>(200, screenHeight + 400));
  args.screenPosition = XY<int>(100, 0);
  auto* panel = new StandardPanel(args);
  auto* bottom = static_cast<Swatch*>(panel->addChild(new Swatch(XY<int>(20, 20), red), Glob::BottomLeft(0, 0)));
  auto* top = static_cast<Swatch*>(panel->addChild(new Swatch(XY<int>(20, 20), green), Glob::TopLeft(0, 0)));
  GlobManager::realize(panel);
  return {panel, bottom, top};
}

TEST_F(CanvasTest, OnlyWhatTheScreenShowsIsPaintedAndTheRestWhenItComesIntoView) {
  int const screenHeight = screen().screenSize().y;
  TallWindow window = openTallWindow(screenHeight);
  pump();
  Canvas* canvas = window.panel->canvas();
  ASSERT_LT(canvas->getPosition().y + window.bottom->getY() + window.bottom->height(), 0) << "below the screen";
  EXPECT_EQ(canvas->getPosition().y + canvas->getSize().y, screenHeight) << "its top on the screen";
  EXPECT_GT(window.top->paintCount(), 0);
  EXPECT_EQ(window.bottom->paintCount(), 0) << "nothing below the screen's edge was painted";
  EXPECT_FALSE(canvas->pendingDamage().empty()) << "it waits";
  EXPECT_EQ(canvas->shownArea(), Zo::Box<int>(0, -canvas->getPosition().y, 200, canvas->getSize().y));

  // Moved up by its user, its bottom comes into view, painted.
  canvas->move(XY<int>(100, 0));
  EXPECT_EQ(window.bottom->paintCount(), 1);
  EXPECT_EQ(rgbOf(widgetPixel(*window.bottom, XY<int>(5, 5))), rgbOf(red));
  EXPECT_TRUE(canvas->pendingDamage().empty() || canvas->pendingDamage().intersect(canvas->shownArea()).empty());
}

TEST_F(CanvasTest, AChangeBelowTheScreensEdgeWaitsAndTheWholePictureHoldsIt) {
  TallWindow window = openTallWindow(screen().screenSize().y);
  pump();
  int const topPaints = window.top->paintCount();
  window.bottom->setColour(blue);
  EXPECT_EQ(window.bottom->paintCount(), 0);
  EXPECT_EQ(window.top->paintCount(), topPaints) << "the change did not repaint what shows";
  // The window's picture, read whole, is painted whole first.
  Zo::Image::Surface const shot = HeadlessScreen::windowShot(*window.panel);
  EXPECT_EQ(window.bottom->paintCount(), 1);
  EXPECT_EQ(rgbOf(shot.pixel(5, shot.height() - 1 - 5)), rgbOf(blue));
  EXPECT_EQ(window.top->paintCount(), topPaints) << "and what was painted is not painted again";
  EXPECT_TRUE(window.panel->canvas()->pendingDamage().empty());
}

TEST_F(CanvasTest, RedrawsAskedForWhileHeldCollapseIntoOnePaint) {
  StandardPanel* panel = openPanel(XY<int>(200, 100));
  auto* a = static_cast<Swatch*>(panel->addChild(new Swatch(XY<int>(20, 20), red), Glob::BottomLeft(0, 0)));
  int const paintsBefore = panel->canvas()->paintCount();
  Drawable::disableRedraws();
  a->setColour(green);
  Drawable::disableRedraws(); // nested
  a->setColour(blue);
  a->setColour(red);
  Drawable::enableRedraws();
  EXPECT_EQ(panel->canvas()->paintCount(), paintsBefore); // still held by the outer bracket
  Drawable::enableRedraws();
  EXPECT_EQ(panel->canvas()->paintCount(), paintsBefore + 1);
  EXPECT_EQ(rgbOf(widgetPixel(*a, XY<int>(1, 1))), rgbOf(red));
}

// Changes a neighbour while painting itself, as a list making its rows on
// first showing does.
class NeighbourChanger : public Glob {
public:
  NeighbourChanger(XY<int> size, Swatch* neighbour) : Glob(GlobCreationInfo(size)), neighbour_(neighbour) {}
  int paintsSeen = 0;

protected:
  void draw(CanvasRenderer&) override {
    if (++paintsSeen == 1)
      neighbour_->setColour(blue);
  }

private:
  Swatch* neighbour_;
};

TEST_F(CanvasTest, DamageAddedWhilePaintingIsPaintedInAFurtherPassNotFromInsideThePaint) {
  StandardPanel* panel = openPanel(XY<int>(100, 50), XY<int>(10, 20));
  auto* swatch = static_cast<Swatch*>(panel->addChild(new Swatch(XY<int>(20, 10), red), Glob::BottomLeft(0, 0)));
  int const before = panel->canvas()->paintCount();
  auto* changer = static_cast<NeighbourChanger*>(
      panel->addChild(new NeighbourChanger(XY<int>(20, 10), swatch), Glob::RightOf(0, swatch)));
  EXPECT_EQ(changer->paintsSeen, 1) << "painted once, not again from inside its own paint";
  EXPECT_EQ(panel->canvas()->paintCount(), before + 2) << "the change it made got a pass of its own";
  EXPECT_EQ(rgbOf(widgetPixel(*swatch, XY<int>(5, 5))), rgbOf(blue));
  EXPECT_TRUE(panel->canvas()->pendingDamage().empty());
}

TEST_F(CanvasTest, ClearPendingRedrawsForgetsThemAndUpdatePaintsNow) {
  StandardPanel* panel = openPanel(XY<int>(200, 100));
  auto* a = static_cast<Swatch*>(panel->addChild(new Swatch(XY<int>(20, 20), red), Glob::BottomLeft(0, 0)));
  {
    Drawable::Suspender hold;
    a->setColour(green);
    a->clearPendingRedraws();
  }
  EXPECT_EQ(rgbOf(HeadlessScreen::windowShot(*panel).pixel(a->getX() + 1, panel->height() - a->getY() - 2)),
            rgbOf(red));
  {
    Drawable::Suspender hold;
    a->setColour(blue);
    a->update();
    EXPECT_EQ(rgbOf(HeadlessScreen::windowShot(*panel).pixel(a->getX() + 1, panel->height() - a->getY() - 2)),
              rgbOf(blue));
  }
}

TEST_F(CanvasTest, HiddenWidgetsAreNotDrawnAndTheirAreaIsRepainted) {
  StandardPanel* panel = openPanel(XY<int>(200, 100));
  auto* a = panel->addChild(new Swatch(XY<int>(20, 20), red), Glob::BottomLeft(0, 0));
  a->setVisible(false);
  EXPECT_EQ(rgbOf(widgetPixel(*a, XY<int>(5, 5))), rgbOf(panel->getPalette().window()));
}

TEST_F(CanvasTest, PopToTopChangesWhichWindowIsSeen) {
  StandardPanel* back = openPanel(XY<int>(100, 100), XY<int>(50, 50));
  back->addChild(new Swatch(XY<int>(100, 100), red), Glob::BottomLeft(0, 0));
  StandardPanel* front = openPanel(XY<int>(100, 100), XY<int>(80, 80));
  front->addChild(new Swatch(XY<int>(100, 100), blue), Glob::BottomLeft(0, 0));
  EXPECT_EQ(rgbOf(screenPixel(XY<int>(90, 90))), rgbOf(blue));
  back->canvas()->popToTop();
  EXPECT_EQ(rgbOf(screenPixel(XY<int>(90, 90))), rgbOf(red));
  EXPECT_EQ(GlobManager::topLevelWindows().back(), back);
}

TEST_F(CanvasTest, MovingAndResizingAWindow) {
  StandardPanel* panel = openPanel(XY<int>(100, 100), XY<int>(50, 50));
  panel->addChild(new Swatch(XY<int>(10, 10), green), Glob::TopRight(0, 0));
  panel->canvas()->move(XY<int>(400, 300));
  panel->resize(150, 120);
  EXPECT_EQ(panel->canvas()->getSize(), XY<int>(150, 120));
  int b = panel->getBorder().right();
  EXPECT_EQ(rgbOf(screenPixel(XY<int>(400 + 150 - b - 1, 300 + 120 - b - 1))), rgbOf(green));
}

TEST_F(CanvasTest, ScreenshotsAreWrittenAsPNG) {
  StandardPanel* panel = openPanel(XY<int>(64, 32), XY<int>(0, 0));
  panel->addChild(new Swatch(XY<int>(16, 16), red), Glob::Centre(0, 0));
  std::string const folder = std::filesystem::temp_directory_path().string();
  ASSERT_TRUE(HeadlessScreen::saveWindowShot(*panel, folder + "/canvas_test_window.png"));
  Zo::Image::Surface back = Zo::Image::Surface::loadPNG(folder + "/canvas_test_window.png");
  ASSERT_EQ(back.width(), 64);
  ASSERT_EQ(back.height(), 32);
  EXPECT_EQ(rgbOf(back.pixel(32, 16)), rgbOf(red));
  EXPECT_TRUE(screen().saveScreenshot(folder + "/canvas_test_screen.png"));
  EXPECT_EQ(Zo::Image::Surface::loadPNG(folder + "/canvas_test_screen.png").width(), HeadlessScreen::kDefaultWidth);
}

TEST_F(CanvasTest, TheScreenCanBeReadAnywhere) {
  StandardPanel* panel = openPanel(XY<int>(40, 40), XY<int>(1000, 500));
  panel->setBorder(Border());
  panel->addChild(new Swatch(XY<int>(40, 40), green), Glob::BottomLeft(0, 0));
  Zo::Image::Surface grab = screen().grab(Zo::Box<int>(990, 490, 1010, 510));
  // The window covers the grab's upper right quarter (screen y grows upward;
  // the grab's rows run from the top).
  EXPECT_EQ(rgbOf(grab.pixel(15, 5)), rgbOf(green));
  EXPECT_EQ(rgbOf(grab.pixel(5, 15)), rgbOf(Colour(0.2, 0.22, 0.25)));
  EXPECT_EQ(rgbOf(grab.pixel(15, 15)), rgbOf(Colour(0.2, 0.22, 0.25)));
}

TEST_F(CanvasTest, SafePositionKeepsWindowsOnTheScreen) {
  XY<int> size(300, 200);
  EXPECT_EQ(GlobManager::getSafePosForGlob(nullptr, size, XY<int>(1800, 1000)), XY<int>(1920 - 300, 1080 - 200));
  EXPECT_EQ(GlobManager::getSafePosForGlob(nullptr, size, XY<int>(-50, -20)), XY<int>(0, 0));
  EXPECT_EQ(GlobManager::getSafePosForGlob(nullptr, size, XY<int>(100, 100)), XY<int>(100, 100));
}

TEST_F(CanvasTest, RealizeUsesTheRootPositionOrCentres) {
  Glob::setupRootPos(nullptr, XY<int>(123, 45));
  auto* placed = new StandardPanel(StandardPanel::InitArgs(XY<int>(100, 100)));
  GlobManager::realize(placed);
  EXPECT_EQ(placed->canvas()->getPosition(), XY<int>(123, 45));
  auto* centred = new StandardPanel(StandardPanel::InitArgs(XY<int>(100, 100)));
  GlobManager::realize(centred);
  EXPECT_EQ(centred->canvas()->getPosition(), XY<int>((1920 - 100) / 2, (1080 - 100) / 2));
}

TEST_F(CanvasTest, TheManagerFindsWidgetsAndMakesThemByClassName) {
  StandardPanel* panel = openPanel(XY<int>(100, 100));
  Glob* named = panel->addChild(new Swatch(XY<int>(10, 10), red), Glob::Centre(0, 0));
  named->setName("swatch");
  EXPECT_EQ(GlobManager::find("swatch"), named);
  EXPECT_EQ(GlobManager::find(named->handlerStamp()), named);
  EXPECT_TRUE(is_good_glob_ptr(panel, "StandardPanel"));
  EXPECT_FALSE(is_good_glob_ptr(panel, "WidgetHost"));

  GlobManager::registerGlobType("TestSwatch",
                                [](GlobCreationInfo const& info) -> Glob* { return new Swatch(info.size, green); });
  GlobCreationInfo info(XY<int>(7, 8));
  info.className = "TestSwatch";
  std::unique_ptr<Glob> made(GlobManager::createGlob(info));
  ASSERT_TRUE(made);
  EXPECT_EQ(made->getSize(), XY<int>(7, 8));
  info.className = "NoSuchWidget";
  EXPECT_EQ(GlobManager::createGlob(info), nullptr);
}

TEST_F(CanvasTest, TheManagerTellsListenersOfRealizedAndDeletedWindows) {
  std::vector<int> kinds;
  auto listener = Zo::Ptr<iCallbackBase<int, GlobManagerEvent>>(
      new FunctionCallback<GlobManagerEvent, int>([&](GlobManagerEvent const& e) {
        if (e.kind == GlobManagerEvent::kRealized || e.kind == GlobManagerEvent::kDeleted)
          kinds.push_back(e.kind);
        return 0;
      }));
  auto guard = GlobManager::notifier().addListener(listener, NotifyMsgTypeDictionary::instance().anyType());
  StandardPanel* panel = openPanel(XY<int>(100, 100));
  GlobManager::requestDeletion(panel);
  pump();
  EXPECT_EQ(kinds, (std::vector<int>{GlobManagerEvent::kRealized, GlobManagerEvent::kDeleted}));
}

TEST_F(CanvasTest, DeletingAParentDeletesItsChildrenAndTheyStopBeingGood) {
  StandardPanel* panel = openPanel(XY<int>(100, 100));
  Glob* child = panel->addChild(new Swatch(XY<int>(10, 10), red), Glob::Centre(0, 0));
  Glob* grandchild = child->addChild(new Swatch(XY<int>(2, 2), blue), Glob::Centre(0, 0));
  delete panel;
  EXPECT_FALSE(is_good_glob_ptr(child));
  EXPECT_FALSE(is_good_glob_ptr(grandchild));
  EXPECT_TRUE(GlobManager::topLevelWindows().empty());
}

} // namespace

#include <zowidgets/host/shell/OS.h>

namespace {

TEST_F(CanvasTest, TheScreenIsReadableAsAHostImageThroughOS) {
  StandardPanel* panel = openPanel(XY<int>(30, 30), XY<int>(700, 400));
  panel->setBorder(Border());
  panel->addChild(new Swatch(XY<int>(30, 30), blue), Glob::BottomLeft(0, 0));
  Zo::Ptr<iHostImage> image = OS().media().getHostImage(Zo::Box<int>(690, 390, 740, 440));
  ASSERT_TRUE(image);
  EXPECT_EQ(image->pixels().width(), 50);
  EXPECT_EQ(rgbOf(image->pixelAt(XY<int>(700, 400))), rgbOf(blue));
  EXPECT_EQ(rgbOf(image->pixelAt(XY<int>(729, 429))), rgbOf(blue));
  EXPECT_EQ(rgbOf(image->pixelAt(XY<int>(695, 395))), rgbOf(Colour(0.2, 0.22, 0.25)));
  EXPECT_EQ(image->pixelAt(XY<int>(10, 10)), 0u); // outside the image
}

} // namespace

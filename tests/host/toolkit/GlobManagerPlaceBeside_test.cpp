#include "support/WidgetTestSupport.h"

#include <zowidgets/host/toolkit/UifStd.h>

namespace {

struct PlaceBeside : HeadlessScreenTest {};

TEST_F(PlaceBeside, AWindowGoesBesideItsOriginsWindowTopsLevel) {
  StandardPanel* origin = openPanel(XY<int>(200, 150), XY<int>(100, 300));
  StandardPanel* opened = openPanel(XY<int>(120, 80), XY<int>(900, 20));
  GlobManager::placeBeside(opened, origin);
  Zo::Box<int> const originBox = origin->canvas()->screenBox();
  Zo::Box<int> const openedBox = opened->canvas()->screenBox();
  EXPECT_EQ(openedBox.x0, originBox.x1 + UifStd::getWidgetGap());
  EXPECT_EQ(openedBox.y1, originBox.y1);
}

TEST_F(PlaceBeside, AtTheScreensEdgeTheWindowStaysOnTheScreen) {
  XY<int> const screenSize = screen().screenSize();
  StandardPanel* origin = openPanel(XY<int>(200, 150), XY<int>(screenSize.x - 210, 300));
  StandardPanel* opened = openPanel(XY<int>(120, 80), XY<int>(10, 10));
  GlobManager::placeBeside(opened, origin);
  EXPECT_EQ(opened->canvas()->screenBox().x1, screenSize.x);
}

TEST_F(PlaceBeside, WithoutALiveOriginNothingMoves) {
  StandardPanel* opened = openPanel(XY<int>(120, 80), XY<int>(10, 10));
  Zo::Box<int> const before = opened->canvas()->screenBox();
  GlobManager::placeBeside(opened, nullptr);
  StandardPanel* gone = openPanel(XY<int>(50, 50), XY<int>(400, 400));
  GlobManager::requestDeletion(gone);
  pump();
  GlobManager::placeBeside(opened, gone);
  EXPECT_EQ(opened->canvas()->screenBox(), before);
}

TEST_F(PlaceBeside, AWindowAskedForPartlyOffTheScreenComesUpOnIt) {
  XY<int> const screenSize = screen().screenSize();
  StandardPanel* right = openPanel(XY<int>(300, 100), XY<int>(screenSize.x - 100, -40));
  EXPECT_EQ(right->canvas()->screenBox(), Zo::Box<int>(screenSize.x - 300, 0, screenSize.x, 100));
  StandardPanel* top = openPanel(XY<int>(300, 100), XY<int>(-20, screenSize.y - 30));
  EXPECT_EQ(top->canvas()->screenBox(), Zo::Box<int>(0, screenSize.y - 100, 300, screenSize.y));
}

TEST_F(PlaceBeside, AWindowTallerThanTheScreenKeepsItsTopOnIt) {
  XY<int> const screenSize = screen().screenSize();
  StandardPanel* tall = openPanel(XY<int>(300, screenSize.y + 200), XY<int>(100, 50));
  // y counts up from the bottom: the top edge is the screen's.
  EXPECT_EQ(tall->canvas()->screenBox().y1, screenSize.y);
  EXPECT_EQ(tall->canvas()->screenBox().x0, 100);
}

} // namespace

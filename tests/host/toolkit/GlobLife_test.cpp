#include "support/WidgetTestSupport.h"

#include <algorithm>

namespace {

struct GlobLife : HeadlessScreenTest {};

bool isOpen(Glob const* window) {
  auto const windows = GlobManager::topLevelWindows();
  return std::find(windows.begin(), windows.end(), window) != windows.end();
}

TEST_F(GlobLife, AWidgetCanBeDestroyedUntilMadeIndestructible) {
  StandardPanel* panel = openPanel(XY<int>(100, 100));
  EXPECT_FALSE(panel->isIndestructible());
  EXPECT_TRUE(panel->canBeDestroyed());
  panel->setIndestructible(true);
  EXPECT_TRUE(panel->isIndestructible());
  EXPECT_FALSE(panel->canBeDestroyed());
  panel->setIndestructible(false);
  EXPECT_TRUE(panel->canBeDestroyed());
}

TEST_F(GlobLife, TidyingWindowsAwayKeepsTheIndestructibleOnes) {
  StandardPanel* kept = openPanel(XY<int>(100, 100));
  StandardPanel* gone = openPanel(XY<int>(100, 100), XY<int>(150, 0));
  StandardPanel* alsoGone = openPanel(XY<int>(100, 100), XY<int>(300, 0));
  kept->setIndestructible(true);
  EXPECT_EQ(GlobManager::deleteDestroyableWindows(), 2);
  EXPECT_TRUE(GlobManager::isDeletionPending(gone));
  EXPECT_FALSE(GlobManager::isDeletionPending(kept));
  MessageLoop::runPending();
  EXPECT_TRUE(isOpen(kept));
  EXPECT_FALSE(isOpen(gone));
  EXPECT_FALSE(isOpen(alsoGone));
  // Asking again finds nothing more to delete.
  EXPECT_EQ(GlobManager::deleteDestroyableWindows(), 0);
  MessageLoop::runPending();
  EXPECT_TRUE(isOpen(kept));
}

// A window may decide for itself whether it can go now.
TEST_F(GlobLife, AWindowThatRefusesForItsOwnReasonStays) {
  struct Busy : StandardPanel {
    using StandardPanel::StandardPanel;
    bool canBeDestroyed() const override { return false; }
  };
  Drawable::Suspender hold;
  StandardPanel::InitArgs args(XY<int>(120, 80));
  args.screenPosition = XY<int>(10, 10);
  auto* busy = new Busy(args);
  GlobManager::realize(busy);
  EXPECT_EQ(GlobManager::deleteDestroyableWindows(), 0);
  MessageLoop::runPending();
  EXPECT_TRUE(isOpen(busy));
  GlobManager::requestDeletion(busy);
  MessageLoop::runPending();
  EXPECT_FALSE(isOpen(busy));
}

} // namespace

#include "diagnostics/ProbeTestSupport.h"

#include <zowidgets/host/events/Clock.h>
#include <zowidgets/host/events/Timer.h>
#include <zowidgets/host/shell/Command.h>

namespace {

TEST_F(InspectorTest, OpensUnderThePointerShowingOnlyItsTitle) {
  GlobInspector* inspector = openInspectorAt(XY<int>(500, 400));
  EXPECT_STREQ(inspector->idstring(), "GlobInspector");
  EXPECT_EQ(inspector->getTitle().getString().str(), L"Glob Inspector");
  EXPECT_EQ(inspector->screenPosition(), XY<int>(500, 400)) << "the hot spot starts at the pointer";
  EXPECT_EQ(inspector->getHotSpot(), XY<int>(0, 0));
  EXPECT_EQ(inspector->getSize(), GlobInspector::calcSizeFor(nullptr));
  EXPECT_TRUE(inspector->getInfoWidgets().empty());
  EXPECT_EQ(inspector->getTarget(), nullptr);
  EXPECT_FALSE(inspector->isPersistable());
  EXPECT_FALSE(inspector->isResizable());
  EXPECT_EQ(inspector->getBorder().style(), Border::kMenuBorder);
  EXPECT_EQ(GlobManager::topLevelWindows().back(), inspector) << "in front";
}

TEST_F(InspectorTest, ItsCloseBoxOrEscapeClosesIt) {
  GlobInspector* inspector = openInspectorAt(XY<int>(500, 400));
  Zo::Box<int> const box = inspector->getStandardWidgetBox(StandardPanel::kPoot);
  ASSERT_FALSE(box.empty()) << "a close box in its title bar";
  Glib::TextDescription const title(GlobInspector::kTitleText, XY<double>(0, 0), UifStd::getTitleFont(), Colour());
  EXPECT_GE(box.x0 - inspector->getTitleArea().x0, title.calcBounds().width()) << "beside its title, not over it";
  HeadlessInput::click(inspector->screenPosition() + XY<int>((box.x0 + box.x1) / 2, (box.y0 + box.y1) / 2));
  pump();
  EXPECT_FALSE(is_good_glob_ptr(inspector, "GlobInspector"));

  GlobInspector* again = openInspectorAt(XY<int>(500, 400));
  HeadlessInput::key(kKeyEscape);
  pump();
  EXPECT_FALSE(is_good_glob_ptr(again, "GlobInspector")) << "nothing else has the keys: Escape closes it";
}

TEST_F(InspectorTest, TheCommandsOpenTheInspectorAndTheTree) {
  ASSERT_TRUE(CommandMap::findCommand("Glob Inspector"));
  ASSERT_TRUE(CommandMap::findCommand("Glob Inspector 2"));
  CommandMap::callCommand("Glob Inspector", Cmd::Context{});
  pump();
  EXPECT_TRUE(is_good_glob_ptr(GlobManager::topLevelWindows().back(), "GlobInspector"));
  CommandMap::callCommand("Glob Inspector 2", Cmd::Context{panel, {}});
  pump();
  EXPECT_TRUE(is_good_glob_ptr(GlobManager::topLevelWindows().back(), "GlobTreePanel"));
}

TEST_F(InspectorTest, AChordPicksTheWidgetUnderTheHotSpotAndListsItsAncestors) {
  GlobInspector* inspector = openInspectorAt(XY<int>(600, 500));
  XY<int> const spot = swatchCentreOnScreen(*swatch);
  dragHotSpotTo(*inspector, spot);
  ASSERT_EQ(inspector->screenPosition(), spot) << "dragged by its title";
  EXPECT_EQ(inspector->getTarget(), nullptr) << "the left button alone only moves it";

  chordAt(titlePoint(*inspector));
  EXPECT_EQ(inspector->getTarget(), swatch);
  ASSERT_EQ(inspector->getInfoWidgets().size(), 2u);
  EXPECT_EQ(inspector->getInfoWidgets()[0]->getTarget(), swatch);
  EXPECT_EQ(inspector->getInfoWidgets()[1]->getTarget(), panel);
  EXPECT_EQ(rowText(*inspector->getInfoWidgets()[0])[0], L"Type Swatch");
  EXPECT_EQ(inspector->getSize(), GlobInspector::calcSizeFor(swatch));
  EXPECT_GT(inspector->height(), GlobInspector::calcSizeFor(nullptr).y);
  EXPECT_EQ(inspector->screenPosition(), spot) << "it grows from its hot spot, which stays put";
  EXPECT_EQ(rgbOf(widgetPixel(*inspector, XY<int>(1, 1))), rgbOf(inspector->getPalette().selection()))
      << "the hot spot's mark shows over the rows";
  // The rows stack downwards from the top of the user area.
  Glob const* first = inspector->getInfoWidgets()[0];
  Glob const* second = inspector->getInfoWidgets()[1];
  EXPECT_EQ(first->getY() + first->height(), inspector->getUserArea().y1);
  EXPECT_EQ(first->getY() - second->getY() - second->height(), UifStd::getRowGap());
}

TEST_F(InspectorTest, AChordOnARowInspectsAgainAndLeavesTheHighlightAlone) {
  GlobInspector* inspector = openInspectorAt(swatchCentreOnScreen(*swatch));
  chordAt(titlePoint(*inspector));
  ASSERT_EQ(inspector->getTarget(), swatch);
  dragHotSpotTo(*inspector, panel->screenPosition() + XY<int>(250, 150));
  chordAt(HeadlessInput::pointOn(*inspector->getInfoWidgets()[0]));
  EXPECT_EQ(inspector->getTarget(), panel);
  ASSERT_EQ(inspector->getInfoWidgets().size(), 1u);
  EXPECT_FALSE(inspector->getInfoWidgets()[0]->isHighlighted());
  EXPECT_EQ(inspector->getInfoWidgets()[0]->openMenu(), nullptr) << "the right button of a chord opens no menu";
}

TEST_F(InspectorTest, AChordOverEmptyScreenGivesNoTargetAndTheSmallSize) {
  GlobInspector* inspector = openInspectorAt(swatchCentreOnScreen(*swatch));
  chordAt(titlePoint(*inspector));
  ASSERT_EQ(inspector->getTarget(), swatch);
  dragHotSpotTo(*inspector, XY<int>(700, 50));
  ASSERT_EQ(Canvas::widgetAtScreenPoint(XY<int>(700, 50), inspector->canvas()), nullptr);
  chordAt(titlePoint(*inspector));
  EXPECT_EQ(inspector->getTarget(), nullptr);
  EXPECT_TRUE(inspector->getInfoWidgets().empty());
  EXPECT_EQ(inspector->getSize(), GlobInspector::calcSizeFor(nullptr));
  EXPECT_EQ(inspector->screenPosition(), XY<int>(700, 50));
}

TEST_F(InspectorTest, TheHotSpotLooksThroughTheInspectorsOwnWindow) {
  GlobInspector* inspector = openInspectorAt(XY<int>(700, 50));
  chordAt(titlePoint(*inspector));
  EXPECT_EQ(inspector->getTarget(), nullptr) << "never itself";
}

TEST_F(InspectorTest, TheTargetDeletedWhileInspectedEmptiesTheInspectorAtTheNextDraw) {
  GlobInspector* inspector = openInspectorAt(swatchCentreOnScreen(*swatch));
  chordAt(titlePoint(*inspector));
  ASSERT_EQ(inspector->getInfoWidgets().size(), 2u);
  panel->removeWidget(swatch);
  pump();
  EXPECT_EQ(inspector->getInfoWidgets().size(), 2u) << "nothing has drawn the inspector yet";
  EXPECT_EQ(inspector->getTarget(), nullptr) << "but the dead target is never handed out";
  EXPECT_TRUE(inspector->getInfoWidgets()[0]->describe().empty()) << "nor described";

  inspector->invalidate();
  inspector->update();
  pump();
  EXPECT_TRUE(inspector->getInfoWidgets().empty());
  EXPECT_EQ(inspector->getSize(), GlobInspector::calcSizeFor(nullptr));
}

TEST_F(InspectorTest, ATargetWindowClosedElsewhereEmptiesTheInspectorAtTheNextTick) {
  TestClock clock(1000.0);
  GlobInspector* inspector = openInspectorAt(swatchCentreOnScreen(*swatch));
  chordAt(titlePoint(*inspector));
  ASSERT_EQ(inspector->getTarget(), swatch);
  GlobManager::requestDeletion(panel);
  pump();
  clock.advance(TimerTicks::kIntervalMs);
  pump();
  EXPECT_TRUE(inspector->getInfoWidgets().empty());
  EXPECT_EQ(inspector->getSize(), GlobInspector::calcSizeFor(nullptr));
}

TEST_F(InspectorTest, SetTargetWithAWidgetInTheConstructorShowsItAtOnce) {
  GlobInspector::InitArgs args(GlobCreationInfo(GlobInspector::calcSizeFor(swatch)));
  args.screenPosition = XY<int>(500, 300);
  args.target = swatch;
  auto* inspector = new GlobInspector(args);
  GlobManager::realize(inspector);
  pump();
  EXPECT_EQ(inspector->getTarget(), swatch);
  EXPECT_EQ(inspector->getInfoWidgets().size(), 2u);
  inspector->setTarget(nullptr);
  EXPECT_TRUE(inspector->getInfoWidgets().empty());
}

// The host has nothing that destroys windows behind a program's back, so an
// indestructible flag would guard against nothing: the inspector closes like
// any window, as the gallery's page switches and the tests' tidying expect.
TEST_F(InspectorTest, TheInspectorClosesLikeAnyWindowForTheHostHasNoIndestructibleWindows) {
  GlobInspector* inspector = openInspectorAt(XY<int>(500, 400));
  GlobManager::requestDeletion(inspector);
  pump();
  EXPECT_FALSE(is_good_glob_ptr(inspector));
}

} // namespace

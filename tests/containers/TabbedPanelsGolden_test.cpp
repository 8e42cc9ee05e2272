#include "support/WidgetTestSupport.h"

#include <zowidgets/containers/SimpleTabbedPanel.h>
#include <zowidgets/containers/SplitTabsWidgetTestPanel.h>
#include <zowidgets/host/drawing/Palette.h>
#include <zowidgets/host/toolkit/UifStd.h>
#include <zowidgets/host/widgets/text/TextLabel.h>

namespace {

using TabbedPanelsGolden = HeadlessScreenTest;

SimpleTabbedPanel::Page labelPage(wchar_t const* title, wchar_t const* text) {
  TextLabel::InitArgs args;
  args.text = text;
  args.alignment = Glib::eTextAlignment::Centre;
  args.setPalette(makeChildPalette(UifStd::getColourScheme(), kChildPanel));
  return SimpleTabbedPanel::Page::of<TextLabel>(args, title);
}

TEST_F(TabbedPanelsGolden, SimpleTabbedPanelOnItsSecondTab) {
  int const row = UifStd::getRowHeight();
  SimpleTabbedPanel::InitArgs args(XY<int>(16 * row, 7 * row));
  args.screenPosition = XY<int>(40, 40);
  args.pages = {labelPage(L"Clip", L"Clip settings"), labelPage(L"Audio", L"Audio settings"),
                labelPage(L"Notes", L"Notes")};
  auto* panel = new SimpleTabbedPanel(args);
  GlobManager::realize(panel);
  panel->getTabs()->setCurrentTab(1);
  EXPECT_TRUE(matchesGolden(HeadlessScreen::windowShot(*panel), ZO_GOLDEN_DIR "/simple_tabbed_panel.png"));
}

TEST_F(TabbedPanelsGolden, SplitTabsSplit) {
  SplitTabsWidgetTestPanel* panel = SplitTabsWidgetTestPanel::open(XY<int>(40, 40));
  EXPECT_TRUE(matchesGolden(HeadlessScreen::windowShot(*panel), ZO_GOLDEN_DIR "/split_tabs_split.png"));
}

TEST_F(TabbedPanelsGolden, SplitTabsMerged) {
  SplitTabsWidgetTestPanel* panel = SplitTabsWidgetTestPanel::open(XY<int>(40, 40));
  panel->resize(SplitTabsWidgetTestPanel::minSplitWidth() - UifStd::getRowHeight(), panel->height());
  panel->getTabs()->getLeftTabs()->setCurrentTab(2);
  EXPECT_TRUE(matchesGolden(HeadlessScreen::windowShot(*panel), ZO_GOLDEN_DIR "/split_tabs_merged.png"));
}

} // namespace

#include "support/WidgetTestSupport.h"

#include <zowidgets/containers/SpaceDividerTestPanel.h>

namespace {

using SpaceDividerGolden = HeadlessScreenTest;

// Side by side with a hairline, the right side stacked with a standard
// splitter.
TEST_F(SpaceDividerGolden, SideBySideAndStacked) {
  SpaceDividerTestPanel* panel = SpaceDividerTestPanel::open(XY<int>(40, 40));
  EXPECT_TRUE(matchesGolden(HeadlessScreen::windowShot(*panel), ZO_GOLDEN_DIR "/space_divider.png"));
}

// The bottom pane hidden: the top one takes the stacked side's height.
TEST_F(SpaceDividerGolden, OnePaneHidden) {
  SpaceDividerTestPanel* panel = SpaceDividerTestPanel::open(XY<int>(40, 40));
  SpaceDivider* inner = panel->getInnerDivider();
  inner->getWidget(SpaceDivider::kSecondWidget)->setVisible(false);
  inner->resize(inner->width(), panel->getUserArea().height());
  EXPECT_TRUE(matchesGolden(HeadlessScreen::windowShot(*panel), ZO_GOLDEN_DIR "/space_divider_hidden.png"));
}

} // namespace

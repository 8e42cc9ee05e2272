#include "support/WidgetTestSupport.h"

#include <zowidgets/containers/SpaceDividerTestPanel.h>
#include <zowidgets/host/shell/Command.h>
#include <zowidgets/host/widgets/text/TextLabel.h>

#include <algorithm>

namespace {

struct SpaceDividerTestPanelTest : HeadlessScreenTest {
  static SpaceDividerTestPanel* openedPanel() {
    for (Glob* window : GlobManager::topLevelWindows())
      if (auto* panel = dynamic_cast<SpaceDividerTestPanel*>(window))
        return panel;
    return nullptr;
  }
  static LightweightString<wchar_t> textOf(Glob* widget) {
    return static_cast<TextLabel*>(widget)->getString().getString();
  }
};

TEST_F(SpaceDividerTestPanelTest, TheCommandOpensThePanel) {
  ASSERT_TRUE(CommandMap::findCommand("Space Divider Test").has_value());
  CommandMap::callCommand("Space Divider Test", Cmd::Context{});
  SpaceDividerTestPanel* panel = openedPanel();
  ASSERT_NE(panel, nullptr);
  EXPECT_EQ(panel->windowTitle(), LightweightString<wchar_t>(L"Space Divider Test"));
}

TEST_F(SpaceDividerTestPanelTest, ThreePanesCoverTheUserArea) {
  SpaceDividerTestPanel* panel = SpaceDividerTestPanel::open(XY<int>(50, 50));
  SpaceDivider* outer = panel->getOuterDivider();
  SpaceDivider* inner = panel->getInnerDivider();
  EXPECT_EQ(outer->getOrientation(), kSideBySide);
  EXPECT_EQ(inner->getOrientation(), kStacked);
  EXPECT_EQ(outer->getWidget(SpaceDivider::kSecondWidget), inner);
  EXPECT_EQ(textOf(outer->getWidget(SpaceDivider::kFirstWidget)), LightweightString<wchar_t>(L"Left"));
  EXPECT_EQ(textOf(inner->getWidget(SpaceDivider::kFirstWidget)), LightweightString<wchar_t>(L"Top"));
  EXPECT_EQ(textOf(inner->getWidget(SpaceDivider::kSecondWidget)), LightweightString<wchar_t>(L"Bottom"));
  Zo::Box<int> const user = panel->getUserArea();
  EXPECT_EQ(outer->getSize(), XY<int>(user.width(), user.height()));
  Glob* left = outer->getWidget(SpaceDivider::kFirstWidget);
  EXPECT_EQ(left->width() + outer->calcSplitterThickness() + inner->width(), user.width());
  Glob* top = inner->getWidget(SpaceDivider::kFirstWidget);
  Glob* bottom = inner->getWidget(SpaceDivider::kSecondWidget);
  EXPECT_EQ(top->height() + inner->calcSplitterThickness() + bottom->height(), user.height());
}

TEST_F(SpaceDividerTestPanelTest, DraggingTheHairlineResizesTheStackedSide) {
  SpaceDividerTestPanel* panel = SpaceDividerTestPanel::open(XY<int>(50, 50));
  SpaceDivider* inner = panel->getInnerDivider();
  int const before = inner->width();
  XY<int> const grip = HeadlessInput::pointOn(*panel->getOuterDivider()->getSplitter());
  HeadlessInput::drag(grip, grip - XY<int>(30, 0));
  // Let go, the hairline may settle a pixel further: the bins' width is read
  // back over the whole width and rounded down.
  EXPECT_GE(inner->width(), before + 30);
  EXPECT_LE(inner->width(), before + 31);
  EXPECT_EQ(inner->getSplitter()->width(), inner->width()) << "the inner splitter spans its divider";
}

} // namespace

#include "support/WidgetTestSupport.h"

#include <zowidgets/host/toolkit/UifStd.h>
#include <zowidgets/host/widgets/panels/WidgetGroup.h>
#include <zowidgets/host/widgets/text/TextLabel.h>
#include <zowidgets/host/widgets/values/Slider.h>

#include <vector>

namespace {

struct MinimizableGroupTest : HeadlessScreenTest {
  int const row = UifStd::getRowHeight();
  int const rowGap = UifStd::getRowGap();
  StandardPanel* panel = nullptr;
  MinimizableGroup* group = nullptr;
  std::vector<TextLabel*> rows;
  TextLabel* after = nullptr;
  TextLabel* last = nullptr;
  std::vector<int> events;

  void SetUp() override {
    HeadlessScreenTest::SetUp();
    panel = openPanel(XY<int>(320, 300));
    MinimizableGroup::InitArgs args(XY<int>(300, WidgetGroup::calcHeightForRows(3, row, rowGap, 1)));
    args.title = L"Colour";
    group = panel->createWidget<MinimizableGroup>(args, Glob::UserTopLeft(0, 0));
    group->addListener(
        MinimizableGroup::makeCallback([this](MinimizableGroupEvent const& event) { events.push_back(event.kind); }));
    int const rowWidth = group->width() - WidgetGroup::childXOffset();
    for (wchar_t const* text : {L"Lift", L"Gamma", L"Gain"}) {
      TextLabel::InitArgs label(XY<int>(rowWidth, row));
      label.text = text;
      WidgetPosition const where = rows.empty() ? Glob::UserTopLeft(0, 0) : Glob::Below(rowGap, rows.back());
      rows.push_back(group->createChild<TextLabel>(label, where));
    }
    TextLabel::InitArgs below(XY<int>(300, row));
    below.text = L"After the group";
    after = panel->createWidget<TextLabel>(below, Glob::Below(rowGap, group));
    below.text = L"Last row";
    last = panel->createWidget<TextLabel>(below, Glob::Below(rowGap, after));
  }

  XY<int> titlePoint() const { return XY<int>(group->width() / 2, group->height() - row / 2); }
};

TEST_F(MinimizableGroupTest, RowsFillTheUserAreaThatCalcHeightForRowsGives) {
  Zo::Box<int> const area = group->getUserArea();
  EXPECT_EQ(rows.front()->getY() + row, area.y1);
  EXPECT_EQ(rows.back()->getY(), area.y0);
  EXPECT_EQ(area.width(), group->width() - WidgetGroup::childXOffset());
  EXPECT_EQ(area.y1, group->height() - WidgetGroup::titleBandHeight());
}

TEST_F(MinimizableGroupTest, FoldingMovesTheRowsBelowUpAndUnfoldingPutsThemBack) {
  int const expanded = group->height();
  int const afterY = after->getY();
  int const lastY = last->getY();
  int const groupTop = group->getY() + group->height();

  group->setMinimized(true);
  EXPECT_TRUE(group->isMinimized());
  EXPECT_EQ(group->height(), WidgetGroup::titleBandHeight());
  EXPECT_EQ(group->getY() + group->height(), groupTop) << "the top stays put";
  EXPECT_EQ(group->getExpandedHeight(), expanded);
  int const shift = expanded - group->height();
  EXPECT_EQ(after->getY(), afterY + shift);
  EXPECT_EQ(last->getY(), lastY + shift);
  for (TextLabel* label : rows)
    EXPECT_FALSE(label->isVisible());

  group->setMinimized(false);
  EXPECT_EQ(group->height(), expanded);
  EXPECT_EQ(after->getY(), afterY);
  EXPECT_EQ(last->getY(), lastY);
  for (TextLabel* label : rows)
    EXPECT_TRUE(label->isVisible());
  EXPECT_EQ(events, (std::vector<int>{MinimizableGroupEvent::kFolded, MinimizableGroupEvent::kUnfolded}));
}

TEST_F(MinimizableGroupTest, AClickOnTheTitleBandToggles) {
  int const afterY = after->getY();
  HeadlessInput::clickOn(*group, titlePoint());
  EXPECT_TRUE(group->isMinimized());
  EXPECT_GT(after->getY(), afterY);
  HeadlessInput::clickOn(*group, titlePoint());
  EXPECT_FALSE(group->isMinimized());
  EXPECT_EQ(after->getY(), afterY);
}

TEST_F(MinimizableGroupTest, AClickAmongTheRowsDoesNotFold) {
  HeadlessInput::clickOn(*group, XY<int>(group->width() - 2, UifStd::getWidgetGap() / 2));
  EXPECT_FALSE(group->isMinimized());
  EXPECT_TRUE(events.empty());
}

TEST_F(MinimizableGroupTest, SpaceAndReturnToggleWhileFocused) {
  ASSERT_TRUE(group->claimKbdFocus());
  HeadlessInput::key(' ');
  EXPECT_TRUE(group->isMinimized());
  HeadlessInput::key(kKeyReturn);
  EXPECT_FALSE(group->isMinimized());
}

TEST_F(MinimizableGroupTest, ARowHiddenBeforeFoldingStaysHidden) {
  rows[1]->setVisible(false);
  group->toggle();
  group->toggle();
  EXPECT_TRUE(rows[0]->isVisible());
  EXPECT_FALSE(rows[1]->isVisible());
  EXPECT_TRUE(rows[2]->isVisible());
}

TEST_F(MinimizableGroupTest, AResizeWhileFoldedIsKeptForUnfolding) {
  group->setMinimized(true);
  group->resize(280, 150);
  EXPECT_EQ(group->height(), WidgetGroup::titleBandHeight());
  EXPECT_EQ(group->width(), 280);
  group->setMinimized(false);
  EXPECT_EQ(group->height(), 150);
}

TEST_F(MinimizableGroupTest, FoldingRepaintsTheRowsBelowAtTheirNewPlace) {
  Zo::Box<int> const lastBefore = last->canvasBox();
  group->setMinimized(true);
  Zo::Image::Surface const shot = HeadlessScreen::windowShot(*panel);
  Rgb const background = rgbOf(panel->getPalette().window());
  auto inkIn = [&](Zo::Box<int> const& box) {
    int ink = 0;
    for (int y = box.y0; y < box.y1; ++y)
      for (int x = box.x0; x < box.x1; ++x)
        if (!near(rgbOf(shot.pixel(x, shot.height() - 1 - y)), background, 24))
          ++ink;
    return ink;
  };
  EXPECT_GT(inkIn(last->canvasBox()), 0) << "the last row is drawn where it moved to";
  EXPECT_EQ(inkIn(lastBefore), 0) << "where it was is bare panel now";
}

TEST(WidgetGroupSizes, CalcHeightForRowsCountsRowsGapsAndTheTitleBand) {
  int const gap = UifStd::getWidgetGap();
  EXPECT_EQ(WidgetGroup::calcHeightForRows(4, 23, 3, 1), 4 * 23 + 3 * 3 + gap + WidgetGroup::titleBandHeight());
  EXPECT_EQ(WidgetGroup::calcHeightForRows(1, 23, 3, 0), 23 + 2 * gap);
  EXPECT_EQ(WidgetGroupEx::calcHeightForRows(0, 23, 3, 1), gap + WidgetGroup::titleBandHeight());
}

} // namespace

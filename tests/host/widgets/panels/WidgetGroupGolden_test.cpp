#include "support/WidgetTestSupport.h"

#include <zowidgets/host/toolkit/UifStd.h>
#include <zowidgets/host/widgets/panels/WidgetGroup.h>
#include <zowidgets/host/widgets/text/TextLabel.h>
#include <zowidgets/host/widgets/values/Slider.h>

namespace {

struct WidgetGroupGolden : HeadlessScreenTest {
  void TearDown() override {
    HeadlessScreenTest::TearDown();
    UifStd::setScale(1.0);
  }

  // Two rows, each a label and a slider, as a settings group holds them.
  static void fillRows(WidgetGroup& group) {
    int const row = UifStd::getRowHeight();
    int const width = group.width() - WidgetGroup::childXOffset();
    int const legend = width / 3;
    Glob* previous = nullptr;
    double value = 0.35;
    for (wchar_t const* name : {L"Radius", L"Strength"}) {
      TextLabel::InitArgs label(XY<int>(legend, row));
      label.text = name;
      WidgetPosition const where = previous ? Glob::Below(UifStd::getRowGap(), previous) : Glob::UserTopLeft(0, 0);
      previous = group.createChild<TextLabel>(label, where);
      Slider::InitArgs slider(XY<int>(width - legend, row));
      slider.initialValue = value;
      group.createChild<Slider>(slider, Glob::RightOf(0, previous));
      value += 0.4;
    }
  }

  // A framed group, a group with a rule, a recessed section, and a foldable
  // group open (or folded) with a label below it.
  StandardPanel* openGroupSheet(bool folded) {
    int const row = UifStd::getRowHeight();
    int const gap = UifStd::getWidgetGap();
    int const width = row * 12;
    int const height = WidgetGroup::calcHeightForRows(2, row, UifStd::getRowGap(), 1);
    XY<int> const userArea(width + 2 * gap, 4 * (height + gap) + row + 2 * gap);
    StandardPanel* panel =
        openPanel(StandardPanel::calcPanelSize(userArea, 0, StandardPanel::getDefaultBorder()), XY<int>(40, 40));
    WidgetGroup::InitArgs framed(XY<int>(width, height));
    framed.title = L"Blur";
    Glob* last = panel->createWidget<WidgetGroup>(framed, Glob::UserTopLeft(gap, gap));
    fillRows(*static_cast<WidgetGroup*>(last));
    WidgetGroupEx::InitArgs ruled(XY<int>(width, height));
    ruled.title = L"Sharpen";
    ruled.separatorStyle = WidgetGroup::kSeparatorRule;
    last = panel->createWidget<WidgetGroupEx>(ruled, Glob::Below(gap, last));
    fillRows(*static_cast<WidgetGroup*>(last));
    WidgetGroupEx::InitArgs section(XY<int>(width, height));
    section.title = L"Grain";
    last = panel->createWidget<WidgetGroup2>(section, Glob::Below(gap, last));
    fillRows(*static_cast<WidgetGroup*>(last));
    MinimizableGroup::InitArgs foldable(XY<int>(width, height));
    foldable.title = L"Vignette";
    auto* group = panel->createWidget<MinimizableGroup>(foldable, Glob::Below(gap, last));
    fillRows(*group);
    TextLabel::InitArgs below(XY<int>(width, row));
    below.text = L"Below the groups";
    panel->createWidget<TextLabel>(below, Glob::Below(gap, group));
    group->setMinimized(folded);
    return panel;
  }
};

TEST_F(WidgetGroupGolden, GroupsOpenAtScaleOne) {
  StandardPanel* panel = openGroupSheet(false);
  EXPECT_TRUE(matchesGolden(HeadlessScreen::windowShot(*panel), ZO_GOLDEN_DIR "/group_open.png"));
}

TEST_F(WidgetGroupGolden, GroupFoldedAtScaleOne) {
  StandardPanel* panel = openGroupSheet(true);
  EXPECT_TRUE(matchesGolden(HeadlessScreen::windowShot(*panel), ZO_GOLDEN_DIR "/group_folded.png"));
}

TEST_F(WidgetGroupGolden, GroupsOpenAtScaleTwo) {
  UifStd::setScale(2.0);
  StandardPanel* panel = openGroupSheet(false);
  EXPECT_TRUE(matchesGolden(HeadlessScreen::windowShot(*panel), ZO_GOLDEN_DIR "/group_open_scale2.png"));
}

TEST_F(WidgetGroupGolden, GroupFoldedAtScaleTwo) {
  UifStd::setScale(2.0);
  StandardPanel* panel = openGroupSheet(true);
  EXPECT_TRUE(matchesGolden(HeadlessScreen::windowShot(*panel), ZO_GOLDEN_DIR "/group_folded_scale2.png"));
}

} // namespace

#include "support/WidgetTestSupport.h"

#include <zowidgets/host/events/Clock.h>
#include <zowidgets/host/widgets/popups/Tooltip.h>

namespace {

struct TooltipTest : HeadlessScreenTest {
  TestClock clock;
  StandardPanel* panel = nullptr;
  Glob* withTip = nullptr;
  Glob* without = nullptr;

  void SetUp() override {
    HeadlessScreenTest::SetUp();
    panel = openPanel(XY<int>(300, 100), XY<int>(400, 400));
    withTip = panel->addChild(new Glob(GlobCreationInfo(XY<int>(60, 30))), Glob::UserBottomLeft(0, 0));
    withTip->setContextString(TooltipDetails(UIString(L"Resets every grade")));
    without = panel->addChild(new Glob(GlobCreationInfo(XY<int>(60, 30))), Glob::RightOf(20));
  }
  void TearDown() override {
    ZoTooltipsEnable(true);
    Tooltips::dismiss();
    HeadlessScreenTest::TearDown();
  }
  void rest(double ms) {
    clock.advance(ms);
    pump();
  }
};

TEST_F(TooltipTest, ATooltipAppearsWhenThePointerRestsAndGoesWhenItLeaves) {
  HeadlessInput::moveTo(HeadlessInput::pointOn(*withTip));
  rest(Tooltips::kRestMs / 2);
  EXPECT_EQ(Tooltips::showing(), nullptr); // not rested long enough
  rest(Tooltips::kRestMs);
  TooltipWindow* tip = Tooltips::showing();
  ASSERT_NE(tip, nullptr);
  EXPECT_EQ(tip->text(), L"Resets every grade");
  // Below the pointer and on the screen.
  EXPECT_LT(tip->canvas()->getPosition().y, HeadlessInput::pointOn(*withTip).y);
  HeadlessInput::moveTo(HeadlessInput::pointOn(*without));
  pump();
  EXPECT_EQ(Tooltips::showing(), nullptr);
}

TEST_F(TooltipTest, MovingWithinTheWidgetKeepsTheTooltip) {
  HeadlessInput::moveTo(HeadlessInput::pointOn(*withTip, XY<int>(5, 5)));
  rest(Tooltips::kRestMs + 1);
  ASSERT_NE(Tooltips::showing(), nullptr);
  HeadlessInput::moveTo(HeadlessInput::pointOn(*withTip, XY<int>(20, 10)));
  pump();
  EXPECT_NE(Tooltips::showing(), nullptr);
}

TEST_F(TooltipTest, APressDismissesIt) {
  HeadlessInput::moveTo(HeadlessInput::pointOn(*withTip));
  rest(Tooltips::kRestMs + 1);
  ASSERT_NE(Tooltips::showing(), nullptr);
  HeadlessInput::press();
  HeadlessInput::release();
  pump();
  EXPECT_EQ(Tooltips::showing(), nullptr);
}

TEST_F(TooltipTest, AWidgetWithoutATooltipShowsNone) {
  HeadlessInput::moveTo(HeadlessInput::pointOn(*without));
  rest(Tooltips::kRestMs * 3);
  EXPECT_EQ(Tooltips::showing(), nullptr);
}

TEST_F(TooltipTest, TooltipsCanBeTurnedOff) {
  ZoTooltipsEnable(false);
  HeadlessInput::moveTo(HeadlessInput::pointOn(*withTip));
  rest(Tooltips::kRestMs * 3);
  EXPECT_EQ(Tooltips::showing(), nullptr);
  EXPECT_FALSE(ZoTooltipsEnabled());
}

TEST_F(TooltipTest, TheTooltipWidgetDyingBeforeTheRestEndsShowsNothing) {
  HeadlessInput::moveTo(HeadlessInput::pointOn(*withTip));
  panel->removeWidget(withTip);
  rest(Tooltips::kRestMs * 2);
  EXPECT_EQ(Tooltips::showing(), nullptr);
}

} // namespace

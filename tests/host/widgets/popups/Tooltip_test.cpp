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

// Says one thing over its left half and another over its right.
struct TwoHalves : Glob {
  TwoHalves() : Glob(GlobCreationInfo(XY<int>(80, 30))) {}
  UIString getTooltip(XY<int> position, bool client) const override {
    XY<int> const at = client ? position : position - screenPosition();
    return UIString(at.x < width() / 2 ? L"Left half" : L"Right half");
  }
};

XY<int> middleOf(Zo::Box<int> const& box) { return XY<int>((box.x0 + box.x1) / 2, (box.y0 + box.y1) / 2); }

TEST_F(TooltipTest, APartThatSaysSomethingElseGetsItsOwnTooltip) {
  auto* halves = panel->addChild(new TwoHalves, Glob::RightOf(20));
  HeadlessInput::moveTo(HeadlessInput::pointOn(*halves, XY<int>(10, 15)));
  rest(Tooltips::kRestMs + 1);
  ASSERT_NE(Tooltips::showing(), nullptr);
  EXPECT_EQ(Tooltips::showing()->text(), L"Left half");
  HeadlessInput::moveTo(HeadlessInput::pointOn(*halves, XY<int>(15, 15)));
  pump();
  ASSERT_NE(Tooltips::showing(), nullptr); // the same words: the tip stays
  HeadlessInput::moveTo(HeadlessInput::pointOn(*halves, XY<int>(70, 15)));
  pump();
  EXPECT_EQ(Tooltips::showing(), nullptr); // other words wait for the pointer to rest
  rest(Tooltips::kRestMs + 1);
  ASSERT_NE(Tooltips::showing(), nullptr);
  EXPECT_EQ(Tooltips::showing()->text(), L"Right half");
}

TEST_F(TooltipTest, TheTitleBarButtonsSayWhatTheyDo) {
  StandardPanel* titled =
      openPanel(XY<int>(300, 120), XY<int>(100, 600), StandardPanel::kPoot | StandardPanel::kPin | StandardPanel::kCogs,
                UIString(L"Titled"));
  pump();
  auto tipOver = [&](StandardPanel::eStandardWidget which) -> LightweightString<wchar_t> {
    Tooltips::dismiss();
    HeadlessInput::moveTo(HeadlessInput::pointOn(*titled, middleOf(titled->getStandardWidgetBox(which))));
    rest(Tooltips::kRestMs + 1);
    TooltipWindow* tip = Tooltips::showing();
    return tip ? tip->text() : LightweightString<wchar_t>(L"(none)");
  };
  EXPECT_EQ(tipOver(StandardPanel::kPoot), L"Close");
  // Asked in the panel's own coordinates, the same.
  EXPECT_EQ(titled->getTooltip(middleOf(titled->getStandardWidgetBox(StandardPanel::kCogs)), true).getString(),
            L"Menu");
  EXPECT_EQ(tipOver(StandardPanel::kCogs), L"Menu");
  EXPECT_EQ(tipOver(StandardPanel::kPin), L"Pin");
  HeadlessInput::press();
  HeadlessInput::release();
  pump();
  ASSERT_TRUE(titled->isPinned());
  EXPECT_EQ(tipOver(StandardPanel::kPin), L"Unpin");
  // The title itself has nothing to say.
  Tooltips::dismiss();
  HeadlessInput::moveTo(HeadlessInput::pointOn(*titled, XY<int>(20, titled->height() - 8)));
  rest(Tooltips::kRestMs * 3);
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

#include "support/WidgetTestSupport.h"

#include <zowidgets/host/drawing/Palette.h>

namespace {

// A panel with a two-row context menu that records what happened to it.
class MenuPanel : public StandardPanel {
public:
  explicit MenuPanel(InitArgs const& args) : StandardPanel(args) {}
  void initialiseMenu() override { ++initialised; }
  void reviewMenu(Event const*) override { ++reviewed; }
  std::vector<MenuItem> getMenuItems(Event const*) override {
    if (!offersMenu)
      return {};
    return {MenuItem(UIString(L"Reset")), MenuItem(UIString(L"Save preset"))};
  }
  void handleMenuChoice(int index, MenuItem const& item) override {
    chosen = index;
    chosenText = item.text.getString();
  }
  bool offersMenu = true;
  int initialised = 0;
  int reviewed = 0;
  int chosen = -1;
  LightweightString<wchar_t> chosenText;
};

struct PanelMenuTest : HeadlessScreenTest {
  MenuPanel* panel = nullptr;
  void SetUp() override {
    HeadlessScreenTest::SetUp();
    StandardPanel::InitArgs args(XY<int>(300, 200));
    args.screenPosition = XY<int>(200, 200);
    args.standardWidgets = StandardPanel::kTitle | StandardPanel::kCogs;
    args.title = L"Effect";
    panel = new MenuPanel(args);
    GlobManager::realize(panel);
  }
};

TEST_F(PanelMenuTest, ARightClickOpensTheMenuAndAChoiceReachesThePanel) {
  HeadlessInput::clickOn(*panel, XY<int>(150, 60), kMouseRight);
  ASSERT_NE(panel->openMenu(), nullptr);
  EXPECT_EQ(panel->initialised, 1);
  EXPECT_EQ(panel->reviewed, 1);
  HeadlessInput::key(kKeyDown);
  HeadlessInput::key(kKeyDown);
  HeadlessInput::key(kKeyReturn);
  pump();
  EXPECT_EQ(panel->chosen, 1);
  EXPECT_EQ(panel->chosenText, L"Save preset");
  EXPECT_EQ(panel->openMenu(), nullptr);
}

TEST_F(PanelMenuTest, TheMenuButtonOpensItTooAndTheMenuIsInitialisedOnce) {
  Zo::Box<int> cogs = panel->getStandardWidgetBox(StandardPanel::kCogs);
  ASSERT_FALSE(cogs.empty());
  HeadlessInput::clickOn(*panel, XY<int>((cogs.x0 + cogs.x1) / 2, (cogs.y0 + cogs.y1) / 2));
  ASSERT_NE(panel->openMenu(), nullptr);
  HeadlessInput::key(kKeyEscape);
  pump();
  EXPECT_EQ(panel->openMenu(), nullptr);
  HeadlessInput::clickOn(*panel, XY<int>(150, 60), kMouseRight);
  EXPECT_EQ(panel->initialised, 1);
  EXPECT_EQ(panel->reviewed, 2);
  EXPECT_EQ(panel->chosen, -1);
}

TEST_F(PanelMenuTest, APanelWithoutItemsShowsNoMenu) {
  panel->offersMenu = false;
  HeadlessInput::clickOn(*panel, XY<int>(150, 60), kMouseRight);
  EXPECT_EQ(panel->openMenu(), nullptr);
}

TEST_F(PanelMenuTest, MessageWindowsUseThePopupPalette) {
  MessageBase message(StandardPanel::InitArgs(XY<int>(100, 50)));
  EXPECT_EQ(rgbOf(message.getPalette().window()), rgbOf(MessageBase::palette().window()));
  EXPECT_STREQ(message.idstring(), "MessageBase");
}

} // namespace

#include <zowidgets/host/events/Clock.h>
#include <zowidgets/host/events/Timer.h>

namespace {

class TickingPanel : public StandardPanel {
public:
  using StandardPanel::StandardPanel;
  void handleTimerEvent() override { ++ticks; }
  int ticks = 0;
};

using PanelTimerTest = HeadlessScreenTest;

TEST_F(PanelTimerTest, TheTimerInterestBringsTicksToHandleTimerEventUntilCleared) {
  static_assert(Glob::kTimerInterest == TimerTicks::kInterest);
  TestClock clock;
  auto* panel = new TickingPanel(StandardPanel::InitArgs(XY<int>(50, 50)));
  GlobManager::realize(panel);
  panel->setInterest(Glob::kTimerInterest);
  clock.advance(TimerTicks::kIntervalMs * 3 + 1);
  pump();
  EXPECT_GE(panel->ticks, 1);
  int const counted = panel->ticks;
  panel->clearInterest(Glob::kTimerInterest);
  clock.advance(TimerTicks::kIntervalMs * 3);
  pump();
  EXPECT_EQ(panel->ticks, counted);
  EXPECT_EQ(panel->getInterest(), 0u);
}

} // namespace

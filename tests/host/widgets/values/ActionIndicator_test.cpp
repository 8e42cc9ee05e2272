#include "support/WidgetTestSupport.h"

#include <zowidgets/host/events/Clock.h>
#include <zowidgets/host/events/Timer.h>
#include <zowidgets/host/toolkit/UifStd.h>
#include <zowidgets/host/widgets/values/ActionIndicator.h>

namespace {

struct ActionIndicatorTest : HeadlessScreenTest {
  TestClock clock{1000.0};
  StandardPanel* panel = nullptr;

  void SetUp() override {
    HeadlessScreenTest::SetUp();
    panel = openPanel(XY<int>(120, 80));
  }

  ActionIndicator* make(bool running) {
    ActionIndicator::InitArgs args(LightweightString<char>("action-indicator.png"));
    args.running = running;
    return panel->createWidget<ActionIndicator>(args, Glob::UserTopLeft(10, 10));
  }
  // Moves the clock on and lets the loop deliver the ticks that fell due.
  void wait(double ms) {
    clock.advance(ms);
    pump();
  }
};

TEST_F(ActionIndicatorTest, IsARowSquareAndKeepsItsIconName) {
  ActionIndicator* indicator = make(true);
  EXPECT_EQ(indicator->getSize(), XY<int>(UifStd::getRowHeight(), UifStd::getRowHeight()));
  EXPECT_EQ(indicator->getIconName(), LightweightString<char>("action-indicator.png"));
}

TEST_F(ActionIndicatorTest, IsMadeFromAPlainCreationInfo) {
  auto* plain = panel->addChild(new ActionIndicator(GlobCreationInfo(XY<int>(30, 30))), Glob::UserTopLeft(0, 0));
  auto* indicator = static_cast<ActionIndicator*>(plain);
  EXPECT_TRUE(indicator->isRunning());
  EXPECT_TRUE(indicator->getIconName().empty());
  EXPECT_STREQ(indicator->idstring(), "ActionIndicator");
}

TEST_F(ActionIndicatorTest, RunningItAsksForTheHostsTicksAndStoppingGivesThemUp) {
  ActionIndicator* indicator = make(false);
  EXPECT_FALSE(indicator->isRunning());
  EXPECT_FALSE(TimerTicks::hasInterest(indicator));
  indicator->start();
  EXPECT_TRUE(indicator->isRunning());
  EXPECT_TRUE(TimerTicks::hasInterest(indicator));
  indicator->stop();
  EXPECT_FALSE(indicator->isRunning());
  EXPECT_FALSE(TimerTicks::hasInterest(indicator));
}

TEST_F(ActionIndicatorTest, TheBrightDotRunsRoundWithTheClock) {
  ActionIndicator* indicator = make(true);
  EXPECT_EQ(indicator->phase(), 0);
  Zo::Image::Surface const first = HeadlessScreen::windowShot(*panel);
  wait(ActionIndicator::kStepMs);
  EXPECT_EQ(indicator->phase(), 1);
  Zo::Image::Surface const second = HeadlessScreen::windowShot(*panel);
  bool differs = false;
  for (int y = 0; y < first.height() && !differs; ++y)
    for (int x = 0; x < first.width() && !differs; ++x)
      differs = first.pixel(x, y) != second.pixel(x, y);
  EXPECT_TRUE(differs) << "the picture moved on with the phase";
  wait(3 * ActionIndicator::kStepMs);
  EXPECT_EQ(indicator->phase(), 4);
  wait(ActionIndicator::kDots * ActionIndicator::kStepMs);
  EXPECT_EQ(indicator->phase(), 4) << "a whole turn later it is back where it was";
}

TEST_F(ActionIndicatorTest, ALateTickSkipsAheadInsteadOfSlowingTheSpin) {
  ActionIndicator* indicator = make(true);
  wait(7.5 * ActionIndicator::kStepMs);
  EXPECT_EQ(indicator->phase(), 7);
}

TEST_F(ActionIndicatorTest, AStoppedIndicatorDrawsNothing) {
  ActionIndicator* indicator = make(true);
  std::uint32_t const background = widgetPixel(*panel, XY<int>(2, 2));
  auto marked = [&] {
    int count = 0;
    for (int y = 0; y < indicator->height(); ++y)
      for (int x = 0; x < indicator->width(); ++x)
        if (!near(rgbOf(widgetPixel(*indicator, XY<int>(x, y))), rgbOf(background), 2))
          ++count;
    return count;
  };
  EXPECT_GT(marked(), 20);
  indicator->stop();
  EXPECT_EQ(marked(), 0);
  indicator->start();
  EXPECT_GT(marked(), 20);
}

} // namespace

#include "support/WidgetTestSupport.h"

#include <zowidgets/host/events/Timer.h>

namespace {
using GlobTicksTest = HeadlessScreenTest;
} // namespace

TEST_F(GlobTicksTest, AWidgetThatDiesStopsTheSharedTickerAtOnce) {
  ASSERT_FALSE(Timer::nextDeadline().has_value());
  StandardPanel* window = openPanel(XY<int>(120, 80));
  Glob* ticking = window->addChild(new Glob(GlobCreationInfo(XY<int>(20, 20))), Glob::UserTopLeft(0, 0));
  ticking->setInterest(Glob::kTimerInterest);
  EXPECT_TRUE(TimerTicks::hasInterest(ticking));
  EXPECT_TRUE(Timer::nextDeadline().has_value());
  // No tick comes between the death and the next test: the interest goes
  // with the widget, and the ticker with its last widget.
  window->removeWidget(ticking); // deletes it
  EXPECT_FALSE(TimerTicks::hasInterest(ticking));
  EXPECT_FALSE(Timer::nextDeadline().has_value());
}

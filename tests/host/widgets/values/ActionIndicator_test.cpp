#include "support/WidgetTestSupport.h"

#include <zowidgets/host/drawing/IconCache.h>
#include <zowidgets/host/drawing/Palette.h>
#include <zowidgets/host/events/Clock.h>
#include <zowidgets/host/events/Timer.h>
#include <zowidgets/host/toolkit/UifStd.h>
#include <zowidgets/host/widgets/values/ActionIndicator.h>

#include "host/drawing/IconTestSupport.h"

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

struct ActionIndicatorIcon : ActionIndicatorTest {
  ScopedEnv noOverride{"ZOWIDGETS_ICON_THEME_DIR", std::nullopt};
  ScopedEnv defaultDataDirs{"XDG_DATA_DIRS", std::nullopt};

  // How many pixels of the indicator are not `icon` laid centred over the
  // panel's background (by more than `tolerance` in a channel), and how
  // many pixels the icon covers at all.
  std::pair<int, int> pixelsOffIcon(ActionIndicator const& indicator, Zo::Image::Surface const& icon,
                                    int tolerance = 1) {
    std::uint32_t const background = widgetPixel(*panel, XY<int>(2, 2));
    int const side = icon.width();
    XY<int> const corner((indicator.width() - side) / 2, (indicator.height() - side) / 2);
    int off = 0, covered = 0;
    for (int y = 0; y < indicator.height(); ++y)
      for (int x = 0; x < indicator.width(); ++x) {
        int const ix = x - corner.x, row = corner.y + side - 1 - y;
        std::uint32_t const ink = icon.pixel(ix, row); // 0 outside the icon
        int const alpha = int(ink >> 24);
        covered += alpha > 0 ? 1 : 0;
        std::uint32_t const shown = widgetPixel(indicator, XY<int>(x, y));
        for (int shift = 0; shift < 24; shift += 8) {
          int const expected =
              int((ink >> shift) & 0xFF) + (int((background >> shift) & 0xFF) * (255 - alpha) + 127) / 255;
          if (std::abs(int((shown >> shift) & 0xFF) - expected) > tolerance) {
            ++off;
            break;
          }
        }
      }
    return {off, covered};
  }
};

TEST_F(ActionIndicatorIcon, DrawsItsIconTurnedAStepAtEachPhase) {
  ActionIndicator* indicator = make(true);
  int const side = ActionIndicator::iconSide(indicator->getSize());
  EXPECT_EQ(side, 16) << "a row-high square at scale 1";
  Colour const text = indicator->getPalette().text();
  IconCache::Icon const upright = IconCache::get("action-indicator.png", side, text);
  ASSERT_TRUE(upright.fromTheme);
  auto [off, covered] = pixelsOffIcon(*indicator, upright.surface);
  EXPECT_GT(covered, 60);
  EXPECT_EQ(off, 0);

  wait(ActionIndicator::kStepMs);
  IconCache::Icon const turned = IconCache::get("action-indicator.png", side, text, 360 / ActionIndicator::kDots);
  std::tie(off, covered) = pixelsOffIcon(*indicator, turned.surface);
  EXPECT_EQ(off, 0);
  std::tie(off, covered) = pixelsOffIcon(*indicator, upright.surface);
  EXPECT_GT(off, 10) << "the upright picture is gone";
}

TEST_F(ActionIndicatorIcon, WithoutArtworkItDrawsItsOwnDots) {
  ScratchFolder scratch;
  ScopedEnv noTheme("ZOWIDGETS_ICON_THEME_DIR", (scratch.path() / "none").string());
  ActionIndicator* named = make(true);
  ActionIndicator::InitArgs plainArgs;
  auto* plain = panel->createWidget<ActionIndicator>(plainArgs, Glob::RightOf(10, named));
  ASSERT_EQ(plain->getSize(), named->getSize());
  int marked = 0;
  std::uint32_t const background = widgetPixel(*panel, XY<int>(2, 2));
  for (int y = 0; y < named->height(); ++y)
    for (int x = 0; x < named->width(); ++x) {
      std::uint32_t const pixel = widgetPixel(*named, XY<int>(x, y));
      EXPECT_EQ(pixel, widgetPixel(*plain, XY<int>(x, y))) << x << "," << y;
      marked += pixel != background ? 1 : 0;
    }
  EXPECT_GT(marked, 20);
}

} // namespace

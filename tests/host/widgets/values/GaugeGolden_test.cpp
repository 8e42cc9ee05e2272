#include "support/WidgetTestSupport.h"

#include <zowidgets/host/drawing/Palette.h>
#include <zowidgets/host/events/Clock.h>
#include <zowidgets/host/toolkit/UifStd.h>
#include <zowidgets/host/widgets/values/ActionIndicator.h>
#include <zowidgets/host/widgets/values/Gauge.h>
#include <zowidgets/host/widgets/values/SharkGauge.h>

namespace {

struct GaugeGolden : HeadlessScreenTest {
  // The indicator's phase follows the clock: a still clock keeps it still.
  TestClock clock{0.0};

  void TearDown() override {
    HeadlessScreenTest::TearDown();
    UifStd::setScale(1.0);
  }

  // Gauges empty, part full with a label, full, in a progress window's
  // colours, thin, inactive; a shark gauge with its time; a busy sign.
  StandardPanel* openGaugeSheet() {
    int const row = UifStd::getRowHeight();
    int const gap = UifStd::getRowGap();
    int const width = row * 10;
    int const thin = UifStd::getWidgetGap();
    XY<int> const userArea(width + 2 * gap, 7 * (row + gap) + thin + gap + gap);
    StandardPanel* panel =
        openPanel(StandardPanel::calcPanelSize(userArea, 0, StandardPanel::getDefaultBorder()), XY<int>(40, 40));
    Palette const& palette = panel->getPalette();
    Glob* previous = nullptr;
    auto place = [&]() { return previous ? Glob::Below(gap, previous) : Glob::UserTopLeft(gap, gap); };
    auto add = [&](double measure, UIString const& label, int height = 0) {
      Gauge::InitArgs args(XY<int>(width, height ? height : row));
      args.measure = measure;
      args.label = label;
      Gauge* gauge = panel->createWidget<Gauge>(args, place());
      previous = gauge;
      return gauge;
    };
    add(0.0, {});
    add(0.3, L"Copying files");
    add(1.0, L"Done");
    add(0.6, L"Rendering")->setCols(palette.selection(), palette.childWindow(1), kRedrawNow);
    add(0.45, {}, thin);
    add(0.5, L"Waiting")->setActive(false, kRedrawNow);
    SharkGauge::InitArgs shark(XY<int>(width, SharkGauge::calcHeight()));
    shark.measure = 0.42;
    LightweightString<wchar_t> remaining(L"Remaining ");
    remaining += SharkGauge::formatDuration(83.0);
    shark.label = remaining;
    previous = panel->createWidget<SharkGauge>(shark, place());
    panel->createWidget<ActionIndicator>(ActionIndicator::InitArgs(LightweightString<char>("action-indicator.png")),
                                         place());
    return panel;
  }
};

TEST_F(GaugeGolden, GaugesAtScaleOne) {
  StandardPanel* panel = openGaugeSheet();
  EXPECT_TRUE(matchesGolden(HeadlessScreen::windowShot(*panel), ZO_GOLDEN_DIR "/gauge_sheet.png"));
}

TEST_F(GaugeGolden, GaugesAtScaleTwo) {
  UifStd::setScale(2.0);
  StandardPanel* panel = openGaugeSheet();
  EXPECT_TRUE(matchesGolden(HeadlessScreen::windowShot(*panel), ZO_GOLDEN_DIR "/gauge_sheet_scale2.png"));
}

} // namespace

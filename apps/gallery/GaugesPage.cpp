// Gauges and the busy sign: a slider sets how far the work has got.
#include "PageLayout.h"

#include <zowidgets/host/drawing/Palette.h>
#include <zowidgets/host/toolkit/UifStd.h>
#include <zowidgets/host/widgets/buttons/PushButton.h>
#include <zowidgets/host/widgets/panels/TitleGlob.h>
#include <zowidgets/host/widgets/values/ActionIndicator.h>
#include <zowidgets/host/widgets/values/Gauge.h>
#include <zowidgets/host/widgets/values/SharkGauge.h>
#include <zowidgets/host/widgets/values/Slider.h>

#include <vector>

namespace {

// The pretend task behind the page takes ten minutes.
constexpr double kTaskSeconds = 600.0;
constexpr double kInitialProgress = 0.35;

Gauge* addGauge(StandardPanel& panel, WidgetPosition const& where, XY<int> size, UIString const& label) {
  Gauge::InitArgs args(size);
  args.measure = kInitialProgress;
  args.label = label;
  return panel.createWidget<Gauge>(args, where);
}

LightweightString<wchar_t> remainingText(double progress) {
  LightweightString<wchar_t> text(L"Remaining ");
  text += SharkGauge::formatDuration((1.0 - progress) * kTaskSeconds);
  return text;
}

Glob* buildGaugesPage(PageContext const& context) {
  PageMetrics const m = PageMetrics::current();
  int const width = m.row * 14;
  int const thin = UifStd::getWidgetGap();
  StandardPanel* panel =
      openPageWindow(context, XY<int>(width + 2 * m.gap, 6 * m.row + thin + 9 * m.rowGap), L"Gauges");
  Palette const& palette = panel->getPalette();

  TitleGlob::InitArgs row(XY<int>(width, m.row));
  row.legend = L"Progress";
  auto* progressRow = panel->createWidget<TitleGlob>(row, Glob::UserTopLeft(m.gap, m.rowGap));
  Slider::InitArgs sliderArgs(XY<int>(width - TitleGlob::calcLegendWidth(row.legend), m.row));
  sliderArgs.initialValue = kInitialProgress;
  auto* progress = new Slider(sliderArgs);
  progressRow->setChildGlob(progress);

  std::vector<Gauge*> gauges;
  gauges.push_back(addGauge(*panel, Glob::Below(m.rowGap, progressRow), XY<int>(width, m.row), L"Copying files"));
  Gauge* render = addGauge(*panel, Glob::Below(m.rowGap), XY<int>(width, m.row), L"Rendering");
  render->setCols(palette.selection(), palette.childWindow(1), kRedrawNow);
  gauges.push_back(render);
  gauges.push_back(addGauge(*panel, Glob::Below(m.rowGap), XY<int>(width, thin), {}));
  SharkGauge::InitArgs sharkArgs(XY<int>(width, SharkGauge::calcHeight()));
  sharkArgs.measure = kInitialProgress;
  sharkArgs.label = remainingText(kInitialProgress);
  auto* shark = panel->createWidget<SharkGauge>(sharkArgs, Glob::Below(m.rowGap));
  Gauge* inactive = addGauge(*panel, Glob::Below(m.rowGap), XY<int>(width, m.row), L"Waiting");
  inactive->setActive(false, kRedrawNow);

  // Each gauge repaints only when the new value would change what it shows;
  // the shark gauge's time changes with every value.
  progress->addListener(Slider::makeCallback([gauges, shark](SliderEvent const& event) {
    if (event.kind != SliderEvent::kValueRequested)
      return;
    for (Gauge* gauge : gauges)
      if (!gauge->isShowingValue(event.value)) {
        gauge->setMeasure(event.value);
        gauge->display();
      }
    shark->setLabel(remainingText(event.value));
    shark->setMeasure(event.value);
    shark->display();
  }));

  auto* indicator = panel->createWidget<ActionIndicator>(
      ActionIndicator::InitArgs(LightweightString<char>("action-indicator.png")), Glob::Below(m.rowGap, inactive));
  auto* toggle = panel->createWidget<PushButton>(PushButton::InitArgs(L"Stop", XY<int>(m.row * 4, 0)),
                                                 Glob::RightOf(m.gap, indicator, kAlignCentre));
  toggle->setCallback(Broadcaster<ButtonEvent>::makeCallback([indicator, toggle](ButtonEvent const&) {
    if (indicator->isRunning())
      indicator->stop();
    else
      indicator->start();
    toggle->setLabel(indicator->isRunning() ? L"Stop" : L"Start");
  }));
  return panel;
}

PageRegistrar const gaugesPage{"gauges", "Gauges",
                               "Gauges with labels, in a progress window's colours, thin and inactive; a shark gauge "
                               "with the time left and the percentage; a busy sign with a button to stop it. The "
                               "Progress slider drives them all",
                               buildGaugesPage};

} // namespace

// A panel of many rows that scrolls.
#include "PageLayout.h"

#include <zowidgets/host/toolkit/GlobManager.h>
#include <zowidgets/host/widgets/panels/TitleGlob.h>
#include <zowidgets/host/widgets/panels/VerticalScrollingBase.h>
#include <zowidgets/host/widgets/values/Slider.h>

#include <string>

namespace {

Glob* buildScrollingPage(PageContext const& context) {
  PageMetrics const m = PageMetrics::current();
  int const rowsShown = 8;
  XY<int> const userArea(m.row * 14, rowsShown * m.row + (rowsShown - 1) * m.rowGap);
  unsigned const widgets = StandardPanel::kTitle | StandardPanel::kPoot;
  VerticalScrollingBase::InitArgs args(
      StandardPanel::calcPanelSize(userArea, widgets, StandardPanel::getDefaultBorder()));
  args.screenPosition = context.screenPosition;
  args.standardWidgets = widgets;
  args.title = L"Scrolling rows";
  auto* panel = new VerticalScrollingBase(args);
  GlobManager::realize(panel);
  int const width = panel->getView()->width();
  for (int track = 1; track <= 40; ++track) {
    TitleGlob::InitArgs row(XY<int>(width, m.row));
    row.legend = LightweightString<wchar_t>(L"Track " + std::to_wstring(track));
    auto* titled = panel->createManagedWidget<TitleGlob>(row);
    Slider::InitArgs level(XY<int>(width * 2 / 3, m.row));
    level.initialValue = (track % 10) / 10.0;
    titled->setChildGlob(new Slider(level));
  }
  panel->recalcWidgetsHeight();
  panel->resetView();
  return panel;
}

PageRegistrar const scrollingPage{"scrolling", "Scrolling rows",
                                  "A panel of forty titled sliders that scrolls by its bar and the wheel",
                                  buildScrollingPage};

} // namespace

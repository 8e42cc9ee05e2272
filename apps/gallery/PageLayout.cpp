#include "PageLayout.h"

#include <zowidgets/host/toolkit/GlobManager.h>
#include <zowidgets/host/toolkit/UifStd.h>

StandardPanel* openPageWindow(PageContext const& context, XY<int> userArea, UIString const& title,
                              unsigned standardWidgets) {
  StandardPanel::InitArgs args(
      StandardPanel::calcPanelSize(userArea, standardWidgets, StandardPanel::getDefaultBorder()));
  args.screenPosition = context.screenPosition;
  args.standardWidgets = standardWidgets;
  args.title = title;
  auto* panel = new StandardPanel(args);
  GlobManager::realize(panel);
  return panel;
}

PageMetrics PageMetrics::current() { return {UifStd::getRowHeight(), UifStd::getWidgetGap(), UifStd::getRowGap()}; }

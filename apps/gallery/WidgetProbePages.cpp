// The developer's inspector at work: a small panel, and an inspector whose
// hot spot sits on a corner of the panel's button, showing the button and
// its window, the button highlighted. The commands' own pages open the tools bare.
#include "PageLayout.h"

#include <zowidgets/diagnostics/GlobProbe.h>
#include <zowidgets/diagnostics/InfoWidget.h>
#include <zowidgets/host/toolkit/Canvas.h>
#include <zowidgets/host/toolkit/GlobManager.h>
#include <zowidgets/host/widgets/buttons/Button.h>
#include <zowidgets/host/widgets/text/TextLabel.h>

namespace {

Glob* buildInspectorPage(PageContext const& context) {
  PageMetrics const m = PageMetrics::current();
  StandardPanel* panel = openPageWindow(context, XY<int>(m.row * 10, 3 * m.row + 2 * m.gap), L"Inspected panel");
  TextLabel::InitArgs label(XY<int>(m.row * 6, m.row));
  label.text = L"Clip name";
  panel->createWidget<TextLabel>(label, Glob::UserTopLeft(m.gap, m.gap));
  auto* button = panel->createWidget<Button>(Button::InitArgs(L"Render", XY<int>(m.row * 4, m.row)),
                                             Glob::UserBottomRight(m.gap, m.gap));
  GlobManager::redisplay();

  // The inspector's hot spot on the button's bottom-right corner, as a drag
  // and a chord put it: growing up and right from there, it leaves the rest
  // of the panel in sight.
  XY<int> const spot = button->screenPosition() + XY<int>(button->width() - 2, 1);
  GlobInspector::InitArgs args(GlobCreationInfo(GlobInspector::calcSizeFor(button)));
  args.screenPosition = spot;
  args.target = button;
  auto* inspector = new GlobInspector(args);
  GlobManager::realize(inspector);
  inspector->getInfoWidgets().front()->setHighlighted(true);
  return panel;
}

PageRegistrar const probePage{"globprobe", "Glob inspector",
                              "A panel and a Glob Inspector whose marked corner sits on the panel's button: a row "
                              "for the button, highlighted, and one for its window. Drag the "
                              "inspector by its title and press the left and right buttons together on it to "
                              "inspect what lies under the corner; right-click a row to change that widget",
                              buildInspectorPage};

} // namespace

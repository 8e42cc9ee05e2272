// A panel with every standard widget: title bar, close, pin and menu
// buttons, and a footer whose "OK" acts.
#include "PageLayout.h"

#include <zowidgets/host/toolkit/GlobManager.h>
#include <zowidgets/host/widgets/text/TextLabel.h>

namespace {

// Says in its body what its standard widgets did.
class StandardWidgetsPanel : public StandardPanel {
public:
  explicit StandardWidgetsPanel(InitArgs const& args) : StandardPanel(args) {
    PageMetrics const m = PageMetrics::current();
    TextLabel::InitArgs label(XY<int>(getUserArea().width() - 2 * m.gap, 3 * m.row));
    label.text = L"Drag the title bar to move the panel. The pin, the menu button and OK report here; the cross "
                 L"closes it.";
    label.wordWrap = true;
    status_ = createWidget<TextLabel>(label, Glob::UserTopLeft(m.gap, m.gap));
  }
  char const* idstring() const override { return "StandardWidgetsPanel"; }

  std::vector<MenuItem> getMenuItems(Event const*) override {
    return {MenuItem::heading(L"Panel"), MenuItem(L"Reset"), MenuItem(L"Duplicate"), MenuItem::separator(),
            MenuItem(L"Help")};
  }
  void handleMenuChoice(int, MenuItem const& item) override {
    status_->setString(LightweightString<wchar_t>(L"Menu: " + item.text.getString().str()));
  }
  void handlePinned(bool pinned) override {
    StandardPanel::handlePinned(pinned);
    status_->setString(pinned ? L"Pinned" : L"Unpinned");
  }
  void handleDoIt() override { status_->setString(L"OK pressed"); }

private:
  TextLabel* status_ = nullptr;
};

Glob* buildStandardPanelPage(PageContext const& context) {
  PageMetrics const m = PageMetrics::current();
  unsigned const widgets =
      StandardPanel::kTitle | StandardPanel::kPoot | StandardPanel::kPin | StandardPanel::kCogs | StandardPanel::kDoIt;
  XY<int> const userArea(m.row * 14, 3 * m.row + 2 * m.gap);
  StandardPanel::InitArgs args(StandardPanel::calcPanelSize(userArea, widgets, StandardPanel::getDefaultBorder()));
  args.screenPosition = context.screenPosition;
  args.standardWidgets = widgets;
  args.title = L"Standard panel";
  auto* panel = new StandardWidgetsPanel(args);
  GlobManager::realize(panel);
  return panel;
}

PageRegistrar const standardPanelPage{"standard-panel", "Standard panel",
                                      "A panel with a title bar, close, pin and menu buttons and an OK footer; each "
                                      "reports in the panel's body",
                                      buildStandardPanelPage};

} // namespace

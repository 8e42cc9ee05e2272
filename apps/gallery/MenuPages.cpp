// Drop-down menu buttons, closed and with a menu open.
#include "PageLayout.h"

#include <zowidgets/host/widgets/popups/DropDownMenuButton.h>
#include <zowidgets/host/widgets/text/TextLabel.h>

#include <vector>

namespace {

std::vector<MenuItem> frameRates() {
  std::vector<MenuItem> items{MenuItem::heading(L"Film"), MenuItem(L"23.976 fps"),     MenuItem(L"24 fps"),
                              MenuItem::separator(),      MenuItem::heading(L"Video"), MenuItem(L"25 fps"),
                              MenuItem(L"29.97 fps"),     MenuItem(L"50 fps")};
  items[6].active = false;
  return items;
}

struct MenuSheet {
  StandardPanel* panel;
  DropDownMenuButton* rate;
};

// A drop-down of frame rates, a titled one of resolutions, and a line that
// names the last choice.
MenuSheet openMenuSheet(PageContext const& context, UIString const& title) {
  PageMetrics const m = PageMetrics::current();
  int const width = m.row * 14;
  StandardPanel* panel = openPageWindow(context, XY<int>(width + 2 * m.gap, 3 * m.row + 4 * m.gap), title);
  TextLabel::InitArgs statusArgs(XY<int>(width, m.row));
  statusArgs.text = L"Choose a frame rate or a resolution";
  auto* status = panel->createWidget<TextLabel>(statusArgs, Glob::UserBottomLeft(m.gap, m.gap));

  auto* rate = panel->createWidget<DropDownMenuButton>(
      DropDownMenuButton::InitArgs(frameRates(), 2, XY<int>(m.row * 6, 0)), Glob::UserTopLeft(m.gap, m.gap));
  rate->setSelectionHook([status, rate](int) {
    status->setString(LightweightString<wchar_t>(L"Frame rate: " + rate->getSelectedItemNameW().str()));
  });
  TitleMenuButton::InitArgs sizeArgs(L"Resolution",
                                     {MenuItem(L"1280 x 720"), MenuItem(L"1920 x 1080"), MenuItem(L"3840 x 2160")}, 1,
                                     XY<int>(width, 0));
  auto* resolution = panel->createWidget<TitleMenuButton>(sizeArgs, Glob::Below(m.gap, rate));
  DropDownMenuButton& button = resolution->getBtn();
  button.setSelectionHook([status, &button](int) {
    status->setString(LightweightString<wchar_t>(L"Resolution: " + button.getSelectedItemNameW().str()));
  });
  return {panel, rate};
}

Glob* buildMenusPage(PageContext const& context) { return openMenuSheet(context, L"Drop-down menus").panel; }

Glob* buildOpenMenuPage(PageContext const& context) {
  MenuSheet sheet = openMenuSheet(context, L"An open menu");
  sheet.rate->openMenu();
  return sheet.panel;
}

PageRegistrar const menusPage{"menus", "Drop-down menus",
                              "A drop-down menu button and a titled one; choosing a row names it below",
                              buildMenusPage};
PageRegistrar const openMenuPage{"menus-open", "An open menu",
                                 "The frame-rate drop-down opened: headings, a separator, an inactive row and the "
                                 "selected row's mark",
                                 buildOpenMenuPage};

} // namespace

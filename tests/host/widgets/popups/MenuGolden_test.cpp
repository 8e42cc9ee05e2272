#include "support/WidgetTestSupport.h"

#include <zowidgets/host/toolkit/UifStd.h>
#include <zowidgets/host/widgets/popups/DropDownMenuButton.h>

#include <string>

namespace {

struct MenuGolden : HeadlessScreenTest {
  void TearDown() override {
    HeadlessScreenTest::TearDown();
    UifStd::setScale(1.0);
  }

  // A drop-down opened, the highlight moved down one row: headings, a
  // separator, an inactive row, the selected row's mark and the highlight.
  void showOpenMenu(std::string const& golden) {
    int const row = UifStd::getRowHeight();
    int const gap = UifStd::getWidgetGap();
    StandardPanel* panel = openPanel(XY<int>(row * 8, row * 2), XY<int>(40, 600));
    std::vector<MenuItem> items{MenuItem::heading(L"Film"), MenuItem(L"23.976 fps"),     MenuItem(L"24 fps"),
                                MenuItem::separator(),      MenuItem::heading(L"Video"), MenuItem(L"25 fps"),
                                MenuItem(L"29.97 fps"),     MenuItem(L"50 fps")};
    items[6].active = false;
    auto* button = panel->createWidget<DropDownMenuButton>(DropDownMenuButton::InitArgs(items, 2, XY<int>(row * 6, 0)),
                                                           Glob::UserTopLeft(gap, gap));
    HeadlessInput::clickOn(*button);
    MenuWindow* window = button->getMenuWindow();
    ASSERT_NE(window, nullptr);
    HeadlessInput::key(kKeyDown);
    EXPECT_TRUE(matchesGolden(HeadlessScreen::windowShot(*window), ZO_GOLDEN_DIR "/" + golden + ".png"));
  }
};

TEST_F(MenuGolden, AnOpenMenu) { showOpenMenu("menu_open"); }

TEST_F(MenuGolden, AnOpenMenuAtDoubleScale) {
  UifStd::setScale(2.0);
  showOpenMenu("menu_open_scale2");
}

} // namespace

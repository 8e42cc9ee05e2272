#include "support/WidgetTestSupport.h"

#include <zowidgets/host/toolkit/UifStd.h>
#include <zowidgets/host/widgets/buttons/Button.h>
#include <zowidgets/host/widgets/buttons/Checkbox.h>
#include <zowidgets/host/widgets/popups/DropDownMenuButton.h>

#include <string>

namespace {

struct ButtonGolden : HeadlessScreenTest {
  void TearDown() override {
    HeadlessInput::release();
    HeadlessScreenTest::TearDown();
    UifStd::setScale(1.0);
  }

  // Four buttons in a row: normal, hovered, held down, inactive; then two
  // tick boxes, a drop-down button and a switch; a flat button at the bottom.
  void showButtonStates(std::string const& golden) {
    int const row = UifStd::getRowHeight();
    int const gap = UifStd::getWidgetGap();
    XY<int> const buttonSize(row * 4, 0);
    StandardPanel* panel = openPanel(XY<int>(row * 18, row * 4), XY<int>(40, 40));
    auto* normal = panel->createWidget<Button>(Button::InitArgs(L"Render", buttonSize), Glob::UserTopLeft(gap, gap));
    auto* hovered = panel->createWidget<Button>(Button::InitArgs(L"Export", buttonSize), Glob::RightOf(gap));
    auto* pressed = panel->createWidget<Button>(Button::InitArgs(L"Import", buttonSize), Glob::RightOf(gap));
    auto* inactive = panel->createWidget<Button>(Button::InitArgs(L"Delete", buttonSize), Glob::RightOf(gap));
    inactive->setActive(false, kRedrawNow);
    panel->createWidget<Checkbox>(Checkbox::InitArgs(L"Loop", XY<int>(), true), Glob::Below(gap, normal));
    panel->createWidget<Checkbox>(Checkbox::InitArgs(L"Snap", XY<int>(), false), Glob::RightOf(gap));
    std::vector<MenuItem> items{MenuItem(L"23.976 fps"), MenuItem(L"25 fps")};
    panel->createWidget<DropDownMenuButton>(DropDownMenuButton::InitArgs(items, 1, XY<int>(row * 5, 0)),
                                            Glob::RightOf(gap));
    Checkbox::InitArgs switchArgs(L"Ripple", XY<int>(), true);
    switchArgs.appearance = Checkbox::kSwitch;
    panel->createWidget<Checkbox>(switchArgs, Glob::RightOf(gap));
    Button::InitArgs flatArgs(L"Flat", buttonSize);
    flatArgs.style = Button::kStyleFlat;
    panel->createWidget<Button>(flatArgs, Glob::UserBottomLeft(gap, gap));
    // The pointer is in one place at a time: one picture holding a button
    // down, one hovering over another.
    HeadlessInput::moveTo(HeadlessInput::pointOn(*pressed));
    HeadlessInput::press();
    ASSERT_TRUE(pressed->isPressedLook());
    EXPECT_TRUE(matchesGolden(HeadlessScreen::windowShot(*panel), ZO_GOLDEN_DIR "/" + golden + "_pressed.png"));
    HeadlessInput::release();
    HeadlessInput::moveTo(HeadlessInput::pointOn(*hovered));
    ASSERT_TRUE(hovered->isHovered());
    EXPECT_TRUE(matchesGolden(HeadlessScreen::windowShot(*panel), ZO_GOLDEN_DIR "/" + golden + ".png"));
  }
};

TEST_F(ButtonGolden, ButtonStatesCheckboxesAndADropDown) { showButtonStates("button_states"); }

TEST_F(ButtonGolden, ButtonStatesCheckboxesAndADropDownAtDoubleScale) {
  UifStd::setScale(2.0);
  showButtonStates("button_states_scale2");
}

} // namespace

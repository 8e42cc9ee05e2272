#pragma once

#include "support/MessageLog.h"
#include "support/WidgetTestSupport.h"

#include <zowidgets/host/headless/HeadlessInput.h>
#include <zowidgets/host/shell/BuiltInMediaTable.h>
#include <zowidgets/host/widgets/popups/DropDownMenuButton.h>

// A headless screen with a panel to put export controls on, and menus
// chosen with the pointer.
class ExportWidgetTest : public HeadlessScreenTest {
protected:
  void SetUp() override {
    HeadlessScreenTest::SetUp();
    panel = openPanel(XY<int>(520, 420));
    log = static_cast<MessageLog*>(panel->addChild(new MessageLog(XY<int>(500, 400)), Glob::UserTopLeft(0, 0)));
  }

  // Opens the button's menu with a click and clicks row `row`.
  void chooseRow(DropDownMenuButton& button, int row) {
    HeadlessInput::clickOn(button);
    pump();
    MenuWindow* menu = button.getMenuWindow();
    ASSERT_NE(menu, nullptr);
    Zo::Box<int> const box = menu->rowBox(row);
    HeadlessInput::clickOn(*menu, XY<int>((box.x0 + box.x1) / 2, (box.y0 + box.y1) / 2));
    pump();
  }

  // The row of the menu whose text is `text`, or -1.
  static int rowOf(DropDownMenuButton const& button, std::wstring_view text) {
    std::vector<MenuItem> const& items = button.getMenu().items();
    for (std::size_t row = 0; row < items.size(); ++row)
      if (items[row].text.getString().view() == text)
        return static_cast<int>(row);
    return -1;
  }

  static ShotVideoMetadata shot(int width, int height) { return ShotVideoMetadata(width, height, {25, 1, false}); }

  StandardPanel* panel = nullptr;
  MessageLog* log = nullptr;
};

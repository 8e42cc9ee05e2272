#pragma once

#include "support/MessageLog.h"
#include "support/WidgetTestSupport.h"

#include <zowidgets/forms/FoCycle.h>
#include <zowidgets/forms/FoEntry.h>
#include <zowidgets/forms/Form.h>
#include <zowidgets/host/drawing/Palette.h>
#include <zowidgets/host/headless/HeadlessInput.h>
#include <zowidgets/host/toolkit/UifStd.h>
#include <zowidgets/host/widgets/popups/DropDownMenuButton.h>
#include <zowidgets/host/widgets/text/TitleTextBox.h>

#include <initializer_list>
#include <memory>
#include <string>
#include <vector>

// A top-level form on the headless screen, its owner keeping every message
// the form sends it.
class FormTest : public HeadlessScreenTest {
protected:
  // Texts set at run time by one test stay out of the next.
  void SetUp() override {
    HeadlessScreenTest::SetUp();
    clearResourceStrings();
  }
  void TearDown() override {
    clearResourceStrings();
    HeadlessScreenTest::TearDown();
  }

  static int elementWidth() { return 16 * UifStd::getRowHeight(); }
  static int elementHeight() { return UifStd::getRowHeight(); }

  // A form at `at` holding `elements` in order, with `owner` as its owner.
  form* openForm(std::initializer_list<fo_eleme*> elements, XY<int> at = XY<int>(60, 60)) {
    XY<int> const size =
        form::calcSizeFor(static_cast<int>(elements.size()), XY<int>(elementWidth(), elementHeight()), 0, L"Form");
    Glob::setupRootPos(nullptr, at);
    auto* sheet = new form(static_cast<unsigned short>(size.x), static_cast<unsigned short>(size.y), owner.get(), 0,
                           UifStd::getColourScheme(), L"Form", fo_eleme::kDefaultPromptFraction);
    for (fo_eleme* element : elements)
      sheet->m_add_element(element, 0);
    GlobManager::realize(sheet);
    pump();
    return sheet;
  }

  static unsigned short width() { return static_cast<unsigned short>(elementWidth()); }
  static unsigned short height() { return static_cast<unsigned short>(elementHeight()); }

  // Clicks into a text element's box, replaces its text with `text` as typed,
  // and presses Return.
  static void typeInto(fo_entry& element, std::string const& text) {
    HeadlessInput::clickOn(*element.getTextBox());
    HeadlessInput::key('a', kKeyCtrl);
    HeadlessInput::typeText(text);
    HeadlessInput::key(kKeyReturn);
    pump();
  }

  // Opens a cycle's menu with a click and clicks row `row`.
  static void chooseRow(fo_cycle& cycle, int row) {
    DropDownMenuButton& button = cycle.getMenuButton()->getBtn();
    HeadlessInput::clickOn(button);
    MenuWindow* window = button.getMenuWindow();
    ASSERT_NE(window, nullptr);
    Zo::Box<int> const box = window->rowBox(row);
    HeadlessInput::clickOn(*window, XY<int>((box.x0 + box.x1) / 2, (box.y0 + box.y1) / 2));
    pump();
  }

  std::vector<std::string> const& received() const { return owner->messages; }

  std::unique_ptr<MessageLog> owner = std::make_unique<MessageLog>(XY<int>(10, 10));
};

#include "support/WidgetTestSupport.h"

#include <zowidgets/host/toolkit/UifStd.h>
#include <zowidgets/host/widgets/text/TextBox.h>
#include <zowidgets/host/widgets/text/TitleTextBox.h>

#include <string>

namespace {

struct TextBoxGolden : HeadlessScreenTest {
  void TearDown() override {
    HeadlessScreenTest::TearDown();
    UifStd::setScale(1.0);
  }

  // Three rows: an empty titled box showing its ghost text, a focused box
  // with a selection, and a password box with its show-password eye.
  static StandardPanel* openTextBoxPanel();
};

StandardPanel* TextBoxGolden::openTextBoxPanel() {
  int const row = UifStd::getRowHeight();
  int const gap = UifStd::getRowGap();
  int const width = 14 * row;
  StandardPanel* panel = openPanel(XY<int>(width + 4 * gap, 3 * row + 6 * gap), XY<int>(40, 40));

  TitleTextBox::InitArgs titledArgs(GlobCreationInfo(XY<int>(width, row)));
  titledArgs.title = L"Clip name";
  titledArgs.titleWidth = 4 * row;
  titledArgs.ghostLabel = L"Untitled";
  panel->createWidget<TitleTextBox>(titledArgs, Glob::UserTopLeft(0, 0));

  auto* selected =
      panel->createWidget<TextBox>(TextBox::InitArgs(GlobCreationInfo(XY<int>(width, row))), Glob::Below(gap));
  auto* password =
      panel->createWidget<TextBox>(TextBox::InitArgs(GlobCreationInfo(XY<int>(width, row))), Glob::Below(gap));
  password->setObfuscatedDisplay(true);
  password->setShowPasswordControl(true);
  password->setString(L"correct horse");

  HeadlessInput::clickOn(*selected);
  HeadlessInput::typeText("Interview take 3");
  HeadlessInput::key(kKeyLeft, kKeyCtrl);
  HeadlessInput::key(kKeyLeft, kKeyCtrl | kKeyShift);
  return panel;
}

TEST_F(TextBoxGolden, GhostTextSelectionAndPassword) {
  StandardPanel* panel = openTextBoxPanel();
  EXPECT_TRUE(matchesGolden(HeadlessScreen::windowShot(*panel), ZO_GOLDEN_DIR "/textbox_states.png"));
}

TEST_F(TextBoxGolden, GhostTextSelectionAndPasswordAtDoubleScale) {
  UifStd::setScale(2.0);
  StandardPanel* panel = openTextBoxPanel();
  EXPECT_TRUE(matchesGolden(HeadlessScreen::windowShot(*panel), ZO_GOLDEN_DIR "/textbox_states_scale2.png"));
}

TEST_F(TextBoxGolden, GhostTextSelectionAndPasswordAtOneAndAHalf) {
  UifStd::setScale(1.5);
  StandardPanel* panel = openTextBoxPanel();
  EXPECT_TRUE(matchesGolden(HeadlessScreen::windowShot(*panel), ZO_GOLDEN_DIR "/textbox_states_scale1_5.png"));
}

} // namespace

#include "support/WidgetTestSupport.h"

#include <zowidgets/host/toolkit/GlobManager.h>
#include <zowidgets/host/toolkit/UifStd.h>
#include <zowidgets/host/widgets/text/MultiLineTextBox.h>
#include <zowidgets/host/widgets/text/TextBox.h>
#include <zowidgets/textentry/MultiLineTextBoxPanel.h>
#include <zowidgets/textentry/TextFilterWidget.h>

#include <string>

namespace {

// The emoji picker and the multi-line panel, in colour, at both scales.
class EmojiGolden : public HeadlessScreenTest, public ::testing::WithParamInterface<double> {
protected:
  void SetUp() override {
    UifStd::setScale(GetParam());
    HeadlessScreenTest::SetUp();
  }
  void TearDown() override {
    HeadlessScreenTest::TearDown();
    UifStd::setScale(1.0);
  }
  std::string golden(char const* state) const {
    return std::string(ZO_GOLDEN_DIR "/") + state + (GetParam() == 1.0 ? "_scale1.png" : "_scale2.png");
  }
};

TEST_P(EmojiGolden, ThePickerOnItsFirstCategoryAndAfterASearch) {
  EmojiPanel::InitArgs args;
  args.screenPosition = XY<int>(20, 20);
  auto* panel = new EmojiPanel(args);
  GlobManager::realize(panel);
  EXPECT_TRUE(matchesGolden(HeadlessScreen::windowShot(*panel), golden("emoji_panel")));
  HeadlessInput::clickOn(*panel->getFilter()->getTextBox());
  HeadlessInput::typeText("cat");
  HeadlessInput::key(kKeyReturn);
  pump();
  EXPECT_TRUE(matchesGolden(HeadlessScreen::windowShot(*panel), golden("emoji_panel_cat")));
}

TEST_P(EmojiGolden, TheMultiLinePanelWithItsEmojiDropDownOpen) {
  int const row = UifStd::getRowHeight();
  MultiLineTextBoxPanel::InitArgs args(XY<int>(row * 14, row * 7),
                                       LightweightString<wchar_t>(L"Scene 12, take 3\nWind on the boom "));
  args.screenPosition = XY<int>(20, 420 * GetParam());
  args.title = UIString(L"Note");
  args.standardWidgets = StandardPanel::kTitle;
  auto* panel = new MultiLineTextBoxPanel(args);
  GlobManager::realize(panel);
  EXPECT_TRUE(matchesGolden(HeadlessScreen::windowShot(*panel), golden("multiline_panel")));
  HeadlessInput::clickOn(*panel->getEmojiButton());
  pump();
  EmojiPanel* picker = panel->getEmojiButton()->getDropDownPanel();
  ASSERT_NE(picker, nullptr);
  HeadlessInput::clickOn(*picker->getGrid()->getItem(3));
  pump();
  panel->update();
  EXPECT_TRUE(matchesGolden(HeadlessScreen::windowShot(*panel), golden("multiline_panel_emoji")));
  EXPECT_TRUE(matchesGolden(HeadlessScreen::windowShot(*panel->getEmojiButton()->getDropDownHost()),
                            golden("multiline_dropdown")));
}

INSTANTIATE_TEST_SUITE_P(Scales, EmojiGolden, ::testing::Values(1.0, 2.0));

} // namespace

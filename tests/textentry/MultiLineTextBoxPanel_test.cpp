#include "support/WidgetTestSupport.h"

#include <zowidgets/host/toolkit/GlobManager.h>
#include <zowidgets/host/toolkit/UifStd.h>
#include <zowidgets/host/widgets/text/MultiLineTextBox.h>
#include <zowidgets/host/widgets/text/TextBox.h>
#include <zowidgets/textentry/MultiLineTextBoxPanel.h>
#include <zowidgets/textentry/TextFilterWidget.h>

#include <string>
#include <vector>

namespace {

using WString = LightweightString<wchar_t>;

std::wstring displayed(wchar_t const* text) { return MultiLineTextBoxPanel::getDisplayString(WString(text)).str(); }

TEST(MultiLineTextBoxPanelDisplayString, OneLineStaysAsItIs) { EXPECT_EQ(displayed(L"abc"), L"abc"); }

TEST(MultiLineTextBoxPanelDisplayString, MoreLinesShowTheFirstAndDots) { EXPECT_EQ(displayed(L"abc\ndef"), L"abc..."); }

TEST(MultiLineTextBoxPanelDisplayString, EmptyLeadingLinesAreSkipped) { EXPECT_EQ(displayed(L"\n\nabc"), L"abc..."); }

TEST(MultiLineTextBoxPanelDisplayString, ATrailingNewlineStillGetsDots) { EXPECT_EQ(displayed(L"abc\n"), L"abc..."); }

TEST(MultiLineTextBoxPanelDisplayString, OnlyEmptyLinesStayAsTheyAre) {
  EXPECT_EQ(displayed(L"\n"), L"\n");
  EXPECT_EQ(displayed(L"\n\n\n"), L"\n\n\n");
  EXPECT_EQ(displayed(L""), L"");
}

TEST(MultiLineTextBoxPanelDisplayString, EmptyMiddleLinesDoNotCount) {
  EXPECT_EQ(displayed(L"\n\nab\n\ncd"), L"ab...");
}

struct MultiLineTextBoxPanelTest : HeadlessScreenTest {
  MultiLineTextBoxPanel* panel = nullptr;
  std::vector<std::wstring> entered;

  void open(wchar_t const* text) {
    int const row = UifStd::getRowHeight();
    MultiLineTextBoxPanel::InitArgs args(
        XY<int>(row * 14, row * 8), WString(text),
        Broadcaster<MultiLineTextBoxPanelEvent>::makeCallback(
            [this](MultiLineTextBoxPanelEvent const& e) { entered.push_back(e.text.str()); }));
    args.screenPosition = XY<int>(100, 500);
    panel = new MultiLineTextBoxPanel(args);
    GlobManager::realize(panel);
  }

  // Opens the picker and clicks its first emoji; the emoji's text, or empty
  // when the picker did not open.
  std::wstring pickFirstEmoji() {
    HeadlessInput::clickOn(*panel->getEmojiButton());
    pump();
    EmojiPanel* picker = panel->getEmojiButton()->getDropDownPanel();
    if (!picker)
      return {};
    auto* cell = static_cast<EmojiPanel::EmojiView*>(picker->getGrid()->getItem(0));
    HeadlessInput::clickOn(*cell);
    return cell->getCharacter().text.str();
  }

  void clickOK() {
    Zo::Box<int> const ok = panel->getStandardWidgetBox(StandardPanel::kDoIt);
    HeadlessInput::click(HeadlessInput::pointOn(*panel, XY<int>((ok.x0 + ok.x1) / 2, (ok.y0 + ok.y1) / 2)));
  }
};

TEST_F(MultiLineTextBoxPanelTest, TheBoxStartsWithTheTextAndTheGhostLabelShowsWhenEmpty) {
  open(L"first line\nsecond");
  EXPECT_EQ(panel->getTextBox()->getString().str(), L"first line\nsecond");
  EXPECT_EQ(panel->getTextBox()->getGhostLabel().getString().str(), L"Type your text here");
  EXPECT_EQ(panel->getTooltip().getString().str(), L"Type your text here");
}

TEST_F(MultiLineTextBoxPanelTest, TextTypedAsSoonAsThePickerOpensGoesToItsSearch) {
  open(L"");
  HeadlessInput::clickOn(*panel->getEmojiButton());
  pump();
  EmojiPanel* picker = panel->getEmojiButton()->getDropDownPanel();
  ASSERT_NE(picker, nullptr);
  HeadlessInput::typeText("heart");
  EXPECT_EQ(picker->getFilter()->getString(), LightweightString<wchar_t>(L"heart"));
  EXPECT_EQ(get_kbd_focus(), picker->getFilter()->getTextBox());
  EXPECT_EQ(panel->getTextBox()->getString().str(), L"") << "not in the note";
}

TEST_F(MultiLineTextBoxPanelTest, AnEmojiPickedFromTheDropDownGoesInAtTheCursor) {
  open(L"Hello world");
  panel->getTextBox()->placeCaret(5);
  std::wstring const emoji = pickFirstEmoji();
  ASSERT_FALSE(emoji.empty());
  pump();
  EXPECT_EQ(panel->getTextBox()->getString().str(), L"Hello" + emoji + L" world");
}

TEST_F(MultiLineTextBoxPanelTest, OKReportsTheWholeTextOnceAndThePanelGoes) {
  open(L"");
  HeadlessInput::clickOn(*panel->getTextBox());
  HeadlessInput::typeText("one");
  HeadlessInput::key(kKeyReturn);
  HeadlessInput::typeText("two");
  clickOK();
  clickOK();
  EXPECT_EQ(entered, std::vector<std::wstring>{L"one\ntwo"});
  pump();
  EXPECT_FALSE(is_good_glob_ptr(panel));
}

TEST_F(MultiLineTextBoxPanelTest, CtrlReturnEntersTheTextWhileReturnStartsALine) {
  open(L"a");
  HeadlessInput::clickOn(*panel->getTextBox());
  HeadlessInput::key(kKeyEnd, kKeyCtrl);
  HeadlessInput::key(kKeyReturn);
  EXPECT_TRUE(entered.empty());
  HeadlessInput::typeText("b");
  HeadlessInput::key(kKeyReturn, kKeyCtrl);
  EXPECT_EQ(entered, std::vector<std::wstring>{L"a\nb"});
  pump();
  EXPECT_FALSE(is_good_glob_ptr(panel));
}

TEST_F(MultiLineTextBoxPanelTest, ClosingThePanelOtherwiseDropsTheText) {
  open(L"draft");
  GlobManager::requestDeletion(panel);
  pump();
  EXPECT_TRUE(entered.empty());
}

TEST_F(MultiLineTextBoxPanelTest, EscapeInTheBoxClosesThePanelAndDropsTheText) {
  open(L"draft");
  HeadlessInput::clickOn(*panel->getTextBox());
  HeadlessInput::typeText(" more");
  HeadlessInput::key(kKeyEscape);
  pump();
  EXPECT_FALSE(is_good_glob_ptr(panel));
  EXPECT_TRUE(entered.empty());
}

TEST_F(MultiLineTextBoxPanelTest, TypingGoesOnInTheBoxRightAfterAPick) {
  open(L"Hi");
  std::wstring const emoji = pickFirstEmoji();
  ASSERT_FALSE(emoji.empty());
  EXPECT_TRUE(panel->getTextBox()->hasKbdFocus());
  EXPECT_NE(panel->getEmojiButton()->getDropDownPanel(), nullptr) << "the picker stays for more";
  HeadlessInput::typeText("!");
  EXPECT_EQ(panel->getTextBox()->getString().str(), L"Hi" + emoji + L"!");
}

} // namespace

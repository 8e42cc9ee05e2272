#include "support/MessageLog.h"
#include "support/WidgetTestSupport.h"

#include <zowidgets/host/toolkit/UifStd.h>
#include <zowidgets/host/widgets/text/TextBox.h>
#include <zowidgets/textentry/DropDownSearchPanel.h>

#include <string>
#include <vector>

namespace {

struct DropDownSearchPanelTest : HeadlessScreenTest {
  StandardPanel* panel = nullptr;
  MessageLog* target = nullptr;
  DropDownSearchPanelButton* button = nullptr;

  void SetUp() override {
    HeadlessScreenTest::SetUp();
    panel = openPanel(XY<int>(400, 300), XY<int>(100, 400));
    target = static_cast<MessageLog*>(panel->addChild(new MessageLog(XY<int>(20, 20)), Glob::UserBottomLeft(0, 0)));
    button = panel->createWidget<DropDownSearchPanelButton>(
        DropDownSearchPanelButton::InitArgs(UifStd::getRowHeight(), target), Glob::UserTopRight(0, 0));
  }

  DropDownSearchPanel* open() {
    HeadlessInput::clickOn(*button);
    pump();
    return button->getDropDownPanel();
  }

  void search(std::string const& text) {
    HeadlessInput::typeText(text);
    HeadlessInput::key(kKeyReturn);
    pump();
  }
};

TEST_F(DropDownSearchPanelTest, TheOpenedBoxHasTheFocusSoTypingGoesStraightIn) {
  DropDownSearchPanel* dropDown = open();
  ASSERT_NE(dropDown, nullptr);
  EXPECT_TRUE(dropDown->getSearchWidget()->getTextBox()->hasKbdFocus());
  HeadlessInput::typeText("abc");
  EXPECT_EQ(dropDown->getSearchWidget()->getString().str(), L"abc");
}

TEST_F(DropDownSearchPanelTest, ASearchReachesTheTargetAsOneMessageWithTheTextInUtf8) {
  ASSERT_NE(open(), nullptr);
  search("caf\xC3\xA9 = bar");
  EXPECT_EQ(target->messages, std::vector<std::string>{"StartSearch=caf\xC3\xA9 = bar"});
}

TEST_F(DropDownSearchPanelTest, TheDropDownClosesAfterItsFirstSearch) {
  ASSERT_NE(open(), nullptr);
  search("one");
  EXPECT_EQ(button->getDropDownPanel(), nullptr);
  EXPECT_EQ(button->getDropDownHost(), nullptr);
  EXPECT_EQ(button->getState(), 0) << "the button pops up with it";
}

TEST_F(DropDownSearchPanelTest, WithRepeatAllowedTheDropDownStaysForMoreSearches) {
  button->setAllowRepeatedSearch(true);
  DropDownSearchPanel* dropDown = open();
  ASSERT_NE(dropDown, nullptr);
  search("one");
  ASSERT_EQ(button->getDropDownPanel(), dropDown);
  TextBox* box = dropDown->getSearchWidget()->getTextBox();
  EXPECT_FALSE(box->hasKbdFocus()) << "the search button took the focus";
  dropDown->getSearchWidget()->setString(LightweightString<wchar_t>());
  HeadlessInput::clickOn(*box);
  search("two");
  EXPECT_EQ(target->messages, (std::vector<std::string>{"StartSearch=one", "StartSearch=two"}));
  EXPECT_NE(button->getDropDownPanel(), nullptr);
}

TEST_F(DropDownSearchPanelTest, AGoneTargetMakesTheSearchHarmless) {
  ASSERT_NE(open(), nullptr);
  target->setVisible(false);
  panel->removeWidget(target);
  search("orphan");
  EXPECT_EQ(button->getDropDownPanel(), nullptr) << "it still closes";
}

TEST_F(DropDownSearchPanelTest, TheButtonShowsTheMagnifierAndOpensBelowItself) {
  EXPECT_STREQ(button->idstring(), "DropDownSearchPanelButton");
  DropDownSearchPanel* dropDown = open();
  ASSERT_NE(dropDown, nullptr);
  EXPECT_LT(screenBoxOf(*dropDown).y1, screenBoxOf(*button).y0 + 1);
}

} // namespace

#include "startup/StartupTestSupport.h"

#include <zowidgets/host/headless/HeadlessScreen.h>
#include <zowidgets/host/shell/Command.h>
#include <zowidgets/host/shell/Preferences.h>
#include <zowidgets/host/toolkit/GlobManager.h>
#include <zowidgets/host/toolkit/UifStd.h>
#include <zowidgets/host/widgets/buttons/Button.h>
#include <zowidgets/host/widgets/files/FileBrowserButton.h>
#include <zowidgets/host/widgets/text/MultiLineTextBox.h>
#include <zowidgets/host/widgets/text/TitleTextBox.h>
#include <zowidgets/startup/AnnouncementPanel.h>
#include <zowidgets/startup/AnnouncementTestPanel.h>

namespace {

using WString = LightweightString<wchar_t>;

class AnnouncementTestPanelTest : public StartupTest {
protected:
  void SetUp() override {
    StartupTest::SetUp();
    panel = AnnouncementTestPanel::open();
    pump();
  }

  // Types into the description box as a user would: a click, then keys.
  void describe(std::string_view text) {
    HeadlessInput::clickOn(panel->descriptionBox(), XY<int>(10, panel->descriptionBox().height() - 10));
    pump();
    HeadlessInput::typeText(text);
    pump();
  }

  AnnouncementTestPanel* panel = nullptr;
};

TEST_F(AnnouncementTestPanelTest, TheCommandOpensTheToolTwentyRowsSquare) {
  GlobManager::requestDeletion(panel);
  pump();
  ASSERT_TRUE(CommandMap::callCommand(AnnouncementTestPanel::kCommand));
  pump();
  EXPECT_EQ(AnnouncementTestPanel::calcSize(), XY<int>(20 * UifStd::getRowHeight(), 20 * UifStd::getRowHeight()));
}

TEST_F(AnnouncementTestPanelTest, ItStartsWithItsDefaultsAndAnInactiveButton) {
  EXPECT_EQ(panel->getTitle().getString(), WString(L"Announcements Test"));
  EXPECT_EQ(panel->titleBox().getString(), WString(L"[Enter a title]"));
  EXPECT_EQ(panel->titleBox().getTitle().getString(), WString(L"Title"));
  EXPECT_FALSE(panel->testButton().isActive());
}

TEST_F(AnnouncementTestPanelTest, TheButtonStaysInactiveForAParagraphWithoutItsClosingTag) {
  describe("<p>Half a paragraph");
  EXPECT_FALSE(panel->testButton().isActive());
  HeadlessInput::typeText("</p>");
  pump();
  EXPECT_TRUE(panel->testButton().isActive());
}

TEST_F(AnnouncementTestPanelTest, ALinkMakesTheButtonActive) {
  describe("https://example.org/news");
  EXPECT_TRUE(panel->testButton().isActive());
}

TEST_F(AnnouncementTestPanelTest, TheRuleOfWhatCanBeTried) {
  EXPECT_TRUE(AnnouncementTestPanel::canTest(L"http://a"));
  EXPECT_TRUE(AnnouncementTestPanel::canTest(L"https://a"));
  EXPECT_TRUE(AnnouncementTestPanel::canTest(L"<p>text</p>"));
  EXPECT_FALSE(AnnouncementTestPanel::canTest(L"<p>text"));
  EXPECT_FALSE(AnnouncementTestPanel::canTest(L"text</p>"));
  EXPECT_FALSE(AnnouncementTestPanel::canTest(L"ftp://a"));
  EXPECT_FALSE(AnnouncementTestPanel::canTest(L""));
}

TEST_F(AnnouncementTestPanelTest, TestOpensTheAnnouncementOneRowToTheRightAndReplacesTheLastOne) {
  describe("<p>Hello from the test panel</p>");
  HeadlessInput::clickOn(panel->testButton());
  pump();
  AnnouncementPanel* first = panel->lastAnnouncement();
  ASSERT_NE(first, nullptr);
  EXPECT_EQ(first->message().recurrence, WString(L"once"));
  EXPECT_EQ(first->message().title, WString(L"[Enter a title]"));
  EXPECT_EQ(first->screenPosition().x, panel->screenPosition().x + panel->width() + UifStd::getRowHeight());

  HeadlessInput::clickOn(panel->testButton());
  pump();
  AnnouncementPanel* second = panel->lastAnnouncement();
  ASSERT_NE(second, nullptr);
  EXPECT_NE(second, first);
  int announcements = 0;
  for (Glob* root : GlobManager::topLevelWindows())
    announcements += dynamic_cast<AnnouncementPanel*>(root) ? 1 : 0;
  EXPECT_EQ(announcements, 1);
}

TEST_F(AnnouncementTestPanelTest, AnAnnouncementThatWouldLeaveTheScreenIsMovedBackOntoIt) {
  GlobManager::requestDeletion(panel);
  pump();
  XY<int> const screen = headlessScreen().screenSize();
  Glob::setupRootPos(nullptr, XY<int>(screen.x - AnnouncementTestPanel::calcSize().x - 10, 100));
  panel = AnnouncementTestPanel::open();
  pump();
  describe("<p>Near the edge</p>");
  HeadlessInput::clickOn(panel->testButton());
  pump();
  AnnouncementPanel* shown = panel->lastAnnouncement();
  ASSERT_NE(shown, nullptr);
  EXPECT_LE(shown->screenPosition().x + shown->width(), screen.x);
  EXPECT_GE(shown->screenPosition().x, 0);
}

TEST_F(AnnouncementTestPanelTest, TheImageChooserOffersPicturesAndRemembersTheirFolder) {
  FileBrowserButton& chooser = panel->imageButton().getButton();
  EXPECT_EQ(panel->imageButton().getLegend().getString(), WString(L"Image"));
  EXPECT_EQ(chooser.getLabel(), WString(L"Choose an Image"));
  WString const picture = writePicture("chosen.png", XY<int>(40, 30));
  chooser.broadcast(FileBrowserEvent{FileBrowserEvent::kFileChosen, picture, nullptr});
  EXPECT_EQ(prefs().getPreference(AnnouncementTestPanel::kFolderPreference, WString()),
            WString(folder().wstring().c_str()));
}

} // namespace

#include "host/shell/TempFolder.h"
#include "support/WidgetTestSupport.h"

#include <zowidgets/export/SaveFileDialogue.h>
#include <zowidgets/host/headless/HeadlessScreen.h>
#include <zowidgets/host/widgets/lists/TableWidget.h>

#include <filesystem>
#include <vector>

namespace {

using HeadlessInput::key;

struct SaveFileDialogueTest : HeadlessScreenTest {
  TempFolder folder;
  std::vector<SaveFileDialogueEvent> heard;

  SaveFileDialogue* open(LightweightString<wchar_t> const& name) {
    return SaveFileDialogue::open(
        SaveFileDialogue::InitArgs(UIString(L"Save the log"), UIString(name), folder.wide(),
                                   Broadcaster<SaveFileDialogueEvent>::makeCallback(
                                       [this](SaveFileDialogueEvent const& event) { heard.push_back(event); })));
  }
  static void typeInto(TitleTextBox& box, std::string_view text) {
    HeadlessInput::clickOn(box, XY<int>(box.width() - 4, box.height() / 2));
    HeadlessInput::typeText(text);
  }
};

TEST_F(SaveFileDialogueTest, ItStartsWithTheDefaultNameTheFolderAndAnActiveSaveButton) {
  SaveFileDialogue* dialogue = open(L"log.txt");
  EXPECT_TRUE(GlobManager::isModal(dialogue));
  EXPECT_EQ(dialogue->getNameBox().getString(), LightweightString<wchar_t>(L"log.txt"));
  EXPECT_EQ(dialogue->getNameBox().getTitle().getString(), LightweightString<wchar_t>(L"Name"));
  EXPECT_EQ(dialogue->getFolderButton().getPath(), folder.wide());
  EXPECT_EQ(dialogue->getSaveButton().getLabel(), LightweightString<wchar_t>(L"Save"));
  EXPECT_TRUE(dialogue->getSaveButton().isActive());
  EXPECT_EQ(dialogue->getTitle().getString(), LightweightString<wchar_t>(L"Save the log"));
  EXPECT_LT(dialogue->getFolderButton().getY(), dialogue->getNameBox().getY()) << "the folder below the name";
}

TEST_F(SaveFileDialogueTest, TheSaveButtonIsInactiveUntilANameExistsAndAfterTheLastCharacterGoes) {
  SaveFileDialogue* dialogue = open(L"");
  Button& save = dialogue->getSaveButton();
  EXPECT_FALSE(save.isActive());
  typeInto(dialogue->getNameBox(), "a");
  pump();
  EXPECT_TRUE(save.isActive());
  key(kKeyBackspace);
  pump();
  EXPECT_TRUE(dialogue->getNameBox().getString().empty());
  EXPECT_FALSE(save.isActive());
  HeadlessInput::clickOn(save);
  pump();
  EXPECT_TRUE(heard.empty()) << "an inactive button saves nothing";
  EXPECT_TRUE(is_good_glob_ptr(dialogue));
}

TEST_F(SaveFileDialogueTest, CharactersThatCannotBeInAFileNameAreRefusedAsTyped) {
  SaveFileDialogue* dialogue = open(L"");
  typeInto(dialogue->getNameBox(), "a/b\\c:d*e?f\"g<h>i|j k.txt");
  pump();
  EXPECT_EQ(dialogue->getNameBox().getString(), LightweightString<wchar_t>(L"abcdefghij k.txt"));
  typeInto(dialogue->getNameBox(), "/");
  EXPECT_EQ(dialogue->getNameBox().getString(), LightweightString<wchar_t>(L"abcdefghij k.txt"));
}

TEST_F(SaveFileDialogueTest, SaveTellsTheNameAndFolderOnceAndCloses) {
  SaveFileDialogue* dialogue = open(L"take");
  typeInto(dialogue->getNameBox(), " 2.mov");
  HeadlessInput::clickOn(dialogue->getSaveButton());
  pump();
  ASSERT_EQ(heard.size(), 1u);
  EXPECT_EQ(heard[0].name, LightweightString<wchar_t>(L"take 2.mov"));
  EXPECT_EQ(heard[0].folder, folder.wide());
  EXPECT_FALSE(is_good_glob_ptr(dialogue));
}

TEST_F(SaveFileDialogueTest, ReturnInTheNameSavesAndEscapeClosesWithoutSaving) {
  SaveFileDialogue* dialogue = open(L"");
  typeInto(dialogue->getNameBox(), "");
  key(kKeyReturn);
  pump();
  EXPECT_TRUE(heard.empty()) << "no name, nothing saved";
  ASSERT_TRUE(is_good_glob_ptr(dialogue));
  HeadlessInput::typeText("take 3.mov");
  key(kKeyReturn);
  pump();
  ASSERT_EQ(heard.size(), 1u);
  EXPECT_EQ(heard[0].name, LightweightString<wchar_t>(L"take 3.mov"));
  EXPECT_FALSE(is_good_glob_ptr(dialogue));

  SaveFileDialogue* second = open(L"take 4.mov");
  typeInto(second->getNameBox(), "");
  key(kKeyEscape);
  pump();
  EXPECT_FALSE(is_good_glob_ptr(second));
  EXPECT_EQ(heard.size(), 1u) << "Escape saves nothing";
}

TEST_F(SaveFileDialogueTest, TheNameBoxHasTheKeysAtOnceWithTheProposedNameSelected) {
  SaveFileDialogue* dialogue = open(L"Task log");
  EXPECT_EQ(get_kbd_focus(), &dialogue->getNameBox());
  HeadlessInput::typeText("render");
  EXPECT_EQ(dialogue->getNameBox().getString(), LightweightString<wchar_t>(L"render")) << "typed over the proposal";
  key(kKeyReturn);
  pump();
  ASSERT_EQ(heard.size(), 1u);
  EXPECT_EQ(heard[0].name, LightweightString<wchar_t>(L"render"));
}

TEST_F(SaveFileDialogueTest, TheFolderChosenInTheBrowserIsTheOneSaved) {
  std::filesystem::create_directory(folder / "renders");
  SaveFileDialogue* dialogue = open(L"cut.mov");
  FileBrowserButton& button = dialogue->getFolderButton().getButton();
  HeadlessInput::clickOn(button);
  pump();
  FileChooserWindow* chooser = button.getOpenChooser();
  ASSERT_NE(chooser, nullptr);
  FileBrowser& browser = chooser->getBrowser();
  EXPECT_EQ(browser.getFolder(), folder.wide());
  ASSERT_TRUE(browser.selectEntry(L"renders"));
  HeadlessInput::doubleClick(HeadlessInput::pointOn(
      *browser.getTable(), XY<int>(20, browser.getTable()->getCellBox(XY<int>(0, browser.getCurrentRow())).y0 + 4)));
  pump();
  EXPECT_EQ(browser.getFolder(), folder.wide("renders"));
  chooser->handleDoIt();
  pump();
  EXPECT_EQ(button.getPath(), folder.wide("renders"));
  EXPECT_EQ(button.getLabel(), LightweightString<wchar_t>(L"renders"));
  HeadlessInput::clickOn(dialogue->getSaveButton());
  pump();
  ASSERT_EQ(heard.size(), 1u);
  EXPECT_EQ(heard[0].folder, folder.wide("renders"));
  EXPECT_EQ(heard[0].name, LightweightString<wchar_t>(L"cut.mov"));
}

TEST_F(SaveFileDialogueTest, LooksAsDrawn) {
  SaveFileDialogue* dialogue = SaveFileDialogue::open(
      SaveFileDialogue::InitArgs(UIString(L"Save the log"), UIString(L"session log.txt"), L"/media/ann/Renders", {}));
  pump();
  EXPECT_TRUE(matchesGolden(HeadlessScreen::windowShot(*dialogue), ZO_GOLDEN_DIR "/save_file_dialogue.png"));
}

} // namespace

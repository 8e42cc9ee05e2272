#include "FileBrowserTestSupport.h"
#include "host/shell/EnforcedPermissions.h"

#include <zowidgets/host/widgets/files/FileChooserWindow.h>
#include <zowidgets/host/widgets/text/TextBoxBase.h>
#include <zowidgets/host/widgets/text/TextLabel.h>

namespace {

using HeadlessInput::key;

std::string const kUnicodeName = "Ünïcødé ✂.txt";

TEST_F(FileBrowserTest, FoldersComeFirstThenFilesInNaturalOrder) {
  open();
  EXPECT_EQ(shownNames(), (std::vector<std::string>{"folder 2", "Folder 10", "clip.MOV", "file2.txt", "file10.txt",
                                                    "my clip.mov", "README", kUnicodeName}));
  EXPECT_EQ(cellText(0), L"folder 2/") << "a folder is marked as one";
  EXPECT_EQ(cellText(3), L"file2.txt");
  EXPECT_EQ(cellText(7), LightweightString<wchar_t>::fromUTF8(kUnicodeName).str());
  EXPECT_EQ(cellText(2, 1), L"2.9 KB");
  EXPECT_EQ(cellText(6, 1), L"7 bytes");
  EXPECT_EQ(cellText(0, 1), L"") << "a folder has no size";
  EXPECT_FALSE(cellText(2, 2).empty()) << "a date";
}

TEST_F(FileBrowserTest, AClickOnASizeTitleSortsBySizeKeepingFoldersFirst) {
  open();
  TableWidget* table = browser->getTable();
  ASSERT_NE(table->getHeader(), nullptr);
  table->titleClicked(1);
  std::vector<std::string> const names = shownNames();
  EXPECT_EQ(names[0], "folder 2");
  EXPECT_EQ(names[1], "Folder 10");
  EXPECT_EQ(names.back(), "clip.MOV") << "the largest last";
  EXPECT_EQ(names[2], "my clip.mov");
}

TEST_F(FileBrowserTest, HiddenFilesShowOnlyOnRequest) {
  open();
  EXPECT_EQ(browser->findEntry(L".hidden"), -1);
  browser->setShowHidden(true);
  EXPECT_GE(browser->findEntry(L".hidden"), 0);
  FileBrowserBase::InitArgs args;
  args.showHidden = true;
  open(args);
  EXPECT_GE(browser->findEntry(L".hidden"), 0);
}

TEST_F(FileBrowserTest, AnExtensionFilterHidesOtherFilesButNeverFolders) {
  FileBrowserBase::InitArgs args;
  args.extensions = {L"mov"};
  open(args);
  EXPECT_EQ(shownNames(), (std::vector<std::string>{"folder 2", "Folder 10", "clip.MOV", "my clip.mov"}));
  browser->setExtensions({L".txt", L"MOV"});
  EXPECT_EQ(shownNames().size(), 7u);
  browser->setExtensions({});
  EXPECT_EQ(shownNames().size(), 8u);
}

TEST_F(FileBrowserTest, ADoubleClickOnAFolderOpensItAndOnAFileChoosesIt) {
  open();
  HeadlessInput::doubleClick(pointOnRow(1));
  pump();
  EXPECT_EQ(folderName(), "Folder 10");
  EXPECT_TRUE(shownNames().empty());
  ASSERT_FALSE(events.empty());
  EXPECT_EQ(events.back().kind, FileBrowserEvent::kFolderChanged);
  browser->setFolder(tree.wide());
  int const row = browser->findEntry(L"file2.txt");
  HeadlessInput::doubleClick(pointOnRow(row));
  pump();
  ASSERT_FALSE(events.empty());
  EXPECT_EQ(events.back().kind, FileBrowserEvent::kFileChosen);
  EXPECT_EQ(events.back().path, tree.wide("file2.txt"));
}

TEST_F(FileBrowserTest, ASingleClickMakesARowCurrentWithoutOpeningIt) {
  open();
  HeadlessInput::click(pointOnRow(4));
  pump();
  EXPECT_EQ(currentName(), "file10.txt");
  EXPECT_EQ(browser->getFolder(), tree.wide());
  EXPECT_EQ(browser->getCurrentPath(), tree.wide("file10.txt"));
}

TEST_F(FileBrowserTest, ReturnOpensTheCurrentFolderAndBackspaceGoesBackToIt) {
  open();
  HeadlessInput::click(pointOnRow(0));
  key(kKeyReturn);
  pump();
  EXPECT_EQ(folderName(), "folder 2");
  EXPECT_EQ(shownNames(), std::vector<std::string>{"inner.txt"});
  key(kKeyBackspace);
  pump();
  EXPECT_EQ(browser->getFolder(), tree.wide());
  EXPECT_EQ(currentName(), "folder 2") << "the folder just left is current";
}

TEST_F(FileBrowserTest, TheButtonBesideThePathBoxGoesUpAndRestsAtTheRoot) {
  open();
  Button* up = browser->getParentButton();
  ASSERT_NE(up, nullptr);
  Glob const& box = *browser->getPathBox();
  EXPECT_LE(box.screenPosition().x + box.width(), up->screenPosition().x) << "beside the path box, not over it";
  EXPECT_EQ(box.screenPosition().y, up->screenPosition().y);
  EXPECT_FALSE(up->getTooltip().getString().empty());
  browser->setFolder(tree.wide("folder 2"));
  HeadlessInput::clickOn(*up);
  pump();
  EXPECT_EQ(browser->getFolder(), tree.wide());
  EXPECT_EQ(currentName(), "folder 2") << "the folder just left is current";
  EXPECT_TRUE(up->isActive());
  browser->setFolder(L"/");
  EXPECT_FALSE(up->isActive()) << "nothing above the root";
  HeadlessInput::clickOn(*up);
  pump();
  EXPECT_EQ(browser->getFolder(), LightweightString<wchar_t>(L"/"));
}

TEST_F(FileBrowserTest, HomeAndEndGoToTheFirstAndLastEntries) {
  open();
  HeadlessInput::click(pointOnRow(2));
  key(kKeyEnd);
  EXPECT_EQ(browser->getCurrentRow(), static_cast<int>(browser->entries().size()) - 1);
  key(kKeyHome);
  EXPECT_EQ(browser->getCurrentRow(), 0);
  EXPECT_TRUE(browser->isCurrentPicked());
}

TEST_F(FileBrowserTest, AltUpGoesToTheParent) {
  open();
  ASSERT_TRUE(browser->setFolder(tree.wide("folder 2")));
  HeadlessInput::click(pointOnRow(0));
  key(kKeyUp, kKeyAlt);
  pump();
  EXPECT_EQ(browser->getFolder(), tree.wide());
  key(kKeyDown);
  EXPECT_EQ(currentName(), "Folder 10") << "plain arrows still move";
}

TEST_F(FileBrowserTest, TypingTheStartOfANameMakesItCurrent) {
  open();
  HeadlessInput::click(pointOnRow(0));
  HeadlessInput::typeText("my");
  pump();
  EXPECT_EQ(currentName(), "my clip.mov");
  EXPECT_EQ(browser->getFolder(), tree.wide()) << "typing opens nothing";
}

TEST_F(FileBrowserTest, APathTypedIntoThePathBoxIsOpened) {
  open();
  TextBoxBase* box = browser->getPathBox();
  ASSERT_NE(box, nullptr);
  EXPECT_EQ(box->getString(), tree.wide());
  HeadlessInput::clickOn(*box);
  key('a', kKeyCtrl);
  HeadlessInput::typeText((tree / "folder 2").string());
  key(kKeyReturn);
  pump();
  EXPECT_EQ(folderName(), "folder 2");
  // A file's path opens its folder with the file current.
  EXPECT_TRUE(browser->openPath(tree.wide("file10.txt")));
  EXPECT_EQ(browser->getFolder(), tree.wide());
  EXPECT_EQ(currentName(), "file10.txt");
  EXPECT_FALSE(browser->openPath(tree.wide("no such thing")));
  EXPECT_EQ(browser->getFolder(), tree.wide());
}

TEST_F(FileBrowserTest, AFileCreatedAndAFileRemovedWhileShownUpdateTheList) {
  open();
  tree.write("file3.txt");
  ASSERT_TRUE(waitFor([&] { return browser->findEntry(L"file3.txt") >= 0; }));
  std::vector<std::string> names = shownNames();
  EXPECT_EQ(std::find(names.begin(), names.end(), "file3.txt") - names.begin(), 4) << "in natural order";
  std::filesystem::remove(tree / "file2.txt");
  ASSERT_TRUE(waitFor([&] { return browser->findEntry(L"file2.txt") < 0; }));
  EXPECT_EQ(shownNames().size(), 8u);
}

TEST_F(FileBrowserTest, TheCurrentEntryStaysCurrentWhenTheFolderChanges) {
  open();
  browser->selectEntry(L"README");
  tree.write("a new first file");
  ASSERT_TRUE(waitFor([&] { return browser->findEntry(L"a new first file") >= 0; }));
  EXPECT_EQ(currentName(), "README");
}

TEST_F(FileBrowserTest, ReadAgainTheListStaysWhereTheUserScrolledIt) {
  for (int i = 0; i < 60; ++i)
    tree.write("take " + std::to_string(100 + i) + ".mov");
  open();
  TableWidget* table = browser->getTable();
  ASSERT_EQ(currentName(), "folder 2");
  table->setScrollOffset(20 * table->getRowHeight());
  int const scrolled = table->getScrollOffset();
  ASSERT_GT(scrolled, 0);
  tree.write("a new first file");
  ASSERT_TRUE(waitFor([&] { return browser->findEntry(L"a new first file") >= 0; }));
  EXPECT_EQ(table->getScrollOffset(), scrolled);
  EXPECT_EQ(currentName(), "folder 2");
}

TEST_F(FileBrowserTest, ChoosingAFolderTakesTheFolderShownUnlessTheUserPickedARow) {
  std::wstring chosen;
  FileChooserWindow::InitArgs args;
  args.browser.folder = tree.wide();
  args.chooseFolder = true;
  args.chosen = [&chosen](LightweightString<wchar_t> const& path) { chosen = path.str(); };
  FileChooserWindow* chooser = FileChooserWindow::open(args, nullptr);
  browser = &chooser->getBrowser();
  pump();
  ASSERT_EQ(currentName(), "folder 2") << "the browser makes the first row current";
  EXPECT_EQ(chooser->getChoice().str(), tree.wide().str());
  HeadlessInput::click(pointOnRow(0)); // the row already current
  EXPECT_EQ(chooser->getChoice().str(), (tree / "folder 2").wstring());
  HeadlessInput::key(kKeyDown);
  EXPECT_EQ(chooser->getChoice().str(), (tree / "Folder 10").wstring());
  HeadlessInput::key(kKeyBackspace); // up to the parent, the folder left made current
  ASSERT_NE(browser->getFolder().str(), tree.wide().str());
  EXPECT_EQ(chooser->getChoice().str(), browser->getFolder().str());
  ASSERT_TRUE(browser->openPath(tree.wide()));
  HeadlessInput::clickOn(chooser->getChooseButton());
  pump();
  EXPECT_EQ(chosen, tree.wide().str());
}

TEST_F(FileBrowserTest, AFolderChooserListsFoldersAlone) {
  FileChooserWindow::InitArgs args;
  args.browser.folder = tree.wide();
  args.chooseFolder = true;
  FileChooserWindow* chooser = FileChooserWindow::open(args, nullptr);
  browser = &chooser->getBrowser();
  pump();
  ASSERT_FALSE(browser->entries().empty());
  for (FolderEntry const& entry : browser->entries())
    EXPECT_TRUE(entry.isFolder) << entry.name;
  args.chooseFolder = false;
  FileChooserWindow* files = FileChooserWindow::open(args, nullptr);
  pump();
  auto const& all = files->getBrowser().entries();
  EXPECT_TRUE(std::any_of(all.begin(), all.end(), [](FolderEntry const& entry) { return !entry.isFolder; }))
      << "a file chooser lists the files too";
}

TEST_F(FileBrowserTest, TabLeavesTheFileListForTheChooseButtonInOneStep) {
  FileChooserWindow::InitArgs args;
  args.browser.folder = tree.wide();
  FileChooserWindow* chooser = FileChooserWindow::open(args, nullptr);
  browser = &chooser->getBrowser();
  pump();
  HeadlessInput::click(pointOnRow(1));
  ASSERT_EQ(get_kbd_focus(), browser->getTable());
  key(kKeyTab);
  EXPECT_EQ(get_kbd_focus(), &chooser->getChooseButton());
}

TEST_F(FileBrowserTest, EscapeOrCancelClosesAChooserWithoutAChoice) {
  for (bool const byEscape : {true, false}) {
    bool chose = false;
    FileChooserWindow::InitArgs args;
    args.browser.folder = tree.wide();
    args.chosen = [&chose](LightweightString<wchar_t> const&) { chose = true; };
    FileChooserWindow* chooser = FileChooserWindow::open(args, nullptr);
    browser = &chooser->getBrowser();
    pump();
    HeadlessInput::click(pointOnRow(2));
    if (byEscape) {
      key(kKeyEscape);
    } else {
      Button& cancel = chooser->getCancelButton();
      Button& choose = chooser->getChooseButton();
      EXPECT_EQ(cancel.screenPosition().y, choose.screenPosition().y);
      EXPECT_LT(cancel.screenPosition().x + cancel.width(), choose.screenPosition().x) << "Cancel left of Choose";
      HeadlessInput::clickOn(cancel);
    }
    pump();
    EXPECT_FALSE(is_good_glob_ptr(chooser)) << (byEscape ? "Escape" : "Cancel");
    EXPECT_FALSE(chose) << (byEscape ? "Escape" : "Cancel");
  }
}

TEST_F(FileBrowserTest, AnUnreadableFolderShowsWhyAndTheBrowserStaysUsable) {
  std::filesystem::create_directory(tree / "locked");
  tree.write("locked/secret");
  ASSERT_EQ(chmod((tree / "locked").c_str(), 0), 0);
  EnforcedPermissions permissions;
  if (!permissions.active())
    GTEST_SKIP() << "running as root without the right to drop CAP_DAC_OVERRIDE: permissions cannot be enforced";
  open();
  HeadlessInput::doubleClick(pointOnRow(browser->findEntry(L"locked")));
  pump();
  EXPECT_EQ(folderName(), "locked");
  EXPECT_TRUE(shownNames().empty());
  EXPECT_NE(browser->getErrorMessage().view().find(L"cannot be read"), std::wstring_view::npos);
  EXPECT_NE(browser->getErrorMessage().view().find(L"Permission denied"), std::wstring_view::npos);
  ASSERT_TRUE(browser->getMessageLabel()->isShowing());
  key(kKeyBackspace);
  pump();
  EXPECT_EQ(browser->getFolder(), tree.wide());
  EXPECT_FALSE(browser->getMessageLabel()->isShowing());
  EXPECT_TRUE(browser->getErrorMessage().empty());
  EXPECT_EQ(currentName(), "locked");
  chmod((tree / "locked").c_str(), 0755);
}

TEST_F(FileBrowserTest, ALinkLoopIsNeverFollowed) {
  std::filesystem::create_directory_symlink("b", tree / "a");
  std::filesystem::create_directory_symlink("a", tree / "b");
  std::filesystem::create_directory_symlink(".", tree / "self");
  open();
  int const loop = browser->findEntry(L"a");
  ASSERT_GE(loop, 0);
  EXPECT_FALSE(browser->entries()[loop].isFolder);
  EXPECT_EQ(cellText(loop, 1), L"broken link");
  EXPECT_FALSE(browser->openEntry(loop));
  EXPECT_EQ(browser->getFolder(), tree.wide());
  // A link back to its own folder opens the same folder, by its real path:
  // following it any number of times never grows the path.
  for (int i = 0; i < 5; ++i)
    EXPECT_TRUE(browser->openEntry(browser->findEntry(L"self")));
  EXPECT_EQ(browser->getFolder().toUTF8().str(), std::filesystem::canonical(tree.path()).string());
}

// A browser opened on a folder of three first slices' worth of clips.
struct LargeFolderTest : FileBrowserTest {
  void openManyClips() {
    std::filesystem::create_directory(tree / "many");
    for (std::size_t i = 0; i < FileBrowserBase::kFirstSlice * 3; ++i)
      tree.write("many/clip" + std::to_string(i));
    open();
    browser->setFolder(tree.wide("many"));
  }
};

TEST_F(LargeFolderTest, ItShowsItsFirstSliceBeforeItIsFullyRead) {
  openManyClips();
  EXPECT_FALSE(browser->isReadComplete());
  EXPECT_EQ(browser->entries().size(), FileBrowserBase::kFirstSlice);
  ASSERT_TRUE(waitFor([&] { return browser->isReadComplete(); }));
  EXPECT_EQ(browser->entries().size(), FileBrowserBase::kFirstSlice * 3);
  EXPECT_EQ(browser->entries()[2].name, "clip2") << "in natural order once whole";
  EXPECT_EQ(browser->entries()[10].name, "clip10");
}

TEST_F(LargeFolderTest, TheFirstRowStaysCurrentAsItsSlicesComeInUnlessAnotherWasChosen) {
  openManyClips();
  ASSERT_TRUE(waitFor([&] { return browser->isReadComplete(); }));
  EXPECT_EQ(browser->getCurrentRow(), 0);
  EXPECT_EQ(browser->entries()[0].name, "clip0") << "the first of the whole folder, not of its first slice";

  browser->setFolder(tree.wide());
  browser->setFolder(tree.wide("many"));
  ASSERT_FALSE(browser->isReadComplete());
  ASSERT_GT(browser->entries().size(), 5u);
  std::string const picked = browser->entries()[5].name;
  ASSERT_TRUE(browser->selectEntry(LightweightString<wchar_t>::fromUTF8(picked)));
  ASSERT_TRUE(waitFor([&] { return browser->isReadComplete(); }));
  ASSERT_GE(browser->getCurrentRow(), 0);
  EXPECT_EQ(browser->entries()[browser->getCurrentRow()].name, picked) << "a chosen entry stays current";
}

} // namespace

#include <zowidgets/host/shell/OS.h>

#include "host/shell/TempFolder.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <vector>

#include <unistd.h>

using Zo::FolderEntries;

namespace {

using WString = LightweightString<wchar_t>;
using Names = std::vector<WString>;

bool isEmptyFolder(std::filesystem::path const& folder) { return std::filesystem::is_empty(folder); }

} // namespace

TEST(FileExists, FilesFoldersAndNothing) {
  TempFolder folder;
  folder.write("clip.mov");
  EXPECT_TRUE(OS().fileExists(folder.wide("clip.mov")));
  EXPECT_TRUE(OS().fileExists(folder.wide()));
  EXPECT_FALSE(OS().fileExists(folder.wide("missing.mov")));
  EXPECT_FALSE(OS().fileExists(L""));
}

TEST(FileExists, NonAsciiNames) {
  TempFolder folder;
  folder.write("\u00e9t\u00e9 \u4e2d.mov");
  EXPECT_TRUE(OS().fileExists(folder.wide("\u00e9t\u00e9 \u4e2d.mov")));
}

TEST(FileExists, LinkToNothingDoesNotExist) {
  TempFolder folder;
  std::filesystem::create_symlink(folder / "gone", folder / "link");
  EXPECT_FALSE(OS().fileExists(folder.wide("link")));
}

TEST(CanWriteTo, WritableFolderAndNothingLeftBehind) {
  TempFolder folder;
  EXPECT_TRUE(OS().canWriteTo(folder.wide()));
  EXPECT_TRUE(OS().canWriteTo(folder.wide()));
  EXPECT_TRUE(isEmptyFolder(folder.path()));
}

TEST(CanWriteTo, MissingFolderOrAFile) {
  TempFolder folder;
  folder.write("file.txt");
  EXPECT_FALSE(OS().canWriteTo(folder.wide("missing")));
  EXPECT_FALSE(OS().canWriteTo(folder.wide("file.txt")));
  EXPECT_FALSE(OS().canWriteTo(L""));
}

TEST(CanWriteTo, FolderThatRefusesNewFiles) {
  // No user may make files in /proc, not even root.
  ASSERT_TRUE(std::filesystem::is_directory("/proc"));
  EXPECT_FALSE(OS().canWriteTo(L"/proc"));
}

TEST(CanWriteTo, ReadOnlyFolderOfTheUser) {
  if (geteuid() == 0)
    GTEST_SKIP() << "root may write into any folder whatever its permissions";
  TempFolder folder;
  std::filesystem::create_directory(folder / "locked");
  std::filesystem::permissions(folder / "locked",
                               std::filesystem::perms::owner_read | std::filesystem::perms::owner_exec);
  EXPECT_FALSE(OS().canWriteTo(folder.wide("locked")));
  std::filesystem::permissions(folder / "locked", std::filesystem::perms::owner_all);
}

TEST(ListFolder, MatchesThePatternInNameOrder) {
  TempFolder folder;
  for (auto name : {"b.ZoTutorial", "a.ZoTutorial", "c.txt", "d.ZoTutorial.bak", "e.zotutorial"})
    folder.write(name);
  EXPECT_EQ(OS().listFolder(folder.wide(), L"*.ZoTutorial"), (Names{L"a.ZoTutorial", L"b.ZoTutorial"}));
  EXPECT_EQ(OS().listFolder(folder.wide(), L"?.txt"), Names{L"c.txt"});
  EXPECT_EQ(OS().listFolder(folder.wide(), L"*"),
            (Names{L"a.ZoTutorial", L"b.ZoTutorial", L"c.txt", L"d.ZoTutorial.bak", L"e.zotutorial"}));
}

TEST(ListFolder, FilesFoldersOrAll) {
  TempFolder folder;
  folder.write("file.mov");
  folder.write("sub/inner.mov");
  std::filesystem::create_symlink(folder / "file.mov", folder / "link.mov");
  EXPECT_EQ(OS().listFolder(folder.wide(), L"*"), (Names{L"file.mov", L"link.mov"}));
  EXPECT_EQ(OS().listFolder(folder.wide(), L"*", FolderEntries::folders), Names{L"sub"});
  EXPECT_EQ(OS().listFolder(folder.wide(), L"*", FolderEntries::all), (Names{L"file.mov", L"link.mov", L"sub"}));
}

TEST(ListFolder, HiddenNamesOnlyForADotPattern) {
  TempFolder folder;
  folder.write(".bashrc");
  folder.write(".hidden.mov");
  folder.write("shown.mov");
  EXPECT_EQ(OS().listFolder(folder.wide(), L"*"), Names{L"shown.mov"});
  EXPECT_EQ(OS().listFolder(folder.wide(), L"*.mov"), Names{L"shown.mov"});
  EXPECT_EQ(OS().listFolder(folder.wide(), L".*"), (Names{L".bashrc", L".hidden.mov"}));
}

TEST(ListFolder, MissingFolderOrEmptyPattern) {
  TempFolder folder;
  folder.write("a.txt");
  EXPECT_TRUE(OS().listFolder(folder.wide("missing"), L"*").empty());
  EXPECT_TRUE(OS().listFolder(folder.wide("a.txt"), L"*").empty());
  EXPECT_TRUE(OS().listFolder(folder.wide(), L"").empty());
}

TEST(ListFolder, NonAsciiNames) {
  TempFolder folder;
  folder.write("\u00e9t\u00e9.png");
  EXPECT_EQ(OS().listFolder(folder.wide(), L"*.png"), Names{L"\u00e9t\u00e9.png"});
}

TEST(CreateFolder, MakesParentsAndAcceptsExisting) {
  TempFolder folder;
  EXPECT_TRUE(OS().createFolder(folder.wide("a/b/c")));
  EXPECT_TRUE(std::filesystem::is_directory(folder / "a/b/c"));
  EXPECT_TRUE(OS().createFolder(folder.wide("a/b/c")));
  folder.write("file");
  EXPECT_FALSE(OS().createFolder(folder.wide("file")));
  EXPECT_FALSE(OS().createFolder(L""));
}

TEST(DeleteFile, RemovesFilesOnly) {
  TempFolder folder;
  folder.write("old.ZoTutorial");
  std::filesystem::create_directory(folder / "empty");
  EXPECT_TRUE(OS().deleteFile(folder.wide("old.ZoTutorial")));
  EXPECT_FALSE(std::filesystem::exists(folder / "old.ZoTutorial"));
  EXPECT_FALSE(OS().deleteFile(folder.wide("old.ZoTutorial")));
  EXPECT_FALSE(OS().deleteFile(folder.wide("empty")));
  EXPECT_TRUE(std::filesystem::is_directory(folder / "empty"));
  EXPECT_FALSE(OS().deleteFile(L""));
}

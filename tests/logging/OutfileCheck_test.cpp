#include <zowidgets/host/shell/OS.h>
#include <zowidgets/logging/OutfileCheck.h>

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <string>

#include <unistd.h>

namespace {

namespace fs = std::filesystem;
using WString = LightweightString<wchar_t>;

WString wide(fs::path const& path) { return WString::fromUTF8(path.string()); }

// A scratch folder of its own, made the working folder while it lives, for
// paths that only make sense relative to it.
struct OutfileCheckTest : ::testing::Test {
  fs::path folder;
  fs::path previous;

  void SetUp() override {
    folder = fs::temp_directory_path() / ("zo-outfile-" + std::to_string(::getpid()));
    fs::remove_all(folder);
    fs::create_directories(folder);
    previous = fs::current_path();
  }
  void TearDown() override {
    fs::current_path(previous);
    fs::remove_all(folder);
  }
  void write(fs::path const& path) { std::ofstream(path) << "clip"; }
};

TEST_F(OutfileCheckTest, ANewFileInAFolderThatExistsIsUsable) {
  EXPECT_EQ(outfile_check(wide(folder / "render.mov"), false), kOutfileUsable);
}

TEST_F(OutfileCheckTest, AnExistingFileIsRefusedUnlessOverwritingIsAllowed) {
  write(folder / "render.mov");
  EXPECT_EQ(outfile_check(wide(folder / "render.mov"), false), kOutfileExists);
  EXPECT_EQ(outfile_check(wide(folder / "render.mov"), true), kOutfileUsable);
}

TEST_F(OutfileCheckTest, AnInvalidNameComesFirst) {
  EXPECT_EQ(outfile_check(wide(folder / "what?.mov"), false), kOutfileInvalidName);
  EXPECT_EQ(outfile_check(wide(folder / "no-such-folder" / "a|b.mov"), false), kOutfileInvalidName);
  EXPECT_EQ(outfile_check(wide(folder) + L"/", false), kOutfileInvalidName) << "a folder is no file name";
}

TEST_F(OutfileCheckTest, AMissingFolderIsReportedAsSuch) {
  EXPECT_EQ(outfile_check(wide(folder / "gone" / "render.mov"), false), kOutfileNoFolder);
  EXPECT_EQ(outfile_check_n_make_dir(wide(folder / "gone" / "render.mov")), kOutfileNoFolder);
  EXPECT_FALSE(fs::exists(folder / "gone")) << "despite its name, no folder is made";
}

TEST_F(OutfileCheckTest, AFolderThatTakesNoFilesIsNoPermissionAndNoFloppy) {
  // The kernel's process folder takes no new files, even for root.
  EXPECT_FALSE(OS().canWriteFile(L"/proc/zo-render.mov"));
  EXPECT_FALSE(OS().isFloppy(L"/proc/zo-render.mov"));
  EXPECT_EQ(outfile_check(L"/proc/zo-render.mov", false), kOutfileNoPermission);
  EXPECT_FALSE(OS().isFloppy(wide(folder / "render.mov")));
}

TEST_F(OutfileCheckTest, APathInTheRootOfADrivePassesTheFolderTest) {
  EXPECT_EQ(outfile_check_n_make_dir(L"X:/render.mov"), kOutfileUsable);
  EXPECT_EQ(outfile_check_n_make_dir(L"X:\\/render.mov"), kOutfileUsable);
  EXPECT_EQ(outfile_check_n_make_dir(L"XY:/render.mov"), kOutfileNoFolder);
  EXPECT_EQ(outfile_check_n_make_dir(L"X:\\clips/render.mov"), kOutfileNoFolder);
}

TEST_F(OutfileCheckTest, ANetworkPathSkipsTheWriteTestButNotTheFolderTest) {
  // Relative names that lead into a folder taking no files: the plain one
  // fails the write test, the one with two leading backslashes never asks.
  fs::current_path(folder);
  fs::create_directory_symlink("/proc", folder / "plain");
  fs::create_directory_symlink("/proc", folder / "\\\\server");
  EXPECT_EQ(outfile_check(L"plain/zo-render.mov", false), kOutfileNoPermission);
  EXPECT_EQ(outfile_check(L"\\\\server/zo-render.mov", false), kOutfileUsable);
  EXPECT_EQ(outfile_check(L"\\\\elsewhere\\share/zo-render.mov", false), kOutfileNoFolder);
}

} // namespace

#include "support/WidgetTestSupport.h"

#include <zowidgets/host/headless/HeadlessScreen.h>
#include <zowidgets/host/widgets/files/FileBrowser.h>

#include <cstdlib>
#include <ctime>
#include <filesystem>
#include <fstream>

#include <fcntl.h>
#include <sys/stat.h>

namespace {

// The browser's picture shows its path and the files' dates: both are fixed
// here (a folder of a known name, times in UTC) so the picture is the same
// on every machine.
struct FileBrowserGolden : HeadlessScreenTest {
  std::filesystem::path const folder = std::filesystem::temp_directory_path() / "zowidgets-browser-picture";
  std::string oldZone;
  bool hadZone = false;

  void SetUp() override {
    HeadlessScreenTest::SetUp();
    if (char const* zone = std::getenv("TZ")) {
      hadZone = true;
      oldZone = zone;
    }
    setenv("TZ", "UTC", 1);
    tzset();
    std::filesystem::remove_all(folder);
    std::filesystem::create_directories(folder / "Rushes");
    std::filesystem::create_directories(folder / "Day 2");
    make("take2.mov", 2 << 20);
    make("take10.mov", 31 << 20);
    make("notes", 900);
    make("title card.png", 48 << 10);
    stamp(folder / "Rushes");
    stamp(folder / "Day 2");
  }
  void TearDown() override {
    HeadlessScreenTest::TearDown();
    std::filesystem::remove_all(folder);
    if (hadZone)
      setenv("TZ", oldZone.c_str(), 1);
    else
      unsetenv("TZ");
    tzset();
  }
  void make(std::string const& name, std::size_t size) {
    std::filesystem::path const path = folder / name;
    std::ofstream(path).close();
    std::filesystem::resize_file(path, size);
    stamp(path);
  }
  static void stamp(std::filesystem::path const& path) {
    timespec const times[2] = {{1700000000, 0}, {1700000000, 0}};
    utimensat(AT_FDCWD, path.c_str(), times, 0);
  }
};

TEST_F(FileBrowserGolden, AFolderWithFoldersFirstSizesAndDates) {
  StandardPanel* panel = openPanel(XY<int>(520, 240));
  FileBrowser::InitArgs args(XY<int>(500, 220));
  args.folder = LightweightString<wchar_t>::fromUTF8(folder.string());
  auto* browser = panel->createWidget<FileBrowser>(args, Glob::UserTopLeft(0, 0));
  browser->selectEntry(L"take10.mov");
  pump();
  EXPECT_TRUE(matchesGolden(HeadlessScreen::windowShot(*panel), ZO_GOLDEN_DIR "/file_browser.png"));
}

} // namespace

// The file browser (FileBrowser over a real folder, on the headless screen)
// against a plain loop over the same folder: readdir, fstatat of each name,
// then std::sort of the records. The folder holds 10,000 files of varied
// sizes, made once in the temporary folder.
//
// Timed:
// - opening the folder and painting the first page, with the whole folder
//   read (the browser's read slices all run) and, apart, the first page
//   alone (what shows before a large folder is fully read);
// - sorting the listing by name and by size (each pass the other direction,
//   so every pass really orders).
// The peer reads and sorts by plain byte order; the browser sorts
// naturally, folders first. After timing, each side must hold every file.

#include "BenchWindow.h"

#include <zowidgets/host/events/MessageQueue.h>
#include <zowidgets/host/headless/HeadlessScreen.h>
#include <zowidgets/host/toolkit/Canvas.h>
#include <zowidgets/host/widgets/files/FileBrowser.h>
#include <zowidgets/host/widgets/lists/TableWidget.h>

#include <benchmark/benchmark.h>

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>

namespace {

constexpr int kFiles = 10'000;

std::filesystem::path const& benchFolder() {
  static std::filesystem::path const folder = [] {
    std::filesystem::path made = std::filesystem::temp_directory_path() / "zowidgets-files-bench";
    std::filesystem::create_directories(made);
    if (std::distance(std::filesystem::directory_iterator(made), {}) != kFiles) {
      std::filesystem::remove_all(made);
      std::filesystem::create_directories(made);
      for (int i = 0; i < kFiles; ++i)
        std::ofstream(made / ("take " + std::to_string(i) + ".mov")) << std::string(i % 97, 'x');
    }
    return made;
  }();
  return folder;
}

struct PlainEntry {
  std::string name;
  bool isFolder = false;
  std::uint64_t size = 0;
  std::int64_t modified = 0;
};

std::vector<PlainEntry> plainRead(std::string const& folder) {
  std::vector<PlainEntry> entries;
  DIR* dir = opendir(folder.c_str());
  if (!dir)
    return entries;
  int const fd = dirfd(dir);
  while (dirent const* item = readdir(dir)) {
    std::string_view const name = item->d_name;
    if (name == "." || name == "..")
      continue;
    struct stat info {};
    if (fstatat(fd, item->d_name, &info, 0) != 0)
      continue;
    entries.push_back(
        {std::string(name), S_ISDIR(info.st_mode), static_cast<std::uint64_t>(info.st_size), info.st_mtim.tv_sec});
  }
  closedir(dir);
  return entries;
}

struct Browser {
  BenchWindow<FileBrowser> window;
  FileBrowser* browser;

  Browser() : window(args()), browser(window.widget) {}
  static FileBrowser::InitArgs args() {
    FileBrowser::InitArgs made(XY<int>(640, 480));
    made.folder = L"/";
    return made;
  }
  void open(bool wholeFolder) {
    browser->setFolder(LightweightString<wchar_t>::fromUTF8(benchFolder().string()));
    while (wholeFolder && !browser->isReadComplete())
      MessageLoop::runPending();
    window.panel->canvas()->paintPending();
  }
};

void plainReaddirStatSortByName(benchmark::State& state) {
  std::string const folder = benchFolder().string();
  std::size_t count = 0;
  for (auto _ : state) {
    std::vector<PlainEntry> entries = plainRead(folder);
    std::sort(entries.begin(), entries.end(), [](PlainEntry const& a, PlainEntry const& b) { return a.name < b.name; });
    count = entries.size();
    benchmark::DoNotOptimize(entries.data());
  }
  if (count != kFiles)
    state.SkipWithError("the plain loop missed files");
}
BENCHMARK(plainReaddirStatSortByName)->Unit(benchmark::kMillisecond);

void browserOpenWholeFolderAndPaint(benchmark::State& state) {
  useHeadlessScreen();
  Browser browser;
  for (auto _ : state)
    browser.open(true);
  if (browser.browser->entries().size() != kFiles)
    state.SkipWithError("the browser missed files");
}
BENCHMARK(browserOpenWholeFolderAndPaint)->Unit(benchmark::kMillisecond);

void browserOpenFirstPageAndPaint(benchmark::State& state) {
  useHeadlessScreen();
  Browser browser;
  for (auto _ : state) {
    browser.open(false);
    state.PauseTiming();
    // The rest of the folder is read as the queue runs: not part of what
    // the user waits for before the first page.
    while (!browser.browser->isReadComplete())
      MessageLoop::runPending();
    state.ResumeTiming();
  }
  if (browser.browser->entries().size() != kFiles)
    state.SkipWithError("the browser missed files");
}
BENCHMARK(browserOpenFirstPageAndPaint)->Unit(benchmark::kMillisecond);

template <class Less> void plainSort(benchmark::State& state, Less less) {
  std::vector<PlainEntry> const read = plainRead(benchFolder().string());
  std::vector<PlainEntry> entries = read;
  bool ascending = true;
  for (auto _ : state) {
    if (ascending)
      std::sort(entries.begin(), entries.end(), less);
    else
      std::sort(entries.begin(), entries.end(), [&](PlainEntry const& a, PlainEntry const& b) { return less(b, a); });
    ascending = !ascending;
    benchmark::DoNotOptimize(entries.data());
  }
  if (entries.size() != kFiles)
    state.SkipWithError("the plain loop missed files");
}

void plainSortByName(benchmark::State& state) {
  plainSort(state, [](PlainEntry const& a, PlainEntry const& b) { return a.name < b.name; });
}
BENCHMARK(plainSortByName)->Unit(benchmark::kMillisecond);

void plainSortBySize(benchmark::State& state) {
  plainSort(state, [](PlainEntry const& a, PlainEntry const& b) {
    return a.size != b.size ? a.size < b.size : a.name < b.name;
  });
}
BENCHMARK(plainSortBySize)->Unit(benchmark::kMillisecond);

void browserSortBy(benchmark::State& state, int column) {
  useHeadlessScreen();
  Browser browser;
  browser.open(true);
  bool ascending = true;
  for (auto _ : state) {
    browser.browser->getTable()->sortBy(column, ascending);
    ascending = !ascending;
  }
  if (browser.browser->entries().size() != kFiles)
    state.SkipWithError("the browser missed files");
}

void browserSortByName(benchmark::State& state) { browserSortBy(state, 0); }
BENCHMARK(browserSortByName)->Unit(benchmark::kMillisecond);

void browserSortBySize(benchmark::State& state) { browserSortBy(state, 1); }
BENCHMARK(browserSortBySize)->Unit(benchmark::kMillisecond);

} // namespace

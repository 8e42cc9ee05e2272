#include "HeadlessGallery.h"

#include "HtmlIndex.h"
#include "PageWindows.h"

#include <zowidgets/host/shell/ScreenBackend.h>
#include <zowidgets/host/toolkit/GlobManager.h>
#include <zowidgets/host/toolkit/UifStd.h>

#include <chrono>
#include <exception>
#include <iomanip>
#include <ostream>
#include <string>
#include <system_error>

namespace {

// Renders one page; empty on success, else why it failed.
std::string renderPage(GalleryPage const& page, PageContext const& context, std::filesystem::path const& png) {
  std::vector<Glob*> const before = GlobManager::topLevelWindows();
  PageWindows windows;
  std::string failure;
  try {
    windows = openPage(page, context);
    if (!windows.main || windows.all.empty())
      failure = "the page opened no window";
    else if (!capturePage(windows).savePNG(png.string()))
      failure = "could not write " + png.string();
  } catch (std::exception const& error) {
    failure = error.what();
    // Whatever the page opened before it failed must not show on the next.
    windows.all = windowsOpenedSince(before);
  }
  closePage(windows);
  return failure;
}

} // namespace

int renderGallery(std::vector<GalleryPage> const& pages, GalleryModel& model, std::filesystem::path const& dir,
                  std::ostream& progress) {
  auto const start = std::chrono::steady_clock::now();
  std::error_code error;
  std::filesystem::create_directories(dir, error);
  // Every page goes to the same place, each closed before the next opens; a
  // third of the way up leaves room below for menus to drop down.
  PageContext const context{model, XY<int>(UifStd::getRowHeight(), screenBackend().screenSize().y / 3)};
  std::vector<IndexEntry> entries;
  int failed = 0;
  for (std::size_t i = 0; i < pages.size(); ++i) {
    GalleryPage const& page = pages[i];
    progress << '[' << i + 1 << '/' << pages.size() << "] " << page.title << " ... " << std::flush;
    std::string const failure = renderPage(page, context, dir / (page.name + ".png"));
    progress << (failure.empty() ? "ok" : "FAILED: " + failure) << '\n';
    failed += failure.empty() ? 0 : 1;
    entries.push_back({page.name, page.title, page.description, failure.empty()});
  }
  bool const indexWritten = writeHtmlIndex(dir / "index.html", entries);
  if (!indexWritten)
    progress << "could not write " << (dir / "index.html").string() << '\n';
  std::chrono::duration<double> const took = std::chrono::steady_clock::now() - start;
  int const written = static_cast<int>(pages.size()) - failed;
  progress << pages.size() << " pages, " << written << " written, " << failed << " failed, in " << std::fixed
           << std::setprecision(1) << took.count() << " s\n";
  return failed + (indexWritten ? 0 : 1);
}

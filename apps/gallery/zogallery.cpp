// Shows every widget family and every registered command: rendered to PNG
// files and an HTML index without a display, or in windows on one.
#include "GalleryModel.h"
#include "GalleryPage.h"
#include "HeadlessGallery.h"
#include "Launcher.h"
#include "PageWindows.h"

#include <zowidgets/host/display/BackendChoice.h>
#include <zowidgets/host/toolkit/GlobManager.h>
#include <zowidgets/host/toolkit/UifStd.h>

#include <charconv>
#include <filesystem>
#include <iostream>
#include <string_view>

namespace {

constexpr char const* kUsage = "usage: zogallery [--headless | --display] [--out DIR] [--scale S]\n"
                               "  --headless   render every page to DIR/<page>.png and DIR/index.html\n"
                               "  --display    open a launcher window on the display (the default when one opens)\n"
                               "  --out DIR    where headless pictures go (default: gallery)\n"
                               "  --scale S    the interface scale, 0.5 to 4 (default: 1, or the display's)\n";

constexpr double kMinScale = 0.5;
constexpr double kMaxScale = 4.0;

struct Options {
  std::filesystem::path out = "gallery";
  double scale = 0.0; // 0: the backend's
  bool help = false;
  std::string problem; // what was wrong with the arguments; empty when none
};

bool parseScale(std::string_view text, double& scale) {
  auto const [end, error] = std::from_chars(text.data(), text.data() + text.size(), scale);
  return error == std::errc() && end == text.data() + text.size() && scale >= kMinScale && scale <= kMaxScale;
}

Options parseOptions(int argc, char** argv) {
  Options options;
  auto const problem = [&options](std::string text) {
    if (options.problem.empty())
      options.problem = std::move(text);
  };
  for (int i = 1; i < argc; ++i) {
    std::string_view const argument = argv[i];
    if ((argument == "--out" || argument == "--scale") && i + 1 >= argc)
      problem(std::string(argument) + " needs a value");
    else if (argument == "--out")
      options.out = argv[++i];
    else if (argument == "--scale") {
      if (!parseScale(argv[++i], options.scale))
        problem("--scale takes a number from 0.5 to 4, not '" + std::string(argv[i]) + "'");
    } else if (argument == "--help" || argument == "-h")
      options.help = true;
    else if (argument != "--headless" && argument != "--display")
      problem("unknown argument '" + std::string(argument) + "'");
  }
  return options;
}

void closeAllWindows() {
  for (Glob* window : GlobManager::topLevelWindows())
    GlobManager::requestDeletion(window);
  settleWindows();
}

} // namespace

int main(int argc, char** argv) {
  Options const options = parseOptions(argc, argv);
  if (!options.problem.empty()) {
    std::cerr << "zogallery: " << options.problem << "\n" << kUsage;
    return 2;
  }
  if (options.help) {
    std::cout << kUsage;
    return 0;
  }
  ScreenBackendKind const backend = chooseScreenBackend(argc, argv);
  if (options.scale > 0.0)
    UifStd::setScale(options.scale);
  // The model outlives every window bound to it.
  GalleryModel model;
  std::vector<GalleryPage> const pages = allPages();
  int status = 0;
  if (backend == ScreenBackendKind::display)
    status = runLauncher(pages, model);
  else
    status = renderGallery(pages, model, options.out, std::cout) == 0 ? 0 : 1;
  closeAllWindows();
  return status;
}

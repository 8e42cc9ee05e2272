#include <zowidgets/host/display/BackendChoice.h>
#include <zowidgets/host/display/DisplayScreen.h>
#include <zowidgets/host/display/detail/DisplayShell.h>
#include <zowidgets/host/headless/HeadlessScreen.h>
#include <zowidgets/host/shell/OS.h>
#include <zowidgets/host/toolkit/UifStd.h>

#include <cstdlib>
#include <iostream>
#include <optional>
#include <string_view>

namespace {

std::optional<ScreenBackendKind> kindNamed(std::string_view name) {
  if (name == "headless")
    return ScreenBackendKind::headless;
  if (name == "display")
    return ScreenBackendKind::display;
  return std::nullopt;
}

std::optional<ScreenBackendKind> askedFor(int argc, char const* const* argv) {
  std::optional<ScreenBackendKind> asked;
  for (int i = 1; i < argc; ++i) {
    std::string_view const argument = argv[i];
    if (argument.starts_with("--"))
      if (auto kind = kindNamed(argument.substr(2)))
        asked = kind;
  }
  if (asked)
    return asked;
  if (char const* named = std::getenv("ZOWIDGETS_BACKEND"))
    return kindNamed(named);
  return std::nullopt;
}

} // namespace

ScreenBackendKind chooseScreenBackend(int argc, char const* const* argv) {
  std::optional<ScreenBackendKind> const asked = askedFor(argc, argv);
  if (asked == ScreenBackendKind::headless) {
    headlessScreen();
    return ScreenBackendKind::headless;
  }
  auto display = DisplayScreen::open();
  if (!display) {
    if (asked)
      std::cerr << "zowidgets: no display could be opened; using the headless screen\n";
    headlessScreen();
    return ScreenBackendKind::headless;
  }
  UifStd::setScale(display->screenScale());
  installScreenBackend(std::move(display));
  OS().setShellBackend(Zo::makeDisplayShell());
  return ScreenBackendKind::display;
}

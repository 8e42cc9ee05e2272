#include "SharedState.h"

#include <zowidgets/host/drawing/IconCache.h>
#include <zowidgets/host/drawing/Palette.h>
#include <zowidgets/host/shell/DeviceServices.h>
#include <zowidgets/host/shell/MediaWriters.h>
#include <zowidgets/host/shell/Preferences.h>
#include <zowidgets/host/toolkit/Glob.h>
#include <zowidgets/host/toolkit/InputRouter.h>
#include <zowidgets/host/toolkit/ScreenRefresh.h>
#include <zowidgets/host/toolkit/UifStd.h>
#include <zowidgets/host/toolkit/WallpaperProvider.h>
#include <zowidgets/host/widgets/popups/Tooltip.h>

#include <cstdlib>
#include <filesystem>
#include <stdexcept>
#include <string>

#include <unistd.h>

namespace {

// prefs() opens its store on first use: point it at a scratch folder before
// anything can touch it.
struct ScratchPreferences {
  ScratchPreferences() {
    std::string pattern = (std::filesystem::temp_directory_path() / "zowidgets-prefs-XXXXXX").string();
    if (!::mkdtemp(pattern.data()))
      throw std::runtime_error("cannot make a scratch folder for the preferences");
    folder = pattern;
    ::setenv("ZOWIDGETS_CONFIG_DIR", folder.c_str(), 1);
  }
  ~ScratchPreferences() {
    std::error_code ignored;
    std::filesystem::remove_all(folder, ignored);
  }
  std::filesystem::path folder;
} const scratchPreferences;

} // namespace

void resetSharedState() {
  // The theme as the library made it, before any test changed it.
  static Theme const initialTheme = UifStd::getTheme();
  prefs().clear();
  UifStd::setScale(1.0);
  UifStd::setColourScheme(Palette());
  UifStd::setWindowArrangement(0);
  UifStd::getTheme() = initialTheme;
  ZoTooltipsEnable(true);
  while (refresh_is_off())
    refresh_on();
  Glob::setupRootPos(nullptr, XY<int>::unset());
  glib_enableMouseContextLogic(true);
  glib_setCursor(kCursorDefault);
  set_kbd_focus(nullptr);
  IconCache::clear();
  setDeviceServices(nullptr);
  defaultDeviceServices().clear();
  Zo::MediaWriters::setSource(nullptr);
  setWallpaperProvider({});
}

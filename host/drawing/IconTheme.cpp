#include <zowidgets/host/drawing/IconTheme.h>

#include <zowidgets/host/drawing/IconNames.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <system_error>
#include <vector>

namespace fs = std::filesystem;

namespace {

constexpr char const* kThemeName = "Adwaita";
constexpr char const* kDefaultDataDirs = "/usr/local/share:/usr/share";

bool isFolder(fs::path const& path) {
  std::error_code error;
  return fs::is_directory(path, error);
}

bool isFile(fs::path const& path) {
  std::error_code error;
  return fs::is_regular_file(path, error);
}

// The subfolders of `folder` whose names start with `prefix`, sorted by name.
std::vector<fs::path> subfolders(fs::path const& folder, std::string_view prefix) {
  std::vector<fs::path> found;
  std::error_code error;
  for (fs::directory_iterator it(folder, error), end; !error && it != end; it.increment(error)) {
    std::string const name = it->path().filename().string();
    if (name.starts_with(prefix) && isFolder(it->path()))
      found.push_back(it->path());
  }
  std::sort(found.begin(), found.end());
  return found;
}

} // namespace

std::string iconThemeDir() {
  if (char const* override = std::getenv("ZOWIDGETS_ICON_THEME_DIR"))
    return isFolder(override) ? std::string(override) : std::string();
  char const* dataDirs = std::getenv("XDG_DATA_DIRS");
  std::string_view dirs = dataDirs && *dataDirs ? dataDirs : kDefaultDataDirs;
  while (!dirs.empty()) {
    std::size_t const colon = dirs.find(':');
    std::string_view const dir = dirs.substr(0, colon);
    dirs = colon == std::string_view::npos ? std::string_view() : dirs.substr(colon + 1);
    if (dir.empty())
      continue;
    fs::path const theme = fs::path(dir) / "icons" / kThemeName;
    if (isFolder(theme))
      return theme.string();
  }
  return {};
}

std::string getIconPath(std::string_view name) {
  std::string_view const icon = themeIconName(name);
  if (icon.empty())
    return {};
  std::string const theme = iconThemeDir();
  if (theme.empty())
    return {};
  std::string const file = std::string(icon) + ".svg";
  for (fs::path const& sizes : subfolders(theme, "scalable"))
    for (fs::path const& context : subfolders(sizes, ""))
      if (fs::path const candidate = context / file; isFile(candidate))
        return candidate.string();
  return {};
}

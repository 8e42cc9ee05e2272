#include <zowidgets/host/shell/OS.h>

#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include <pwd.h>
#include <unistd.h>

// The user's folders, found as the freedesktop base-directory and user-dirs
// conventions say, from the environment at the time of each call.
namespace {

std::string environment(char const* name) {
  char const* value = std::getenv(name);
  return value ? std::string(value) : std::string();
}

// Without its trailing '/', so that the root, or a home that cannot be found
// at all, is empty and the folders under it start at "/".
std::string homeFolder() {
  auto home = environment("HOME");
  if (home.empty()) {
    std::vector<char> buffer(16384);
    passwd entry{};
    passwd* found = nullptr;
    if (getpwuid_r(getuid(), &entry, buffer.data(), buffer.size(), &found) == 0 && found && found->pw_dir)
      home = found->pw_dir;
  }
  while (home.ends_with('/'))
    home.pop_back();
  return home;
}

// An XDG base folder, without its trailing '/': the variable when it holds an
// absolute path (relative ones are to be ignored), else the default under the
// home folder.
std::string baseFolder(char const* variable, std::string_view defaultUnderHome) {
  auto value = environment(variable);
  if (!value.starts_with('/'))
    return homeFolder() + "/" + std::string(defaultUnderHome);
  while (value.ends_with('/'))
    value.pop_back();
  return value;
}

// The text between the quotes of a user-dirs value, with backslash escapes
// undone; an unquoted value is taken as it stands.
std::string unquote(std::string_view value) {
  if (!value.starts_with('"'))
    return std::string(value);
  std::string text;
  for (std::size_t i = 1; i < value.size() && value[i] != '"'; ++i) {
    if (value[i] == '\\' && i + 1 < value.size())
      ++i;
    text += value[i];
  }
  return text;
}

// The folder set for `key` in user-dirs.dirs: "$HOME/..." or an absolute
// path. The last assignment wins, as when a shell reads the file.
std::optional<std::string> userDir(std::string_view key) {
  std::ifstream file(baseFolder("XDG_CONFIG_HOME", ".config") + "/user-dirs.dirs");
  std::optional<std::string> found;
  std::string line;
  while (std::getline(file, line)) {
    std::string_view text(line);
    text.remove_prefix(std::min(text.find_first_not_of(" \t"), text.size()));
    if (!text.starts_with(key) || text.substr(key.size(), 1) != "=")
      continue;
    auto value = unquote(text.substr(key.size() + 1));
    if (value == "$HOME" || value.starts_with("$HOME/"))
      found = homeFolder() + value.substr(5);
    else if (value.starts_with('/'))
      found = value;
  }
  return found;
}

LightweightString<wchar_t> wide(std::string const& utf8) { return LightweightString<wchar_t>::fromUTF8(utf8); }

} // namespace

namespace Zo {

LightweightString<wchar_t> OperatingSystem::documentsFolder() const {
  return wide(userDir("XDG_DOCUMENTS_DIR").value_or(homeFolder() + "/Documents"));
}

LightweightString<wchar_t> OperatingSystem::appDataFolder() const {
  return wide(baseFolder("XDG_DATA_HOME", ".local/share") + "/zowidgets");
}

} // namespace Zo

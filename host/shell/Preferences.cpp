#include <zowidgets/host/shell/Preferences.h>

#include <zowidgets/host/base/AtomicFile.h>
#include <zowidgets/host/base/DataConvert.h>
#include <zowidgets/host/base/Log.h>
#include <zowidgets/host/base/configb.h>

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <mutex>
#include <optional>
#include <string_view>
#include <system_error>

namespace {

namespace fs = std::filesystem;

constexpr char kRootKey[] = "preferences";
constexpr char kFileName[] = "preferences.conf";
constexpr char kCorruptSuffix[] = ".corrupt";

void warn(std::string const& message) { LogBoth(message); }

std::string systemError() { return std::strerror(errno); }

// The file's text; nullopt when there is no file. Unreadable files warn and
// read as empty.
std::optional<std::string> readFile(std::string const& path) {
  std::error_code error;
  if (!fs::exists(path, error))
    return std::nullopt;
  std::ifstream in(path, std::ios::binary);
  if (!in) {
    warn("cannot read preferences file '" + path + "': " + systemError() + "; using defaults");
    return std::string();
  }
  return std::string(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
}

} // namespace

struct EditorPreferences::Store {
  std::string path;
  mutable std::mutex mutex;
  configb values;
  bool unsaved = false;

  void load() {
    values.clear();
    unsaved = false;
    if (path.empty())
      return;
    std::optional<std::string> text = readFile(path);
    if (!text)
      return;
    std::optional<configb> file = configb::fromText(*text);
    if (configb const* root = file ? file->findChild(kRootKey) : nullptr) {
      values = *root;
      return;
    }
    moveAside();
  }

  void moveAside() const {
    std::string const aside = path + kCorruptSuffix;
    std::error_code error;
    fs::rename(path, aside, error);
    if (error)
      warn("preferences file '" + path + "' is corrupt or truncated and cannot be moved aside (" + error.message() +
           "); using defaults");
    else
      warn("preferences file '" + path + "' is corrupt or truncated; moved to '" + aside + "', using defaults");
  }

  bool save() {
    if (path.empty()) {
      unsaved = false;
      return true;
    }
    configb file;
    file.child(kRootKey) = values;
    if (Zo::writeFileAtomically(path, file.toText().view())) {
      unsaved = false;
      return true;
    }
    warn("cannot write preferences file '" + path + "': " + systemError() + "; the change is kept in memory");
    unsaved = true;
    return false;
  }
};

EditorPreferences::EditorPreferences(std::string filePath) : store_(std::make_unique<Store>()) {
  store_->path = std::move(filePath);
  store_->load();
}

EditorPreferences::~EditorPreferences() = default;

std::string EditorPreferences::defaultFilePath() {
  if (char const* folder = std::getenv("ZOWIDGETS_CONFIG_DIR"); folder && *folder)
    return (fs::path(folder) / kFileName).string();
  if (char const* config = std::getenv("XDG_CONFIG_HOME"); config && config[0] == '/')
    return (fs::path(config) / "zowidgets" / kFileName).string();
  if (char const* home = std::getenv("HOME"); home && *home)
    return (fs::path(home) / ".config" / "zowidgets" / kFileName).string();
  return {};
}

std::string const& EditorPreferences::filePath() const noexcept { return store_->path; }

bool EditorPreferences::getPreference(LightweightString<char> const& key, bool def) const {
  std::lock_guard lock(store_->mutex);
  return store_->values.getBool(key, def);
}

int EditorPreferences::getPreference(LightweightString<char> const& key, int def) const {
  std::lock_guard lock(store_->mutex);
  return store_->values.getInt(key, def);
}

double EditorPreferences::getPreference(LightweightString<char> const& key, double def) const {
  std::lock_guard lock(store_->mutex);
  return store_->values.getDouble(key, def);
}

LightweightString<wchar_t> EditorPreferences::getPreference(LightweightString<char> const& key,
                                                            LightweightString<wchar_t> const& def) const {
  std::lock_guard lock(store_->mutex);
  return store_->values.getString(key, def);
}

LightweightString<wchar_t> EditorPreferences::getPreference(LightweightString<char> const& key,
                                                            wchar_t const* def) const {
  return getPreference(key, def ? LightweightString<wchar_t>(def) : LightweightString<wchar_t>());
}

void EditorPreferences::setPreference(LightweightString<char> const& key, bool value) {
  setText(key, DataConvert::convert<bool, LightweightString<wchar_t>>(value));
}

void EditorPreferences::setPreference(LightweightString<char> const& key, int value) {
  setText(key, DataConvert::convert<int, LightweightString<wchar_t>>(value));
}

void EditorPreferences::setPreference(LightweightString<char> const& key, double value) {
  setText(key, DataConvert::convert<double, LightweightString<wchar_t>>(value));
}

void EditorPreferences::setPreference(LightweightString<char> const& key, LightweightString<wchar_t> const& value) {
  setText(key, value);
}

void EditorPreferences::setPreference(LightweightString<char> const& key, wchar_t const* value) {
  setText(key, value ? LightweightString<wchar_t>(value) : LightweightString<wchar_t>());
}

bool EditorPreferences::hasPreference(LightweightString<char> const& key) const {
  std::lock_guard lock(store_->mutex);
  return store_->values.in(key);
}

void EditorPreferences::removePreference(LightweightString<char> const& key) {
  std::lock_guard lock(store_->mutex);
  if (store_->values.remove(key))
    store_->save();
}

void EditorPreferences::clear() {
  std::lock_guard lock(store_->mutex);
  if (store_->values.size() == 0)
    return;
  store_->values.clear();
  store_->save();
}

void EditorPreferences::setText(LightweightString<char> const& key, LightweightString<wchar_t> const& text) {
  std::lock_guard lock(store_->mutex);
  if (store_->values.in(key) && store_->values.getString(key) == text)
    return;
  store_->values.set(key, text);
  store_->save();
}

bool EditorPreferences::flush() {
  std::lock_guard lock(store_->mutex);
  return !store_->unsaved || store_->save();
}

void EditorPreferences::reload() {
  std::lock_guard lock(store_->mutex);
  store_->load();
}

EditorPreferences& prefs() {
  static EditorPreferences* instance = [] {
    std::string path = EditorPreferences::defaultFilePath();
    if (path.empty())
      warn("no home folder: preferences last only as long as the process");
    return new EditorPreferences(path); // used from static destructors
  }();
  return *instance;
}

int config_int(LightweightString<char> const& key, int def, int min, int max) {
  int value = prefs().getPreference(key, def);
  DataConvert::constrain(value, min, max);
  return value;
}

#include <zowidgets/host/drawing/IconCache.h>

#include <zowidgets/host/base/Log.h>
#include <zowidgets/host/base/detail/LruCache.h>
#include <zowidgets/host/drawing/FallbackIcon.h>
#include <zowidgets/host/drawing/IconTheme.h>
#include <zowidgets/host/drawing/ImageLoader.h>
#include <zowidgets/host/drawing/SvgIcon.h>
#include <zowidgets/host/drawing/detail/IconTint.h>

#include <cstdlib>
#include <functional>
#include <mutex>
#include <optional>
#include <set>
#include <string>

namespace {

struct Key {
  std::string name;
  int side;
  std::uint32_t tint;
  int turnDegrees;
  friend bool operator==(Key const&, Key const&) = default;
};

struct KeyHash {
  std::size_t operator()(Key const& key) const noexcept {
    std::size_t hash = std::hash<std::string>()(key.name);
    for (std::size_t part : {std::size_t(key.side), std::size_t(key.tint), std::size_t(key.turnDegrees)})
      hash = hash * 1000003u ^ part;
    return hash;
  }
};

IconCache::Icon drawIcon(Key const& key) {
  Colour const tint = iconTintFromPacked(key.tint);
  if (std::string const path = getIconPath(key.name); !path.empty())
    if (Zo::Image::Surface art = SvgIcon::renderFile(path, key.side, tint, key.turnDegrees); !art.empty())
      return {art, true};
  return {drawFallbackIcon(key.side, tint), false};
}

struct Store {
  std::mutex mutex;
  LruCache<Key, IconCache::Icon, KeyHash> icons{IconCache::kCapacity};
  LruCache<std::wstring, Zo::Image::Surface, std::hash<std::wstring>> pictures{IconCache::kPictureCapacity};
  std::string themeDir;
  // The settings the theme folder was looked for under.
  std::optional<std::string> overrideSetting, dataDirsSetting;
  std::size_t drawn = 0;
  // Names no theme had, each told to the log once.
  std::set<std::string> missingTold;
};

constexpr char const* kOverride = "ZOWIDGETS_ICON_THEME_DIR";
constexpr char const* kDataDirs = "XDG_DATA_DIRS";

// Whether the environment variable still holds what was seen, without
// copying it: asked at every icon of every paint.
bool settingKept(std::optional<std::string> const& seen, char const* name) {
  char const* value = std::getenv(name);
  return value ? seen && *seen == value : !seen;
}

std::optional<std::string> setting(char const* name) {
  char const* value = std::getenv(name);
  return value ? std::optional<std::string>(value) : std::nullopt;
}

Store& store() {
  static Store instance;
  return instance;
}

} // namespace

IconCache::Icon IconCache::get(std::string_view name, int side, Colour const& tint, int turnDegrees) {
  if (side < 1 || side > SvgIcon::kMaxIconSide)
    return {};
  Key key{std::string(name), side, tint.get_vlib_colour(), turnDegrees};
  Store& kept = store();
  std::unique_lock lock(kept.mutex);
  // Icons are asked for at every paint: the folders are looked at again only
  // when the settings change or an icon is drawn afresh.
  if (settingKept(kept.overrideSetting, kOverride) && settingKept(kept.dataDirsSetting, kDataDirs))
    if (Icon const* found = kept.icons.find(key))
      return *found;
  if (std::string theme = iconThemeDir(); theme != kept.themeDir) {
    kept.icons.clear();
    kept.themeDir = std::move(theme);
  }
  kept.overrideSetting = setting(kOverride);
  kept.dataDirsSetting = setting(kDataDirs);
  if (Icon const* found = kept.icons.find(key))
    return *found;
  ++kept.drawn;
  Icon const icon = kept.icons.insert(key, drawIcon(key));
  if (icon.fromTheme || name.empty() || !kept.missingTold.insert(key.name).second)
    return icon;
  // A misspelt name would otherwise show only as a question mark. Said
  // outside the lock: a log sink may draw icons of its own.
  lock.unlock();
  LogBoth("no icon named \"" + key.name + "\" in the icon theme; a question mark stands in for it");
  return icon;
}

IconCache& IconCache::instance() {
  static IconCache cache;
  return cache;
}

Zo::Image::Surface IconCache::load(LightweightString<wchar_t> const& path) {
  std::wstring const key = path.str();
  {
    std::lock_guard lock(store().mutex);
    if (Zo::Image::Surface const* found = store().pictures.find(key))
      return *found;
  }
  // Read without the lock: icons are asked for while a large picture decodes.
  Zo::Image::Surface picture = ZoImage::Loader::loadImage(path);
  if (picture.empty())
    return picture;
  std::lock_guard lock(store().mutex);
  return store().pictures.insert(key, std::move(picture));
}

std::size_t IconCache::size() {
  std::lock_guard lock(store().mutex);
  return store().icons.size();
}

std::size_t IconCache::iconsDrawn() {
  std::lock_guard lock(store().mutex);
  return store().drawn;
}

void IconCache::clear() {
  std::lock_guard lock(store().mutex);
  store().icons.clear();
  store().pictures.clear();
  store().missingTold.clear();
}

#include <zowidgets/host/drawing/Fonts.h>

#include <algorithm>
#include <atomic>
#include <chrono>
#include <cmath>
#include <memory>
#include <mutex>
#include <optional>
#include <set>
#include <string_view>

#include <fontconfig/fontconfig.h>

namespace Glib {
namespace {

struct ConfigFree {
  void operator()(FcConfig* config) const { FcConfigDestroy(config); }
};
struct PatternFree {
  void operator()(FcPattern* pattern) const { FcPatternDestroy(pattern); }
};
struct ObjectSetFree {
  void operator()(FcObjectSet* objects) const { FcObjectSetDestroy(objects); }
};
struct FontSetFree {
  void operator()(FcFontSet* fonts) const { FcFontSetDestroy(fonts); }
};

// The font's English family name, or its first one; null when it has none.
char const* familyOf(FcPattern* font) {
  char const* first = nullptr;
  FcChar8* family = nullptr;
  for (int n = 0; FcPatternGetString(font, FC_FAMILY, n, &family) == FcResultMatch; ++n) {
    FcChar8* language = nullptr;
    if (FcPatternGetString(font, FC_FAMILYLANG, n, &language) == FcResultMatch &&
        std::string_view(reinterpret_cast<char const*>(language)) == "en")
      return reinterpret_cast<char const*>(family);
    if (!first)
      first = reinterpret_cast<char const*>(family);
  }
  return first;
}

using FamilyList = std::vector<LightweightString<char>>;

struct InstalledFonts {
  std::shared_ptr<FamilyList const> families = std::make_shared<FamilyList const>();
  std::set<LightweightString<char>> withoutLatin;
};

// Whether a face marked as a symbol font, or one that has none of the Latin
// letters.
bool lacksLatin(FcPattern* font) {
  FcBool symbol = FcFalse;
  if (FcPatternGetBool(font, FC_SYMBOL, 0, &symbol) == FcResultMatch && symbol)
    return true;
  FcCharSet* letters = nullptr;
  if (FcPatternGetCharSet(font, FC_CHARSET, 0, &letters) != FcResultMatch || !letters)
    return false;
  for (FcChar32 letter = 'A'; letter <= 'Z'; ++letter)
    if (FcCharSetHasChar(letters, letter) || FcCharSetHasChar(letters, letter + ('a' - 'A')))
      return false;
  return true;
}

// The installed families as read from a font configuration; empty when it
// could not be read.
InstalledFonts readFamilies(FcConfig* config) {
  InstalledFonts installed;
  FamilyList families;
  std::unique_ptr<FcPattern, PatternFree> anyFont(FcPatternCreate());
  std::unique_ptr<FcObjectSet, ObjectSetFree> names(
      FcObjectSetBuild(FC_FAMILY, FC_FAMILYLANG, FC_SYMBOL, FC_CHARSET, nullptr));
  if (!config || !anyFont || !names)
    return installed;
  std::unique_ptr<FcFontSet, FontSetFree> fonts(FcFontList(config, anyFont.get(), names.get()));
  if (!fonts)
    return installed;
  for (int i = 0; i < fonts->nfont; ++i) {
    if (char const* family = familyOf(fonts->fonts[i]); family && *family) {
      families.emplace_back(family);
      if (lacksLatin(fonts->fonts[i]))
        installed.withoutLatin.insert(LightweightString<char>(family));
    }
  }
  std::sort(families.begin(), families.end());
  families.erase(std::unique(families.begin(), families.end()), families.end());
  installed.families = std::make_shared<FamilyList const>(std::move(families));
  return installed;
}

// A configuration of our own, kept while its files and font folders stay
// as they were: reading it costs milliseconds, checking it a stat of each
// font folder, so it is checked at most once a second; fonts installed
// while the program runs are listed a second later.
template <class Answer> auto withInstalledFonts(Answer const& answer) {
  static std::mutex mutex;
  static std::unique_ptr<FcConfig, ConfigFree> config;
  static InstalledFonts installed;
  static std::optional<std::chrono::steady_clock::time_point> checked;
  std::lock_guard<std::mutex> const lock(mutex);
  auto const now = std::chrono::steady_clock::now();
  // A configuration that failed to load is tried again no sooner either.
  if (!checked || now - *checked >= std::chrono::seconds(1)) {
    checked = now;
    if (!config || !FcConfigUptoDate(config.get())) {
      config.reset(FcInitLoadConfigAndFonts());
      installed = readFamilies(config.get());
    }
  }
  return answer(installed);
}

} // namespace

std::shared_ptr<std::vector<LightweightString<char>> const> getAvailableFontsShared() {
  return withInstalledFonts([](InstalledFonts const& installed) { return installed.families; });
}

bool drawsLatinText(LightweightString<char> const& family) {
  return withInstalledFonts(
      [&family](InstalledFonts const& installed) { return installed.withoutLatin.count(family) == 0; });
}

std::vector<LightweightString<char>> getAvailableFonts() { return *getAvailableFontsShared(); }

unsigned mapFontSize(double points, double scale) {
  if (!(points > 0.0) || !(scale > 0.0))
    return 0;
  return static_cast<unsigned>(std::clamp(std::round(points * scale), 1.0, static_cast<double>(kMaxFontSize)));
}

} // namespace Glib

namespace Glib {
namespace {
std::atomic<double>& scale() {
  static std::atomic<double> value{1.0};
  return value;
}
} // namespace

double interfaceScale() { return scale().load(std::memory_order_relaxed); }

void setInterfaceScale(double value) {
  if (value > 0.0 && std::isfinite(value))
    scale().store(value, std::memory_order_relaxed);
}
} // namespace Glib

int getDefaultFontSize() { return static_cast<int>(Glib::mapFontSize(Glib::kBaseFontSize, Glib::interfaceScale())); }

LightweightString<char> getDefaultFontName(unsigned which) {
  switch (which) {
  case 1:
    return "DejaVu Sans Mono";
  case 2:
    return "DejaVu Serif";
  default:
    return "DejaVu Sans";
  }
}

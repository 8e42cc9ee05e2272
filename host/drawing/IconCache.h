#pragma once

#include <zowidgets/host/base/LightweightString.h>
#include <zowidgets/host/drawing/Colour.h>
#include <zowidgets/host/drawing/ImageSurface.h>

#include <cstddef>
#include <string_view>

// Icons by our names (host/drawing/IconNames.h), drawn once for each name,
// pixel size, tint and turn and then handed out again: the theme's SVG
// artwork (host/drawing/IconTheme.h) rendered at that size
// (host/drawing/SvgIcon.h), or the drawn stand-in
// (host/drawing/FallbackIcon.h) when the name has no artwork here.
//
// The cache keeps the kCapacity icons used last. The tint counts as its
// packed 0xAARRGGBB, and the icon is drawn in that rounded colour, so keys
// and pictures agree. When the theme's folder changes (another
// ZOWIDGETS_ICON_THEME_DIR, say) the cache starts afresh. Safe to call from
// any thread; calls are serialised.
//
// The surfaces handed out share their pixels with the cache: draw them,
// never draw on them.
//
// It also keeps pictures read from files (splash screens, banners) by their
// path: the kPictureCapacity used last.
class ZO_API IconCache {
public:
  static constexpr std::size_t kCapacity = 256;
  static constexpr std::size_t kPictureCapacity = 8;

  // The one cache, for the picture calls.
  static IconCache& instance();
  // The picture in the file at `path`, read once (through ZoImage::Loader)
  // and then handed out again; empty when the file cannot be read, which is
  // tried again at the next call.
  Zo::Image::Surface load(LightweightString<wchar_t> const& path);

  struct Icon {
    Zo::Image::Surface surface; // side x side; empty for a side out of range
    bool fromTheme = false;     // false: the drawn stand-in
  };

  // `side` in pixels (1 .. SvgIcon::kMaxIconSide); `turnDegrees` turns the
  // artwork clockwise about its centre, as a busy sign's does.
  static Icon get(std::string_view name, int side, Colour const& tint, int turnDegrees = 0);

  static std::size_t size();
  // Icons drawn since the process started (cache misses).
  static std::size_t iconsDrawn();
  // Forgets every icon and picture.
  static void clear();

private:
  IconCache() = default;
};

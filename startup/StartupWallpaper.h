#pragma once

#include <zowidgets/host/toolkit/WallpaperProvider.h>

#include <zowidgets/host/base/LightweightString.h>

// The start screen's wallpaper: a picture over horizontal bands in the
// colours of the interface theme, so that the start screen matches what
// follows it. Hand it to the host with setWallpaperProvider.
class ZO_API StartupWallpaper : public iWallpaperProvider {
public:
  explicit StartupWallpaper(LightweightString<wchar_t> imagePath);

  // A buffer of `size`: the bands and the picture over them. Without a
  // picture the buffer comes back as it was made, transparent and bare.
  Zo::Ptr<iOffscreenBuffer> load(XY<int> const& size) const override;

  LightweightString<wchar_t> const& imagePath() const noexcept { return m_imagePath; }

  // The heights of the top band and the one under it, in pixels.
  static int topBandHeight();
  static int secondBandHeight();
  // The third band's height; the fourth takes the rest.
  static int thirdBandHeight();

private:
  LightweightString<wchar_t> m_imagePath;
};

#pragma once

#include <zowidgets/host/base/Ptr.h>
#include <zowidgets/host/base/XY.h>
#include <zowidgets/host/drawing/OffscreenBuffer.h>

// Hands the host the picture it shows behind the first panels while the
// program starts.
class ZO_API iWallpaperProvider : public virtual iObject {
public:
  iWallpaperProvider() = default;
  ~iWallpaperProvider() override = default;
  // The finished picture, `size` pixels.
  virtual Zo::Ptr<iOffscreenBuffer> load(XY<int> const& size) const = 0;
};

// The provider the host asks at start-up; none unless one was set.
ZO_API void setWallpaperProvider(Zo::Ptr<iWallpaperProvider> provider);
ZO_API Zo::Ptr<iWallpaperProvider> getWallpaperProvider();
// The provider's picture for a screen of `size`, or none without a provider.
ZO_API Zo::Ptr<iOffscreenBuffer> loadStartupWallpaper(XY<int> const& size);

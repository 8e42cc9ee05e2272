#include <zowidgets/host/toolkit/WallpaperProvider.h>

#include <mutex>
#include <utility>

namespace {

struct Handover {
  std::mutex mutex;
  Zo::Ptr<iWallpaperProvider> provider;
};

Handover& handover() {
  static Handover instance;
  return instance;
}

} // namespace

void setWallpaperProvider(Zo::Ptr<iWallpaperProvider> provider) {
  std::lock_guard lock(handover().mutex);
  handover().provider = std::move(provider);
}

Zo::Ptr<iWallpaperProvider> getWallpaperProvider() {
  std::lock_guard lock(handover().mutex);
  return handover().provider;
}

Zo::Ptr<iOffscreenBuffer> loadStartupWallpaper(XY<int> const& size) {
  Zo::Ptr<iWallpaperProvider> const provider = getWallpaperProvider();
  return provider ? provider->load(size) : Zo::Ptr<iOffscreenBuffer>();
}

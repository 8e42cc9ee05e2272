#include <zowidgets/host/headless/HeadlessScreen.h>
#include <zowidgets/host/headless/detail/WindowEffects.h>
#include <zowidgets/host/toolkit/Canvas.h>
#include <zowidgets/host/toolkit/Glob.h>
#include <zowidgets/host/toolkit/WallpaperProvider.h>

#include <mutex>

namespace {
// Every program starts on the headless screen until it installs another.
[[maybe_unused]] bool const madeDefault = (setDefaultScreenBackendMaker([]() -> std::unique_ptr<iScreenBackend> {
                                             return std::make_unique<HeadlessScreen>();
                                           }),
                                           true);
// The start-up wallpaper handed to the host, for a screen of `size`: made
// once for each provider and size, as the provider makes a new picture at
// each call; none while no provider is set.
Zo::Image::Surface startupWallpaper(XY<int> size) {
  static std::mutex mutex;
  static Zo::Ptr<iWallpaperProvider> madeBy;
  static XY<int> madeFor;
  static Zo::Ptr<iOffscreenBuffer> made;
  Zo::Ptr<iWallpaperProvider> const provider = getWallpaperProvider();
  std::lock_guard lock(mutex);
  if (provider != madeBy || size != madeFor) {
    made = provider ? provider->load(size) : Zo::Ptr<iOffscreenBuffer>();
    madeBy = provider;
    madeFor = size;
  }
  return made ? made->surface() : Zo::Image::Surface();
}

} // namespace

HeadlessScreen::HeadlessScreen(XY<int> size, double scale) : size_(size), scale_(scale) {}

Zo::Image::Surface HeadlessScreen::grab(Zo::Box<int> const& area) {
  Zo::Image::Surface out(area.width(), area.height());
  if (out.empty())
    return out;
  out.fill(desktop_);
  // While the program starts, its wallpaper lies behind the first windows.
  if (Zo::Image::Surface const wallpaper = startupWallpaper(size_); !wallpaper.empty())
    out.blit(wallpaper, -area.x0, area.y1 - size_.y);
  for (Canvas* canvas : Canvas::stack()) {
    if (!canvas->isMapped())
      continue;
    canvas->paintPending();
    Zo::Box<int> const box = canvas->screenBox();
    Glob const* root = canvas->root();
    if (root)
      WindowEffects::drawSurround(out, area, box, root->getWindowSurround());
    if (root && root->getWindowCornerRadius() > 0)
      WindowEffects::blitWithCurvedCorners(out, area, box, canvas->surface(), root->getWindowCornerRadius());
    else // bottom-up screen coordinates to the grab's top-down rows
      out.blit(canvas->surface(), box.x0 - area.x0, area.y1 - box.y1);
  }
  return out;
}

Zo::Image::Surface HeadlessScreen::windowShot(Glob const& root) {
  Canvas* canvas = root.canvas();
  if (!canvas)
    return {};
  canvas->paintPendingEverywhere();
  return canvas->surface().clone();
}

bool HeadlessScreen::saveWindowShot(Glob const& root, std::string const& path) {
  return windowShot(root).savePNG(path);
}

HeadlessScreen& headlessScreen() {
  if (auto* screen = dynamic_cast<HeadlessScreen*>(&screenBackend()))
    return *screen;
  return useHeadlessScreen();
}

HeadlessScreen& useHeadlessScreen(XY<int> size, double scale) {
  auto screen = std::make_unique<HeadlessScreen>(size, scale);
  HeadlessScreen& made = *screen;
  installScreenBackend(std::move(screen));
  return made;
}

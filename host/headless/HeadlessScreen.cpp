#include <zowidgets/host/headless/HeadlessScreen.h>
#include <zowidgets/host/toolkit/Canvas.h>
#include <zowidgets/host/toolkit/Glob.h>

namespace {
// Every program starts on the headless screen until it installs another.
[[maybe_unused]] bool const madeDefault = (setDefaultScreenBackendMaker([]() -> std::unique_ptr<iScreenBackend> {
                                             return std::make_unique<HeadlessScreen>();
                                           }),
                                           true);
} // namespace

HeadlessScreen::HeadlessScreen(XY<int> size, double scale) : size_(size), scale_(scale) {}

Zo::Image::Surface HeadlessScreen::grab(Zo::Box<int> const& area) {
  Zo::Image::Surface out(area.width(), area.height());
  if (out.empty())
    return out;
  out.fill(desktop_);
  for (Canvas* canvas : Canvas::stack()) {
    if (!canvas->isMapped())
      continue;
    canvas->paintPending();
    Zo::Box<int> box = canvas->screenBox();
    // Bottom-up screen coordinates to the grab's top-down rows.
    out.blit(canvas->surface(), box.x0 - area.x0, area.y1 - box.y1);
  }
  return out;
}

Zo::Image::Surface HeadlessScreen::windowShot(Glob const& root) {
  Canvas* canvas = root.canvas();
  if (!canvas)
    return {};
  canvas->paintPending();
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
